// The lesson's text over the picture: how it is cut and painted, and where it lies.
#include "playback/overlay_picture.h"
#include "playback/picture_text.h"
#include "tests/playback/video_window_fixture.h"

#include <QPainter>
#include <QTextLayout>

#include <algorithm>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

const QString kLongText = u"word "_s.repeated(300).trimmed();

/// The rows and columns that something is painted in.
QRect paintedIn(const QImage& image)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

/// The smallest rectangle with every pixel in which two pictures differ.
QRect differenceOf(const QImage& one, const QImage& other)
{
    QRect bounds;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            if (one.pixel(x, y) != other.pixel(x, y)) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

int countOf(const QImage& image, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += (image.pixel(x, y) & 0xffffff) == (colour & 0xffffff) ? 1 : 0;
        }
    }
    return count;
}

/// Pixels that are neither white, black nor grey, and opaque.
int countOfColoured(const QImage& image)
{
    constexpr int kPlainlyColoured =
        80; // between the strongest and the weakest of the three, of 255
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const auto [least, most] = std::minmax({qRed(pixel), qGreen(pixel), qBlue(pixel)});
            count += qAlpha(pixel) == 255 && most - least > kPlainlyColoured ? 1 : 0;
        }
    }
    return count;
}

int heightOfText(const QString& text, int fontSize)
{
    return paintedIn(pictureOfText(text, {.fontSize = fontSize, .width = 900}).toImage()).height();
}

} // namespace

TEST(PictureText, IsInProportionToThePicture)
{
    EXPECT_EQ(pictureTextSize(TextLevel::Text, 540), 30);
    EXPECT_EQ(pictureTextSize(TextLevel::Large, 540), 49);
    EXPECT_GE(pictureTextSize(TextLevel::Text, 10), 8);
}

TEST(PictureText, OfOneLineStaysAsItIs)
{
    EXPECT_EQ(textThatFits(u"Three beats"_s, {.fontSize = 20, .width = 600}), u"Three beats"_s);
    EXPECT_EQ(textThatFits(u" Three\n beats "_s, {.fontSize = 20, .width = 600}), u"Three beats"_s);
}

TEST(PictureText, HasThreeLinesAtMostAndEndsAtAWordWithAnEllipsis)
{
    const TextShape shape{.fontSize = 20, .width = 400};
    const QString fitting = textThatFits(kLongText, shape);
    EXPECT_TRUE(fitting.endsWith(u"word…")) << qPrintable(fitting);
    EXPECT_LT(fitting.size(), kLongText.size());
    EXPECT_EQ(textThatFits(fitting, shape), fitting);
    const int one = heightOfText(u"word"_s, 20);
    const int three = pictureOfText(kLongText, shape).toImage().height();
    EXPECT_GT(three, 2 * one);
    EXPECT_LT(three, 5 * one);
}

TEST(PictureText, CutsAWordThatIsLongerThanThreeLines)
{
    const TextShape shape{.fontSize = 20, .width = 100};
    const QString fitting = textThatFits(QString(5000, u'w'), shape);
    EXPECT_TRUE(fitting.endsWith(u"w…"));
    EXPECT_LT(fitting.size(), 60);
    EXPECT_LE(pictureOfText(fitting, shape).width(), 140);
}

TEST(PictureText, WithoutLettersIsNoPicture)
{
    EXPECT_TRUE(pictureOfText({}, {.fontSize = 20, .width = 400}).isNull());
    EXPECT_TRUE(pictureOfText(u" \n "_s, {.fontSize = 20, .width = 400}).isNull());
}

