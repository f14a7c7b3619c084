#include "tests/help/handbook.h"

#include <QFile>
#include <QXmlStreamReader>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

/// Reads an element's text, with that of the elements in it, on one line.
QString wholeText(QXmlStreamReader& xml)
{
    return xml.readElementText(QXmlStreamReader::IncludeChildElements).simplified();
}

class Reader
{
public:
    explicit Reader(Handbook& book)
        : m_book(book),
          m_xml(book.source)
    {}

    void read()
    {
        while (!m_xml.atEnd()) {
            if (m_xml.readNext() == QXmlStreamReader::StartElement) {
                readAttributes();
                readElement(m_xml.name().toString());
            }
        }
        if (m_xml.hasError()) {
            m_book.problem = u"line %1: %2"_s.arg(m_xml.lineNumber()).arg(m_xml.errorString());
        }
    }

private:
    void readAttributes()
    {
        for (const QXmlStreamAttribute& attribute : m_xml.attributes()) {
            const QString name = attribute.name().toString();
            const QString value = attribute.value().toString();
            if (name == u"id") {
                m_book.targets.append(value);
            } else if (name == u"href" && value.startsWith(u'#')) {
                m_book.links.append(value.mid(1));
            } else if (name == u"href" || name == u"src" || value.contains(u"url(")) {
                m_book.outside.insert(name, value);
            }
        }
    }

    void readElement(const QString& name)
    {
        if (name == u"html") {
            m_book.language = m_xml.attributes().value(u"lang"_s).toString();
        } else if (name == u"section") {
            m_book.outline.append(u"section "_s + m_book.targets.constLast());
        } else if (name == u"h2") {
            m_book.headings.append(wholeText(m_xml));
        } else if (name == u"b") {
            m_book.captions.append(wholeText(m_xml));
        } else if (name == u"kbd") {
            m_book.keys.append(wholeText(m_xml));
        } else if (kCounted.contains(name)) {
            m_book.outline.append(name);
        }
    }

    inline static const QStringList kCounted = {u"h3"_s, u"figure"_s, u"table"_s, u"tr"_s, u"ol"_s,
                                                u"ul"_s, u"li"_s,     u"pre"_s,   u"p"_s};
    Handbook& m_book;
    QXmlStreamReader m_xml;
};

} // namespace

Handbook readHandbook(TextLanguage language)
{
    const QString name = language == TextLanguage::English ? u"help_eng.htm"_s : u"help_rus.htm"_s;
    Handbook book;
    QFile file(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/help/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        book.problem = name + u" cannot be read"_s;
        return book;
    }
    book.source = QString::fromUtf8(file.readAll());
    Reader(book).read();
    return book;
}

} // namespace orvanta::test
