#include "companions/exchange/ffmetadata.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"

namespace orvanta {

using namespace Qt::StringLiterals;

static bool isSpecial(QChar c)
{
    return c == u'=' || c == u';' || c == u'#' || c == u'\\' || c == u'\n';
}

static QString escaped(const QString& text)
{
    QString held;
    for (const QChar c : text) {
        held += isSpecial(c) ? QString(u'\\') + c : QString(c);
    }
    return held;
}

namespace {

struct ChapterDraft
{
    int line = 0;
    double unit = 1e-9; // seconds; what counts where no TIMEBASE stands
    std::optional<double> start = {};
    std::optional<double> end = {};
    QString title = {};
};

class FfMetadataReader
{
public:
    ReadLesson read(QStringView text)
    {
        qsizetype at = text.startsWith(QChar::ByteOrderMark) ? 1 : 0;
        if (!text.sliced(at).startsWith(u";FFMETADATA")) {
            m_read.failure = Remark{u"badLine", 1, text.left(40).toString()};
            return std::move(m_read);
        }
        while (at < text.size()) {
            at = readLine(text, at);
        }
        takeChapter();
        if (m_spans.empty()) {
            m_read.failure = Remark{u"nothingIn", 0, {}};
        } else {
            m_read.lesson.packets.push_back(packetOfSpans(m_spans, m_endText));
            m_read.lesson.packets.back().title = m_read.lesson.title;
        }
        return std::move(m_read);
    }

private:
    /// Returns where the next line begins. Behind a backslash a line end is a part of the value.
    qsizetype readLine(QStringView text, qsizetype at)
    {
        ++m_line;
        const int number = m_line;
        QString key;
        QString value;
        bool isKey = true;
        const qsizetype begin = at;
        while (at < text.size() && text[at] != u'\n') {
            const bool isEscaped = text[at] == u'\\' && at + 1 < text.size();
            at += isEscaped ? 1 : 0;
            m_line += isEscaped && text[at] == u'\n' ? 1 : 0;
            if (isKey && !isEscaped && text[at] == u'=') {
                isKey = false;
            } else {
                (isKey ? key : value) += text[at];
            }
            ++at;
        }
        takeLine(text.sliced(begin, at - begin), key, value, number);
        return at + 1;
    }

    void takeLine(QStringView line, const QString& key, QString value, int number)
    {
        if (value.endsWith(u'\r') && line.endsWith(u'\r')) {
            value.chop(1);
        }
        if (line.startsWith(u';') || line.startsWith(u'#')) {
            const auto end = endMarkOf(line);
            m_endText = end ? *end : m_endText;
        } else if (line.startsWith(u'[')) {
            takeChapter();
            m_isChapter = line.trimmed().compare(u"[CHAPTER]", Qt::CaseInsensitive) == 0;
            m_isGlobal = false;
            m_draft = {.line = number};
        } else if (m_isChapter) {
            takeKey(key.trimmed().toUpper(), value);
        } else if (m_isGlobal && key.trimmed().compare(u"title", Qt::CaseInsensitive) == 0) {
            m_read.lesson.title = value;
        }
    }

    void takeKey(const QString& key, const QString& value)
    {
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (key == u"TIMEBASE") {
            const double above = value.section(u'/', 0, 0).toDouble();
            const double below = value.section(u'/', 1, 1).toDouble();
            m_draft.unit = above > 0 && below > 0 ? above / below : m_draft.unit;
        } else if (key == u"START" && isNumber) {
            m_draft.start = number;
        } else if (key == u"END" && isNumber) {
            m_draft.end = number;
        } else if (key == u"TITLE") {
            m_draft.title = value;
        }
    }

    void takeChapter()
    {
        if (!m_isChapter) {
            return;
        }
        const double start = m_draft.start.value_or(-1) * m_draft.unit;
        const double end = m_draft.end.value_or(0) * m_draft.unit;
        constexpr double kMost = 999999;
        if (start >= 0 && start <= kMost && end <= kMost) {
            m_spans.push_back({start, std::max(start, end), m_draft.title});
        } else {
            m_read.leftOut.push_back({u"noStart", m_draft.line, m_draft.title});
        }
        m_isChapter = false;
    }

    ReadLesson m_read;
    std::vector<MarkSpan> m_spans;
    ChapterDraft m_draft;
    QString m_endText;
    int m_line = 0;
    bool m_isChapter = false;
    bool m_isGlobal = true;
};

} // namespace

ReadLesson readFfMetadata(QStringView text)
{
    return FfMetadataReader().read(text);
}

QString ffMetadataText(const LessonPacket& packet)
{
    QString text = u";FFMETADATA1\n"_s;
    if (packet.hasEnd) {
        text += u"; "_s + endMarkComment(endTextOf(packet)) + u'\n';
    }
    text += packet.title.isEmpty() ? QString() : u"title="_s + escaped(packet.title) + u'\n';
    for (const MarkSpan& span : spansOf(packet)) {
        text +=
            u"[CHAPTER]\nTIMEBASE=1/1000\nSTART=%1\nEND=%2\ntitle="_s.arg(milliseconds(span.start))
                .arg(milliseconds(span.end)) +
            escaped(span.text) + u'\n';
    }
    return text;
}

} // namespace orvanta
