// A root folder into which the packages are really installed, and programs that look things over.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace orvanta::test {

struct Outcome
{
    int status = -1;   // exit status; -1 when it did not run or did not end by itself
    QByteArray output; // standard output and standard error together
};

/// Runs a program to its end.
[[nodiscard]] Outcome run(const QString& program, const QStringList& arguments);

/// The packages that ctest has made, the one that the other needs first; none when one is not
/// there, or there several times.
[[nodiscard]] QStringList packageFiles();

/// An empty root with a package database of its own. Nothing outside of it is written.
class InstalledRoot
{
public:
    /// Installs the packages with dpkg. Libraries are those of the machine.
    [[nodiscard]] Outcome install();
    [[nodiscard]] Outcome purge();

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Every file and folder, but for the package database's own.
    [[nodiscard]] QStringList contents() const;
    /// Bytes of all files below a folder of it.
    [[nodiscard]] qint64 sizeOf(const QString& name) const;

private:
    [[nodiscard]] Outcome dpkg(const QStringList& arguments) const;

    QTemporaryDir m_folder;
};

} // namespace orvanta::test
