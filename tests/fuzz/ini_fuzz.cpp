// The INI engine against the plainest reading of the same text, and what a writing may change.

#include "core/ini_document.h"
#include "core/ini_stored_names.h"
#include "tests/fuzz/fuzzing.h"
#include "tests/fuzz/naive_ini.h"

#include <QStringDecoder>

using namespace orvanta;
using namespace orvanta::fuzz;

/// Nothing where the text is in an old code page or begins with a mark.
static std::optional<QString> plainText(const QByteArray& bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    const bool isMarked = bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xEF\xBB\xBF");
    return decoder.hasError() || isMarked ? std::nullopt : std::optional(text);
}

static void compare(const IniDocument& document, const QString& section, const QString& key)
{
    if (const std::optional<QString> text = plainText(document.fileBytes())) {
        require(document.value(section, key) == naiveValue(*text, section, key),
                "the engine reads what the plainest reading reads");
    }
}

static void compareAll(const IniDocument& document)
{
    const IniDocument fresh(document.fileBytes());
    for (const IniDocument::Line& line : fresh.lines()) {
        require(document.value(line.section, line.key) == fresh.value(line.section, line.key),
                "the index that was extended finds what a new one finds");
        compare(fresh, line.section, line.key);
    }
}

static void write(IniDocument& document, const QString& section, const QString& key,
                  const QString& value)
{
    document.set(section, key, value);
    const QByteArray once = document.fileBytes();
    require(document.value(section, key) == naiveWritten(value), "what is written is read back");
    document.set(section, key, value);
    require(document.fileBytes() == once, "a second writing of the same changes nothing");
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const QString section = input.text();
    const QString key = input.text();
    const QString value = input.text();
    const QString other = input.text();
    IniDocument document(input.rest().toByteArray());
    compare(document, section, key);
    compare(document, storedSection(section), storedKey(key));
    write(document, storedSection(section), storedKey(key), value);
    write(document, storedSection(section), storedKey(other), value);
    write(document, storedSection(other), storedKey(key), other);
    compareAll(document);
    return 0;
}
