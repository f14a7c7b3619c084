// The About window and the picture window.

#include "core/ini.h"
#include "platform/media/media_library.h"
#include "system/drawn_picture.h"
#include "system/form3_picture_window.h"
#include "system/form9_about.h"
#include "tests/support/settings_folder.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class About : public testing::Test
{
protected:
    /// Loads and shows the window in a stored language.
    Form9& show(const QString& language)
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        WriteIni(u"main"_s, u"language"_s, language, home.ini());
        window = std::make_unique<Form9>(module, [this] { return facts; });
        window->showAbout();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        return *window;
    }

    static void click(QWidget* control) { QTest::mouseClick(control, Qt::LeftButton); }

    /// The margin of 100 twips, in pixels.
    static constexpr int kMargin = 7;

    SettingsFolder home;
    Module1 module;
    PictureFacts facts;
    std::unique_ptr<Form9> window;
};

TEST_F(About, InEnglishTheDesignTextsStandAndTheHandbooksPictureIsShown)
{
    show(u"1"_s);
    EXPECT_EQ(window->windowTitle(), u"About author");
    EXPECT_EQ(window->Label2->text(), u"My adress:");
    EXPECT_EQ(window->Label7->text(), u"Published in magazine:");
    EXPECT_EQ(window->Command1->text(), u"Ok");
    EXPECT_TRUE(window->Image8->isVisible());
    EXPECT_TRUE(window->Image1->isVisible());
}

TEST_F(About, NamesWhatDrawsAndDecodesPictures)
{
    show(u"1"_s);
    EXPECT_TRUE(window->Label1->text().endsWith(
        u"Pictures are drawn by: the processor. Decoded by: the processor."_s));
    facts = {.openGlDriver = u"Some GPU"_s, .decoder = u"vaapi"_s};
    show(u"2"_s);
    EXPECT_TRUE(window->Label1->text().endsWith(
        u"Изображение рисует: OpenGL, Some GPU. Декодирует: vaapi."_s));
}

TEST_F(About, InRussianTheTextsAreReplacedAndTheHandbooksPictureIsHidden)
{
    show(u"2"_s);
    EXPECT_EQ(window->windowTitle(), u"Об авторе");
    EXPECT_EQ(window->Label2->text(), u"Мой адрес:");
    EXPECT_TRUE(window->Label7->text().contains(u"«Шаг за шагом»"));
    EXPECT_TRUE(window->Label1->text().startsWith(u"Орванта"));
    EXPECT_FALSE(window->Image8->isVisible());
}

TEST_F(About, AnyOtherStoredLanguageKeepsTheEnglishTexts)
{
    show(u"3"_s);
    EXPECT_EQ(window->windowTitle(), u"About author");
    EXPECT_TRUE(window->Image8->isVisible());
}

TEST_F(About, TheLanguageIsReadAtEachLoading)
{
    show(u"1"_s);
    WriteIni(u"main"_s, u"language"_s, u"2"_s, home.ini());
    window->showAbout(); // open: it stays as it is
    EXPECT_EQ(window->windowTitle(), u"About author");
    click(window->Command1);
    window->showAbout();
    EXPECT_EQ(window->windowTitle(), u"Об авторе");
}

TEST_F(About, NamesTheVersionsThatAreAtWork)
{
    const MediaLibraryVersions media = mediaLibraryVersions();
    ASSERT_TRUE(media.player.startsWith(u"mpv ")) << qPrintable(media.player);
    ASSERT_FALSE(media.codecs.isEmpty());
    for (const QString& language : {u"1"_s, u"2"_s}) {
        const QString text = show(language).Label1->text();
        for (const QString& part :
             {u"3.3"_s, u"MIT"_s, media.player, media.codecs, QString::fromLatin1(qVersion())}) {
            EXPECT_TRUE(text.contains(part)) << qPrintable(part);
        }
        EXPECT_FALSE(text.contains(u'%')) << qPrintable(text);
    }
}

TEST_F(About, NoSlotHoldsAPathOrACommandBehindItsCaption)
{
    for (const QString& language : {u"1"_s, u"2"_s}) {
        show(language);
        EXPECT_TRUE(window->Text1->isReadOnly());
        for (const QString& text : {window->Text1->text(), window->label6->text()}) {
            EXPECT_FALSE(text.isEmpty());
            EXPECT_FALSE(text.contains(u'/') || text.contains(u'=') || text.contains(u'\n'))
                << qPrintable(text);
        }
    }
    EXPECT_EQ(show(u"1"_s).Text1->text(), u"Step by Step, the handbook of Orvanta");
}

