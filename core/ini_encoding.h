// How the bytes of an INI-structured file stand for text: UTF-8, or an 8-bit code page.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>
#include <QString>

#include <array>
#include <memory>
#include <optional>

namespace orvanta {

/// An 8-bit code page. A byte that the page leaves undefined stands for the character of the same
/// number, so that reading and writing back loses nothing.
class CodePage
{
public:
    /// Null when the system knows no 8-bit code page of this name.
    [[nodiscard]] static std::shared_ptr<const CodePage> named(const QString& name);
    /// The page chosen by choose(), otherwise the one of the user's locale.
    [[nodiscard]] static std::shared_ptr<const CodePage> current();
    /// An empty name: by the user's locale. A name that means nothing is logged and passed over.
    static void choose(const QString& name);

    [[nodiscard]] QString decode(QByteArrayView bytes) const;
    /// Nothing when a character has no byte.
    [[nodiscard]] std::optional<QByteArray> encode(QStringView text) const;

private:
    explicit CodePage(const std::array<char16_t, 256>& characters);

    std::array<char16_t, 256> m_characters;
    QHash<char16_t, char> m_bytes;
};

/// Part of a UTF-8 text, all of it: U+FEFF at the part's beginning is a character like others,
/// where QString::fromUtf8 takes it for the mark of a file and leaves it out.
[[nodiscard]] QString partOfUtf8(QByteArrayView bytes);

/// The encoding of one file.
class IniEncoding
{
public:
    /// UTF-8.
    IniEncoding() = default;
    /// UTF-8 when the bytes are valid (an unfinished character at the very end of a text that has
    /// others is the trace of a killed writer), otherwise the current code page.
    [[nodiscard]] static IniEncoding of(QByteArrayView bytes);

    [[nodiscard]] bool isUtf8() const { return m_page == nullptr; }
    [[nodiscard]] QString decode(QByteArrayView bytes) const;
    [[nodiscard]] std::optional<QByteArray> encode(QStringView text) const;

private:
    std::shared_ptr<const CodePage> m_page; // null: UTF-8
};

/// Number of bytes of an unfinished UTF-8 character at the end; 0 when there is none.
[[nodiscard]] qsizetype unfinishedUtf8Tail(QByteArrayView bytes);

} // namespace orvanta
