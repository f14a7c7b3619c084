#include "tests/e2e/support/home.h"

#include "core/ini.h"

#include <QFile>

namespace orvanta::e2e {

using namespace Qt::StringLiterals;

Home::Home(Kind kind)
{
    if (kind == Installed) {
        QFile::copy(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/orvanta.ini"), settingsFile());
        QFile::setPermissions(settingsFile(), QFile::ReadOwner | QFile::WriteOwner);
        set(u"main"_s, u"language"_s, u"1"_s);
    }
}

QString Home::settingsFile() const
{
    return file(u"orvanta.ini"_s);
}

void Home::set(const QString& section, const QString& key, const QString& value) const
{
    WriteIni(section, key, value, settingsFile());
}

QString Home::get(const QString& section, const QString& key) const
{
    return ReadIni(section, key, settingsFile());
}

void Home::setOption(const QString& key, bool on) const
{
    set(u"options"_s, key, on ? u"1"_s : u"0"_s);
}

void Home::remove(const QString& key) const
{
    QFile settings(settingsFile());
    if (!settings.open(QIODevice::ReadWrite)) {
        return;
    }
    QByteArrayList kept = settings.readAll().split('\n');
    kept.removeIf([&](const QByteArray& line) { return line.startsWith(key.toUtf8() + '='); });
    settings.resize(0);
    settings.write(kept.join('\n'));
}

} // namespace orvanta::e2e
