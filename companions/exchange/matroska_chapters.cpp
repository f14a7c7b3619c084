#include "companions/exchange/matroska_chapters.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/xml_text.h"

#include <QXmlStreamWriter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// A chapter while it is read. Without an end it goes to the next one.
struct ChapterAtom
{
    std::optional<double> start = {};
    std::optional<double> end = {};
    QString text = {};
    bool isHidden = false;
    int line = 0;
};

class ChapterReader
{
public:
    explicit ChapterReader(const QByteArray& bytes)
        : m_xml(bytes)
    {}

    ReadLesson read()
    {
        if (nextElement(m_xml) && m_xml.name() != u"Chapters") {
            m_xml.raiseError(m_xml.name().toString());
        }
        while (!m_endsEdition && m_xml.readNextStartElement()) {
            if (m_xml.name() == u"EditionEntry") {
                readEdition();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        return finished();
    }

private:
    void readEdition()
    {
        while (readNext()) {
            readChild(0);
        }
        m_endsEdition = !m_atoms.empty();
    }

    /// The comment in front of an element may be the one about the end mark.
    bool readNext()
    {
        while (!m_xml.atEnd()) {
            const QXmlStreamReader::TokenType token = m_xml.readNext();
            if (token == QXmlStreamReader::Comment) {
                const auto end = endMarkOf(m_xml.text());
                m_endText = end ? *end : m_endText;
            }
            if (token == QXmlStreamReader::StartElement || token == QXmlStreamReader::EndElement) {
                return token == QXmlStreamReader::StartElement;
            }
        }
        return false;
    }

    void readChild(int depth)
    {
        constexpr int kDeepest = 32;
        if (m_xml.name() == u"ChapterAtom" && depth < kDeepest) {
            readAtom(depth + 1);
        } else {
            m_xml.skipCurrentElement();
        }
    }

    void readAtom(int depth)
    {
        const std::size_t place = m_atoms.size();
        m_atoms.push_back({.line = static_cast<int>(m_xml.lineNumber())});
        while (readNext()) {
            const QString name = m_xml.name().toString();
            if (name == u"ChapterTimeStart") {
                m_atoms[place].start = clockSeconds(m_xml.readElementText());
            } else if (name == u"ChapterTimeEnd") {
                m_atoms[place].end = clockSeconds(m_xml.readElementText());
            } else if (name == u"ChapterFlagHidden") {
                m_atoms[place].isHidden = m_xml.readElementText().trimmed() == u"1";
            } else if (name == u"ChapterDisplay") {
                readDisplay(m_atoms[place]);
            } else {
                readChild(depth);
            }
        }
    }

    /// The first language counts.
    void readDisplay(ChapterAtom& atom)
    {
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == u"ChapterString" && atom.text.isNull()) {
                atom.text = u""_s + m_xml.readElementText();
            } else {
                m_xml.skipCurrentElement();
            }
        }
    }

    ReadLesson finished()
    {
        ReadLesson read;
        std::vector<MarkSpan> spans;
        for (const ChapterAtom& atom : m_atoms) {
            if (!atom.start) {
                read.leftOut.push_back({u"noStart", atom.line, atom.text});
            } else if (!atom.isHidden) {
                spans.push_back({*atom.start, atom.end.value_or(*atom.start), atom.text});
            }
        }
        read.failure = xmlFailure(m_xml);
        if (!read.failure && spans.empty()) {
            read.failure = Remark{u"nothingIn", 0, {}};
        }
        read.lesson.packets.push_back(packetOfSpans(spans, m_endText));
        return read;
    }

    QXmlStreamReader m_xml;
    std::vector<ChapterAtom> m_atoms;
    QString m_endText;
    bool m_endsEdition = false;
};

} // namespace

ReadLesson readMatroskaChapters(const QByteArray& bytes)
{
    return ChapterReader(bytes).read();
}

static QString nanosecondClock(double seconds)
{
    return clockWithMilliseconds(seconds) + u"000000"_s;
}

static void writeAtom(QXmlStreamWriter& xml, const MarkSpan& span)
{
    xml.writeStartElement(u"ChapterAtom"_s);
    xml.writeTextElement(u"ChapterTimeStart"_s, nanosecondClock(span.start));
    xml.writeTextElement(u"ChapterTimeEnd"_s, nanosecondClock(span.end));
    xml.writeStartElement(u"ChapterDisplay"_s);
    xml.writeTextElement(u"ChapterString"_s, xmlText(span.text));
    xml.writeTextElement(u"ChapterLanguage"_s, u"und"_s);
    xml.writeEndElement();
    xml.writeEndElement();
}

QByteArray matroskaChaptersText(const LessonPacket& packet)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(u"Chapters"_s);
    xml.writeStartElement(u"EditionEntry"_s);
    if (packet.hasEnd) {
        xml.writeComment(u' ' + endMarkComment(endTextOf(packet)) + u' ');
    }
    for (const MarkSpan& span : spansOf(packet)) {
        writeAtom(xml, span);
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace orvanta
