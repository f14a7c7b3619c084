// The small files by which the desktop knows this program: its desktop entry, its start with the
// session, its command on folders. They are made from templates in resources/registration.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

namespace orvanta {

/// All writing is idempotent and replaces files whole; what fails is logged. executable: the
/// program's absolute path. home: the application folder that its commands carry along as
/// $ORVANTA_HOME; empty where the program finds it by itself.
class DesktopEntries
{
public:
    explicit DesktopEntries(QString executable, QString home = {});

    /// The desktop entry in the user's applications folder, which opens these types. Whether it
    /// changed. Brings the program's icon along where none is installed.
    [[nodiscard]] bool writeApplication(const QByteArrayList& types) const;

    /// Whether there is such an entry of the user's.
    [[nodiscard]] static bool hasApplication();

    void writeAutostart() const;
    static void removeAutostart();
    /// Whether the program starts with the session.
    [[nodiscard]] static bool hasAutostart();

    /// "Play clips" on folders, in every file manager that can be told. Never as an opener of
    /// folders: a program that says so may become the one that opens them.
    void writeFolderCommand() const;

private:
    [[nodiscard]] QByteArray environment() const;
    [[nodiscard]] QByteArray execCommand() const;
    [[nodiscard]] QByteArray menuCommand(const QString& menu) const;
    [[nodiscard]] QByteArray shellCommand() const;
    [[nodiscard]] QByteArray filled(const QString& name) const;
    [[nodiscard]] QByteArray adapted(const QByteArray& entry, QByteArrayList types) const;

    QString m_executable;
    QString m_home;
};

/// A path as the command of a desktop entry's Exec line: quoted, its special characters escaped,
/// where it has any.
[[nodiscard]] QByteArray execQuoted(const QString& path);

/// A path as one word of a shell command.
[[nodiscard]] QByteArray shellQuoted(const QString& path);

} // namespace orvanta
