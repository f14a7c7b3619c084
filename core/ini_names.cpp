#include "core/ini_names.h"

#include <QHashFunctions>
#include <QHashSeed>

#include <algorithm>

namespace orvanta {

static bool isAsciiByte(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

static char foldedAscii(char byte)
{
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

FoldedName::FoldedName(QStringView name)
{
    m_bytes.reserve(name.size());
    for (const QChar character : name) {
        if (character.unicode() >= 0x80) {
            foldAnyCharacters(name.toString());
            return;
        }
        m_bytes.append(foldedAscii(static_cast<char>(character.unicode())));
    }
}

FoldedName::FoldedName(QByteArrayView name, const IniEncoding& encoding)
{
    m_bytes.reserve(name.size());
    for (const char byte : name) {
        if (!isAsciiByte(byte)) {
            foldAnyCharacters(encoding.decode(name));
            return;
        }
        m_bytes.append(foldedAscii(byte));
    }
}

void FoldedName::foldAnyCharacters(const QString& name)
{
    const QByteArray folded = name.toCaseFolded().toUtf8();
    m_bytes.clear();
    m_bytes.append(folded.constData(), folded.size());
}

bool FoldedName::equals(QByteArrayView name, const IniEncoding& encoding) const
{
    const qsizetype common = std::min(name.size(), m_bytes.size());
    for (qsizetype i = 0; i < common && isAsciiByte(name[i]); ++i) {
        if (foldedAscii(name[i]) != m_bytes[i]) {
            return false;
        }
    }
    if (std::all_of(name.begin(), name.end(), isAsciiByte)) {
        return name.size() == m_bytes.size();
    }
    return FoldedName(name, encoding).m_bytes == m_bytes;
}

quint32 FoldedName::hash() const
{
    const std::size_t hash = qHashBits(
        m_bytes.constData(), static_cast<std::size_t>(m_bytes.size()), QHashSeed::globalSeed());
    return static_cast<quint32>(hash ^ (hash >> 32U));
}

void NameTable::add(quint32 number, quint32 hash)
{
    if (4 * (m_count + 1) > 3 * m_slots.size()) {
        grow();
    }
    place({number, hash});
    ++m_count;
}

void NameTable::grow()
{
    constexpr std::size_t kSmallest = 8;
    std::vector<Slot> old(std::max(kSmallest, 2 * m_slots.size()));
    old.swap(m_slots);
    for (const Slot& slot : old) {
        if (slot.number != kNone) {
            place(slot);
        }
    }
}

void NameTable::place(const Slot& slot)
{
    std::size_t at = firstSlot(slot.hash);
    while (m_slots[at].number != kNone) {
        at = nextSlot(at);
    }
    m_slots[at] = slot;
}

} // namespace orvanta
