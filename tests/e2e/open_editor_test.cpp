// What happens behind an open editor: the preview and the player, ends of the program.

#include "tests/e2e/support/dialog.h"
#include "tests/e2e/support/end_to_end.h"

#include <QDir>

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class OpenEditor : public EndToEnd
{
protected:
    void SetUp() override
    {
        EndToEnd::SetUp();
        QDir().mkpath(file(u"clips"_s));
        ASSERT_TRUE(QFile::copy(media(u"brakes6.mp4"_s), clip()));
        home.set(u"save"_s, u"open"_s, file(u"clips"_s));
    }

    [[nodiscard]] QString clip() const { return file(u"clips/lesson.mp4"_s); }
    [[nodiscard]] Dialog packetEditor() { return {desktop, program, u"Create packet"_s}; }

    /// Starts the program with a clip and shows the packet editor over it.
    void openEditorOver(const QString& media)
    {
        ASSERT_TRUE(program.startAndShow({media}));
        ASSERT_TRUE(plays(u"start 1 1"_s));
        // The video window comes up when the clip runs; a menu would not outlive that.
        ASSERT_TRUE(waitFor([this] { return window().currentSeconds() > 0; }));
        ASSERT_TRUE(window().chooseFromMenu(u"New..."_s, 1));
        Dialog editor = packetEditor();
        ASSERT_TRUE(editor.isOpen());
    }
    /// Opens the clip of the folder in the preview and runs it from some place.
    void runPreview(Dialog& editor)
    {
        ASSERT_TRUE(editor.choose(u"Brake"_s));
        ASSERT_TRUE(editor.clickItem(u"Files of the folder"_s, u"lesson.mp4"_s));
        ASSERT_TRUE(waitFor(
            [&] { return editor.drag(u"Position"_s, 50) && editor.slider(u"Position"_s) > 0; }));
    }
    [[nodiscard]] bool isPlayerPaused() { return window().isEnabled(u"Play"_s); }
};

TEST_F(OpenEditor, ThePlayerPausesForThePreviewAndGoesOnWhenTheEditorCloses)
{
    ASSERT_NO_FATAL_FAILURE(openEditorOver(media(u"tone20.wav"_s)));
    Dialog editor = packetEditor();
    ASSERT_FALSE(isPlayerPaused());
    ASSERT_NO_FATAL_FAILURE(runPreview(editor));
    EXPECT_TRUE(waitFor([this] { return isPlayerPaused(); }));
    const QString time = window().currentTime();
    ASSERT_TRUE(editor.press(u"Cancel"_s));
    EXPECT_TRUE(waitFor([this] { return !isPlayerPaused(); }));
    EXPECT_TRUE(waitFor([&] { return window().currentTime() != time; }));
}

TEST_F(OpenEditor, ThePlayerDoesNotGoOnWithTheOldClipWhenAPacketIsCreated)
{
    ASSERT_NO_FATAL_FAILURE(openEditorOver(media(u"tone20.wav"_s)));
    Dialog editor = packetEditor();
    ASSERT_NO_FATAL_FAILURE(runPreview(editor));
    ASSERT_TRUE(editor.type(u"Text:"_s, u"Halfway"_s));
    ASSERT_TRUE(editor.press(u"Add key"_s));
    ASSERT_TRUE(editor.press(u"Create and open"_s));
    ASSERT_TRUE(loads(1, 1));
    ASSERT_TRUE(plays(u"start 1 1 Halfway"_s));
    EXPECT_FALSE(QFile::exists(home.file(u"temp.vxl"_s)));
}

TEST_F(OpenEditor, TheEndOfTheLastClipOfTheShellsWaitsForTheEditor)
{
    home.setOption(u"acp"_s, true);
    ASSERT_NO_FATAL_FAILURE(openEditorOver(media(u"video15.mp4"_s)));
    ASSERT_TRUE(plays(u"stopped"_s));
    // Answered by ticks that come after the end.
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    ASSERT_TRUE(program.isRunning());
    ASSERT_TRUE(packetEditor().press(u"Cancel"_s));
    ASSERT_EQ(program.statusAtEnd(), 0);
}

TEST_F(OpenEditor, SigtermEndsTheProgramBehindAPickerOverTheEditor)
{
    ASSERT_NO_FATAL_FAILURE(openEditorOver(clip()));
    Dialog editor = packetEditor();
    ASSERT_NO_FATAL_FAILURE(runPreview(editor));
    home.set(u"save"_s, u"open"_s, u"/changed/behind"_s);
    ASSERT_TRUE(editor.press(u"Load brake"_s));
    Dialog picker(desktop, program, u"!Orvanta!"_s);
    ASSERT_TRUE(picker.isOpen());
    program.sendSignal(SIGTERM);
    ASSERT_EQ(program.statusAtEnd(), 0);
    // The editor was closed as its user closes it: it stored its folder.
    EXPECT_EQ(home.get(u"save"_s, u"open"_s), file(u"clips"_s));
}

TEST_F(OpenEditor, AFileFromTheShellIsPlayedBehindTheEditor)
{
    ASSERT_NO_FATAL_FAILURE(openEditorOver(media(u"tone20.wav"_s)));
    EXPECT_EQ(launchAgain(desktop, home, {media(u"short.wav"_s)}), 0);
    ASSERT_TRUE(plays(u"start 1 1 short"_s));
    Dialog editor = packetEditor();
    EXPECT_TRUE(editor.isOpen());
    EXPECT_TRUE(editor.press(u"Cancel"_s));
    EXPECT_TRUE(editor.isClosed());
}

} // namespace orvanta::e2e
