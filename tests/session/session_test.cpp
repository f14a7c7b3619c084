// Long random sessions: nothing that a person can do, in whatever order, breaks the program.
//
// ORVANTA_SESSION_SEED and ORVANTA_SESSION_ACTIONS replace the fixed seed and the number of
// actions.

#include "model/tree_lines.h"
#include "platform/file_types/registry.h"
#include "platform/media/media_library.h"
#include "playback/form4_bookmark_sign.h"
#include "tests/e2e/support/media.h"
#include "tests/e2e/support/packets.h"
#include "tests/session/random_user.h"
#include "tests/session/watchdog.h"
#include "tests/support/desktop_room.h"
#include "tests/support/private_bus.h"
#include "tests/support/scripted_media_control.h"
#include "window/skin_button.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QTest>
#include <QTimer>

#include <clocale>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace orvanta::session {

#ifdef ORVANTA_SANITIZE
constexpr std::chrono::milliseconds kLongestSilence(6000); // everything takes three times as long
#else
constexpr std::chrono::milliseconds kLongestSilence(2000);
#endif

static int numberFrom(const char* variable, int otherwise)
{
    bool given = false;
    const int number = qEnvironmentVariableIntValue(variable, &given);
    return given ? number : otherwise;
}

class Session : public testing::Test
{
protected:
    Session()
    {
        qRegisterMetaType<MediaControl::State>();
        QDir::setCurrent(m_home.path());
    }

    ~Session() override
    {
        QDir::setCurrent(m_startedIn);
        closeSigns();
    }

    /// A sign of a bookmark that was just set goes by its own clock, which nobody waits for here.
    static void closeSigns()
    {
        for (QWidget* each : QApplication::topLevelWidgets()) {
            if (auto* sign = dynamic_cast<Form4*>(each)) {
                delete sign;
            }
        }
    }

    /// With which control, on which clips, and how time passes in it.
    virtual std::unique_ptr<MediaControl> makeControl() = 0;
    virtual QStringList clips() = 0;
    virtual QString passTime(ProgramRun& run, Dice& dice) = 0;
    /// From now on loads come to their end by themselves.
    virtual void stopDawdling(MediaControl& control) = 0;
    /// Lets a load that is under way come to its end.
    virtual void finishLoading(MediaControl& control) = 0;

    void perform(int actions)
    {
        m_seed = static_cast<unsigned>(numberFrom("ORVANTA_SESSION_SEED", 20250314));
        m_left = numberFrom("ORVANTA_SESSION_ACTIONS", actions);
        std::printf("seed %u, %d actions\n", m_seed, m_left);
        m_dice.emplace(m_seed);
        writeSettings();
        m_user.emplace(*m_dice, layOutFiles(), m_bus.connection(u"session client"_s));
        Watchdog watchdog(kLongestSilence, [this] { giveUp("no answer for too long"); });
        m_watchdog = &watchdog;
        while (m_left > 0 && !HasFailure()) {
            runProgramOnce();
        }
        m_watchdog = nullptr;
        std::printf("%d runs of the program, %d of them ended by a packet that is none\n"
                    "%d menu entries chosen, %d things done in dialogs\n",
                    m_runs, m_errors, m_user->chosenEntries(), m_user->dialogDeeds());
    }

private:
    static constexpr int kActionsBetweenChecks = 100;

    [[noreturn]] void giveUp(const char* why)
    {
        std::fprintf(stderr, "%s\n%s", why, qPrintable(story()));
        std::fflush(nullptr);
        std::abort();
    }

    [[nodiscard]] QString story() const
    {
        return u"seed %1, the last actions:\n"_s.arg(m_seed) + m_user->journal();
    }

    void writeSettings() const
    {
        QFile::copy(QStringLiteral(ORVANTA_SOURCE_DIR "/resources/orvanta.ini"), m_home.ini());
        QFile::setPermissions(m_home.ini(), QFile::ReadOwner | QFile::WriteOwner);
        WriteIni(u"main"_s, u"language"_s, u"1"_s, m_home.ini());
        WriteIni(u"options"_s, u"si"_s, u"1"_s, m_home.ini());
    }

