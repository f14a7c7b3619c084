#include "platform/file_types/desktop_folders.h"

#include <QDir>
#include <QFile>

namespace orvanta {

using namespace Qt::StringLiterals;

/// The absolute folders of a list like "/a:/b/"; those of the default when there are none.
static QStringList listed(const char* variable, const QString& defaultList)
{
    QStringList folders;
    for (const QString& list : {qEnvironmentVariable(variable), defaultList}) {
        for (const QString& folder : list.split(u':', Qt::SkipEmptyParts)) {
            if (QDir::isAbsolutePath(folder)) {
                folders.append(QDir::cleanPath(folder));
            }
        }
        if (!folders.isEmpty()) {
            break;
        }
    }
    return folders;
}

/// One folder, whatever characters its name has. A relative path counts as none.
static QString userFolder(const char* variable, const QString& belowHome)
{
    const QString folder = qEnvironmentVariable(variable);
    const bool isAbsolute = QDir::isAbsolutePath(folder);
    return QDir::cleanPath(isAbsolute ? folder : QDir::home().absoluteFilePath(belowHome));
}

QString DesktopFolders::configHome()
{
    return userFolder("XDG_CONFIG_HOME", u".config"_s);
}

QStringList DesktopFolders::configFolders()
{
    return QStringList(configHome()) + listed("XDG_CONFIG_DIRS", u"/etc/xdg"_s);
}

QString DesktopFolders::dataHome()
{
    return userFolder("XDG_DATA_HOME", u".local/share"_s);
}

QStringList DesktopFolders::dataFolders()
{
    return QStringList(dataHome()) + listed("XDG_DATA_DIRS", u"/usr/local/share:/usr/share"_s);
}

bool DesktopFolders::areSeen(const QString& sandboxFile)
{
    return !QFile::exists(sandboxFile);
}

QStringList DesktopFolders::desktopNames()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts);
}

} // namespace orvanta
