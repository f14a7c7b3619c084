// A mimeapps.list: which program opens which type of content.
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace orvanta {

inline constexpr char kDefaultApplications[] = "Default Applications";
inline constexpr char kRemovedAssociations[] = "Removed Associations";
inline constexpr char kAddedAssociations[] = "Added Associations";

/// One such file in memory. Lines that no change concerns keep their bytes. Programs are named by
/// the ids of their desktop entries ("vlc.desktop").
class MimeAppsList
{
public:
    /// Missing files are empty lists. One that is there and cannot be read is never written: nobody
    /// knows what other programs have in it.
    explicit MimeAppsList(const QString& file);

    [[nodiscard]] const QString& file() const { return m_file; }
    /// Programs of a type, best first.
    [[nodiscard]] QByteArrayList programs(const QByteArray& section, const QByteArray& type) const;
    [[nodiscard]] bool has(const QByteArray& section, const QByteArray& type) const;

    /// Makes the program the first of the type, before those that are there; adds section and line
    /// as needed.
    void putFirst(const QByteArray& section, const QByteArray& type, const QByteArray& program);
    /// Takes the program out again; what putFirst did is undone byte for byte.
    void takeOut(const QByteArray& section, const QByteArray& type, const QByteArray& program);

    /// Writes the file when something changed. What other programs have written into it since it
    /// was read stays. New lines end as the first one does.
    void save();

private:
    /// One call that changed something.
    struct Change
    {
        void (MimeAppsList::*call)(const QByteArray&, const QByteArray&, const QByteArray&);
        QByteArray section;
        QByteArray type;
        QByteArray program;
    };

    MimeAppsList(QString file, const std::optional<QByteArray>& content);
    [[nodiscard]] QList<qsizetype> linesOf(const QByteArray& section, const QByteArray& type) const;
    void buildIndex();
    [[nodiscard]] QByteArray content() const;
    [[nodiscard]] QByteArray newLinesOf(const QByteArray& section) const;

    QString m_file;
    QByteArrayList m_lines;                // of the file, with their line ends; then the new ones
    qsizetype m_newFrom = 0;               // the first new one
    QHash<qsizetype, QByteArray> m_places; // section of each new line
    QHash<QByteArray, QList<qsizetype>> m_index; // section and type -> lines
    QByteArray m_lineEnd;
    bool m_isReadable = true;
    std::vector<Change> m_changes;
};

} // namespace orvanta
