#include "platform/process/hand_over_queue.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

struct QueueProcesses : testing::Test
{
    SettingsFolder folder{"[main]\r\nlanguage=2\r\n[ftl]\r\nwr=0\r\nnum=0\r\n"
                          "[save]\r\nvolume=-0.008\r\n"};
    HandOverQueue queue{folder.ini()};

    QStringList arguments(const QStringList& rest) { return QStringList(folder.ini()) + rest; }

    void set(const QString& key, const QString& value)
    {
        WriteIni(u"ftl"_s, key, value, folder.ini());
    }

    void expectSettingsWhole()
    {
        EXPECT_EQ(folder.value("main", "language"), u"2");
        EXPECT_EQ(folder.value("save", "volume"), u"-0.008");
    }

    QStringList drained()
    {
        QStringList taken;
        queue.drain([&](const QStringList& lines) { taken = lines; });
        return taken;
    }
};

using Probes = std::vector<std::unique_ptr<Probe>>;

bool allEnded(const Probes& probes)
{
    return std::all_of(probes.begin(), probes.end(),
                       [](const auto& probe) { return probe->state() == QProcess::NotRunning; });
}

} // namespace

TEST_F(QueueProcesses, AHundredLaunchesAtOnceLoseNoLineWhileTheQueueIsDrained)
{
    constexpr int kLaunches = 100;
    Probes probes;
    QStringList expected;
    for (int i = 0; i < kLaunches; ++i) {
        expected.append(u"/clips/%1.avi"_s.arg(i));
        probes.push_back(std::make_unique<Probe>());
        probes.back()->start(builtProgram("queue_probe"),
                             arguments({u"append"_s, expected.back()}));
    }
    QStringList taken;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            taken += queue.hasEntries() ? drained() : QStringList();
            return allEnded(probes);
        },
        50000));
    taken += drained();
    taken.sort();
    expected.sort();
    EXPECT_EQ(taken, expected);
    expectSettingsWhole();
}

TEST_F(QueueProcesses, ALaunchKilledAtAnyMomentLeavesTheQueueFreeAndEveryEarlierValue)
{
    constexpr int kKills = 200;
    qsizetype linesBefore = 0;
    for (int i = 0; i < kKills; ++i) {
        Probe launch;
        launch.startProgram("queue_probe", arguments({u"flood"_s, u"/k%1-"_s.arg(i)}));
        ASSERT_EQ(launch.nextLine(), "flooding") << launch.readAllStandardError().constData();
        QThread::usleep(QRandomGenerator::global()->bounded(8000U));
        launch.kill();
        ASSERT_TRUE(launch.waitForFinished());
        ASSERT_EQ(folder.value("ftl", "wr"), u"0");
        const int lines = folder.value("ftl", "num").toInt();
        ASSERT_GE(lines, linesBefore);
        linesBefore = lines;
        expectSettingsWhole();
    }
    EXPECT_EQ(drained().size(), linesBefore); // every counted line has its text
    EXPECT_GT(linesBefore, 0);
}

TEST_F(QueueProcesses, ALaunchWaitsWhileTheFlagIsSet)
{
    set(u"wr"_s, u"1"_s);
    Probe launch;
    launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
    EXPECT_FALSE(launch.waitForFinished(400));
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
    set(u"wr"_s, u"0"_s);
    ASSERT_TRUE(launch.waitForFinished());
    EXPECT_EQ(folder.value("ftl", "1"), u"/a");
}

TEST_F(QueueProcesses, ALaunchWaitsWhileTheFlagIsAbsentAndSaysSoOnceAfterFiveSeconds)
{
    set(u"wr"_s, {});
    auto holder = std::make_unique<FileLock>(folder.file(u"queue.lock"_s));
    ASSERT_EQ(holder->tryLock(), FileLock::Outcome::Held);
    QElapsedTimer waiting;
    Probe launch;
    waiting.start();
    launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
    launch.setReadChannel(QProcess::StandardError);
    const QByteArray line = launch.nextLine();
    EXPECT_GE(waiting.elapsed(), 4900);
    EXPECT_TRUE(line.contains(folder.ini().toUtf8())) << line.constData();
    EXPECT_TRUE(line.contains("\"wr\"")) << line.constData();
    EXPECT_TRUE(line.contains("[ftl]")) << line.constData();
    EXPECT_FALSE(launch.waitForFinished(200));
    EXPECT_EQ(folder.value("ftl", "wr"), QString()) << "a living process holds the queue";
    set(u"wr"_s, u"0"_s);
    holder.reset();
    ASSERT_TRUE(launch.waitForFinished());
    EXPECT_EQ(launch.readAllStandardError(), QByteArray());
    EXPECT_EQ(folder.value("ftl", "1"), u"/a");
}

TEST_F(QueueProcesses, AQueueThatNobodyHoldsIsFreedByTheWaitingLaunch)
{
    for (const QString& flag : {QString(), u"1"_s, u"no"_s}) {
        set(u"num"_s, u"0"_s);
        set(u"wr"_s, flag);
        Probe launch;
        launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
        ASSERT_TRUE(launch.waitForFinished()) << flag.toStdString();
        EXPECT_EQ(launch.exitCode(), 0);
        EXPECT_EQ(folder.value("ftl", "wr"), u"0");
        EXPECT_EQ(drained(), QStringList(u"/a"_s));
    }
}

TEST_F(QueueProcesses, WhereTheFileSystemKnowsNoLocksALaunchHandsOverWithout)
{
    for (const QString& flag : {u"0"_s, QString()}) {
        set(u"num"_s, u"0"_s);
        set(u"wr"_s, flag);
        Probe launch;
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        preload(variables, "no_flock.so");
        launch.setProcessEnvironment(variables);
        launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
        ASSERT_TRUE(launch.waitForFinished()) << flag.toStdString();
        EXPECT_EQ(launch.exitCode(), 0);
        EXPECT_EQ(drained(), QStringList(u"/a"_s));
    }
}

TEST_F(QueueProcesses, AWaitingLaunchCanBeEnded)
{
    set(u"wr"_s, u"1"_s);
    Probe launch;
    launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
    EXPECT_FALSE(launch.waitForFinished(100));
    launch.terminate();
    EXPECT_TRUE(launch.waitForFinished());
    EXPECT_EQ(folder.value("ftl", "num"), u"0");
}

TEST_F(QueueProcesses, ALaunchWaitsForARunningDrain)
{
    Probe drain;
    drain.startProgram("queue_probe", arguments({u"hold"_s}));
    ASSERT_EQ(drain.nextLine(), "holding");
    Probe launch;
    launch.startProgram("queue_probe", arguments({u"append"_s, u"/a"_s}));
    EXPECT_FALSE(launch.waitForFinished(200));
    drain.kill();
    ASSERT_TRUE(drain.waitForFinished());
    ASSERT_TRUE(launch.waitForFinished());
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
    EXPECT_EQ(drained(), QStringList(u"/a"_s));
}

TEST_F(QueueProcesses, AKilledDrainLosesNothingAndStopsNobody)
{
    queue.append({u"/left.avi"_s});
    Probe drain;
    drain.startProgram("queue_probe", arguments({u"hold"_s}));
    ASSERT_EQ(drain.nextLine(), "holding");
    drain.kill();
    ASSERT_TRUE(drain.waitForFinished());
    EXPECT_EQ(folder.value("ftl", "wr"), u"1");
    queue.append({u"/next.avi"_s});
    EXPECT_EQ(drained(), QStringList({u"/left.avi"_s, u"/next.avi"_s}));
    EXPECT_EQ(folder.value("ftl", "wr"), u"0");
}

} // namespace orvanta