    LaidOutFiles layOutFiles()
    {
        LaidOutFiles files;
        files.clips = clips();
        const auto write = [this](const QString& name, const QByteArray& content) {
            return m_home.write(name, content);
        };
        QList<e2e::ClipLine> lines;
        for (const QString& clip : files.clips) {
            lines.append({clip, u"clip "_s + QFileInfo(clip).fileName()});
        }
        lines.append({u"/nowhere/gone.mp4"_s, u"clip that is gone"_s});
        const QString& media = files.clips.first();
        files.packets = {
            e2e::writeClips(m_home.file(u"clips.vxl"_s), lines),
            e2e::writeClips(m_home.file(u"empty.vxl"_s), {}),
            e2e::writeBrakes(m_home.file(u"brakes.vxl"_s), media,
                             {{0, u"brake one"_s}, {0.5, u"brake two"_s}, {1.5, u"the end"_s}}),
            e2e::writeBrakes(m_home.file(u"one.vxl"_s), media, {{1, u"only brake"_s}}),
            e2e::writeBrakes(m_home.file(u"lost.vxl"_s), u"gone.mp4"_s, {{0, u"lost"_s}}),
        };
        files.groups = {
            e2e::writeGroup(m_home.file(u"group.vxg"_s), {{files.packets[0], u"Clips"_s},
                                                          {files.packets[2], u"Brakes"_s},
                                                          {files.packets[1], u"Empty"_s}}),
            e2e::writeGroup(m_home.file(u"partly.vxg"_s),
                            {{u"/nowhere/gone.vxl"_s, u"Gone"_s}, {files.packets[2], u"Here"_s}}),
        };
        files.badPackets = {write(u"words.vxl"_s, "[main]\nfiles=many\n"),
                            write(u"negative.vxl"_s, "[main]\nfiles=-3\n"),
                            write(u"huge.vxl"_s, "[main]\nfiles=99999999\n"),
                            m_home.file(u"absent.vxl"_s)};
        files.toSave = {m_home.file(u"saved"_s), u"/nowhere/saved"_s, QString()};
        QDir(m_home.path()).mkpath(u"folder"_s);
        write(u"folder/b.avi"_s, "media");
        write(u"folder/a.mp3"_s, "media");
        files.strange = {m_home.file(u"folder"_s), write(u"note.txt"_s, "a note"),
                         write(u"UPPER.VXL"_s, "[main]\nfiles=1\n"), m_home.file(u"absent.avi"_s),
                         write(u"имя с пробелами 100%.avi"_s, "media")};
        return files;
    }

    /// One run of the program, until it is ended or the actions are used up. Every turn of whatever
    /// event loop does one thing, those of the program's own waits among them.
    void runProgramOnce()
    {
        ++m_runs;
        m_user->startsAnew();
        ProgramRun run(
            m_home, m_registry, [this] { return makeControl(); },
            m_bus.connection(u"session %1"_s.arg(m_runs)));
        while (m_left > 0 && !run.hasEnded() && !HasFailure()) {
            m_resting = std::max(0, m_left - kActionsBetweenChecks);
            QEventLoop loop;
            takeTurnSoon(run, loop);
            loop.exec();
            if (!run.hasEnded()) {
                settle(run);
            }
            if (run.hasEnded()) {
                checkEnd(run);
            } else {
                check(run);
            }
        }
    }

    /// Each turn has a timer of its own: a repeating one rests while its handler runs.
    void takeTurnSoon(ProgramRun& run, QEventLoop& loop)
    {
        QTimer::singleShot(0, &loop, [&] { turn(run, loop); });
    }

    void turn(ProgramRun& run, QEventLoop& loop)
    {
        m_watchdog->beat();
        constexpr int kMostNested = 5;
        const bool over = run.hasEnded() || m_left == m_resting || HasFailure();
        if (over || m_depth >= kMostNested) {
            finishLoading(run.program.control()); // somebody further down may be waiting for it
            if (QWidget* dialog = QApplication::activeModalWidget()) {
                dialog->close(); // or for an answer
            }
            if (over && m_depth == 0) {
                loop.quit();
            } else {
                takeTurnSoon(run, loop);
            }
            return;
        }
        takeTurnSoon(run, loop);
        --m_left;
        ++m_depth;
        m_user->act(run, [this](ProgramRun& p, Dice& dice) { return passTime(p, dice); });
        --m_depth;
        if (m_depth == 0 && !run.hasEnded()) {
            checkCursor(run);
        }
    }

