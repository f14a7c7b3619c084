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
    [[nodiscard]] quint32 hash() const;

private:
    void foldAnyCharacters(const QString& name);

    QVarLengthArray<char, 64> m_bytes;
};

/// Finds numbers by name, at ten to twenty bytes for each: the names stay in the text that they
/// come from, which is looked at only when the hashes are equal.
class NameTable
{
public:
    static constexpr quint32 kNone = 0xFFFFFFFFU;

    /// The number of this hash for which isWanted(number) holds; kNone without one.
    template <typename IsWanted>
    [[nodiscard]] quint32 find(quint32 hash, const IsWanted& isWanted) const
    {
        if (m_slots.empty()) {
            return kNone;
        }
        std::size_t at = firstSlot(hash);
        while (m_slots[at].number != kNone &&
               (m_slots[at].hash != hash || !isWanted(m_slots[at].number))) {
            at = nextSlot(at);
        }
        return m_slots[at].number;
    }

    /// Adds a number whose name is not there yet.
    void add(quint32 number, quint32 hash);

private:
    struct Slot
    {
        quint32 number = kNone;
        quint32 hash = 0;
    };

    [[nodiscard]] std::size_t firstSlot(quint32 hash) const { return hash & (m_slots.size() - 1); }
    [[nodiscard]] std::size_t nextSlot(std::size_t slot) const
    {
        return (slot + 1) & (m_slots.size() - 1);
    }
    void grow();
    void place(const Slot& slot);

    std::vector<Slot> m_slots; // their count is a power of two
    std::size_t m_count = 0;
};

} // namespace orvanta
