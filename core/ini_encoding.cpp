#include "core/ini_encoding.h"

#include "core/log.h"

#include <QLocale>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <iconv.h>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// The C library's converter from one code page to UTF-16.
class Converter
{
public:
    explicit Converter(const QString& page)
        : m_handle(iconv_open("UTF-16LE", page.toLatin1().constData()))
    {}
    ~Converter()
    {
        if (isOpen()) {
            iconv_close(m_handle);
        }
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    [[nodiscard]] bool isOpen() const { return reinterpret_cast<std::intptr_t>(m_handle) != -1; }

    /// The characters of one byte, at most two; 0: undefined; -1: the byte begins a longer
    /// sequence.
    [[nodiscard]] int convert(char byte, std::array<char16_t, 2>& characters) const
    {
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        char* in = &byte;
        std::size_t inLeft = 1;
        char* out = reinterpret_cast<char*>(characters.data());
        std::size_t outLeft = sizeof characters;
        if (iconv(m_handle, &in, &inLeft, &out, &outLeft) == static_cast<std::size_t>(-1)) {
            return errno == EINVAL ? -1 : 0;
        }
        return static_cast<int>((sizeof characters - outLeft) / sizeof(char16_t));
    }

private:
    iconv_t m_handle;
};

} // namespace

static bool fillPage(const Converter& converter, std::array<char16_t, 256>& page)
{
    for (std::size_t byte = 0; byte < page.size(); ++byte) {
        std::array<char16_t, 2> characters{};
        const int count = converter.convert(static_cast<char>(byte), characters);
        if (count < 0 || (byte < 0x80 && characters[0] != byte)) {
            return false;
        }
        page[byte] = count == 1 ? characters[0] : static_cast<char16_t>(byte);
    }
    return true;
}

static bool writesCyrillic(QLocale::Language language)
{
    constexpr std::array languages = {QLocale::Russian, QLocale::Ukrainian, QLocale::Belarusian,
                                      QLocale::Bulgarian, QLocale::Serbian};
    return std::find(languages.begin(), languages.end(), language) != languages.end();
}

static QString pageOfLocale()
{
    return writesCyrillic(QLocale().language()) ? u"windows-1251"_s : u"windows-1252"_s;
}

static std::shared_ptr<const CodePage>& chosenPage()
{
    static std::shared_ptr<const CodePage> page;
    return page;
}

static bool isAscii(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

CodePage::CodePage(const std::array<char16_t, 256>& characters)
    : m_characters(characters)
{
    for (std::size_t byte = characters.size(); byte-- > 0;) {
        m_bytes.insert(characters[byte], static_cast<char>(byte));
    }
}

std::shared_ptr<const CodePage> CodePage::named(const QString& name)
{
    const Converter converter(name);
    std::array<char16_t, 256> characters{};
    if (!converter.isOpen() || !fillPage(converter, characters)) {
        return nullptr;
    }
    return std::shared_ptr<const CodePage>(new CodePage(characters));
}

std::shared_ptr<const CodePage> CodePage::current()
{
    if (chosenPage()) {
        return chosenPage();
    }
    if (std::shared_ptr<const CodePage> page = named(pageOfLocale())) {
        return page;
    }
    return named(u"ISO-8859-1"_s);
}

void CodePage::choose(const QString& name)
{
    chosenPage() = name.isEmpty() ? nullptr : named(name);
    if (!name.isEmpty() && !chosenPage()) {
        qCInfo(logErrors).noquote() << "not an 8-bit code page:" << name;
    }
}

QString CodePage::decode(QByteArrayView bytes) const
{
    QString text(bytes.size(), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [this](char byte) {
        return QChar(m_characters[static_cast<unsigned char>(byte)]);
    });
    return text;
}

std::optional<QByteArray> CodePage::encode(QStringView text) const
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (const QChar character : text) {
        const auto byte = m_bytes.constFind(character.unicode());
        if (byte == m_bytes.constEnd()) {
            return std::nullopt;
        }
        bytes.append(*byte);
    }
    return bytes;
}

/// Length of the UTF-8 sequence that a first byte announces; 0 for any other byte.
static qsizetype announcedLength(unsigned char first)
{
    if (first >= 0xC2 && first <= 0xDF) {
        return 2;
    }
    if (first >= 0xE0 && first <= 0xEF) {
        return 3;
    }
    return first >= 0xF0 && first <= 0xF4 ? 4 : 0;
}

qsizetype unfinishedUtf8Tail(QByteArrayView bytes)
{
    for (qsizetype length = 1; length <= std::min<qsizetype>(3, bytes.size()); ++length) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - length]);
        if ((byte & 0xC0U) != 0x80U) {
            return announcedLength(byte) > length ? length : 0;
        }
    }
    return 0;
}

static bool isCutUtf8(QByteArrayView bytes)
{
    const qsizetype tail = unfinishedUtf8Tail(bytes);
    const QByteArrayView whole = bytes.chopped(tail);
    const auto isWide = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
    return tail > 0 && QUtf8StringView(whole.data(), whole.size()).isValidUtf8() &&
           std::any_of(whole.begin(), whole.end(), isWide);
}

IniEncoding IniEncoding::of(QByteArrayView bytes)
{
    IniEncoding encoding;
    const bool valid = QUtf8StringView(bytes.data(), bytes.size()).isValidUtf8();
    if (!valid && !isCutUtf8(bytes)) {
        encoding.m_page = CodePage::current();
    }
    return encoding;
}

QString partOfUtf8(QByteArrayView bytes)
{
    const QString text = QString::fromUtf8(bytes);
    return bytes.startsWith("\xEF\xBB\xBF") ? QChar(QChar::ByteOrderMark) + text : text;
}

QString IniEncoding::decode(QByteArrayView bytes) const
{
    return m_page ? m_page->decode(bytes) : partOfUtf8(bytes);
}

std::optional<QByteArray> IniEncoding::encode(QStringView text) const
{
    if (m_page == nullptr) {
        return text.toUtf8();
    }
    return isAscii(text) ? text.toLatin1() : m_page->encode(text);
}

} // namespace orvanta
