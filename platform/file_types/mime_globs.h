// Which types of content an extension stands for, as the desktop's type database has it.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

namespace orvanta {

/// Knows the patterns that are one star, a dot and an extension.
class MimeGlobs
{
public:
    /// Reads the database, unless that was done and none of its files has changed since.
    void readWhenChanged();

    /// Types of an extension without its dot, in any case; the most likely first. Where some are
    /// media types, only those: ".ts" is a film to this program, not a translator's file.
    [[nodiscard]] QStringList typesOf(const QString& extension) const;
    /// Whether the extension is known without the packages of the user.
    [[nodiscard]] bool isSystems(const QString& extension) const;

private:
    struct Glob
    {
        int weight = 0;
        QString type;
        bool isUsers = false; // from a package of the user's own
    };

    void readLine(QStringView line, bool isUsers);

    QByteArray m_stamp; // which files were read, and their ages
    QHash<QString, QList<Glob>> m_globs;
};

} // namespace orvanta
