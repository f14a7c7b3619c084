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

std::size_t FoldedName::hash() const
{
    return qHashBits(m_bytes.constData(), static_cast<std::size_t>(m_bytes.size()),
                     QHashSeed::globalSeed());
}

} // namespace orvanta