TEST(PictureText, IsWhiteWithADarkEdgeOnNothing)
{
    const QImage image = pictureOfText(u"Lesson"_s, {.fontSize = 40, .width = 400}).toImage();
    EXPECT_GT(countOf(image, 0xffffff), 100);
    EXPECT_EQ(qAlpha(image.pixel(0, 0)), 0);
    // A letter of white is nowhere beside a white picture without dark in between.
    QImage onWhite(image.size(), QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    QPainter(&onWhite).drawImage(0, 0, image);
    int dark = 0;
    for (int x = 0; x < onWhite.width(); ++x) {
        for (int y = 0; y < onWhite.height(); ++y) {
            dark += qGray(onWhite.pixel(x, y)) < 90 ? 1 : 0;
        }
    }
    EXPECT_GT(dark, 300);
}

TEST(PictureText, IsNeverMarkup)
{
    EXPECT_EQ(textThatFits(u"<b>one</b> &amp; two"_s, {.fontSize = 20, .width = 600}),
              u"<b>one</b> &amp; two"_s);
    const TextShape shape{.fontSize = 20, .width = 600};
    EXPECT_GT(pictureOfText(u"<b>one</b>"_s, shape).width(),
              pictureOfText(u"one"_s, shape).width());
}

TEST(PictureText, FromRightToLeftEndsAtTheLeft)
{
    // A dot belongs to the sentence: on its left, where the first letters stand on the right.
    const TextShape shape{.fontSize = 40, .width = 900};
    const QImage plain = pictureOfText(u"שלום"_s, shape).toImage();
    const QImage dotted = pictureOfText(u"שלום..."_s, shape).toImage();
    ASSERT_GT(dotted.width(), plain.width());
    // Dots fill only the lower part: the left side of the picture is empty above.
    const QRect leftTop(0, 0, dotted.width() - plain.width(), dotted.height() / 3);
    const QRect rightTop(plain.width() / 2, 0, dotted.width() - plain.width() / 2,
                         dotted.height() / 2);
    EXPECT_EQ(countOf(dotted.copy(leftTop), 0xffffff), 0);
    EXPECT_GT(countOf(dotted.copy(rightTop), 0xffffff), 0);
}

TEST(PictureText, AnEmojiKeepsItsColoursAndLettersBesideItAreWhite)
{
    for (const qreal ratio : {1.0, 2.0}) {
        const TextShape shape{.fontSize = 40, .width = 900, .devicePixelRatio = ratio};
        const QImage plain = pictureOfText(u"Lesson"_s, shape).toImage();
        const QImage withEmoji = pictureOfText(u"Lesson 🍎"_s, shape).toImage();
        EXPECT_EQ(countOfColoured(plain), 0);
        EXPECT_GT(countOfColoured(withEmoji), 300 * ratio * ratio)
            << "without a font that has it in colour (fonts-noto-color-emoji) there is none";
        EXPECT_GE(countOf(withEmoji, 0xffffff), countOf(plain, 0xffffff));
        EXPECT_EQ(countOfColoured(withEmoji.copy(plain.rect())), 0);
    }
}

TEST(PictureText, AnEmojiThatFontsOfLettersHaveTooIsInColour)
{
    const TextShape shape{.fontSize = 40, .width = 900};
    for (const QString& emoji : {u"😊"_s, u"❤\uFE0F"_s, u"✅"_s, u"👩‍🏫"_s, u"🇫🇷"_s}) {
        EXPECT_GT(countOfColoured(pictureOfText(emoji, shape).toImage()), 300) << qPrintable(emoji);
    }
    EXPECT_EQ(countOfColoured(pictureOfText(u"❤ 1 #"_s, shape).toImage()), 0);
}

namespace {

class TextOverPictureTest : public VideoWindowTest
{
protected:
    void say(const QString& text) { form.setLine({.text = text, .number = 1, .count = 1}); }

    void awaitFade()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return form.LessonText->strength() == 1; }));
    }

    QImage picture() { return form.grab().toImage().convertToFormat(QImage::Format_RGB32); }
};

} // namespace

TEST_F(TextOverPictureTest, IsNotThereUntilAskedFor)
{
    open(u"/a.avi"_s, {320, 240});
    const QImage without = picture();
    say(u"Three beats"_s);
    EXPECT_FALSE(form.LessonText->isVisible());
    EXPECT_EQ(picture(), without);
}

TEST_F(TextOverPictureTest, LiesInTheLowestThirdAndNowhereElse)
{
    open(u"/a.avi"_s, {640, 480});
    const QImage without = picture();
    storedLevel = TextLevel::Text;
    say(u"Three beats"_s);
    awaitFade();
    const QRect changed = differenceOf(picture(), without);
    EXPECT_GT(changed.top(), 320);
    EXPECT_LT(changed.bottom(), 480);
    EXPECT_NEAR(changed.center().x(), 320, 3);
    EXPECT_GT(countOf(picture(), 0xffffff), 50);
}

