// One INI-structured text in memory: its values, and changes that touch nothing else.
#pragma once

#include "core/ini_index.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace orvanta {

/// Value texts as the engine finds them are at most this many characters long.
inline constexpr qsizetype kIniValueLimit = 2047;

class IniDocument
{
public:
    /// The bytes of a file of less than 4 GiB.
    explicit IniDocument(QByteArray fileBytes = {});

    /// Without outer blanks and one pair of outer quotes, cut at the limit; empty when absent.
    [[nodiscard]] QString value(const QString& section, const QString& key) const;

    /// A key's line: names and value without outer blanks, the value with its quotes.
    struct Line
    {
        QString section;
        QString key;
        QString value;
    };
    /// Every line with a key, in the file's order, also those that value() never finds because an
    /// earlier one has their name.
    [[nodiscard]] std::vector<Line> lines() const;

    enum class Change
    {
        None,     // the value is the present one
        Appended, // new bytes stand behind those of before
        Rewritten,
    };
    /// Sets one value. The key must be holdsKey().
    Change set(const QString& section, const QString& key, const QString& value);
    /// False for a key that no line can hold, since the line would read as a section.
    [[nodiscard]] static bool holdsKey(const QString& key);

    /// The bytes as they belong into the file.
    [[nodiscard]] const QByteArray& fileBytes() const { return m_isUtf16 ? m_utf16 : m_bytes; }

private:
    struct Edit
    {
        qsizetype offset;
        qsizetype removed;
        QByteArray inserted;
    };
    struct EncodedTexts
    {
        QByteArray section;
        QByteArray key;
        QByteArray value;
    };

    [[nodiscard]] IniText text() const { return {m_bytes, m_encoding}; }
    void takeBytes(QByteArray fileBytes);
    void buildIndex();
    [[nodiscard]] std::optional<quint32> findLine(quint32 section, const QString& key) const;
    [[nodiscard]] std::optional<EncodedTexts> encoded(const QString& section, const QString& key,
                                                      const QString& value) const;
    void becomeUtf8();
    [[nodiscard]] std::optional<Edit> editFor(const QString& section, const QString& key,
                                              const EncodedTexts& texts) const;
    [[nodiscard]] std::optional<Edit> replacing(quint32 line, qsizetype equalsSigns,
                                                const QByteArray& value) const;
    [[nodiscard]] Edit inserting(qsizetype offset, const QByteArray& lines) const;
    [[nodiscard]] bool lineBeginsAt(qsizetype offset) const;
    Change apply(const Edit& edit);
    void applyToUtf16(const Edit& edit);

    QByteArray m_bytes; // UTF-16 files: the same text in UTF-8
    QByteArray m_utf16; // the file's own bytes when it is UTF-16
    bool m_isUtf16 = false;
    IniEncoding m_encoding;
    qsizetype m_begin = 0; // behind a byte-order mark
    QByteArray m_lineBreak;
    IniIndex m_index;
};

} // namespace orvanta
