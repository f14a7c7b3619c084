// Reading and writing single values of INI-structured files: settings, packets, groups.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace orvanta {

class IniDocument;

/// Reads one value. Outer blanks are cut; at most 2047 characters come back; an absent file,
/// section or key and an empty value give the default. Nothing is cached as far as a caller can
/// see: another process's write is seen by the next read. Raises nothing.
[[nodiscard]] QString ReadIni(const QString& section, const QString& key, const QString& file,
                              const QString& defaultText = {});

/// Writes one value, creating file, section and key as needed. Atomic between processes; a kill at
/// any instruction leaves the old file or the new one. Failures are logged, never raised.
void WriteIni(const QString& section, const QString& key, const QString& value,
              const QString& file);

/// The value as it stands in the file, without the caller's default and without cutting blanks
/// that an outer pair of quotes protects.
[[nodiscard]] QString readIniRaw(const QString& section, const QString& key, const QString& file);

/// A file as it was at one moment, for reading many values of a document: no look at the disk for
/// each of them.
class IniSnapshot
{
public:
    explicit IniSnapshot(const QString& file);
    /// As ReadIni.
    [[nodiscard]] QString read(const QString& section, const QString& key,
                               const QString& defaultText = {}) const;

private:
    std::shared_ptr<const IniDocument> m_document; // null: the file could not be read
};

/// WriteIni that says whether the value is now in the file.
[[nodiscard]] bool tryWriteIni(const QString& section, const QString& key, const QString& value,
                               const QString& file);

/// Several changes as one atomic replacement, with the file locked in between: for the hand-over
/// queue, whose changes must never be seen half done.
struct IniChange
{
    QString section;
    QString key;
    QString value;
};
/// Calls plan with a reader of the locked file (section, key -> text) and commits what it returns
/// in one replacement. Returns false when the file could not be written. The plan must not read or
/// write the same file by the other functions.
[[nodiscard]] bool changeIniAtOnce(
    const QString& file,
    const std::function<std::vector<IniChange>(
        const std::function<QString(const QString& section, const QString& key)>& read)>& plan);

/// Whether the file can be opened for writing now; one that is not there is made. What a full disk
/// would say shows only when something is written.
[[nodiscard]] bool canWriteIni(const QString& file);

/// The 8-bit code page (for example "windows-1251") for files that are not valid UTF-8; empty: by
/// the user's locale.
void setLegacyCodePage(const QString& name);

} // namespace orvanta
