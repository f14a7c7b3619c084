// Where you stopped: a lesson is gone on with after the program's sudden end.

#include "core/ini.h"
#include "tests/e2e/support/steered.h"

#include <QElapsedTimer>

#include <cmath>
#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class StartPage : public Steered
{
protected:
    void SetUp() override
    {
        Steered::SetUp();
        home.set(u"recent"_s, u"seconds"_s, u"1"_s);
        const QString clip = media(u"video200.mp4"_s);
        lesson = writeClips(file(u"lesson.vxl"_s),
                            {{clip, u"Apple"_s}, {clip, u"Plum"_s}, {clip, u"Pear"_s}});
    }

    [[nodiscard]] QString kept(const QString& key) const
    {
        return ReadIni(u"lesson1"_s, key, home.file(u"recent.ini"_s));
    }
    [[nodiscard]] double keptSeconds() const { return kept(u"seconds"_s).toDouble(); }

    /// Plays the second line near this second, until that is kept.
    [[nodiscard]] bool playPlumAt(double seconds)
    {
        if (!program.startAndShow({lesson}) || !plays(u"start 1 1 Apple"_s) ||
            !becomes(u"Playing"_s)) {
            return false;
        }
        desktop.press(u"Page_Down"_s);
        if (!plays(u"start 1 2 Plum"_s) || !becomes(u"Playing"_s)) {
            return false;
        }
        goTo(seconds);
        return waitFor([&] { return kept(u"clip"_s) == u"2" && keptSeconds() >= seconds; });
    }

    /// By no means of its own: what is kept is what was written before.
    [[nodiscard]] bool killProgram()
    {
        program.sendSignal(SIGKILL);
        return program.waitForEnd();
    }

    [[nodiscard]] static QStringList rowsOf(const Accessible& page)
    {
        QStringList names;
        for (const Accessible& row : page.children()) {
            names.append(row.name());
        }
        return names;
    }

    /// Another program on the same desktop and in the same home goes on with the second line.
    [[nodiscard]] bool goesOn(Application& other, double from)
    {
        return other.next(playbackPattern(u"start 1 2 Plum"_s)).has_value() &&
               becomes(u"Playing"_s) && waitFor([&] { return controls.seconds() >= from - 1; });
    }

    QString lesson;
};

TEST_F(StartPage, AfterAKillThePageShowsTheLessonAndReturnGoesOnWithIt)
{
    ASSERT_TRUE(playPlumAt(100)) << program.said();
    ASSERT_TRUE(killProgram());
    const double seconds = keptSeconds();
    Application again(desktop, home);
    ASSERT_TRUE(again.startAndShow());
    AccessibilityBus bus(desktop);
    const auto page = bus.control(again.pid(), u"list"_s, u"Where you stopped"_s);
    ASSERT_TRUE(page.has_value());
    ASSERT_EQ(page->childCount(), 2);
    EXPECT_TRUE(rowsOf(*page).value(0).endsWith(u"2 of 3, today"_s))
        << rowsOf(*page).value(0).toStdString();
    ASSERT_TRUE(desktop.activate(kMainWindow));
    QElapsedTimer sinceReturn;
    sinceReturn.start();
    desktop.press(u"Return"_s);
    ASSERT_TRUE(goesOn(again, seconds)) << again.said();
    const double reached = controls.seconds();
    EXPECT_GE(reached, seconds - 1);
    EXPECT_LE(reached, seconds + 1 + double(sinceReturn.elapsed()) / 1000);
}

TEST_F(StartPage, APauseIsKeptAndContinueWithoutPlayingStartsNothing)
{
    ASSERT_TRUE(playPlumAt(50)) << program.said();
    desktop.press(u"p"_s);
    ASSERT_TRUE(becomes(u"Paused"_s));
    const double paused = controls.seconds();
    ASSERT_TRUE(waitFor([&] { return std::abs(keptSeconds() - paused) < 0.01; }))
        << keptSeconds() << " is not " << paused;
    ASSERT_TRUE(killProgram());
    home.setOption(u"as"_s, false);
    Application again(desktop, home);
    ASSERT_TRUE(again.startAndShow({u"--continue"_s}));
    ASSERT_TRUE(again.next(u"orvanta.playlist: loaded 1 packets, 3 entries"_s).has_value());
    EXPECT_EQ(again.linesMatching(playbackPattern(u"start"_s)), QStringList());
}

TEST_F(StartPage, ContinueGoesOnAtOnceAlsoWhileTheProgramRuns)
{
    ASSERT_TRUE(playPlumAt(100)) << program.said();
    ASSERT_TRUE(killProgram());
    const double seconds = keptSeconds();
    Application again(desktop, home);
    ASSERT_TRUE(again.startAndShow());
    EXPECT_EQ(launchAgain(desktop, home, {u"--continue"_s}), 0);
    ASSERT_TRUE(goesOn(again, seconds)) << again.said();
    EXPECT_EQ(home.get(u"ftl"_s, u"num"_s), u"0"_s);
}

TEST_F(StartPage, AnEndBySignalKeepsThePlaceOfThatMoment)
{
    home.set(u"recent"_s, u"seconds"_s, u"3600"_s);
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(plays(u"start 1 1 Apple"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    ASSERT_TRUE(comesBetween(1, 150));
    const double before = controls.seconds();
    EXPECT_EQ(kept(u"path"_s), QString());
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.statusAtEnd(), 0);
    EXPECT_EQ(kept(u"path"_s), lesson);
    EXPECT_GE(keptSeconds(), before - 0.1);
}

TEST_F(StartPage, ContinueWithNothingKeptStartsEmptyAndSaysSo)
{
    ASSERT_TRUE(program.startAndShow({u"--continue"_s}));
    EXPECT_TRUE(program.peek(u"no lesson has been kept"_s).has_value()) << program.said();
}

TEST_F(StartPage, NothingIsKeptWhenTheSettingsSaySo)
{
    home.set(u"recent"_s, u"keep"_s, u"0"_s);
    ASSERT_TRUE(program.startAndShow({lesson}));
    ASSERT_TRUE(plays(u"start 1 1 Apple"_s));
    ASSERT_TRUE(becomes(u"Playing"_s));
    ASSERT_TRUE(comesBetween(1.5, 150)); // one round of the timer
    program.sendSignal(SIGTERM);
    EXPECT_EQ(program.statusAtEnd(), 0);
    EXPECT_FALSE(QFile::exists(home.file(u"recent.ini"_s)));
}

TEST_F(StartPage, ForgettingRemovesTheFileAtOnce)
{
    ASSERT_TRUE(playPlumAt(100)) << program.said();
    ASSERT_TRUE(killProgram());
    ASSERT_TRUE(QFile::exists(home.file(u"recent.ini"_s)));
    Application again(desktop, home);
    ASSERT_TRUE(again.startAndShow());
    ASSERT_TRUE(desktop.activate(kMainWindow));
    desktop.press(u"End"_s);
    desktop.press(u"Return"_s);
    EXPECT_TRUE(waitFor([this] { return !QFile::exists(home.file(u"recent.ini"_s)); }));
    EXPECT_TRUE(again.isRunning());
}

} // namespace orvanta::e2e