TEST_F(About, IsNotModal)
{
    show(u"1"_s);
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(About, OkAndEscapeCloseIt)
{
    show(u"1"_s);
    click(window->Command1);
    EXPECT_FALSE(window->isVisible());
    window->showAbout();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(About, AClickOnThePictureShowsItInAWindowOfItsSizeAndAMargin)
{
    show(u"1"_s);
    EXPECT_EQ(window->pictureWindow(), nullptr);
    click(window->Image1);
    Form3* enlarged = window->pictureWindow();
    ASSERT_NE(enlarged, nullptr);
    EXPECT_TRUE(enlarged->isVisible());
    EXPECT_EQ(enlarged->Image1->drawing(), window->Image1->drawing());
    EXPECT_EQ(enlarged->Image1->size(), window->Image1->ownSize());
    EXPECT_GT(enlarged->Image1->width(), window->Image1->width());
    EXPECT_EQ(enlarged->width(), enlarged->Image1->width() + kMargin);
    EXPECT_EQ(enlarged->height(), enlarged->Image1->height() + kMargin);
}

TEST_F(About, ASecondClickShowsTheSamePictureWindowSizedAnew)
{
    show(u"1"_s);
    click(window->Image1);
    Form3* enlarged = window->pictureWindow();
    ASSERT_NE(enlarged, nullptr);
    enlarged->Image1->setFixedSize(10, 10);
    enlarged->setFixedSize(500, 20);
    click(window->Image1);
    EXPECT_EQ(window->pictureWindow(), enlarged);
    EXPECT_TRUE(enlarged->isVisible());
    EXPECT_EQ(enlarged->width(), window->Image1->ownSize().width() + kMargin);
    EXPECT_EQ(enlarged->height(), window->Image1->ownSize().height() + kMargin);
}

TEST_F(About, TheEnlargedPictureBearsTheTitleOfTheWindowThatShowsIt)
{
    show(u"1"_s);
    click(window->Image1);
    EXPECT_EQ(window->pictureWindow()->windowTitle(), u"About author");
    WriteIni(u"main"_s, u"language"_s, u"2"_s, home.ini());
    click(window->Command1);
    window->showAbout();
    click(window->Image1);
    EXPECT_EQ(window->pictureWindow()->windowTitle(), u"Об авторе");
}

TEST_F(About, AClickOnTheEnlargedPictureClosesItsWindowAlone)
{
    show(u"1"_s);
    click(window->Image1);
    click(window->pictureWindow()->Image1);
    EXPECT_FALSE(window->pictureWindow()->isVisible());
    EXPECT_TRUE(window->isVisible());
    click(window->Image1);
    EXPECT_TRUE(window->pictureWindow()->isVisible());
}

TEST_F(About, ThePicturesCanBeClickedByKeys)
{
    show(u"1"_s);
    window->Image1->setFocus();
    QTest::keyClick(window->Image1, Qt::Key_Return);
    ASSERT_NE(window->pictureWindow(), nullptr);
    EXPECT_TRUE(window->pictureWindow()->isVisible());
    QTest::keyClick(window->pictureWindow()->Image1, Qt::Key_Space);
    EXPECT_FALSE(window->pictureWindow()->isVisible());
}

TEST_F(About, ItsPictureIsAnnouncedAsAPictureThatCanBePressed)
{
    show(u"1"_s);
    QAccessibleInterface* picture = QAccessible::queryAccessibleInterface(window->Image1);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->role(), QAccessible::Graphic);
    EXPECT_FALSE(picture->text(QAccessible::Name).isEmpty());
    ASSERT_NE(picture->actionInterface(), nullptr);
    picture->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_NE(window->pictureWindow(), nullptr);
    EXPECT_TRUE(window->pictureWindow()->isVisible());
}

TEST_F(About, ItsDrawingsAreReallyDrawn)
{
    show(u"1"_s);
    const QImage picture = window->Image1->grab().toImage();
    const QImage handbook = window->Image8->grab().toImage();
    EXPECT_NE(picture.pixelColor(picture.rect().center()),
              picture.pixelColor(4, picture.height() - 4));
    EXPECT_EQ(handbook.pixelColor(handbook.rect().center()).alpha(), 255);
    EXPECT_FALSE(window->Image1->ownSize().isEmpty());
}

} // namespace
} // namespace orvanta::test
