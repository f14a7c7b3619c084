#include "tests/packaging/installed_root.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>

#include <unistd.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

Outcome run(const QString& program, const QStringList& arguments)
{
    constexpr int kLimitMs = 120000;
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(kLimitMs);
    const bool byItself = ended && process.exitStatus() == QProcess::NormalExit;
    return {.status = byItself ? process.exitCode() : -1, .output = process.readAll()};
}

QStringList packageFiles()
{
    const QDir folder(QStringLiteral(ORVANTA_PACKAGE_DIR));
    QStringList files;
    for (const QString& name : {u"orvanta-data_*.deb"_s, u"orvanta_*.deb"_s}) {
        const QStringList packages = folder.entryList({name}, QDir::Files);
        if (packages.size() != 1) {
            return {};
        }
        files.append(folder.filePath(packages.first()));
    }
    return files;
}

/// dpkg wants to be root, who is not pretends to be; and it wants programs that only root's path
/// has.
Outcome InstalledRoot::dpkg(const QStringList& arguments) const
{
    const QString path = qEnvironmentVariable("PATH") + u":/usr/local/sbin:/usr/sbin:/sbin"_s;
    const QStringList command =
        QStringList{u"PATH="_s + path, u"dpkg"_s, u"--root="_s + m_folder.path(),
                    u"--force-depends"_s, u"--force-script-chrootless"_s} +
        arguments;
    return ::geteuid() == 0 ? run(u"env"_s, command)
                            : run(u"fakeroot"_s, QStringList(u"env"_s) + command);
}

Outcome InstalledRoot::install()
{
    QDir(m_folder.path()).mkpath(u"var/lib/dpkg/updates"_s);
    QDir(m_folder.path()).mkpath(u"var/lib/dpkg/info"_s);
    QFile status(path(u"var/lib/dpkg/status"_s));
    QFile available(path(u"var/lib/dpkg/available"_s));
    if (!status.open(QIODevice::WriteOnly) || !available.open(QIODevice::WriteOnly)) {
        return {.status = -1, .output = "no package database"};
    }
    status.close();
    available.close();
    return dpkg(QStringList{u"--install"_s} + packageFiles());
}

Outcome InstalledRoot::purge()
{
    return dpkg({u"--purge"_s, u"orvanta"_s, u"orvanta-data"_s});
}

QStringList InstalledRoot::contents() const
{
    QStringList names;
    QDirIterator all(m_folder.path(), QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString name = QDir(m_folder.path()).relativeFilePath(all.next());
        if (name != u"var" && !name.startsWith(u"var/")) {
            names.append(name);
        }
    }
    names.sort();
    return names;
}

qint64 InstalledRoot::sizeOf(const QString& name) const
{
    qint64 bytes = 0;
    QDirIterator files(path(name), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        bytes += files.fileInfo().isSymLink() ? 0 : files.fileInfo().size();
    }
    return bytes;
}

} // namespace orvanta::test
