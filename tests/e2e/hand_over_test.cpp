// Later launches: what they hand over, and what becomes of the first instance's window.

#include "platform/process/file_lock.h"
#include "platform/process/single_instance.h"
#include "tests/e2e/support/end_to_end.h"

#include <csignal>
#include <list>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class HandOver : public EndToEnd
{
protected:
    QString packet(const QString& name, const QList<ClipLine>& clips)
    {
        return writeClips(file(name), clips);
    }
    ClipLine clip(const QString& text) { return {media(u"sound2.wav"_s), text}; }
};

/// Notes what happens to the windows of the desktop, also to those that are gone at once.
class WindowWitness
{
public:
    explicit WindowWitness(const Desktop& desktop)
    {
        m_process.setProcessEnvironment(desktop.environment());
        m_process.start(u"xev"_s, {u"-root"_s, u"-event"_s, u"substructure"_s});
    }

    /// What has happened so often, "MapNotify" for instance.
    [[nodiscard]] qsizetype count(const QByteArray& event)
    {
        m_seen += m_process.readAllStandardOutput();
        return m_seen.count('\n' + event + " event");
    }

private:
    QByteArray m_seen;
    OwnedProcess m_process;
};

TEST_F(HandOver, ALaterLaunchOpensItsPacketHereAndEnds)
{
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow({packet(u"first.vxl"_s, {clip(u"A"_s)})}));
    ASSERT_TRUE(loads(1, 1));
    EXPECT_EQ(launchAgain(desktop, home, {packet(u"second.vxl"_s, {clip(u"B"_s), clip(u"C"_s)})}),
              0);
    EXPECT_TRUE(loads(1, 2));
    EXPECT_TRUE(waitFor([this] { return window().rows().size() == 4; }));
    EXPECT_EQ(window().rows().value(2), u"B"_s);
    EXPECT_EQ(home.get(u"ftl"_s, u"num"_s), u"0"_s);
}

TEST_F(HandOver, ALaterLaunchShowsNoWindowOfItsOwn)
{
    const QString title = u"!Orvanta!"_s;
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow());
    // The splash has the same title.
    ASSERT_TRUE(waitFor([&] { return desktop.visibleWindows(title) == 1; }));
    WindowWitness witness(desktop);
    int width = 700;
    ASSERT_TRUE(waitFor([&] { // until it watches
        return desktop.resizeWindow(title, {++width, 600}) && witness.count("ConfigureNotify") > 0;
    }));
    const qsizetype before = witness.count("MapNotify");
    EXPECT_EQ(launchAgain(desktop, home, {packet(u"second.vxl"_s, {clip(u"B"_s)})}), 0);
    ASSERT_TRUE(loads(1, 1));
    window().press(u"Minimize button"_s);
    ASSERT_TRUE(waitFor([&] { return witness.count("UnmapNotify") > 0; })); // has come that far
    EXPECT_EQ(witness.count("MapNotify"), before);
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(waitFor([&] { return witness.count("MapNotify") > before; }))
        << "it would not have seen one";
}

TEST_F(HandOver, ALaterLaunchRaisesTheFirstWindow)
{
    ASSERT_TRUE(program.startAndShow());
    OwnedProcess other;
    other.setProcessEnvironment(desktop.environment());
    other.start(u"mpv"_s, {u"--no-config"_s, u"--no-terminal"_s, u"--idle"_s, u"--vo=x11"_s,
                           u"--force-window"_s, u"--title=In front"_s});
    const bool covered = waitFor([this] { return desktop.activeWindowTitle() == u"In front"; });
    ASSERT_TRUE(covered) << desktop.activeWindowTitle().toStdString();
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(waitFor([this] { return desktop.activeWindowTitle() == u"!Orvanta!"; }));
}

