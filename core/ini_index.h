// Where sections and keys stand in an INI-structured text.
#pragma once

#include "core/ini_lines.h"
#include "core/ini_names.h"

#include <unordered_map>
#include <vector>

namespace orvanta {

/// A key as callers ask for it. A key with signs "=" in itself is a line's text up to one of the
/// later signs.
struct IniKey
{
    explicit IniKey(QStringView key);

    FoldedName name;
    qsizetype equalsSigns;
};

/// Offsets into the text; a section ends where the next one begins.
struct IniSection
{
    quint32 header;   // its header line
    quint32 body;     // the line behind the header line
    quint32 insertAt; // where a new key goes: behind the last line with a key
};

/// Holds offsets only, so that a file of a million sections costs a few tens of megabytes. The
/// keys of a section get a table of their own when the section is large and asked for.
class IniIndex
{
public:
    static constexpr quint32 kNone = NameTable::kNone;

    /// Reads the whole text from the offset on.
    void build(const IniText& text, qsizetype begin);
    /// Takes in what was appended to the text from the offset on, where a line begins.
    void extend(const IniText& text, qsizetype begin);

    /// The first section of the name; kNone without one.
    [[nodiscard]] quint32 findSection(const FoldedName& name, const IniText& text) const;
    [[nodiscard]] const IniSection& section(quint32 number) const { return m_sections[number]; }

    /// Offset of the line of the section's first key of the name; kNone without one.
    [[nodiscard]] quint32 findKey(quint32 section, const IniKey& key, const IniText& text) const;

private:
    void addSection(const IniText& text, const IniLine& line);
    void noteKeyLine(const IniText& text, const IniLine& line);
    [[nodiscard]] qsizetype endOf(quint32 section, const IniText& text) const;
    [[nodiscard]] quint32 scanForKey(quint32 section, const IniKey& key, const IniText& text) const;
    [[nodiscard]] const NameTable& keysOf(quint32 section, const IniText& text) const;

    std::vector<IniSection> m_sections;
    NameTable m_sectionNames;
    mutable std::unordered_map<quint32, NameTable> m_keys; // by section number
};

} // namespace orvanta
