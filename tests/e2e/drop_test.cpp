// Files dragged from another program onto the playlist.

#include "tests/e2e/support/dragging.h"
#include "tests/e2e/support/steered.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Drop : public Steered
{
protected:
    void start(bool autoStart, const QStringList& arguments = {})
    {
        home.setOption(u"as"_s, autoStart);
        ASSERT_TRUE(program.startAndShow(arguments));
        dragging = std::make_unique<Dragging>(desktop);
    }

    /// Starts with a packet of one long clip, "Lesson", which plays.
    void startPlaying()
    {
        start(true, {writeClips(file(u"lesson.vxl"_s), {{m_clip, u"Lesson"_s}})});
        ASSERT_TRUE(plays(u"start 1 1 Lesson"_s));
        ASSERT_TRUE(becomes(u"Playing"_s));
    }

    /// A link to the long clip under a name of its own.
    QString clip(const QString& name)
    {
        EXPECT_TRUE(QFile::link(m_clip, file(name)));
        return file(name);
    }

    [[nodiscard]] bool drop(const QStringList& files)
    {
        return dragging->dropFiles(files, window().listCentre());
    }

    /// The lines below the root without the tree in front of them; a packet's title bears a "#".
    QStringList texts()
    {
        QStringList lines;
        for (const ListedLine& line : window().lines()) {
            lines.append((line.isPacket ? u"#"_s : QString()) + line.text);
        }
        return lines.mid(1);
    }

    [[nodiscard]] bool textsBecome(const QStringList& wanted)
    {
        const bool same = waitFor([&] { return texts() == wanted; });
        EXPECT_TRUE(same) << texts().join(u" | ").toStdString();
        return same;
    }

    [[nodiscard]] QStringList starts() const
    {
        return program.linesMatching(u"^orvanta.playback: start"_s);
    }

    void expectReportAndEnd(const QString& line)
    {
        ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"Orvanta"_s) == 1; }));
        EXPECT_EQ(desktop.visibleWindows(kMainWindow), 0);
        ASSERT_TRUE(desktop.activate(u"Orvanta"_s));
        desktop.press(u"Return"_s);
        EXPECT_TRUE(program.waitForEnd());
        EXPECT_EQ(program.exitStatus(), 1);
        EXPECT_EQ(program.linesMatching(u"^Run-time error"_s), QStringList(line));
    }

    const QString m_clip = media(u"video200.mp4"_s);
    std::unique_ptr<Dragging> dragging;
};

static const QString kBanner = u"#!Orvanta! 3.3"_s;

TEST_F(Drop, ClipsOnAnEmptyPlaylistBecomeOnePacketInReverseOrderWhateverTheyAreCalled)
{
    start(true);
    const QString a = clip(u"a b 100%25.mp4"_s);
    const QString b = clip(u"Урок №1.mp4"_s);
    const QString c = clip(u"c#?&.mp4"_s);
    ASSERT_TRUE(drop({a, b, c}));
    EXPECT_TRUE(textsBecome({kBanner, c, b, a}));
    EXPECT_TRUE(plays(u"start 1 1 "_s + c));
    EXPECT_TRUE(becomes(u"Playing"_s));
    // Each of them is the file that was meant.
    controls.call(u"Next"_s);
    EXPECT_TRUE(plays(u"start 1 2 "_s + b));
    controls.call(u"Next"_s);
    EXPECT_TRUE(plays(u"start 1 3 "_s + a));
    EXPECT_TRUE(becomes(u"Playing"_s));
}

TEST_F(Drop, WhatIsDroppedWhileAClipPlaysIsAppendedAndOnlyAGroupStartsAnew)
{
    startPlaying();
    const QString a = clip(u"a.mp4"_s);
    const QString upper = writeBytes(file(u"X.VXL"_s), "[main]\r\nfiles=1\r\n");
    ASSERT_TRUE(drop({a, upper}));
    EXPECT_TRUE(textsBecome({kBanner, u"Lesson"_s, upper, a}));

    // A packet and a clip together: the clip goes to what was the last packet before.
    const QString b = clip(u"b.mp4"_s);
    const QString brakes =
        writeBrakes(file(u"brakes.vxl"_s), m_clip, {{10, u"Ten"_s}, {20, u"Twenty"_s}});
    ASSERT_TRUE(drop({b, brakes}));
    EXPECT_TRUE(textsBecome({kBanner, u"Lesson"_s, upper, a, b, kBanner, u"Ten"_s, u"Twenty"_s}));

    // The last packet takes loose clips even when it is one of brakes.
    const QString c = clip(u"c.mp4"_s);
    ASSERT_TRUE(drop({c}));
    EXPECT_TRUE(
        textsBecome({kBanner, u"Lesson"_s, upper, a, b, kBanner, u"Ten"_s, u"Twenty"_s, c}));

    // A packet that says less than it should.
    const QString poor = writeBytes(file(u"poor.vxl"_s), "[main]\r\nfiles=2\r\n");
    ASSERT_TRUE(drop({poor}));
    EXPECT_TRUE(textsBecome({kBanner, u"Lesson"_s, upper, a, b, kBanner, u"Ten"_s, u"Twenty"_s, c,
                             kBanner, QString(), QString()}));
    EXPECT_EQ(starts().size(), 1);
    EXPECT_EQ(controls.title(), u"Lesson"_s);
    EXPECT_TRUE(isPlaying());

    const QString group = writeGroup(file(u"group.vxg"_s), {{brakes, u"From a group"_s}});
    ASSERT_TRUE(drop({group}));
    EXPECT_TRUE(plays(u"start 1 1 Lesson"_s));
    EXPECT_TRUE(
        textsBecome({kBanner, u"Lesson"_s, upper, a, b, kBanner, u"Ten"_s, u"Twenty"_s, c, kBanner,
                     QString(), QString(), u"#From a group"_s, u"Ten"_s, u"Twenty"_s}));
}