    void checkEnd(const ProgramRun& run)
    {
        if (run.error) {
            ++m_errors;
            EXPECT_TRUE(m_user->hasDroppedBadPacket())
                << "ended by error " << static_cast<int>(*run.error) << '\n'
                << story().toStdString();
        }
        EXPECT_EQ(m_depth, 0) << "a wait was left open";
    }

    void checkCursor(const ProgramRun& run)
    {
        const PlaylistState& playlist = run.module.playlist;
        const int p = playlist.CurrentPacket.value();
        const int q = playlist.CurrentClip.value();
        const auto packets = static_cast<int>(playlist.Playlist.size());
        EXPECT_EQ(playlist.PlaylistCount.value(), packets) << story().toStdString();
        EXPECT_TRUE(p >= 0 && q >= 0 && p <= std::max(packets, 1))
            << "at " << p << " " << q << " of " << packets << '\n'
            << story().toStdString();
        if (p >= 1 && p <= packets) {
            EXPECT_LE(q, std::max(playlist.packet(Int16(p)).ClipCount.value(), 1))
                << story().toStdString();
        }
    }

    /// Everything that was begun comes to its end; the clip stands still.
    void settle(ProgramRun& run)
    {
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        stopDawdling(run.program.control());
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, &clock, [&] {
            m_watchdog->beat();
            finishLoading(run.program.control());
        });
        clock.start(1);
        m_user->awaitMediaControls();
        constexpr int kQuietTicks = 5;
        constexpr int kMostTicks = 5000;
        int quiet = 0;
        for (int i = 0; i < kMostTicks && quiet < kQuietTicks && !run.hasEnded(); ++i) {
            run.program.engine().tick();
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            quiet = run.program.control().isOpening() ? 0 : quiet + 1;
        }
        run.program.control().Pause();
        run.program.engine().tick();
        run.program.engine().tick();
    }

    void check(const ProgramRun& run)
    {
        EXPECT_EQ(m_depth, 0) << "a wait was left open";
        checkCursor(run);
        checkButtons(run);
        checkList(run);
        EXPECT_EQ(m_home.value("ftl", "num"), u"0"_s) << story().toStdString();
        EXPECT_EQ(m_home.value("ftl", "wr"), u"0"_s) << story().toStdString();
        EXPECT_FALSE(run.program.control().isOpening()) << story().toStdString();
    }

    void checkButtons(const ProgramRun& run)
    {
        const MediaControl::State state = run.program.control().CurrentState();
        const bool play = run.program.mainWindow().Image5->isEnabled();
        const bool pause = run.program.mainWindow().Image3->isEnabled();
        if (state == MediaControl::NotLoaded) {
            EXPECT_FALSE(play && pause) << story().toStdString();
            return;
        }
        EXPECT_EQ(pause, state == MediaControl::Running) << story().toStdString();
        EXPECT_EQ(play, state != MediaControl::Running) << story().toStdString();
    }

    void checkList(const ProgramRun& run)
    {
        const std::vector<TreeLine>& shown = run.program.mainWindow().List1->lines();
        const std::vector<TreeLine> wanted = treeLines(run.module.playlist);
        const bool emptied = shown.empty() && run.module.playlist.PlaylistCount == Int16(0);
        const bool same = std::equal(shown.begin(), shown.end(), wanted.begin(), wanted.end(),
                                     [](const TreeLine& a, const TreeLine& b) {
                                         return a.text == b.text && a.packet == b.packet;
                                     });
        EXPECT_TRUE(same || emptied) << shown.size() << " lines for " << wanted.size() << '\n'
                                     << story().toStdString();
    }

    const QString m_startedIn = QDir::currentPath();
    DesktopRoom m_desktop; // file types are registered here
    SettingsFolder m_home;
    Registry m_registry{m_home.path(), u"/usr/bin/true"_s};
    test::PrivateBus m_bus;
    std::optional<Dice> m_dice;
    std::optional<RandomUser> m_user;
    Watchdog* m_watchdog = nullptr;
    unsigned m_seed = 0;
    int m_left = 0;    // actions
    int m_resting = 0; // so many are left when the next check comes
    int m_depth = 0;
    int m_runs = 0;
    int m_errors = 0;

