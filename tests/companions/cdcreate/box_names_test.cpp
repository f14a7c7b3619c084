// Names of files in a box.

#include "companions/cdcreate/box_names.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

TEST(SafeNames, OfOrdinaryFilesStayAsTheyAre)
{
    for (const QString& name :
         {u"clip.mp4"_s, u"The bell, once more (2).ogg"_s, u"Урок 3.avi"_s, u"no ending"_s,
          u"two.dots.mkv"_s, u"contest.mp4"_s, u"com10.avi"_s, u"ñandú.webm"_s}) {
        EXPECT_EQ(safeName(name), name);
    }
}

TEST(SafeNames, HoldNoSignThatMeansSomethingElsewhere)
{
    EXPECT_EQ(safeName(u"a<b>c:d\"e|f?g*h;i.avi"_s), u"a_b_c_d_e_f_g_h_i.avi");
    EXPECT_EQ(safeName(u"one\ntwo\ttab.avi"_s), u"one_two_tab.avi");
    EXPECT_EQ(safeName(u"back\\slash.avi"_s), u"back_slash.avi");
    EXPECT_EQ(safeName(u"smile \U0001F600.avi"_s), u"smile _.avi");
    EXPECT_EQ(safeName(u"evil\u202Egpj.avi"_s), u"evil_gpj.avi");
}

TEST(SafeNames, EndInNoBlankAndNoDotAndAreNeverEmpty)
{
    EXPECT_EQ(safeName(u"end. . "_s), u"end");
    EXPECT_EQ(safeName(u" in front.avi"_s), u"in front.avi");
    EXPECT_EQ(safeName(u"blank .avi"_s), u"blank.avi");
    EXPECT_EQ(safeName(u".hidden.avi"_s), u"_.hidden.avi");
    EXPECT_EQ(safeName(u"-rf.avi"_s), u"_-rf.avi");
    EXPECT_EQ(safeName(u"..."_s), u"_");
    EXPECT_EQ(safeName({}), u"_");
}

TEST(SafeNames, AreNoDevices)
{
    for (const QString& name : {u"CON"_s, u"aux.txt"_s, u"nul.tar.gz"_s, u"Com1.mp4"_s, u"LPT9"_s,
                                u"con .avi"_s, u"com\u00b9.avi"_s}) {
        EXPECT_TRUE(safeName(name).startsWith(u'_')) << qPrintable(safeName(name));
    }
}

TEST(SafeNames, AreCutToWhatAnImageHoldsAndKeepTheirEnding)
{
    const QString name = safeName(QString(300, u'щ') + u".webm"_s);
    EXPECT_EQ(name.size(), kLongestBoxName);
    EXPECT_TRUE(name.endsWith(u".webm"));
    EXPECT_EQ(safeName(u"a."_s + QString(300, u'e')).size(), kLongestBoxName);
}

TEST(BoxNamesOnce, AreGivenToOneFileAloneWhateverTheirCase)
{
    BoxNames names;
    EXPECT_EQ(names.take(u"media"_s, u"Clip.avi"_s), u"media/Clip.avi");
    EXPECT_EQ(names.take(u"media"_s, u"clip.AVI"_s), u"media/clip (2).AVI");
    EXPECT_EQ(names.take(u"media"_s, u"clip (2).avi"_s), u"media/clip (2) (2).avi");
    EXPECT_EQ(names.take(u"pictures"_s, u"clip.avi"_s), u"pictures/clip.avi");
    EXPECT_EQ(names.take({}, u"clip.avi"_s), u"clip.avi");
    const QString longName = QString(300, u'a') + u".avi"_s;
    EXPECT_NE(names.take({}, longName), names.take({}, longName));
    EXPECT_EQ(names.take({}, longName).size(), kLongestBoxName);
}

TEST(BoxNamesOnce, HoldForAnythingThatAFileCanBeCalled)
{
    QRandomGenerator random(1);
    const QString letters = u"aA.. -_:\\?*\"<>|;\n\u0301éЖ\u202E\U0001F600conux1"_s;
    const QRegularExpression signs(u"[\\x00-\\x1f<>:\"/\\\\|?*;\\x{202e}]"_s);
    ASSERT_TRUE(signs.isValid()) << qPrintable(signs.errorString());
    BoxNames names;
    QSet<QString> taken;
    for (int i = 0; i < 3000; ++i) {
        QString wanted;
        for (int length = random.bounded(90); length >= 0; --length) {
            wanted.append(letters[random.bounded(letters.size())]);
        }
        const QString name = names.take(u"media"_s, wanted);
        const QString file = name.mid(QStringView(u"media/").size());
        EXPECT_TRUE(name.startsWith(u"media/") && !file.contains(u'/'));
        EXPECT_LE(file.size(), kLongestBoxName);
        EXPECT_FALSE(file.endsWith(u'.') || file.endsWith(u' ') || file.startsWith(u'.'));
        EXPECT_FALSE(file.contains(signs)) << qPrintable(name);
        EXPECT_FALSE(taken.contains(name.toCaseFolded())) << qPrintable(name);
        taken.insert(name.toCaseFolded());
    }
}

} // namespace orvanta::test
