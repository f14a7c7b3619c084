// Names of sections and keys, which are compared without case.
#pragma once

#include "core/ini_encoding.h"

#include <QByteArrayView>
#include <QString>
#include <QVarLengthArray>

#include <vector>

namespace orvanta {

/// The bytes of a file and how they stand for text.
struct IniText
{
    QByteArrayView bytes;
    const IniEncoding& encoding;
};

/// A name as it is compared: case folded, in UTF-8.
class FoldedName
{
public:
    explicit FoldedName(QStringView name);
    FoldedName(QByteArrayView name, const IniEncoding& encoding);

    [[nodiscard]] bool equals(QByteArrayView name, const IniEncoding& encoding) const;
    [[nodiscard]] std::size_t hash() const;

private:
    void foldAnyCharacters(const QString& name);

    QVarLengthArray<char, 64> m_bytes;
};

/// Finds numbers by name, at four to ten bytes for each: the names stay in the text that they
/// come from.
class NameTable
{
public:
    static constexpr quint32 kNone = 0xFFFFFFFFU;

    /// The number for which isWanted(number) holds; kNone without one.
    template <typename IsWanted>
    [[nodiscard]] quint32 find(std::size_t hash, const IsWanted& isWanted) const
    {
        if (m_slots.empty()) {
            return kNone;
        }
        std::size_t slot = hash & (m_slots.size() - 1);
        while (m_slots[slot] != kNone && !isWanted(m_slots[slot])) {
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        return m_slots[slot];
    }

    /// Adds a number whose name is not there yet. hashOf(number) is the hash of a number's name.
    template <typename HashOf> void add(quint32 number, std::size_t hash, const HashOf& hashOf)
    {
        if (4 * (m_count + 1) > 3 * m_slots.size()) {
            grow(hashOf);
        }
        place(number, hash);
        ++m_count;
    }

private:
    template <typename HashOf> void grow(const HashOf& hashOf)
    {
        constexpr std::size_t kSmallest = 8;
        std::vector<quint32> old(std::max(kSmallest, 2 * m_slots.size()), kNone);
        old.swap(m_slots);
        for (const quint32 number : old) {
            if (number != kNone) {
                place(number, hashOf(number));
            }
        }
    }

    void place(quint32 number, std::size_t hash)
    {
        std::size_t slot = hash & (m_slots.size() - 1);
        while (m_slots[slot] != kNone) {
            slot = (slot + 1) & (m_slots.size() - 1);
        }
        m_slots[slot] = number;
    }

    std::vector<quint32> m_slots; // their count is a power of two
    std::size_t m_count = 0;
};

} // namespace orvanta
