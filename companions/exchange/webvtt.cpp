#include "companions/exchange/webvtt.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/text_lines.h"

#include <QRegularExpression>
#include <QStringList>

#include <array>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QLatin1String kArrow("-->");

/// "&amp;" and its like, "&#8211;", "&#x2013;".
static QString characterOf(const QString& name)
{
    constexpr std::array kNames = {
        std::pair{u"amp", u"&"},      std::pair{u"lt", u"<"},        std::pair{u"gt", u">"},
        std::pair{u"quot", u"\""},    std::pair{u"nbsp", u"\u00a0"}, std::pair{u"lrm", u"\u200e"},
        std::pair{u"rlm", u"\u200f"},
    };
    for (const auto& [known, character] : kNames) {
        if (name == QStringView(known)) {
            return QStringView(character).toString();
        }
    }
    const bool isHex = name.startsWith(u"#x", Qt::CaseInsensitive);
    bool isNumber = false;
    const char32_t c =
        name.startsWith(u'#') ? name.mid(isHex ? 2 : 1).toUInt(&isNumber, isHex ? 16 : 10) : 0;
    constexpr char32_t kLast = 0x10ffff;
    return isNumber && c > 0 && c <= kLast && !QChar::isSurrogate(c) ? QString::fromUcs4(&c, 1)
                                                                     : QString();
}

static QString plainText(const QString& cue)
{
    static const QRegularExpression tags(u"<[^>]*>?"_s);
    static const QRegularExpression references(u"&(#?\\w+);"_s);
    const QString bare = QString(cue).remove(tags);
    QString plain;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& match : references.globalMatch(bare)) {
        const QString character = characterOf(match.captured(1));
        plain += QStringView(bare).sliced(from, match.capturedStart() - from);
        plain += character.isEmpty() ? match.captured() : character;
        from = match.capturedEnd();
    }
    return plain + bare.mid(from);
}

namespace {

class WebVttReader
{
public:
    explicit WebVttReader(QStringView text)
        : m_lines(linesOfText(text))
    {}

    ReadLesson read()
    {
        ReadLesson read;
        if (m_lines.empty() || !m_lines.front().startsWith(u"WEBVTT")) {
            read.failure =
                Remark{u"badLine", 1, m_lines.empty() ? QString() : m_lines[0].toString()};
            return read;
        }
        skipBlock(); // the header goes up to the first blank line
        while (m_at < m_lines.size()) {
            readBlock(read);
        }
        if (m_spans.empty()) {
            read.failure = Remark{u"nothingIn", 0, {}};
            return read;
        }
        read.lesson.packets.push_back(packetOfSpans(m_spans, m_endText));
        return read;
    }

private:
    [[nodiscard]] bool isBlank() const { return m_at >= m_lines.size() || m_lines[m_at].isEmpty(); }
    void skipBlock()
    {
        while (!isBlank()) {
            ++m_at;
        }
    }

    void readBlock(ReadLesson& read)
    {
        if (isBlank()) {
            ++m_at;
        } else if (m_lines[m_at].contains(kArrow)) {
            readCue(read);
        } else if (m_at + 1 < m_lines.size() && m_lines[m_at + 1].contains(kArrow)) {
            ++m_at; // the name of a cue
            readCue(read);
        } else {
            readOther(read);
        }
    }

    void readOther(ReadLesson& read)
    {
        const QStringView first = m_lines[m_at];
        const bool isKnown =
            first.startsWith(u"NOTE") || first.startsWith(u"STYLE") || first.startsWith(u"REGION");
        if (const auto end = endMarkOf(first)) {
            m_endText = *end;
        } else if (!isKnown) {
            read.leftOut.push_back({u"badLine", static_cast<int>(m_at) + 1, first.toString()});
        }
        skipBlock();
    }

    void readCue(ReadLesson& read)
    {
        const QStringView timing = m_lines[m_at];
        const int number = static_cast<int>(++m_at);
        const qsizetype arrow = timing.indexOf(kArrow);
        const QString rest = timing.sliced(arrow + kArrow.size()).trimmed().toString();
        const auto start = clockSeconds(timing.first(arrow));
        const auto end = clockSeconds(rest.section(u' ', 0, 0).section(u'\t', 0, 0));
        const std::size_t begin = m_at;
        QStringList text;
        while (!isBlank() && (m_at == begin || !m_lines[m_at].contains(kArrow))) {
            text.append(m_lines[m_at++].toString());
        }
        if (start && end && *end >= *start) {
            m_spans.push_back({*start, *end, plainText(text.join(u'\n'))});
        } else {
            read.leftOut.push_back({u"badLine", number, timing.toString()});
        }
    }

    std::vector<QStringView> m_lines;
    std::size_t m_at = 0;
    std::vector<MarkSpan> m_spans;
    QString m_endText;
};

} // namespace

ReadLesson readWebVtt(QStringView text)
{
    return WebVttReader(text).read();
}

static QString cueText(QString text)
{
    static const QRegularExpression blankLines(u"[\\r\\n]+"_s);
    text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
    return text.replace(QChar::Null, QChar::ReplacementCharacter).replace(blankLines, u"\n"_s);
}

QString webVttText(const LessonPacket& packet)
{
    QString text = u"WEBVTT\n\n"_s;
    if (packet.hasEnd) {
        text += u"NOTE "_s + endMarkComment(endTextOf(packet)) + u"\n\n"_s;
    }
    for (const MarkSpan& span : spansOf(packet)) {
        const QString cue = cueText(span.text);
        text += clockWithMilliseconds(span.start) + u" --> "_s + clockWithMilliseconds(span.end) +
                u'\n' + cue + (cue.isEmpty() ? u"\n"_s : u"\n\n"_s);
    }
    return text;
}

} // namespace orvanta
