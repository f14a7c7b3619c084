// What the screen shows while one clip follows another: the last picture stays until the next one's
// first.

#include "tests/e2e/support/end_to_end.h"
#include "tests/e2e/support/screen_eye.h"

#include <QDeadlineTimer>

#include <string>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class PictureChange : public EndToEnd
{
protected:
    /// A point that lies in the picture of each clip.
    [[nodiscard]] QPoint pointInPicture(const QString& title)
    {
        EXPECT_TRUE(waitFor([&] { return !desktop.placeOf(title).isEmpty(); }));
        return desktop.placeOf(title).center();
    }

    /// The colours at a point, one after the other, from the first one on to the last wanted one.
    std::string colours(QPoint place, const QString& wanted)
    {
        QString seen;
        const QDeadlineTimer patience(kPatienceMs);
        while (!patience.hasExpired() && seen.size() < wanted.size()) {
            const QChar now = letterOf(m_eye.colourAt(place));
            if (!seen.endsWith(now) && (!seen.isEmpty() || now == wanted[0])) {
                seen += now;
            }
        }
        return seen.toStdString();
    }

    /// Plays three clips round and round.
    void playRound()
    {
        home.setOption(u"as"_s, true);
        home.setOption(u"ar"_s, true);
        const QString packet = writeClips(file(u"round.vxl"_s), {{media(u"red1.mp4"_s), u"Red"_s},
                                                                 {media(u"green1.mp4"_s), u"G"_s},
                                                                 {media(u"blue1.mp4"_s), u"B"_s}});
        ASSERT_TRUE(program.startAndShow({packet}));
        ASSERT_TRUE(plays(u"start 1 1"_s));
    }

private:
    static QChar letterOf(unsigned colour)
    {
        constexpr unsigned kHalf = 0x80;
        const bool red = (colour >> 16) > kHalf;
        const bool green = (colour >> 8 & 0xffU) > kHalf;
        const bool blue = (colour & 0xffU) > kHalf;
        const int colours = int{red} + int{green} + int{blue};
        if (colours != 1) {
            return colours == 0 ? u'-' : u'?';
        }
        return red ? u'R' : green ? u'G' : u'B';
    }

    ScreenEye m_eye{desktop};
};

TEST_F(PictureChange, InAWindowIsNeverBlackNorShowsAnOldPictureAgain)
{
    playRound();
    EXPECT_EQ(colours(pointInPicture(u"red1"_s), u"RGBRGBR"_s), "RGBRGBR");
}

TEST_F(PictureChange, OnTheWholeScreenIsNeverBlackNorShowsAnOldPictureAgain)
{
    playRound();
    (void)pointInPicture(u"red1"_s);
    desktop.press(u"F11"_s);
    const QRect screen(QPoint(), desktop.screenSize());
    ASSERT_TRUE(waitFor([&] { return desktop.showsWindowAt(screen); }));
    EXPECT_EQ(colours(screen.center(), u"RGBRGBR"_s), "RGBRGBR");
}

} // namespace orvanta::e2e
