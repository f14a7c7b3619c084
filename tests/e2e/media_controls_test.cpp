// The desktop's media controls, steered by clients that know nothing of this program: playerctl and
// dbus-send.

#include "tests/e2e/support/dragging.h"
#include "tests/e2e/support/steered.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class MediaControls : public Steered
{
protected:
    void playThree()
    {
        const QString clip = media(u"video200.mp4"_s);
        const QString packet = writeClips(file(u"three.vxl"_s),
                                          {{clip, u"One"_s}, {clip, u"Two"_s}, {clip, u"Three"_s}});
        const QString group = writeBytes(
            file(u"group.vxg"_s), u"[main]\r\nfiles=1\r\n[file1]\r\npath=three.vxl\r\n"
                                  "text=Three clips\r\npicture=обложка 1.jpg\r\n"_s.toUtf8());
        ASSERT_TRUE(QFile::copy(QStringLiteral(ORVANTA_SOURCE_DIR "/samples/rhythm/rhythm.jpg"),
                                file(u"обложка 1.jpg"_s)));
        ASSERT_TRUE(program.startAndShow({group}));
        ASSERT_TRUE(plays(u"start 1 1 One"_s));
        ASSERT_TRUE(waitFor([this] { return ask({u"status"_s}) == u"Playing"; }));
    }

    /// What playerctl answers.
    QString ask(const QStringList& command)
    {
        const QByteArray answer =
            desktop.run(u"playerctl"_s, QStringList{u"--player=orvanta"_s} + command);
        return QString::fromUtf8(answer).trimmed();
    }

    [[nodiscard]] bool answers(const QStringList& command, const QString& wanted)
    {
        QString answer;
        const bool same = waitFor([&] {
            answer = ask(command);
            return answer == wanted;
        });
        EXPECT_TRUE(same) << answer.toStdString();
        return same;
    }

    [[nodiscard]] double position() { return ask({u"position"_s}).toDouble(); }
    [[nodiscard]] bool positionIsBetween(double from, double to)
    {
        return waitFor([=, this] { return position() >= from && position() <= to; });
    }

    /// A method of the program's root interface, called as a desktop would.
    void send(const QString& method)
    {
        desktop.run(u"dbus-send"_s,
                    {u"--session"_s, u"--print-reply"_s, u"--dest=org.mpris.MediaPlayer2.orvanta"_s,
                     u"/org/mpris/MediaPlayer2"_s, u"org.mpris.MediaPlayer2."_s + method});
    }
};

