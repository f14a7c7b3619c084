// The program's end while a window waits for an answer.

#include "tests/window/window_fixture.h"

#include <QApplication>
#include <QDialog>
#include <QTimer>

namespace orvanta::test {

namespace {

class ClosingBehindADialog : public Form2Test
{
protected:
    void SetUp() override { show(); }

    /// Shows it modally and ends the program meanwhile.
    void endBehind(QDialog& dialog)
    {
        QTimer::singleShot(0, window.get(), [this] {
            EXPECT_TRUE(window->isModalWindowOpen());
            engine->closeProgram();
        });
        dialog.exec();
    }
};

/// Keeps open whatever closes it.
class StubbornDialog : public QDialog
{
protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }
};

} // namespace

TEST_F(ClosingBehindADialog, ClosesItAsTheWindowManagerDoes)
{
    QDialog dialog(window.get());
    bool rejected = false;
    QObject::connect(&dialog, &QDialog::rejected, [&] { rejected = true; });
    endBehind(dialog);
    EXPECT_TRUE(rejected);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_TRUE(othersUnloaded);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ClosingBehindADialog, ClosesADialogOverADialog)
{
    QDialog below(window.get());
    QDialog above(&below);
    QTimer::singleShot(0, &below, [&] { endBehind(above); });
    below.exec();
    EXPECT_FALSE(above.isVisible());
    EXPECT_FALSE(below.isVisible());
    EXPECT_TRUE(othersUnloaded);
}

TEST_F(ClosingBehindADialog, DoesNotWaitForOneThatRefuses)
{
    StubbornDialog dialog;
    QTimer::singleShot(0, window.get(), [&] {
        engine->closeProgram();
        EXPECT_TRUE(othersUnloaded);
        dialog.hide();
    });
    dialog.exec();
}

// A picker that is closed leaves what it gave the last time.
TEST_F(ClosingBehindADialog, OpensNothingOfWhatThePickerGaveBefore)
{
    addClips(u"before"_s, {u"old"_s});
    pickers.answer = {home.write(u"a.avi"_s, "media")};
    pickers.whileOpen = [this] { engine->closeProgram(); };
    click(window->Image8);
    EXPECT_EQ(module.playlist.packet(1).Title, u"before");
}

} // namespace orvanta::test
