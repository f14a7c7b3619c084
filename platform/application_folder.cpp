#include "platform/application_folder.h"

#include "core/log.h"
#include "core/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

// Resources of a static library are linked in only when somebody asks; outside any namespace.
static void initDefaults()
{
    Q_INIT_RESOURCE(defaults);
}

namespace orvanta {

using namespace Qt::StringLiterals;

static QString settingsIn(const QString& folder)
{
    return folder + u"/orvanta.ini"_s;
}

static bool isPortable(const QString& folder)
{
    const QFileInfo settings(settingsIn(folder));
    return settings.isFile() && settings.isWritable() && QFileInfo(folder).isWritable();
}

static QString chosenFolder()
{
    const QString home = qEnvironmentVariable("ORVANTA_HOME");
    if (!home.isEmpty()) {
        return QDir::cleanPath(QDir::current().absoluteFilePath(home));
    }
    QString besideProgram = QCoreApplication::applicationDirPath();
    if (isPortable(besideProgram)) {
        return besideProgram;
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/orvanta"_s;
}

QString applicationFolder()
{
    QString folder = chosenFolder();
    if (!QDir().mkpath(folder)) {
        qCInfo(logErrors, "the application folder %ls cannot be created", qUtf16Printable(folder));
    }
    installDefaultSettings(folder);
    return folder;
}

static QByteArray defaultSettings()
{
    initDefaults();
    QFile defaults(u":/orvanta/orvanta.ini"_s);
    if (!defaults.open(QIODevice::ReadOnly)) {
        return {};
    }
    return defaults.readAll().replace("\n", "\r\n");
}

static bool writeWhole(QTemporaryFile& file, const QByteArray& content)
{
    return file.open() && file.write(content) == content.size() && file.flush();
}

/// A link never replaces a file that another launch has already put there and perhaps written to.
/// File systems without links get a plain rename.
static bool putInPlace(const QByteArray& complete, const QByteArray& target)
{
    return ::link(complete.constData(), target.constData()) == 0 || errno == EEXIST ||
           ::rename(complete.constData(), target.constData()) == 0;
}

void installDefaultSettings(const QString& folder)
{
    const QString settings = settingsIn(folder);
    if (QFileInfo::exists(settings)) {
        return;
    }
    // Several first launches may come here at once: the file appears whole.
    QTemporaryFile complete(folder + u"/orvanta.ini.XXXXXX"_s);
    if (!writeWhole(complete, defaultSettings()) ||
        !putInPlace(QFile::encodeName(complete.fileName()), QFile::encodeName(settings))) {
        qCInfo(logErrors, "default settings cannot be installed into %ls: %s",
               qUtf16Printable(folder), std::strerror(errno));
    }
}

/// Where an installation and where a build inside a checkout keep what is only read.
static QStringList installedFolders()
{
    const QDir program(QCoreApplication::applicationDirPath());
    return {QDir::cleanPath(program.filePath(u"../share/orvanta"_s)),
            QDir::cleanPath(program.filePath(u"../resources"_s))};
}

QString installedFile(const QString& folder, const QString& name)
{
    QString own = programFile(folder, name);
    if (QFileInfo::exists(own)) {
        return own;
    }
    for (const QString& installed : installedFolders()) {
        QString file = programFile(installed, name);
        if (QFileInfo::exists(file)) {
            return file;
        }
    }
    return own;
}

} // namespace orvanta
