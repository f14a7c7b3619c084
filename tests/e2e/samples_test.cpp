// The samples, from their beginning to their end.

#include "core/ini.h"
#include "tests/e2e/support/end_to_end.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Samples : public EndToEnd
{
protected:
    static QString group() { return QStringLiteral(ORVANTA_SOURCE_DIR "/samples/samples.vxg"); }
};

static int numberIn(const QString& key, const QString& file)
{
    return ReadIni(u"main"_s, key, file, u"0"_s).toInt();
}

/// The lines by which a packet's clips or brakes say that they start.
static QStringList startsOf(int packet, const QString& file)
{
    const int brakes = numberIn(u"brakes"_s, file);
    const int count = brakes != 0 ? brakes : numberIn(u"files"_s, file);
    const QString word = brakes != 0 ? u"brake"_s : u"file"_s;
    QStringList starts;
    for (int i = 1; i <= count; ++i) {
        const QString text = ReadIni(word + QString::number(i), u"text"_s, file);
        starts.append(u"start %1 %2 %3"_s.arg(packet).arg(i).arg(text));
    }
    return starts;
}

static QStringList startsOfGroup(const QString& group)
{
    QStringList starts;
    for (int p = 1; p <= numberIn(u"files"_s, group); ++p) {
        const QString member = ReadIni(u"file"_s + QString::number(p), u"path"_s, group);
        starts += startsOf(p, QFileInfo(group).dir().absoluteFilePath(member));
    }
    return starts;
}

TEST_F(Samples, EveryClipAndBrakePlaysInOrderToTheEnd)
{
    const QStringList starts = startsOfGroup(group());
    ASSERT_GE(starts.size(), 10);
    ASSERT_TRUE(program.startAndShow({group()}));
    for (const QString& start : starts) {
        ASSERT_TRUE(plays(start)) << start.toStdString();
    }
    EXPECT_TRUE(plays(u"stopped"_s));
    EXPECT_EQ(program.linesMatching(playbackPattern(u"start"_s)).size(), starts.size());
    EXPECT_EQ(program.linesMatching(u"^orvanta.errors:"_s), QStringList());
}

} // namespace orvanta::e2e
