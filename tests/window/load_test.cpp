// What the main window's load procedure does.

#include "tests/window/window_fixture.h"

#include <QDialog>
#include <QImage>
#include <QListWidget>

namespace orvanta::test {

using MainWindowLoad = Form2Test;

TEST_F(MainWindowLoad, StartsTheTickButNotTheOneShotTimers)
{
    load();
    EXPECT_TRUE(timerRanAfterLoad);
    EXPECT_EQ(window->Timer1.interval(), 300);
    EXPECT_FALSE(window->Timer2.isActive());
    EXPECT_EQ(window->Timer2.interval(), 100);
    EXPECT_FALSE(window->Timer3.isActive());
    EXPECT_EQ(window->Timer3.interval(), 200);
}

TEST_F(MainWindowLoad, AbsentSettingsAreFullVolumeAndTheCentre)
{
    load();
    EXPECT_EQ(window->Slider2->value(), 100);
    EXPECT_EQ(window->Slider3->value(), 50);
}

TEST_F(MainWindowLoad, PlacesVolumeAndBalanceFromTheSettingsAndWritesNothing)
{
    setting("save", "volume", u"-1000"_s);
    setting("save", "balance", u"20"_s);
    const QByteArray before = home.bytes(u"orvanta.ini"_s);
    load();
    EXPECT_EQ(window->Slider2->value(), 50);
    EXPECT_EQ(window->Slider3->value(), 20);
    EXPECT_EQ(control.Volume(), -1000);
    EXPECT_EQ(home.bytes(u"orvanta.ini"_s), before);
}

TEST_F(MainWindowLoad, AStoredVolumeThatIsNoNumberIsPassedOver)
{
    setting("save", "volume", u"loud"_s);
    setting("save", "balance", u"30"_s);
    load();
    EXPECT_EQ(window->Slider3->value(), 30);
    EXPECT_FALSE(reported.has_value());
}

TEST_F(MainWindowLoad, TheAddInsMenuTakesItsCaptionsByLanguage)
{
    setting("add-ins", "num", u"3"_s);
    for (int i = 1; i <= 3; ++i) {
        const QByteArray number = QByteArray::number(i);
        setting("add-ins", QByteArray("namee" + number), u"Tool %1"_s.arg(i));
        setting("add-ins", QByteArray("namer" + number), u"Утилита %1"_s.arg(i));
    }
    load(1);
    ASSERT_EQ(window->add.size(), 3U);
    EXPECT_EQ(window->add[0]->text(), u"Tool 1");
    EXPECT_EQ(window->add[2]->text(), u"Tool 3");
    EXPECT_EQ(window->ai->actions().size(), 3);
    load(2);
    ASSERT_EQ(window->add.size(), 3U);
    EXPECT_EQ(window->add[1]->text(), u"Утилита 2");
}

TEST_F(MainWindowLoad, WithoutAddInsOneEntryWithAnEmptyCaptionIsLeft)
{
    setting("add-ins", "num", u"0"_s);
    load();
    ASSERT_EQ(window->add.size(), 1U);
    EXPECT_EQ(window->add[0]->text(), QString());
}

TEST_F(MainWindowLoad, ANumberOfAddInsThatIsNoNumberLeavesTheRestOfTheWindowWhole)
{
    setting("add-ins", "num", u"many"_s);
    setting("save", "balance", u"40"_s);
    load();
    EXPECT_EQ(window->add.size(), 1U);
    EXPECT_EQ(window->Slider3->value(), 40);
    EXPECT_FALSE(reported.has_value());
}

/// A dialog whose controls bear names that the main window's bear, too.
class PlainDialog : public QDialog
{
public:
    explicit PlainDialog(QWidget* parent)
        : QDialog(parent)
    {
        auto* box = new QLineEdit(this);
        box->setObjectName(u"Text1"_s);
        auto* list = new QListWidget(this);
        list->setObjectName(u"List1"_s);
        list->setGeometry(0, 40, 100, 60);
    }

    QImage picture()
    {
        show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
        setFocus();
        return grab().toImage();
    }
};

TEST_F(MainWindowLoad, TheSkinStaysOffTheDialogsOverTheWindow)
{
    show();
    PlainDialog over(window.get());
    PlainDialog alone(nullptr);
    EXPECT_EQ(over.picture(), alone.picture());
    EXPECT_FALSE(window->styleSheet().contains(u"QToolTip"_s));
    // While the window's own boxes wear it.
    const QImage box = window->Text1->grab().toImage();
    EXPECT_EQ(box.pixelColor(box.width() - 20, box.height() / 2), skin::kRaised);
}

} // namespace orvanta::test