TEST_F(HandOver, ALaterLaunchBringsAMinimisedWindowBack)
{
    ASSERT_TRUE(program.startAndShow());
    window().press(u"Minimize button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 0; }));
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
}

TEST_F(HandOver, CloseOnlyHidesAProgramThatIsToKeepRunningAndALaterLaunchShowsItAgain)
{
    home.setOption(u"nc"_s, true);
    ASSERT_TRUE(program.startAndShow({packet(u"first.vxl"_s, {clip(u"A"_s)})}));
    ASSERT_TRUE(plays(u"start 1 1 A"_s));
    window().press(u"Close button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 0; }));
    ASSERT_TRUE(program.isRunning());
    EXPECT_EQ(launchAgain(desktop, home, {}), 0);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
    EXPECT_EQ(window().currentTime(), u"000000,000"_s);
    EXPECT_EQ(window().clipLength(), u"000000,00"_s);
    EXPECT_EQ(window().rows(), QStringList());
    EXPECT_EQ(window().slider(u"Position"_s), 0);
}

TEST_F(HandOver, AFileForAHiddenProgramShowsItsWindowAndPlays)
{
    home.setOption(u"nc"_s, true);
    ASSERT_TRUE(program.startAndShow());
    window().press(u"Close button"_s);
    ASSERT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 0; }));
    EXPECT_EQ(launchAgain(desktop, home, {media(u"video2.mp4"_s)}), 0);
    EXPECT_TRUE(plays(u"start 1 1 video2"_s));
    EXPECT_TRUE(waitFor([this] { return desktop.visibleWindows(u"!Orvanta!"_s) == 1; }));
}

TEST_F(HandOver, AFolderBecomesOnePacketOfItsPlayableFiles)
{
    const QString folder = file(u"clips"_s);
    ASSERT_TRUE(QDir().mkpath(folder));
    for (const QString& name : {u"b.wav"_s, u"a.WAV"_s, u"notes.txt"_s}) {
        ASSERT_TRUE(QFile::copy(media(u"short.wav"_s), folder + u'/' + name));
    }
    ASSERT_TRUE(program.startAndShow());
    EXPECT_EQ(launchAgain(desktop, home, {u"/f"_s + folder}), 0);
    EXPECT_TRUE(loads(1, 2));
    EXPECT_TRUE(plays(u"start 1 1 a"_s));
    // As one types it.
    EXPECT_EQ(launchAgain(desktop, home, {folder}), 0);
    EXPECT_TRUE(loads(1, 2));
    EXPECT_TRUE(plays(u"start 1 1 a"_s));
}

TEST_F(HandOver, TheFoldersOfOneLaunchAreOpenedInTheirOrder)
{
    QStringList folders;
    for (const QString& name : {u"second"_s, u"first"_s}) {
        folders += file(name);
        ASSERT_TRUE(QDir().mkpath(folders.back()));
        ASSERT_TRUE(QFile::copy(media(u"short.wav"_s), folders.back() + u'/' + name + u".wav"_s));
    }
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow(folders));
    EXPECT_TRUE(loads(1, 2));
    EXPECT_TRUE(waitFor([this] {
        return window().rows().mid(2) == QStringList{u"second"_s, u"first"_s};
    })) << window().rows().join(u'|').toStdString();
}

TEST_F(HandOver, SeveralFilesOfOneLaunchShareOnePacket)
{
    ASSERT_TRUE(program.startAndShow({media(u"short.wav"_s), media(u"short.mp3"_s)}));
    EXPECT_TRUE(loads(1, 2));
}

TEST_F(HandOver, AQueueLeftByACrashIsDrainedByTheNextInstance)
{
    home.set(u"ftl"_s, u"num"_s, u"1"_s);
    home.set(u"ftl"_s, u"1"_s, media(u"video2.mp4"_s));
    ASSERT_TRUE(program.startAndShow());
    EXPECT_TRUE(loads(1, 1));
}

TEST_F(HandOver, ALaunchWaitsForABusyQueueAndSaysSo)
{
    home.set(u"ftl"_s, u"wr"_s, u"1"_s);
    std::optional<FileLock> holder(home.file(u"queue.lock"_s));
    ASSERT_EQ(holder->tryLock(), FileLock::Outcome::Held);
    program.start({media(u"video2.mp4"_s)});
    EXPECT_TRUE(program.next(u"waiting.*\"wr\".*orvanta\\.ini"_s));
    EXPECT_EQ(home.get(u"ftl"_s, u"num"_s), u"0"_s);
    EXPECT_EQ(home.get(u"ftl"_s, u"wr"_s), u"1"_s);
    holder.reset();
    EXPECT_TRUE(loads(1, 1)) << "nobody holds the queue any more";
}

