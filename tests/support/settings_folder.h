// A folder of its own with settings in it, for one test.
#pragma once

#include "core/ini.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

namespace orvanta {

class SettingsFolder
{
public:
    explicit SettingsFolder(const QByteArray& settings = {})
    {
        if (!settings.isNull()) {
            write(QStringLiteral("orvanta.ini"), settings);
        }
    }

    [[nodiscard]] QString path() const { return m_folder.path(); }
    [[nodiscard]] QString file(const QString& name) const { return m_folder.filePath(name); }
    [[nodiscard]] QString ini() const { return file(QStringLiteral("orvanta.ini")); }

    QString write(const QString& name, const QByteArray& content) const
    {
        QFile out(file(name));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size()) {
            qFatal("a test file cannot be written");
        }
        return out.fileName();
    }

    [[nodiscard]] QByteArray bytes(const QString& name) const
    {
        QFile in(file(name));
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    [[nodiscard]] QString value(const char* section, const char* key) const
    {
        return ReadIni(QString::fromUtf8(section), QString::fromUtf8(key), ini());
    }

private:
    QTemporaryDir m_folder;
};

} // namespace orvanta
