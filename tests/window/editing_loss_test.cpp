// Editing in the main window: nothing of what was changed is lost, whatever comes between.
#include "playback/lesson_controls.h"
#include "tests/window/editing_fixture.h"

namespace orvanta::test {

constexpr int kMostLines = 32767;

class ChangesInTheWindow : public EditingInTheWindow
{
protected:
    /// Something else is open; a draft of the packet with "start" as its first text is kept.
    void leaveADraft()
    {
        openBrakes({u"000000.00"_s, u"000020.00"_s});
        retype(u"start"_s);
        press(Qt::Key_F4);
        pickers.answer = {writePacket(u"clips.vxl"_s, {u"one"_s})};
        click(window->Image14);
        ASSERT_EQ(drafts().size(), 1);
    }
    void retype(const QString& text) const
    {
        window->List1->setCursorLine(2);
        press(Qt::Key_F2);
        type(text);
        QTest::keyClick(&box(), Qt::Key_Return);
    }
    void reopen()
    {
        pickers.answer = {home.file(u"lesson.vxl"_s)};
        click(window->Image14);
    }
    void closeAndOpenAgain()
    {
        window->unloadAll();
        window.reset();
        module.playlist = {};
        show();
        reopen();
    }
};

TEST_F(ChangesInTheWindow, StayInTheDraftThatNobodyHasTakenYet)
{
    leaveADraft();
    reopen();
    EXPECT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    press(Qt::Key_F4);
    press(Qt::Key_F4); // without a change
    EXPECT_EQ(drafts().size(), 1);
    closeAndOpenAgain();
    EXPECT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    answer(0);
    EXPECT_EQ(texts()[0], u"start");
}

TEST_F(ChangesInTheWindow, OfADraftThatWasLeftOutliveOtherChanges)
{
    leaveADraft();
    reopen();
    answer(1);
    press(Qt::Key_F4);
    retype(u"other"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(kept(u"brake1", u"text"), u"other");
    closeAndOpenAgain();
    ASSERT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    answer(0);
    EXPECT_EQ(texts()[0], u"start");
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(drafts().isEmpty());
}

TEST_F(ChangesInTheWindow, AreOfferedWhereTheSameDocumentIsOpenedAgain)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    retype(u"start"_s);
    click(window->Image14);
    EXPECT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    answer(0);
    EXPECT_EQ(texts()[0], u"start");
}

TEST_F(ChangesInTheWindow, IncludeWhatStandsInTheOpenBoxWhenSomethingElseIsOpened)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    pickers.answer = {writePacket(u"clips.vxl"_s, {u"one"_s})};
    click(window->Image14);
    ASSERT_EQ(answers(), (QStringList{u"Save"_s, u"Discard"_s}));
    answer(0);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
}

TEST_F(ChangesInTheWindow, IncludeWhatStandsInTheOpenBoxWhenTheProgramEnds)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    closeAndOpenAgain();
    ASSERT_TRUE(window->Notice->text().startsWith(u"Changes from "_s));
    answer(0);
    EXPECT_EQ(texts()[0], u"start");
}

TEST_F(ChangesInTheWindow, StayUnsavedWhenFilesAreAddedBehindThem)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    retype(u"start"_s);
    press(Qt::Key_F4);
    Q_EMIT window->List1->filesDropped({writePacket(u"clips.vxl"_s, {u"one"_s})});
    ASSERT_TRUE(QTest::qWaitFor([&] { return module.playlist.PlaylistCount == 2; }));
    EXPECT_EQ(texts()[0], u"start");
    press(Qt::Key_F4);
    EXPECT_TRUE(mode().editing().isChanged());
    pickers.saveAnswer = home.file(u"both.vxg"_s);
    press(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(pickers.calls.last(), u"save *.vxg");
    const QString member = kept(u"file1", u"path", u"both.vxg"_s);
    EXPECT_EQ(kept(u"brake1", u"text", member), u"start");
}

TEST_F(ChangesInTheWindow, AreNoneWhereAListIsAsLongAsItCanBe)
{
    QStringList times(kMostLines, u"000050.00"_s);
    times.first() = u"000000.00"_s;
    times.last() = u"000060.00"_s;
    openBrakes(times);
    playTo(4);
    const LogCapture log("orvanta.errors");
    press(Qt::Key_Insert);
    EXPECT_FALSE(reported);
    EXPECT_EQ(LogCapture::lines().filter(u"command of editing"_s).size(), 1);
    EXPECT_EQ(module.playlist.packet(1).ClipCount, kMostLines);
    EXPECT_FALSE(mode().editing().canUndo());
}

TEST_F(ChangesInTheWindow, AreNotMadeByWhatAnotherClipHasSuggested)
{
    const QByteArray subtitles = "1\n00:00:02,000 --> 00:00:03,000\nhello\n";
    home.write(u"one.srt"_s, subtitles);
    openClips({u"one"_s, u"two"_s});
    mode().findChild<EditingSound*>()->suggestFrom(MarkSource::Subtitles);
    ASSERT_TRUE(start(1, 2));
    MarkSuggestions later; // asked after the others: they have come by then
    bool isLater = false;
    QObject::connect(&later, &MarkSuggestions::done, &later, [&] { isLater = true; });
    later.read(home.file(u"one.avi"_s));
    ASSERT_TRUE(QTest::qWaitFor([&] { return isLater; }));
    EXPECT_EQ(module.playlist.PlaylistCount, 1);
}

TEST_F(ChangesInTheWindow, AreTypedOnWhileTheFilmReachesTheNextBrake)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s, u"000040.00"_s});
    window->List1->setCursorLine(2);
    press(Qt::Key_F2);
    type(u"sta"_s);
    playTo(20.1);
    EXPECT_EQ(module.playlist.CurrentClip, 2);
    type(u"rt"_s);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_EQ(texts(), (QStringList{u"start"_s, u"line 2"_s, u"line 3"_s}));
}

TEST_F(ChangesInTheWindow, AreNoneWhereATimeIsTypedAsItWas)
{
    openBrakes({u"00000.5"_s, u"000020.00"_s});
    window->List1->setCursorLine(2);
    press(Qt::Key_F2);
    QTest::keyClick(&box(), Qt::Key_Tab);
    QTest::keyClick(&box(), Qt::Key_Return);
    EXPECT_FALSE(mode().editing().isChanged());
    EXPECT_EQ(times()[0], u"00000.5");
}

TEST_F(ChangesInTheWindow, IncludeWhatStandsInTheOpenBoxWhenALaunchOpensSomethingElse)
{
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    retype(u"first"_s);
    press(Qt::Key_F2);
    type(u"start"_s);
    const QString clips = writePacket(u"clips.vxl"_s, {u"one"_s});
    setting("ftl", "1", clips);
    setting("ftl", "num", u"1"_s);
    engine->tick();
    ASSERT_EQ(texts(), (QStringList{u"one"_s}));
    ASSERT_EQ(answers(), (QStringList{u"Save"_s, u"Discard"_s}));
    answer(0);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
}

TEST_F(ChangesInTheWindow, IncludeWhatStandsInTheOpenBoxWhenTheWindowGoesToTheTray)
{
    option("nc");
    openBrakes({u"000000.00"_s, u"000020.00"_s});
    press(Qt::Key_F2);
    type(u"start"_s);
    engine->pressClose();
    EXPECT_EQ(module.playlist.PlaylistCount, 0);
    ASSERT_EQ(answers(), (QStringList{u"Save"_s, u"Discard"_s}));
    answer(0);
    EXPECT_EQ(kept(u"brake1", u"text"), u"start");
}

} // namespace orvanta::test
