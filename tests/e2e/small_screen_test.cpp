// A large picture on the screen of a small computer.

#include "tests/e2e/support/end_to_end.h"

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class SmallScreen : public EndToEnd
{
protected:
    SmallScreen()
        : EndToEnd({.screen = {1366, 768}})
    {}

    const QString kMainWindow = u"!Orvanta!"_s;
    const QString kVideoWindow = u"large20"_s; // called as its clip
};

TEST_F(SmallScreen, ALargePictureOpensBesideTheMainWindowWithItsShapeKept)
{
    const QString packet =
        writeClips(file(u"large.vxl"_s), {{media(u"large20.mp4"_s), u"Large"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(plays(u"start 1 1 Large"_s));
    // The window manager places it after it is shown.
    QRect picture;
    EXPECT_TRUE(waitFor([&] {
        picture = desktop.placeOf(kVideoWindow);
        return picture.isValid() && !picture.intersects(desktop.placeOf(kMainWindow)) &&
               QRect(QPoint(), desktop.screenSize()).contains(picture);
    }));
    EXPECT_GE(picture.width(), 600); // the room at the right
    EXPECT_LT(picture.width(), 1280);
    EXPECT_NEAR(picture.width() * 9.0 / 16, picture.height(), 1.5);
}

} // namespace orvanta::e2e