TEST_F(MediaControls, PlayerctlListsPlaysPausesStopsMovesAndReads)
{
    home.setOption(u"agnc"_s, false); // a person who asks for the next clip gets it all the same
    playThree();
    EXPECT_EQ(QString::fromUtf8(desktop.run(u"playerctl"_s, {u"--list-all"_s})).trimmed(),
              u"orvanta"_s);

    ask({u"pause"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Paused"_s));
    EXPECT_TRUE(waitFor([this] { return window().isEnabled(u"Play"_s); }));
    ask({u"play"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Playing"_s));
    ask({u"play-pause"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Paused"_s));
    ask({u"play-pause"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Playing"_s));
    ask({u"next"_s});
    EXPECT_TRUE(plays(u"start 1 2 Two"_s));
    EXPECT_TRUE(answers({u"metadata"_s, u"xesam:title"_s}, u"Two"_s));
    ask({u"next"_s});
    EXPECT_TRUE(plays(u"start 1 3 Three"_s));
    ask({u"previous"_s});
    EXPECT_TRUE(plays(u"start 1 2 Two"_s));

    EXPECT_TRUE(answers({u"metadata"_s, u"mpris:length"_s}, u"200000000"_s));
    ask({u"position"_s, u"100"_s});
    EXPECT_TRUE(positionIsBetween(100, 115));
    ask({u"position"_s, u"30+"_s});
    EXPECT_TRUE(positionIsBetween(130, 160));
    ask({u"position"_s, u"20-"_s});
    EXPECT_TRUE(positionIsBetween(110, 145));
    EXPECT_TRUE(answers({u"metadata"_s, u"xesam:album"_s}, u"Three clips"_s));
    EXPECT_TRUE(answers({u"metadata"_s, u"mpris:artUrl"_s},
                        QString::fromLatin1(addressOf(file(u"обложка 1.jpg"_s)))));

    ask({u"volume"_s, u"0.5"_s});
    EXPECT_TRUE(answers({u"volume"_s}, u"0.500000"_s));
    EXPECT_TRUE(waitFor([this] { return window().slider(u"Volume"_s) == 50; }));
    EXPECT_TRUE(waitFor([this] { return home.get(u"save"_s, u"volume"_s) == u"-1000"; }));

    ask({u"stop"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Stopped"_s));
    EXPECT_TRUE(waitFor([this] { return window().currentTime() == u"0.00"; }));
    ask({u"play"_s});
    EXPECT_TRUE(answers({u"status"_s}, u"Playing"_s));
}

TEST_F(MediaControls, PlayBeginsWithTheFirstClipOfWhatWasOpenedToRest)
{
    home.setOption(u"as"_s, false);
    const QString clip = media(u"video2.mp4"_s);
    const QString packet = writeClips(file(u"two.vxl"_s), {{clip, u"One"_s}, {clip, u"Two"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    ASSERT_TRUE(answers({u"metadata"_s, u"xesam:title"_s}, u"One"_s));
    EXPECT_TRUE(answers({u"status"_s}, u"Stopped"_s));
    ask({u"play"_s});
    EXPECT_TRUE(plays(u"start 1 1 One"_s));
    EXPECT_TRUE(plays(u"start 1 2 Two"_s));
    EXPECT_TRUE(plays(u"ended 1 2"_s));
    ask({u"play-pause"_s}); // when all is over it begins again
    EXPECT_TRUE(plays(u"start 1 1 One"_s));
}

TEST_F(MediaControls, PlayerctlHearsOfEveryChangeWithoutAsking)
{
    ASSERT_TRUE(program.startAndShow());
    ASSERT_TRUE(waitFor([this] { return controls.isThere(); }));
    OwnedProcess follower;
    follower.setProcessEnvironment(desktop.environment());
    follower.start(u"playerctl"_s, {u"--player=orvanta"_s, u"--follow"_s, u"metadata"_s,
                                    u"--format"_s, u"{{status}} {{title}}"_s});
    QStringList heard;
    const auto hears = [&](const QString& line) {
        const bool came = waitFor([&] {
            while (follower.canReadLine()) {
                heard.append(QString::fromUtf8(follower.readLine()).trimmed());
            }
            return heard.contains(line);
        });
        EXPECT_TRUE(came) << line.toStdString() << " is not in " << heard.join(u", ").toStdString();
        heard.clear();
        return came;
    };
    const QString clip = media(u"video200.mp4"_s);
    const QString packet = writeClips(file(u"two.vxl"_s), {{clip, u"One"_s}, {clip, u"Two"_s}});
    EXPECT_EQ(launchAgain(desktop, home, {packet}), 0);
    EXPECT_TRUE(hears(u"Playing One"_s));
    window().press(u"Pause"_s);
    EXPECT_TRUE(hears(u"Paused One"_s));
    window().press(u"Play"_s);
    EXPECT_TRUE(hears(u"Playing One"_s));
    window().doubleClickRow(3);
    EXPECT_TRUE(hears(u"Playing Two"_s));
    window().press(u"Stop"_s);
    EXPECT_TRUE(hears(u"Stopped Two"_s));
}

TEST_F(MediaControls, OpenAddsWhatIsNamedAsALaterLaunchWould)
{
    playThree();
    const QString clip = file(u"Новый клип 100%.mp4"_s);
    ASSERT_TRUE(QFile::link(media(u"video200.mp4"_s), clip));
    ask({u"open"_s, QString::fromLatin1(QUrl::fromLocalFile(clip).toEncoded())});
    EXPECT_TRUE(plays(u"start 1 1 Новый клип 100%"_s));
    EXPECT_TRUE(answers({u"status"_s}, u"Playing"_s));
    ask({u"open"_s, u"http://localhost/clip.mp4"_s});
    ask({u"pause"_s}); // is carried out after it
    EXPECT_TRUE(answers({u"status"_s}, u"Paused"_s));
    EXPECT_EQ(controls.title(), u"Новый клип 100%"_s);
}

TEST_F(MediaControls, RaiseBringsTheMinimisedWindowBackAndQuitEndsTheProgram)
{
    playThree();
    window().press(u"Minimize button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 0; }));
    send(u"Raise"_s);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
    EXPECT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == kMainWindow; }));
    send(u"Quit"_s);
    EXPECT_EQ(program.statusAtEnd(), 0);
    EXPECT_FALSE(controls.isThere());
}

TEST_F(MediaControls, QuitEndsAProgramThatCloseOnlyHides)
{
    home.setOption(u"nc"_s, true);
    playThree();
    window().press(u"Close button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 0; }));
    EXPECT_TRUE(answers({u"status"_s}, u"Stopped"_s));
    send(u"Raise"_s);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(kMainWindow) == 1; }));
    send(u"Quit"_s);
    EXPECT_EQ(program.statusAtEnd(), 0);
}

TEST_F(MediaControls, WithoutASessionBusTheProgramRunsAndPlays)
{
    for (const QString& variable : {u"DBUS_SESSION_BUS_ADDRESS"_s, u"XDG_RUNTIME_DIR"_s}) {
        program.setVariable(variable, u"unix:path=/nonexistent/bus"_s);
    }
    home.setOption(u"si"_s, true);
    const QString packet =
        writeClips(file(u"packet.vxl"_s),
                   {{media(u"short.wav"_s), u"First"_s}, {media(u"video2.mp4"_s), u"Second"_s}});
    ASSERT_TRUE(program.startAndShow({packet}));
    EXPECT_TRUE(program.peek(u"^orvanta.desktop: no session bus"_s));
    EXPECT_TRUE(plays(u"start 1 1 First"_s));
    EXPECT_TRUE(plays(u"start 1 2 Second"_s));
    EXPECT_TRUE(plays(u"ended 1 2"_s));
    ASSERT_TRUE(desktop.closeWindow(kMainWindow));
    EXPECT_EQ(program.statusAtEnd(), 0);
}

} // namespace orvanta::e2e
