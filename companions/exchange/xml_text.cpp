#include "companions/exchange/xml_text.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static bool isXmlCharacter(char32_t c)
{
    return c == u'\t' || c == u'\n' || c == u'\r' || (c >= 0x20 && c <= 0xd7ff) ||
           (c >= 0xe000 && c <= 0xfffd) || (c >= 0x10000 && c <= 0x10ffff);
}

QString xmlText(const QString& text)
{
    QString held;
    held.reserve(text.size());
    for (const uint character : text.toUcs4()) { // lone surrogates are U+FFFD already
        const char32_t c = character;
        held += isXmlCharacter(c) ? QString::fromUcs4(&c, 1) : QString(QChar::ReplacementCharacter);
    }
    return held;
}

std::optional<Remark> xmlFailure(const QXmlStreamReader& xml)
{
    return xml.hasError() ? std::optional(Remark{u"broken", static_cast<int>(xml.lineNumber()),
                                                 xml.errorString()})
                          : std::nullopt;
}

bool nextElement(QXmlStreamReader& xml)
{
    while (!xml.atEnd()) {
        const QXmlStreamReader::TokenType token = xml.readNext();
        if (token == QXmlStreamReader::StartElement) {
            return true;
        }
        if (token == QXmlStreamReader::DTD && !xml.entityDeclarations().isEmpty()) {
            xml.raiseError(u"<!ENTITY"_s);
        }
    }
    return false;
}

} // namespace orvanta
