// The desktop's default applications, by the standard of mimeapps.list.
#pragma once

#include "platform/file_types/mime_apps_list.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <vector>

namespace orvanta {

/// This program's desktop entry.
inline constexpr char kOwnDesktopEntry[] = "orvanta.desktop";

/// Files are read at the first use and kept until save(): one object serves one turn of reading or
/// changing. Changes go to the user's own lists alone.
class DefaultApplications
{
public:
    /// Id of the desktop entry that opens the type; empty for none. Only entries that are there
    /// count.
    [[nodiscard]] QByteArray defaultOf(const QByteArray& type);

    /// Makes this program the default. The earlier ones stay in the list behind it.
    void claim(const QByteArray& type);
    /// Takes this program out of the type's defaults, also where the desktop chose it by itself.
    void release(const QByteArray& type);
    /// Makes another program the default, if it is there and not the default already.
    void giveTo(const QByteArray& type, const QByteArray& program);

    /// Writes what has changed.
    void save();

private:
    struct EntryFolder
    {
        QString folder;
        QHash<QByteArray, QByteArray> cache; // type -> ids, as its mimeinfo.cache has them
    };

    void load();
    void readCache(EntryFolder& entries) const;
    [[nodiscard]] bool isInstalled(const QByteArray& program);
    [[nodiscard]] QByteArray firstInstalled(const QByteArrayList& programs);
    [[nodiscard]] QByteArray firstAssociated(const QByteArray& type, const QByteArrayList& removed);
    void takeOutOfUsersLists(const QByteArray& section, const QByteArray& type);
    [[nodiscard]] bool isOwnListFor(const MimeAppsList& list, const QByteArray& type) const;

    bool m_isLoaded = false;
    std::vector<MimeAppsList> m_lists; // best first
    std::vector<EntryFolder> m_folders;
    QHash<QByteArray, bool> m_installed;
};

} // namespace orvanta