protected:
    [[nodiscard]] int chosenEntries() const { return m_user->chosenEntries(); }
    [[nodiscard]] QString fileInHome(const QString& name, const QByteArray& content) const
    {
        return m_home.write(name, content);
    }
};

class ScriptedSession : public Session
{
protected:
    std::unique_ptr<MediaControl> makeControl() override
    {
        auto control = std::make_unique<ScriptedMediaControl>();
        control->duration = 3;
        control->pictureSize = {320, 240};
        return control;
    }

    QStringList clips() override
    {
        QStringList files;
        for (const QString& name : {u"a.avi"_s, u"b.mp4"_s, u"c.mp3"_s, u"d e.ogg"_s, u"ж.wav"_s}) {
            files.append(fileInHome(name, "media"));
        }
        return files;
    }

    QString passTime(ProgramRun& run, Dice& dice) override
    {
        auto& control = static_cast<ScriptedMediaControl&>(run.program.control());
        if (control.CurrentState() == MediaControl::Running && dice.chance(90)) {
            return goOn(control, dice);
        }
        switch (dice.below(4)) {
        case 0:
            control.autoOpen = dice.chance(60);
            return u"loads are %1"_s.arg(control.autoOpen ? u"quick"_s : u"slow"_s);
        case 1:
            control.pictureSize = dice.chance(60) ? QSize(320, 240) : QSize();
            control.failSeeks = dice.chance(5);
            return u"another kind of clip"_s;
        case 2:
            control.failOpening();
            return u"a load fails"_s;
        default:
            control.completeOpening();
            return u"a load completes"_s;
        }
    }

    void stopDawdling(MediaControl& control) override
    {
        static_cast<ScriptedMediaControl&>(control).autoOpen = true;
    }

    void finishLoading(MediaControl& control) override
    {
        static_cast<ScriptedMediaControl&>(control).completeOpening();
    }

private:
    static QString goOn(ScriptedMediaControl& control, Dice& dice)
    {
        const double next = control.CurrentPosition() + dice.below(10) / 10.0;
        if (next >= control.duration) {
            control.reachEnd();
            return u"the clip ends"_s;
        }
        control.playTo(next);
        return u"the clip goes on"_s;
    }
};

TEST_F(ScriptedSession, TenThousandRandomActionsLeaveAConsistentState)
{
    perform(10000);
    if (!qEnvironmentVariableIsSet("ORVANTA_SESSION_ACTIONS")) {
        EXPECT_GE(chosenEntries(), 20); // with fewer the dialogs would have been left out
    }
}

class RealSession : public Session
{
protected:
    std::unique_ptr<MediaControl> makeControl() override
    {
        std::setlocale(LC_NUMERIC, "C");
        return makeMediaControl(MpvOptionList{{"ao", "null"}});
    }

    QStringList clips() override
    {
        QStringList files;
        for (const QString& name : {u"video2.mp4"_s, u"short.mp4"_s, u"sound2.wav"_s,
                                    u"short.avi"_s, u"cut.mp4"_s, u"noise.avi"_s}) {
            files.append(e2e::media(name));
        }
        return files;
    }

    QString passTime(ProgramRun& /*run*/, Dice& dice) override
    {
        const int milliseconds = dice.below(60);
        QTest::qWait(milliseconds);
        return u"%1 ms pass"_s.arg(milliseconds);
    }

    void stopDawdling(MediaControl& /*control*/) override {}

    void finishLoading(MediaControl& control) override
    {
        if (control.isOpening()) {
            QTest::qWait(5);
        }
    }
};

TEST_F(RealSession, FiveHundredRandomActionsOnRealClipsLeaveAConsistentState)
{
    perform(500);
}

} // namespace orvanta::session
