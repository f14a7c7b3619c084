// File types of this program on the desktop: who opens them, what the desktop calls them, their
// icons.
#pragma once

#include "platform/file_types/default_applications.h"
#include "platform/file_types/desktop_caches.h"
#include "platform/file_types/desktop_entries.h"
#include "platform/file_types/mime_globs.h"
#include "platform/file_types/registry_file.h"

#include <QHash>
#include <QString>
#include <QStringList>

namespace orvanta {

/// One extension may stand for several types of content, and several extensions for one: a type is
/// this program's as long as one of its extensions is. Nothing is on the disk before save().
class DesktopTypes
{
public:
    DesktopTypes(QString applicationFolder, const DesktopEntries& entries, RegistryFile& file,
                 DesktopCaches& caches);

    /// The default value of ".e", as Registry has it.
    [[nodiscard]] QString read(const QString& extension);
    void write(const QString& extension, const QString& value);

    /// The type's icon is now the one that value names: a path below the application folder.
    void writeIcon(const QString& extension, const QString& value);
    /// The program can be started by the desktop.
    void writeCommand();

    /// Brings everything to the desktop and forgets what was read of it.
    void save();

private:
    void load();
    [[nodiscard]] QStringList typesOf(const QString& extension) const;
    [[nodiscard]] QString storedName(const QString& extension) const;
    void claim(const QString& extension);
    void release(const QString& extension, const QByteArray& heir);
    void releaseType(const QString& type, bool hasIcon);
    void countTypes(const QString& extension, int difference);

    void saveClaims();
    void savePackage();
    void saveEntry();
    void saveIcons();
    [[nodiscard]] QHash<QString, QString> firstClaims() const;
    [[nodiscard]] QStringList iconNames(const QString& extension,
                                        const QHash<QString, QString>& firstClaims) const;

    QString m_folder;
    const DesktopEntries& m_entries;
    RegistryFile& m_file;
    DesktopCaches& m_caches;

    // As long as a turn lasts.
    bool m_isLoaded = false;
    MimeGlobs m_globs;
    DefaultApplications m_defaults;
    QStringList m_claimed;        // extensions in lower case, in the order of their claims
    QHash<QString, int> m_claims; // type of content -> how many extensions claim it
    QStringList m_newIcons;       // extensions
    QStringList m_oldIcons;       // names in the icon theme
    bool m_isChanged = false;     // who opens what
    bool m_isEntryWanted = false;
};

} // namespace orvanta
