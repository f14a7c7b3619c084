// The panel of practice, its chips and the ring of a wait.
#include "playback/practice_controls.h"
#include "playback/practice_texts.h"
#include "tests/window/window_fixture.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

namespace orvanta::test {

class PracticeInTheWindow : public Form2Test
{
protected:
    PracticeControls& practice() { return engine->practice(); }

    /// A lesson that waits for a key behind the first of two clips.
    void waitBehindTheFirstOfTwo()
    {
        show();
        addClips(u"list"_s, {u"a"_s, u"b"_s});
        window->RebuildTree();
        option("agnc");
        practice().set({.wait = Practice::kWaitForKey});
        ASSERT_TRUE(start(1, 1));
        control.reachEnd();
        engine->tick();
        ASSERT_TRUE(practice().isWaiting());
    }

    static void choose(QComboBox* box, const QString& text)
    {
        const int index = box->findText(text);
        ASSERT_GE(index, 0) << qPrintable(text);
        box->setCurrentIndex(index);
    }

    QStringList chips()
    {
        QStringList texts;
        for (const QPushButton* chip : window->Chips->findChildren<QPushButton*>()) {
            texts += chip->isVisible() ? QStringList{chip->text()} : QStringList{};
        }
        return texts;
    }

    QPushButton* chip(const QString& text)
    {
        for (QPushButton* chip : window->Chips->findChildren<QPushButton*>()) {
            if (chip->isVisible() && chip->text() == text) {
                return chip;
            }
        }
        return nullptr;
    }
};

TEST_F(PracticeInTheWindow, HasAPanelThatTheButtonOpensAndClosesAndEscapeToo)
{
    show();
    EXPECT_FALSE(window->Panel->isVisible());
    QTest::mouseClick(window->PracticeButton, Qt::LeftButton);
    EXPECT_TRUE(window->Panel->isVisible());
    EXPECT_TRUE(window->PracticeButton->isChecked());
    EXPECT_TRUE(window->rect().contains(
        QRect(window->Panel->mapTo(window.get(), QPoint()), window->Panel->size())));
    QTest::keyClick(window->Panel->SpeedBox, Qt::Key_Escape);
    EXPECT_FALSE(window->Panel->isVisible());
    EXPECT_FALSE(window->PracticeButton->isChecked());
    QTest::mouseClick(window->PracticeButton, Qt::LeftButton);
    QTest::mouseClick(window->PracticeButton, Qt::LeftButton);
    EXPECT_FALSE(window->Panel->isVisible());
}

TEST_F(PracticeInTheWindow, IsWhatThePanelsBoxesSay)
{
    show();
    PracticePanel& panel = *window->Panel;
    choose(panel.SpeedBox, speedText(80));
    choose(panel.TimesBox, u"3 times"_s);
    choose(panel.WaitBox, u"5 s"_s);
    choose(panel.FromBox, u"at 60 %"_s);
    choose(panel.StepBox, u"+10 %"_s);
    panel.MirrorBox->click();
    panel.EvenBox->click();
    EXPECT_EQ(practice().values(), (Practice{.speed = 80,
                                             .times = 3,
                                             .wait = Practice::kWaitForSeconds,
                                             .seconds = 5,
                                             .from = 60,
                                             .step = 10,
                                             .mirror = true,
                                             .even = true}));
    panel.NormalButton->click();
    EXPECT_EQ(practice().values().wait, Practice::kNoWait);
    EXPECT_TRUE(chips().isEmpty());
}

TEST_F(PracticeInTheWindow, ShowsInThePanelWhatKeysHaveSet)
{
    show();
    practice().set({.speed = 93, .times = Practice::kEndless});
    EXPECT_EQ(window->Panel->SpeedBox->currentText(), speedText(93));
    EXPECT_EQ(window->Panel->TimesBox->currentText(), u"endlessly");
}

TEST_F(PracticeInTheWindow, HasAChipForEachThingThatIsNotAsUsualWhichAClickTakesAway)
{
    show();
    EXPECT_EQ(chips(), QStringList());
    practice().set({.times = 3, .wait = 150});
    EXPECT_EQ(chips(), QStringList({u"3 times"_s, u"wait ×1.5"_s}));
    QTest::mouseClick(chip(u"3 times"_s), Qt::LeftButton);
    EXPECT_EQ(practice().values(), Practice{.wait = 150});
    EXPECT_EQ(chips(), QStringList({u"wait ×1.5"_s}));
}

TEST_F(PracticeInTheWindow, CountsTheChipsForWhichThereIsNoRoom)
{
    show();
    window->resize(window->minimumSizeHint());
    practice().set({.speed = 80,
                    .times = 3,
                    .wait = Practice::kWaitForKey,
                    .from = 60,
                    .step = 10,
                    .mirror = true,
                    .even = true});
    const QString more = chips().filter(u"+"_s).value(0);
    EXPECT_EQ(chips().size() - 1 + more.mid(1).toInt(), 6);
    EXPECT_LE(window->Chips->width(), window->Text2->width() * 2 / 3);
    QTest::mouseClick(chip(more), Qt::LeftButton);
    EXPECT_TRUE(window->Panel->isVisible());
}

TEST_F(PracticeInTheWindow, SaysItInRussianWithItsPlurals)
{
    EXPECT_EQ(timesText(3, TextLanguage::Russian), u"3 раза");
    EXPECT_EQ(timesText(5, TextLanguage::Russian), u"5 раз");
    EXPECT_EQ(timesText(10, TextLanguage::Russian), u"10 раз");
    EXPECT_EQ(timesText(1, TextLanguage::Russian), u"один раз");
}

TEST_F(PracticeInTheWindow, HasARingWhileTheLessonWaitsWhosePressGoesOn)
{
    ASSERT_NO_FATAL_FAILURE(waitBehindTheFirstOfTwo());
    EXPECT_TRUE(window->Chips->Ring->isVisible());
    QTest::mouseClick(window->Chips->Ring, Qt::LeftButton);
    EXPECT_FALSE(practice().isWaiting());
    EXPECT_FALSE(window->Chips->Ring->isVisible());
    EXPECT_EQ(module.playlist.CurrentClip, Int16(2));
}

/// Files that are dropped while a lesson waits.
class DropDuringAWait : public PracticeInTheWindow
{
protected:
    void SetUp() override { ASSERT_NO_FATAL_FAILURE(waitBehindTheFirstOfTwo()); }

