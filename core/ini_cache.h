// The documents read last, each valid as long as its file is unchanged.
#pragma once

#include "core/ini_document.h"
#include "core/ini_file.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

namespace orvanta {

class IniCache
{
public:
    /// The file's document as it is at this moment; null when it cannot be read. One stat(2) when
    /// the file is unchanged.
    [[nodiscard]] std::shared_ptr<const IniDocument> current(const QString& path);

    /// Opens and locks a file to be changed, a missing one is created. Nothing when that fails.
    [[nodiscard]] std::optional<IniFile> openToChange(const QString& path);
    /// The document of a file that the caller has locked, to be changed; null when it cannot be
    /// read. It belongs to the caller alone until one of the next two.
    [[nodiscard]] std::shared_ptr<IniDocument> take(const QString& path, const IniFile& file);
    /// Takes the document back unchanged.
    void giveBack(const QString& path, std::shared_ptr<IniDocument> document);
    /// Takes the document back in the state that the caller's writing gave the file.
    void keep(const QString& path, std::shared_ptr<IniDocument> document, const IniFile& file);

    void clear() { m_entries.clear(); }
    void forget(const QString& path);
    [[nodiscard]] bool holds(const QString& path) const;

private:
    struct Entry
    {
        QString path;
        QByteArray nativePath;
        FileState state;
        std::shared_ptr<IniDocument> document;
    };

    /// The entry of the path, moved to the front; a new one when there is none.
    Entry& entryOf(const QString& path);
    static bool load(Entry& entry, const IniFile& file);

    std::vector<Entry> m_entries; // the last used first
};

} // namespace orvanta
