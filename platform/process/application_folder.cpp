#include "platform/process/application_folder.h"

#include "core/log.h"
#include "core/paths.h"
#include "core/run_time_error.h"

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

QString folderWithoutVariable()
{
    QString besideProgram = QCoreApplication::applicationDirPath();
    if (isPortable(besideProgram)) {
        return besideProgram;
    }
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/orvanta"_s;
}

QString chosenApplicationFolder()
{
    const QString home = qEnvironmentVariable("ORVANTA_HOME");
    return home.isEmpty() ? folderWithoutVariable()
                          : QDir::cleanPath(QDir::current().absoluteFilePath(home));
}

QString stateFolder()
{
    const QString given = qEnvironmentVariable("XDG_STATE_HOME"); // counts only when absolute
    return (given.startsWith(u'/') ? given : QDir::homePath() + u"/.local/state"_s) + u"/orvanta"_s;
}

QString applicationFolder()
{
    QString folder = chosenApplicationFolder();
    if (!QDir().mkpath(folder)) {
        qCInfo(logErrors, "the application folder %ls cannot be created", qUtf16Printable(folder));
    }
    installDefaultSettings(folder);
    return folder;
}

void requireSettings(const QString& folder)
{
    if (!QFileInfo(folder).isDir()) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    const QFileInfo settings(settingsIn(folder));
    if (!settings.isFile() || !settings.isReadable()) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

// Those of the installation, which its administrator may have changed; else the built-in ones.
QByteArray defaultSettings()
{
    initDefaults();
    const QString shared = QStringLiteral(ORVANTA_SHARED) + u"/defaults/orvanta.ini"_s;
    const QString installed = QCoreApplication::applicationDirPath() + u'/' + shared;
    QFile defaults(QFileInfo(installed).isFile() ? installed : u":/orvanta/orvanta.ini"_s);
    if (!defaults.open(QIODevice::ReadOnly)) {
        return {};
    }
    return defaults.readAll().replace("\r\n", "\n").replace("\n", "\r\n");
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

namespace {

/// Where an installation, and where a build inside a checkout, keeps things, seen from the program.
struct InstalledPlaces
{
    QStringList documents; // read only: icons, help, lessons
    QStringList programs;  // companions
};

} // namespace

static InstalledPlaces installedPlaces()
{
    const QDir program(QCoreApplication::applicationDirPath());
    const auto place = [&](const QString& name) { return QDir::cleanPath(program.filePath(name)); };
    const QString shared = place(QStringLiteral(ORVANTA_SHARED));
    return {
        .documents = {shared, place(u"../resources"_s), place(u"../resources/help"_s)},
        .programs = {place(QStringLiteral(ORVANTA_COMPANIONS)), shared, place(u"companions"_s)}};
}

static bool isProgram(const QString& file)
{
    const QFileInfo info(file);
    return info.isFile() && info.isExecutable();
}

/// The name as it is, and without the ending that programs bear elsewhere.
static QStringList programNames(const QString& name)
{
    const bool ends = name.endsWith(u".exe", Qt::CaseInsensitive);
    return ends ? QStringList{name, name.chopped(4)} : QStringList{name};
}

QString installedFile(const QString& folder, const QString& name)
{
    QString own = programFile(folder, name);
    if (QFileInfo::exists(own)) {
        return own;
    }
    for (const QString& installed : installedPlaces().documents) {
        QString file = programFile(installed, name);
        if (QFileInfo::exists(file)) {
            return file;
        }
    }
    return own;
}

QString installedProgram(const QString& folder, const QString& name)
{
    for (const QString& place : QStringList(folder) + installedPlaces().programs) {
        for (const QString& called : programNames(name)) {
            QString file = programFile(place, called);
            if (isProgram(file)) {
                return file;
            }
        }
    }
    return {};
}

} // namespace orvanta
