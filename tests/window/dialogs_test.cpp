// The language dialog and the splash.

#include "tests/support/settings_folder.h"
#include "window/form11_language_dialog.h"
#include "window/form1_splash.h"
#include "window/picture_sign.h"

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

class LanguageDialog : public testing::Test
{
protected:
    [[nodiscard]] QString stored() const { return home.value("main", "language"); }

    SettingsFolder home;
    Form11 dialog{home.ini()};
};

TEST_F(LanguageDialog, OpensWithEnglishSelectedAndEnglishTexts)
{
    EXPECT_TRUE(dialog.Option1->isChecked());
    EXPECT_EQ(dialog.windowTitle(), u"Select language");
    EXPECT_EQ(dialog.Command1->text(), u"Next...");
    EXPECT_TRUE(dialog.isModal());
}

TEST_F(LanguageDialog, ChoosingRussianChangesItsTextsAtOnceAndEnglishRestoresThem)
{
    dialog.show();
    QTest::mouseClick(dialog.Option2, Qt::LeftButton, {}, QPoint(10, dialog.Option2->height() / 2));
    EXPECT_EQ(dialog.windowTitle(), u"Выберите язык");
    EXPECT_EQ(dialog.Command1->text(), u"Далее...");
    QTest::mouseClick(dialog.Option1, Qt::LeftButton, {}, QPoint(10, dialog.Option1->height() / 2));
    EXPECT_EQ(dialog.windowTitle(), u"Select language");
    EXPECT_EQ(dialog.Command1->text(), u"Next...");
}

TEST_F(LanguageDialog, TheButtonWritesOneForEnglish)
{
    dialog.show();
    QTest::mouseClick(dialog.Command1, Qt::LeftButton);
    EXPECT_EQ(stored(), u"1");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(LanguageDialog, TheButtonWritesTwoForRussian)
{
    dialog.show();
    dialog.Option2->setChecked(true);
    QTest::mouseClick(dialog.Command1, Qt::LeftButton);
    EXPECT_EQ(stored(), u"2");
}

TEST_F(LanguageDialog, ClosingItInAnotherWayWritesNothing)
{
    dialog.show();
    dialog.close();
    EXPECT_EQ(stored(), QString());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(stored(), QString());
}

TEST_F(LanguageDialog, CanBeUsedByKeysAlone)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    EXPECT_TRUE(dialog.Option1->hasFocus());
    QTest::keyClick(dialog.Option1, Qt::Key_Down);
    EXPECT_TRUE(dialog.Option2->isChecked());
    EXPECT_EQ(dialog.windowTitle(), u"Выберите язык");
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_EQ(stored(), u"2");
}

TEST_F(LanguageDialog, ItsCaptionsFitInBothLanguages)
{
    dialog.show();
    for (QRadioButton* option : {dialog.Option1, dialog.Option2}) {
        option->setChecked(true);
        EXPECT_LE(dialog.Command1->sizeHint().width(), dialog.Command1->width());
        EXPECT_LE(option->sizeHint().width(), option->width());
    }
}

TEST(Splash, ShowsItsRussianPictureOnlyForLanguageTwo)
{
    for (const int language : {0, 1, 2, 3}) {
        const Form1 splash(language);
        EXPECT_EQ(splash.Image1->isHidden(), language != 2) << language;
    }
}

TEST(Splash, BearsTheProgramsCaptionAndStaysOnTop)
{
    const Form1 splash(1);
    EXPECT_EQ(splash.windowTitle(), u"!Orvanta!");
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(splash.windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST(Splash, GoesByItselfAfterThreeSeconds)
{
    Form1 splash(1);
    splash.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !splash.isVisible(); }, 20000));
}

TEST(Splash, IsAnOpaquePictureOfItsFullSize)
{
    Form1 splash(2);
    const QImage image = splash.grab().toImage();
    EXPECT_EQ(image.size(), splash.size());
    EXPECT_EQ(image.pixelColor(image.width() / 2, 4).alpha(), 255);
    EXPECT_NE(image.pixelColor(385, 136), image.pixelColor(8, 8));
}

} // namespace orvanta::test
