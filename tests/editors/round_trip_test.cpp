#include "core/packet_file.h"
#include "editors/entry_list_view.h"
#include "editors/form5_packet_editor.h"
#include "tests/editors/editor_room.h"

#include <QPushButton>

#include <random>

namespace orvanta::test {

namespace {

class RoundTrip : public EditorOnScreen<Form5>
{};

/// Texts that files, lists and people are bad at.
class HostileTexts
{
public:
    explicit HostileTexts(unsigned seed)
        : m_random(seed)
    {}

    QString next()
    {
        static const QStringList pieces = {u"{}"_s,
                                           u"\""_s,
                                           u"="_s,
                                           u";"_s,
                                           u"["_s,
                                           u"]"_s,
                                           u" "_s,
                                           u"#"_s,
                                           u"\t"_s,
                                           u"'"_s,
                                           u"{No picture}"_s,
                                           u"files=9"_s,
                                           u"[main]"_s,
                                           u"%20"_s,
                                           u"\\"_s,
                                           u"/"_s,
                                           u"текст"_s,
                                           u"ёЁ"_s,
                                           u"e\u0301"_s,
                                           u"🎬"_s,
                                           u"👩‍👩‍👧"_s,
                                           u"שלום"_s,
                                           u"日本語"_s,
                                           u"\u00a0"_s,
                                           u"a"_s,
                                           u"Z9"_s,
                                           u"."_s};
        QString text;
        const int count = static_cast<int>(m_random() % 12);
        for (int i = 0; i < count; ++i) {
            text += pieces.at(static_cast<qsizetype>(m_random() % pieces.size()));
        }
        return m_random() % 50 == 0 ? QString(2047, u'ж') : text;
    }
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most + 1)); }

private:
    std::mt19937 m_random;
};

/// What reading makes of a value: outer blanks go, and one pair of equal outer quotes.
QString asRead(QString value)
{
    const auto cut = [](QString text) {
        while (text.startsWith(u' ') || text.startsWith(u'\t')) {
            text.remove(0, 1);
        }
        while (text.endsWith(u' ') || text.endsWith(u'\t')) {
            text.chop(1);
        }
        return text;
    };
    value = cut(value);
    const bool isQuoted = value.size() > 1 && value.front() == value.back() &&
                          (value.front() == u'"' || value.front() == u'\'');
    return (isQuoted ? cut(value.mid(1, value.size() - 2)) : value).left(2047);
}

struct Clip
{
    QString path;
    QString text;
};

QByteArray packetOf(const std::vector<Clip>& clips)
{
    QString file = u"[main]\r\nfiles=%1\r\n"_s.arg(clips.size());
    int index = 0;
    for (const Clip& clip : clips) {
        file += u"[file"_s + QString::number(++index) + u"]\r\npath="_s + clip.path +
                u"\r\ntext="_s + clip.text + u"\r\n"_s;
    }
    return file.toUtf8();
}

/// The file that the editor writes: fields as they were read, a path cut at its first marker with
/// the rest going into the text.
std::vector<Clip> expectedAfterSaving(const std::vector<Clip>& clips)
{
    std::vector<Clip> expected;
    for (const Clip& clip : clips) {
        const QString entry = asRead(clip.path) + u"{}"_s + asRead(clip.text);
        const qsizetype marker = entry.indexOf(u"{}"_s);
        expected.push_back({.path = entry.left(marker), .text = entry.mid(marker + 2)});
    }
    return expected;
}

} // namespace

TEST_F(RoundTrip, AThousandHostilePacketsKeepEveryPathAndText)
{
    HostileTexts texts(20250);
    open();
    pickers.saveAnswer = room(u"out.vxl"_s);
    for (int packet = 0; packet < 1000; ++packet) {
        std::vector<Clip> clips(static_cast<std::size_t>(texts.upTo(4)));
        for (Clip& clip : clips) {
            clip = {.path = u"/clips/"_s + texts.next(), .text = texts.next()};
        }
        pickers.answer = {put(u"in.vxl"_s, packetOf(clips))};
        editor->Command3->click();
        editor->Command4->click();
        ASSERT_EQ(bytesOf(room(u"out.vxl"_s)), packetOf(expectedAfterSaving(clips)))
            << "packet " << packet;
    }
    EXPECT_EQ(untrapped, QStringList());
}

TEST_F(RoundTrip, ABrakePacketKeepsEveryTimeAndText)
{
    pickers.answer = {put(u"in.vxl"_s, "[main]\nfile=/a{}b.avi\nbrakes=2\n"
                                       "[brake1]\ntime=000012,50\ntext={}=;[ x\n"
                                       "[brake2]\ntime=3\ntext=\n")};
    open();
    pickers.saveAnswer = room(u"out.vxl"_s);
    editor->Command7->click();
    editor->Command16->click();
    const BrakeDocument saved = readBrakeDocument(room(u"out.vxl"_s));
    EXPECT_EQ(saved.mediaFile, u"/a{}b.avi"_s);
    EXPECT_EQ(saved.entries, QStringList({u"000012,50{}{}=;[ x"_s, u"3{}"_s}));
}

} // namespace orvanta::test
