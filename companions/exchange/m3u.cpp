#include "companions/exchange/m3u.h"

#include "companions/exchange/clock_text.h"
#include "companions/exchange/end_mark.h"
#include "companions/exchange/list_entry.h"
#include "companions/exchange/text_lines.h"

#include <QUrl>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

class M3uReader
{
public:
    ReadLesson read(QStringView text)
    {
        int number = 0;
        for (const QStringView line : linesOfText(text)) {
            ++number;
            if (line.trimmed().startsWith(u'#')) {
                readDirective(line);
            } else if (!line.trimmed().isEmpty()) {
                readPath(line.trimmed().toString(), number);
            }
        }
        m_read.lesson.packets = packetsOfEntries(m_entries);
        if (m_entries.empty()) {
            m_read.failure = Remark{u"nothingIn", 0, {}};
        }
        return std::move(m_read);
    }

private:
    void readDirective(QStringView line)
    {
        const auto rest = [&](QStringView word) { return line.sliced(word.size()); };
        if (beginsWith(line, u"#EXTINF:")) {
            m_next.text = titleIn(rest(u"#EXTINF:")).toString();
        } else if (beginsWith(line, u"#EXTGRP:")) {
            m_packet = u""_s + rest(u"#EXTGRP:").toString();
        } else if (beginsWith(line, u"#PLAYLIST:")) {
            m_read.lesson.title = rest(u"#PLAYLIST:").toString();
        } else if (beginsWith(line, u"#EXTVLCOPT:start-time=")) {
            m_next.start = clockSeconds(rest(u"#EXTVLCOPT:start-time="));
        } else if (beginsWith(line, u"#EXTVLCOPT:stop-time=")) {
            m_next.stop = clockSeconds(rest(u"#EXTVLCOPT:stop-time="));
        } else if (const auto end = endMarkOf(line)) {
            m_next.endText = *end;
        }
    }

    /// Behind the length, and behind attributes, in whose quotes commas mean nothing.
    static QStringView titleIn(QStringView information)
    {
        bool isQuoted = false;
        for (qsizetype i = 0; i < information.size(); ++i) {
            isQuoted = information[i] == u'"' ? !isQuoted : isQuoted;
            if (information[i] == u',' && !isQuoted) {
                return information.sliced(i + 1);
            }
        }
        return {};
    }

    void readPath(const QString& path, int line)
    {
        m_next.path = pathOfList(path.startsWith(u"./") ? path.mid(2) : path);
        m_next.packet = m_packet;
        m_next.text = m_next.text.isEmpty() ? titleOfPath(m_next.path) : m_next.text;
        if (isAddressElsewhere(path)) {
            m_read.leftOut.push_back({u"address", line, path});
        } else {
            m_entries.push_back(m_next);
        }
        m_next = {};
    }

    ReadLesson m_read;
    std::vector<ListEntry> m_entries;
    ListEntry m_next;
    QString m_packet;
};

} // namespace

ReadLesson readM3u(QStringView text)
{
    return M3uReader().read(text);
}

static QString oneLineOf(QString text)
{
    return text.replace(u"\r\n"_s, u" "_s).replace(u'\n', u' ').replace(u'\r', u' ');
}

/// As it is where a reader takes it for what it is, else as an address.
static QString pathLine(const QString& path)
{
    const bool isPlain = !path.startsWith(u'#') && path.trimmed() == path &&
                         oneLineOf(path) == path && !isAddressElsewhere(path) &&
                         !beginsWith(path, u"file:");
    if (isPlain) {
        return path;
    }
    if (path.startsWith(u'/')) {
        return u"file://"_s + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
    }
    return oneLineOf(u"./"_s + path);
}

static QString secondsText(double seconds)
{
    constexpr int kDecimals = 3;
    return QString::number(seconds, 'f', kDecimals);
}

static QString entryText(const ListEntry& entry)
{
    const bool isWhole = !entry.start || !entry.stop;
    const double length = isWhole ? -1 : *entry.stop - *entry.start;
    QString text = u"#EXTINF:"_s + (isWhole ? u"-1"_s : secondsText(length)) + u',' +
                   oneLineOf(entry.text) + u'\n';
    text += entry.packet.isNull() ? QString() : u"#EXTGRP:"_s + oneLineOf(entry.packet) + u'\n';
    text +=
        entry.start ? u"#EXTVLCOPT:start-time="_s + secondsText(*entry.start) + u'\n' : QString();
    text += entry.stop ? u"#EXTVLCOPT:stop-time="_s + secondsText(*entry.stop) + u'\n' : QString();
    text += entry.endText.isNull() ? QString() : u'#' + endMarkComment(entry.endText) + u'\n';
    return text + pathLine(entry.path) + u'\n';
}

QString m3uText(const Lesson& lesson)
{
    QString text = u"#EXTM3U\n"_s;
    text += lesson.title.isEmpty() ? QString() : u"#PLAYLIST:"_s + oneLineOf(lesson.title) + u'\n';
    for (const ListEntry& entry : entriesOf(lesson)) {
        text += entryText(entry);
    }
    return text;
}

} // namespace orvanta
