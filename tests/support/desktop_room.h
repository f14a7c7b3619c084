// A home and a system of the test's own, as far as the desktop's standards are concerned: nothing
// of the user's settings is read or touched.
#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <map>

namespace orvanta {

class DesktopRoom
{
public:
    DesktopRoom()
    {
        set("HOME", path(u"home"));
        set("XDG_CONFIG_HOME", path(u"config"));
        set("XDG_CONFIG_DIRS", path(u"system-config"));
        set("XDG_DATA_HOME", path(u"data"));
        set("XDG_DATA_DIRS", path(u"system"));
        set("XDG_CURRENT_DESKTOP", QString());
        write(u"system/mime/globs2", "# types\n"
                                     "50:video/x-msvideo:*.avi\n"
                                     "50:video/mpeg:*.mpg\n"
                                     "50:video/mpeg:*.mpeg\n"
                                     "50:audio/mpeg:*.mp3\n"
                                     "50:text/vnd.trolltech.linguist:*.ts\n"
                                     "50:video/mp2t:*.ts\n"
                                     "50:audio/ogg:*.ogg\n"
                                     "50:audio/x-vorbis+ogg:*.ogg\n"
                                     "50:text/x-c++src:*.C:cs\n"
                                     "50:text/x-makefile:makefile\n");
    }
    ~DesktopRoom()
    {
        for (const auto& [name, before] : m_before) {
            before.isNull() ? qunsetenv(name) : qputenv(name, before);
        }
    }
    DesktopRoom(const DesktopRoom&) = delete;
    DesktopRoom& operator=(const DesktopRoom&) = delete;

    void set(const char* variable, const QString& value)
    {
        m_before.try_emplace(variable, qgetenv(variable));
        qputenv(variable, value.toUtf8());
    }

    /// "config/…", "data/…": the user's; "system/…", "system-config/…": the system's.
    [[nodiscard]] QString path(QStringView name) const
    {
        return m_folder.filePath(name.toString());
    }

    void write(QStringView name, const QByteArray& content) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("a test file cannot be written");
        }
    }

    [[nodiscard]] QByteArray bytes(QStringView name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    [[nodiscard]] bool has(QStringView name) const { return QFileInfo::exists(path(name)); }

    /// Installs a program's desktop entry for everybody.
    void install(const QString& id) const
    {
        write(QString(QStringLiteral("system/applications/") + id), "[Desktop Entry]\nName=x\n");
    }

private:
    QTemporaryDir m_folder;
    std::map<const char*, QByteArray> m_before;
};

} // namespace orvanta
