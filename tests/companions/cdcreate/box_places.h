// What the tests of whole boxes share.
#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace orvanta::test {

/// Every file below a folder by its name there, with its bytes.
inline QMap<QString, QByteArray> filesIn(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator all(folder, QDir::Files | QDir::Hidden | QDir::System,
                     QDirIterator::Subdirectories);
    while (all.hasNext()) {
        QFile file(all.next());
        files.insert(QDir(folder).relativeFilePath(file.fileName()),
                     file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    }
    return files;
}

/// All that lies directly in a folder, hidden things too.
inline QStringList namesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

inline bool runs(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool isDone = process.waitForFinished(120'000) && process.exitCode() == 0;
    EXPECT_TRUE(isDone) << qPrintable(program) << ": " << process.readAll().constData();
    return isDone;
}

/// Takes a box out of its file as other programs do, into a new folder. A folder stays where it is.
inline QString takenOut(const QString& box, const QString& folder)
{
    if (box.endsWith(u".iso")) {
        QDir().mkpath(folder);
        runs(QStringLiteral("xorriso"), {QStringLiteral("-no_rc"), QStringLiteral("-osirrox"),
                                         QStringLiteral("on"), QStringLiteral("-indev"), box,
                                         QStringLiteral("-extract"), QStringLiteral("/"), folder});
        return folder;
    }
    if (box.endsWith(u".zip")) {
        runs(QStringLiteral("unzip"),
             {QStringLiteral("-q"), QStringLiteral("-o"), box, QStringLiteral("-d"), folder});
        return folder;
    }
    return box;
}

} // namespace orvanta::test