    void drop(const QString& file)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window->List1->viewport(), &enter);
        QDropEvent dropped(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(window->List1->viewport(), &dropped);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QString packet() const
    {
        return home.write(u"new.vxl"_s, "[main]\nfiles=1\n[file1]\npath=" +
                                            home.write(u"new.avi"_s, "media").toUtf8() +
                                            "\ntext=new\n");
    }
    [[nodiscard]] QString group() const
    {
        return home.write(u"new.vxg"_s,
                          "[main]\nfiles=1\n[file1]\npath=" + packet().toUtf8() + "\ntext=New\n");
    }
};

TEST_F(DropDuringAWait, APacketIsAddedAndTheWaitGoesOn)
{
    option("as");
    drop(packet());
    EXPECT_EQ(module.playlist.PlaylistCount, 2);
    engine->tick();
    EXPECT_TRUE(practice().isWaiting());
    EXPECT_EQ(control.CurrentState(), control.Paused);
    EXPECT_EQ(module.playlist.CurrentPacket, 1);
}

TEST_F(DropDuringAWait, AGroupEndsItAndBeginsTheListAnew)
{
    option("as");
    drop(group());
    EXPECT_EQ(module.playlist.PlaylistCount, 2);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !practice().isWaiting(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.CurrentState() == control.Running; }));
    EXPECT_EQ(module.playlist.CurrentPacket, 1);
    EXPECT_EQ(module.playlist.CurrentClip, 1);
}

TEST_F(DropDuringAWait, APacketThatIsNotToStartAtOnceEndsIt)
{
    drop(packet());
    EXPECT_EQ(module.playlist.PlaylistCount, 2);
    engine->tick();
    EXPECT_FALSE(practice().isWaiting());
}

TEST_F(PracticeInTheWindow, LeavesTheClipsTextTheRoomThatTheChipsDoNotTake)
{
    show();
    practice().set({.speed = 80});
    ASSERT_TRUE(QTest::qWaitFor([&] { return window->Text2->textMargins().right() > 0; }));
    EXPECT_GE(window->Text2->textMargins().right(), window->Chips->width());
    practice().set({});
    EXPECT_TRUE(QTest::qWaitFor([&] { return window->Text2->textMargins().right() == 0; }));
}

} // namespace orvanta::test