TEST_F(HandOver, ALaunchWhileTheFirstInstanceEndsTakesItsPlace)
{
    // What is left of an instance that ends: it hears nobody any more.
    std::optional<FileLock> ending(home.file(u"instance.lock"_s));
    ASSERT_EQ(ending->tryLock(), FileLock::Outcome::Held);
    program.start({media(u"video2.mp4"_s)});
    ASSERT_TRUE(waitFor([this] { return home.get(u"ftl"_s, u"num"_s) == u"1"_s; }));
    ending.reset();
    EXPECT_TRUE(loads(1, 1)) << program.said();
}

TEST_F(HandOver, NoLaunchIsSwallowedByAnInstanceThatIsToldToEnd)
{
    home.setOption(u"as"_s, false);
    std::list<Application> instances;
    ASSERT_TRUE(instances.emplace_back(desktop, home).startAndShow());
    for (int round = 1; round <= 4; ++round) {
        Application& ending = instances.back();
        Application& launch = instances.emplace_back(desktop, home);
        ending.sendSignal(SIGTERM);
        launch.start({media(u"short.wav"_s)});
        ASSERT_TRUE(launch.next(u"loaded 1 packets, 1 entries"_s)) << launch.said();
        EXPECT_EQ(ending.statusAtEnd(), 0);
    }
}

TEST_F(HandOver, ALaunchWithoutAFileWhoseCallAnEndingInstanceLeavesUnansweredTakesItsPlace)
{
    qputenv("XDG_RUNTIME_DIR", desktop.environment().value(u"XDG_RUNTIME_DIR"_s).toUtf8());
    SingleInstance ending(home.folder());
    ASSERT_TRUE(ending.isFirst());
    bool called = false;
    ending.listen([&called] {
        called = true;
        return false;
    });
    program.start({});
    ASSERT_TRUE(waitFor([&called] { return called; })) << program.said();
    ending.release();
    EXPECT_TRUE(program.next(u"^orvanta.startup: ready"_s)) << program.said();
}

TEST_F(HandOver, NoLaunchWithoutAFileIsSwallowedByAnInstanceThatIsToldToEnd)
{
    std::list<Application> instances;
    ASSERT_TRUE(instances.emplace_back(desktop, home).startAndShow());
    for (int round = 1; round <= 4; ++round) {
        Application& ending = instances.back();
        Application& launch = instances.emplace_back(desktop, home);
        ending.sendSignal(SIGTERM);
        launch.start({});
        ASSERT_TRUE(launch.next(u"^orvanta.startup: ready"_s)) << launch.said();
        EXPECT_EQ(ending.statusAtEnd(), 0);
    }
}

TEST_F(HandOver, AHundredLaunchesAtOnceLoseNoLine)
{
    constexpr int kLaunches = 100;
    home.setOption(u"as"_s, false);
    ASSERT_TRUE(program.startAndShow());
    std::list<Application> launches;
    for (int i = 1; i <= kLaunches; ++i) {
        const QString clip = file(u"clip %1.wav"_s.arg(i));
        ASSERT_TRUE(QFile::link(media(u"short.wav"_s), clip));
        launches.emplace_back(desktop, home).start({clip});
    }
    for (Application& launch : launches) {
        ASSERT_TRUE(launch.waitForEnd()) << launch.said();
        EXPECT_EQ(launch.exitStatus(), 0) << launch.said();
    }
    const auto loadedClips = [this] {
        int sum = 0;
        const QRegularExpression count(u"loaded 1 packets, (\\d+) entries"_s);
        for (const QString& line : program.linesMatching(u"^orvanta.playlist: loaded"_s)) {
            sum += count.match(line).captured(1).toInt();
        }
        return sum;
    };
    EXPECT_TRUE(waitFor([&] { return loadedClips() >= kLaunches; })) << loadedClips();
    EXPECT_TRUE(waitFor([this] { return home.get(u"ftl"_s, u"num"_s) == u"0"; }));
    EXPECT_EQ(loadedClips(), kLaunches);
}

} // namespace orvanta::e2e
