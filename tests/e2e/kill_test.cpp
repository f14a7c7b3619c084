// Killing the program while it writes its settings.

#include "tests/e2e/support/end_to_end.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <csignal>

using namespace Qt::StringLiterals;

namespace orvanta::e2e {

class Kill : public testing::Test
{
protected:
    Kill()
        : desktop({.windowManager = false})
    {}

    void SetUp() override
    {
        ASSERT_TRUE(desktop.isReady()) << desktop.problem().toStdString();
        for (int i = 1; i <= kKept; ++i) {
            home.set(u"pos"_s, u"Clip %1"_s.arg(i), u"%1.25"_s.arg(i));
        }
        before = lines();
        ASSERT_GE(before.size(), kKept);
    }

    [[nodiscard]] QStringList lines() const
    {
        QFile settings(home.settingsFile());
        const QString text =
            settings.open(QIODevice::ReadOnly) ? QString::fromUtf8(settings.readAll()) : QString();
        return QString(text).remove(u'\r').split(u'\n');
    }

    static bool isChanging(const QString& line)
    {
        static const QRegularExpression kChanging(u"^(volume|wr|num|\\d+)=[^=]*$"_s);
        return kChanging.match(line).hasMatch();
    }

    /// Every line that nobody changes is there, in its order; the others have the right form.
    void checkSettings() const
    {
        QStringList kept = before;
        kept.removeIf(isChanging);
        QStringList now = lines();
        now.removeIf(isChanging);
        ASSERT_EQ(now, kept);
        bool isNumber = false;
        const double volume = home.get(u"save"_s, u"volume"_s).toDouble(&isNumber);
        ASSERT_TRUE(isNumber && volume <= 0 && volume >= -8000);
        ASSERT_TRUE((QStringList{u"0"_s, u"1"_s}.contains(home.get(u"ftl"_s, u"wr"_s))));
    }

    /// A later launch: hands a line over, which both it and the running program write about.
    [[nodiscard]] std::unique_ptr<Application> laterLaunch() const
    {
        auto launch = std::make_unique<Application>(desktop, home);
        launch->start({u"/nowhere/clip.avi"_s});
        return launch;
    }

    static void killAtRandom(Application& program, int mostMs)
    {
        QElapsedTimer clock;
        clock.start();
        const int moment = QRandomGenerator::global()->bounded(mostMs);
        const bool reached = waitFor([&] { return clock.hasExpired(moment); });
        Q_UNUSED(reached)
        program.sendSignal(SIGKILL);
    }

    static constexpr int kKept = 60;

    Desktop desktop;
    Home home;
    QStringList before;
};

TEST_F(Kill, TwoHundredTimesWhileSettingsAreWrittenLosesNoValue)
{
    constexpr int kRounds = 100; // each kills the program and a later launch
    QPoint volume;
    int written = 0;
    for (int round = 0; round < kRounds; ++round) {
        Application program(desktop, home);
        ASSERT_TRUE(program.startAndShow()) << program.said();
        if (volume.isNull()) {
            volume = MainWindow(desktop, program).sliderCentre(u"Volume"_s);
        }
        const QString stored = home.get(u"save"_s, u"volume"_s);
        OwnedProcess hand;
        hand.setProcessEnvironment(desktop.environment());
        hand.start(u"xdotool"_s, {u"mousemove"_s, QString::number(volume.x()),
                                  QString::number(volume.y()), u"click"_s, u"--repeat"_s, u"500"_s,
                                  u"--delay"_s, u"1"_s, round % 2 == 0 ? u"5"_s : u"4"_s});
        const std::unique_ptr<Application> later = laterLaunch();
        killAtRandom(*later, 150);
        killAtRandom(program, 150);
        ASSERT_TRUE(program.waitForEnd() && later->waitForEnd());
        written += home.get(u"save"_s, u"volume"_s) != stored ? 1 : 0;
        checkSettings();
        ASSERT_FALSE(HasFailure()) << "round " << round;
    }
    // The kills did fall into the writing.
    EXPECT_GE(written, kRounds / 4);
}

TEST_F(Kill, ALaunchKilledWhileItQueuesNeverLeavesTheQueueBusy)
{
    for (int round = 0; round < 30; ++round) {
        const std::unique_ptr<Application> launch = laterLaunch();
        killAtRandom(*launch, 100);
        ASSERT_TRUE(launch->waitForEnd());
        checkSettings();
    }
    Application program(desktop, home);
    EXPECT_TRUE(program.startAndShow({u"/nowhere/last.avi"_s})) << program.said();
    EXPECT_TRUE(program.next(u"^orvanta.playlist: loaded"_s)) << program.said();
}

} // namespace orvanta::e2e
