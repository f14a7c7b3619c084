#include "companions/exchange/xspf.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/list_entry.h"
#include "companions/exchange/xml_text.h"

#include <QUrl>
#include <QXmlStreamWriter>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr QStringView kSpace = u"http://xspf.org/ns/0/";
constexpr QStringView kVlcSpace = u"http://www.videolan.org/vlc/playlist/ns/0/";
constexpr QStringView kVlcApplication = u"http://www.videolan.org/vlc/playlist/0";
constexpr QStringView kPacketMeta = u"urn:orvanta:packet";
constexpr QStringView kEndMeta = u"urn:orvanta:end";

namespace {

class XspfReader
{
public:
    explicit XspfReader(const QByteArray& bytes)
        : m_xml(bytes)
    {}

    ReadLesson read()
    {
        if (nextElement(m_xml) && m_xml.name() != u"playlist") {
            m_xml.raiseError(m_xml.name().toString());
        }
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() == u"title") {
                m_read.lesson.title = textHere();
            } else if (m_xml.name() == u"trackList") {
                readTracks();
            } else {
                m_xml.skipCurrentElement();
            }
        }
        return finished();
    }

private:
    QString textHere() { return m_xml.readElementText(QXmlStreamReader::IncludeChildElements); }

    void readTracks()
    {
        while (m_xml.readNextStartElement()) {
            m_next = {};
            m_places.clear();
            m_creator.clear();
            m_line = static_cast<int>(m_xml.lineNumber());
            while (m_xml.readNextStartElement()) {
                readPart(m_xml.name().toString());
            }
            takeTrack();
        }
    }

    void readPart(const QString& name)
    {
        const QString relation = m_xml.attributes().value(u"rel"_s).toString();
        if (name == u"location") {
            m_places.append(textHere().trimmed());
        } else if (name == u"title") {
            m_next.text = textHere();
        } else if (name == u"creator") {
            m_creator = textHere();
        } else if (name == u"meta" && relation == kPacketMeta) {
            m_next.packet = u""_s + textHere();
        } else if (name == u"meta" && relation == kEndMeta) {
            m_next.endText = u""_s + textHere();
        } else if (name == u"extension") {
            readExtension();
        } else {
            m_xml.skipCurrentElement();
        }
    }

    void readExtension()
    {
        while (m_xml.readNextStartElement()) {
            const QString option = textHere();
            const auto value = [&](QStringView word) {
                return option.startsWith(word)
                           ? clockSeconds(QStringView(option).sliced(word.size()))
                           : std::nullopt;
            };
            const auto start = value(u"start-time=");
            const auto stop = value(u"stop-time=");
            m_next.start = start ? start : m_next.start;
            m_next.stop = stop ? stop : m_next.stop;
        }
    }

    /// The first place that is on this machine.
    void takeTrack()
    {
        for (const QString& place : std::as_const(m_places)) {
            if (!isAddressElsewhere(place)) {
                const QString path = place.startsWith(u"file:", Qt::CaseInsensitive)
                                         ? place
                                         : QUrl::fromPercentEncoding(place.toUtf8());
                m_next.path = pathOfList(path);
                m_next.text = m_next.text.isEmpty() ? titleOfPath(m_next.path) : m_next.text;
                m_next.text =
                    m_creator.isEmpty() ? m_next.text : m_creator + u" – "_s + m_next.text;
                m_entries.push_back(m_next);
                return;
            }
        }
        m_read.leftOut.push_back({u"address", m_line, m_places.value(0)});
    }

    ReadLesson finished()
    {
        m_read.failure = xmlFailure(m_xml);
        m_read.lesson.packets = packetsOfEntries(m_entries);
        if (!m_read.failure && m_entries.empty()) {
            m_read.failure = Remark{u"nothingIn", 0, {}};
        }
        return std::move(m_read);
    }

    QXmlStreamReader m_xml;
    ReadLesson m_read;
    std::vector<ListEntry> m_entries;
    ListEntry m_next;
    QStringList m_places;
    QString m_creator;
    int m_line = 0;
};

} // namespace

ReadLesson readXspf(const QByteArray& bytes)
{
    return XspfReader(bytes).read();
}

static QString addressOf(const QString& path)
{
    const QString start = path.startsWith(u'/') ? u"file://"_s : QString();
    const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
    return start + encoded;
}

static void writeOption(QXmlStreamWriter& xml, QStringView word, double seconds)
{
    constexpr int kDecimals = 3;
    xml.writeTextElement(kVlcSpace.toString(), u"option"_s,
                         word.toString() + QString::number(seconds, 'f', kDecimals));
}

static void writeMeta(QXmlStreamWriter& xml, QStringView relation, const QString& text)
{
    if (!text.isNull()) {
        xml.writeStartElement(u"meta"_s);
        xml.writeAttribute(u"rel"_s, relation.toString());
        xml.writeCharacters(xmlText(text));
        xml.writeEndElement();
    }
}

static void writeTrack(QXmlStreamWriter& xml, const ListEntry& entry)
{
    xml.writeStartElement(u"track"_s);
    xml.writeTextElement(u"location"_s, addressOf(entry.path));
    xml.writeTextElement(u"title"_s, xmlText(entry.text));
    writeMeta(xml, kPacketMeta, entry.packet);
    writeMeta(xml, kEndMeta, entry.endText);
    if (entry.start) {
        xml.writeStartElement(u"extension"_s);
        xml.writeAttribute(u"application"_s, kVlcApplication.toString());
        writeOption(xml, u"start-time=", *entry.start);
        if (entry.stop) {
            writeOption(xml, u"stop-time=", *entry.stop);
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
}

QByteArray xspfText(const Lesson& lesson)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeDefaultNamespace(kSpace.toString());
    xml.writeNamespace(kVlcSpace.toString(), u"vlc"_s);
    xml.writeStartElement(u"playlist"_s);
    xml.writeAttribute(u"version"_s, u"1"_s);
    if (!lesson.title.isEmpty()) {
        xml.writeTextElement(u"title"_s, xmlText(lesson.title));
    }
    xml.writeStartElement(u"trackList"_s);
    for (const ListEntry& entry : entriesOf(lesson)) {
        writeTrack(xml, entry);
    }
    xml.writeEndDocument();
    return bytes;
}

} // namespace orvanta