TEST_F(TextOverPictureTest, LiesThereOnTheWholeScreenToo)
{
    open(u"/a.avi"_s, {640, 480});
    QTest::keyClick(&form, Qt::Key_F11);
    ASSERT_TRUE(QTest::qWaitFor([this] { return form.size() == form.screen()->size(); }));
    const QImage without = picture();
    storedLevel = TextLevel::Large;
    say(kLongText);
    awaitFade();
    const QRect changed = differenceOf(picture(), without);
    EXPECT_GT(changed.top(), form.height() / 2);
    EXPECT_LT(changed.bottom(), form.height());
}

TEST_F(TextOverPictureTest, GoesWithALineThatHasNone)
{
    storedLevel = TextLevel::Text;
    open(u"/a.avi"_s, {320, 240});
    say(u"Three beats"_s);
    awaitFade();
    say({});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.LessonText->isVisible(); }));
}

TEST_F(TextOverPictureTest, TheKeyGoesRoundAndIsKept)
{
    open(u"/a.avi"_s, {640, 480});
    say(u"Three beats"_s);
    QTest::keyClick(&form, Qt::Key_F5);
    EXPECT_EQ(storedLevel, TextLevel::Text);
    const QSize text = form.LessonText->size();
    QTest::keyClick(&form, Qt::Key_F5);
    EXPECT_EQ(storedLevel, TextLevel::Large);
    EXPECT_NEAR(double(form.LessonText->height()) / text.height(), 18.0 / 11.0, 0.12);
    QTest::keyClick(&form, Qt::Key_F5);
    EXPECT_EQ(storedLevel, TextLevel::Off);
    EXPECT_FALSE(form.LessonText->isVisible());
}

TEST_F(TextOverPictureTest, FollowsTheSizeOfTheWindow)
{
    storedLevel = TextLevel::Text;
    open(u"/a.avi"_s, {640, 480});
    say(u"Three beats"_s);
    const int before = form.LessonText->height();
    form.resize(320, 240);
    EXPECT_TRUE(QTest::qWaitFor([&] { return form.LessonText->height() < before * 0.7; }));
    EXPECT_TRUE(form.rect().contains(form.LessonText->geometry()));
}

TEST_F(TextOverPictureTest, SoundAloneStaysOutOfSightWithoutText)
{
    say(u"One"_s);
    open(u"/a.mp3"_s, {});
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Left(), kOutOfSight);
}

TEST_F(TextOverPictureTest, SoundAloneHasAGroundWithText)
{
    storedLevel = TextLevel::Text;
    say(u"One"_s);
    open(u"/a.mp3"_s, {});
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(form.size(), QSize(640, 360));
    EXPECT_NEAR(form.LessonText->geometry().center().y(), 180, 2);
    EXPECT_FALSE(form.ActiveMovie1->isVisible());
    open(u"/b.avi"_s, {320, 240});
    EXPECT_TRUE(form.ActiveMovie1->isVisible());
    EXPECT_EQ(form.size(), QSize(320, 240));
}

TEST_F(TextOverPictureTest, BelowAStillPictureItHasABandOfItsOwn)
{
    storedLevel = TextLevel::Large;
    form.setStillPicture(stillPicture({640, 480}));
    say(kLongText);
    open(u"/a.mp3"_s, {});
    EXPECT_TRUE(form.Image1->isVisible());
    EXPECT_GE(form.LessonText->y(), form.Image1->geometry().bottom());
    EXPECT_TRUE(form.rect().contains(form.LessonText->geometry()));
}

TEST_F(TextOverPictureTest, TheKeyOpensAndClosesTheGroundOfSoundThatPlays)
{
    say(u"One"_s);
    open(u"/a.mp3"_s, {});
    form.nextTextLevel();
    EXPECT_TRUE(form.isVisible());
    form.nextTextLevel();
    form.nextTextLevel();
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(form.Left(), kOutOfSight);
}

TEST_F(TextOverPictureTest, TheMouseGoesThroughIt)
{
    storedLevel = TextLevel::Text;
    open(u"/a.avi"_s, {320, 240});
    say(u"Three beats"_s);
    EXPECT_EQ(form.childAt(form.LessonText->geometry().center()), form.ActiveMovie1);
}