TEST_F(Drop, AfterTheEndOfTheListWhatIsDroppedBegins)
{
    start(true, {writeClips(file(u"short.vxl"_s), {{media(u"short.wav"_s), u"Short"_s}})});
    ASSERT_TRUE(plays(u"ended 1 1"_s));
    ASSERT_TRUE(waitFor([this] { return window().currentRow() == -1; }));
    const QString a = clip(u"a.mp4"_s);
    ASSERT_TRUE(drop({a}));
    EXPECT_TRUE(plays(u"start 1 2 "_s + a));
    EXPECT_TRUE(becomes(u"Playing"_s));
}

TEST_F(Drop, WithoutAutoStartItStopsTheClipAndClearsTimeAndText)
{
    startPlaying();
    ASSERT_TRUE(waitFor([this] { return window().clipText() == u"Lesson"; }));
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(drop({clip(u"a.mp4"_s)}));
    EXPECT_TRUE(becomes(u"Stopped"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentTime() == u"0.00"; }));
    EXPECT_EQ(window().clipText(), QString());
    EXPECT_EQ(window().slider(u"Position"_s), 0);
    EXPECT_EQ(starts().size(), 1);
}

TEST_F(Drop, AFolderGivesItsPlayableFilesInTheOrderOfTheirNames)
{
    start(false);
    const QString folder = file(u"my clips"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const QString& name : {u"b.wav"_s, u"a.mp4"_s, u"notes.txt"_s, u"c.MP3"_s}) {
        ASSERT_TRUE(QFile::link(m_clip, folder + u'/' + name));
    }
    ASSERT_TRUE(drop({folder}));
    EXPECT_TRUE(
        textsBecome({kBanner, folder + u"/a.mp4"_s, folder + u"/b.wav"_s, folder + u"/c.MP3"_s}));
}

TEST_F(Drop, NamesThatAreNoTextAndFilesOfOtherMachinesAreRefusedOneByOne)
{
    start(false);
    const QString good = clip(u"good.mp4"_s);
    ASSERT_TRUE(
        dragging->drop({"file:///tmp/%FF%FE.mp4", addressOf(good), "http://localhost/clip.mp4"},
                       window().listCentre()));
    EXPECT_TRUE(program.next(u"^orvanta.playlist: dropped .*FF%FE.mp4: its name is no text"_s));
    EXPECT_TRUE(textsBecome({kBanner, good}));
}

TEST_F(Drop, OnlyThePlaylistTakesFiles)
{
    start(false);
    const QPoint list = window().listCentre();
    EXPECT_TRUE(dragging->isRefused(addressesOf({clip(u"a.mp4"_s)}),
                                    window().sliderCentre(u"Volume"_s), list));
    EXPECT_EQ(texts(), QStringList());
    EXPECT_TRUE(program.isRunning());
}

TEST_F(Drop, APacketWhoseCountIsNoNumberEndsTheProgramWithTheReport)
{
    startPlaying();
    ASSERT_TRUE(drop({writeBytes(file(u"bad.vxl"_s), "[main]\r\nfiles=many\r\n")}));
    expectReportAndEnd(u"Run-time error '13': Type mismatch"_s);
}

TEST_F(Drop, APacketThatIsGoneEndsTheProgramWithTheReport)
{
    start(false);
    ASSERT_TRUE(drop({file(u"gone.vxl"_s)}));
    expectReportAndEnd(u"Run-time error '13': Type mismatch"_s);
}

TEST_F(Drop, APacketWithoutACountEndsTheProgramWithTheReport)
{
    start(false);
    ASSERT_TRUE(drop({writeBytes(file(u"empty.vxl"_s), "[main]\r\nfile=a.avi\r\n")}));
    expectReportAndEnd(u"Run-time error '13': Type mismatch"_s);
}

} // namespace orvanta::e2e
