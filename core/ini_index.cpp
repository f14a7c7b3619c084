#include "core/ini_index.h"

namespace orvanta {

/// Up to this many bytes a section's keys are found by looking through its lines.
constexpr qsizetype kScannedBytes = 256;

static QByteArrayView trimmedLineAt(const IniText& text, quint32 begin)
{
    const IniLine line = iniLineAt(text.bytes, begin);
    return iniTrimmed(text.bytes.sliced(line.begin, line.end - line.begin));
}

static QByteArrayView trimmedLine(const IniText& text, const IniLine& line)
{
    return iniTrimmed(text.bytes.sliced(line.begin, line.end - line.begin));
}

/// Up to the first "=".
static QByteArrayView keyNameAt(const IniText& text, quint32 line)
{
    const QByteArrayView content = trimmedLineAt(text, line);
    return iniTrimmed(content.first(iniEqualsSign(content, 0)));
}

static bool hasKey(QByteArrayView trimmedLine, const IniKey& key, const IniEncoding& encoding)
{
    if (iniLineKind(trimmedLine) != IniLineKind::Key) {
        return false;
    }
    const qsizetype sign = iniEqualsSign(trimmedLine, key.equalsSigns);
    return sign >= 0 && key.name.equals(iniTrimmed(trimmedLine.first(sign)), encoding);
}

static void addFirstKey(NameTable& keys, const IniText& text, const IniLine& line)
{
    const QByteArrayView content = trimmedLine(text, line);
    const qsizetype sign = iniEqualsSign(content, 0);
    if (iniLineKind(content) != IniLineKind::Key || sign < 0) {
        return;
    }
    const FoldedName name(iniTrimmed(content.first(sign)), text.encoding);
    const quint32 hash = name.hash();
    const auto isSame = [&](quint32 other) {
        return name.equals(keyNameAt(text, other), text.encoding);
    };
    if (keys.find(hash, isSame) == NameTable::kNone) {
        keys.add(static_cast<quint32>(line.begin), hash);
    }
}

/// As the line's key is trimmed: otherwise a key written with a tab behind it is never found again.
static QStringView withoutBlanksBehind(QStringView key)
{
    while (!key.isEmpty() && QStringView(u" \t\v").contains(key.back())) {
        key.chop(1);
    }
    return key;
}

IniKey::IniKey(QStringView key)
    : name(withoutBlanksBehind(key)),
      equalsSigns(key.count(u'='))
{}

void IniIndex::build(const IniText& text, qsizetype begin)
{
    *this = IniIndex();
    extend(text, begin);
}

void IniIndex::extend(const IniText& text, qsizetype begin)
{
    for (IniLine line = iniLineAt(text.bytes, begin); line.begin < text.bytes.size();
         line = iniLineAt(text.bytes, line.next)) {
        const IniLineKind kind = iniLineKind(trimmedLine(text, line));
        if (kind == IniLineKind::Header) {
            addSection(text, line);
        } else if (kind == IniLineKind::Key && !m_sections.empty()) {
            noteKeyLine(text, line);
        }
    }
}

void IniIndex::addSection(const IniText& text, const IniLine& line)
{
    const auto body = static_cast<quint32>(line.next);
    const auto number = static_cast<quint32>(m_sections.size());
    m_sections.push_back({static_cast<quint32>(line.begin), body, body});
    const FoldedName name(iniSectionName(trimmedLine(text, line)), text.encoding);
    if (findSection(name, text) == kNone) {
        m_sectionNames.add(number, name.hash());
    }
}

void IniIndex::noteKeyLine(const IniText& text, const IniLine& line)
{
    m_sections.back().insertAt = static_cast<quint32>(line.next);
    const auto keys = m_keys.find(static_cast<quint32>(m_sections.size() - 1));
    if (keys != m_keys.end()) {
        addFirstKey(keys->second, text, line);
    }
}

quint32 IniIndex::findSection(const FoldedName& name, const IniText& text) const
{
    return m_sectionNames.find(name.hash(), [&](quint32 number) {
        const QByteArrayView line = trimmedLineAt(text, m_sections[number].header);
        return name.equals(iniSectionName(line), text.encoding);
    });
}

qsizetype IniIndex::endOf(quint32 section, const IniText& text) const
{
    const bool isLast = section + 1 == m_sections.size();
    return isLast ? text.bytes.size() : m_sections[section + 1].header;
}

quint32 IniIndex::findKey(quint32 section, const IniKey& key, const IniText& text) const
{
    const bool isSmall = endOf(section, text) - m_sections[section].body <= kScannedBytes;
    if (isSmall || key.equalsSigns > 0) {
        return scanForKey(section, key, text);
    }
    return keysOf(section, text).find(key.name.hash(), [&](quint32 line) {
        return key.name.equals(keyNameAt(text, line), text.encoding);
    });
}

quint32 IniIndex::scanForKey(quint32 section, const IniKey& key, const IniText& text) const
{
    const qsizetype end = endOf(section, text);
    for (IniLine line = iniLineAt(text.bytes, m_sections[section].body); line.begin < end;
         line = iniLineAt(text.bytes, line.next)) {
        if (hasKey(trimmedLine(text, line), key, text.encoding)) {
            return static_cast<quint32>(line.begin);
        }
    }
    return kNone;
}

const NameTable& IniIndex::keysOf(quint32 section, const IniText& text) const
{
    const auto [keys, isNew] = m_keys.try_emplace(section);
    if (isNew) {
        const qsizetype end = endOf(section, text);
        for (IniLine line = iniLineAt(text.bytes, m_sections[section].body); line.begin < end;
             line = iniLineAt(text.bytes, line.next)) {
            addFirstKey(keys->second, text, line);
        }
    }
    return keys->second;
}

} // namespace orvanta
