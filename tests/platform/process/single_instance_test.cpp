#include "platform/process/single_instance.h"
#include "tests/support/probe.h"
#include "tests/support/settings_folder.h"

#include <QFileInfo>
#include <QLocalServer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <poll.h>
#include <unistd.h>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

void sendSignal(const QProcess& process, int signal)
{
    ::kill(static_cast<pid_t>(process.processId()), signal);
}

/// Waits, without serving events, until somebody is connected to the instance's socket.
bool hasUnservedCall(const SingleInstance& instance)
{
    const qintptr listening = instance.findChild<QLocalServer*>()->socketDescriptor();
    pollfd waiting = {.fd = static_cast<int>(listening), .events = POLLIN, .revents = 0};
    return ::poll(&waiting, 1, 20000) == 1;
}

struct TwoInstances : testing::Test
{
    SettingsFolder folder{QByteArray()};
    Probe first;

    void startFirst()
    {
        first.startProgram("instance_probe", {folder.path()});
        ASSERT_EQ(first.nextLine(), "first");
    }

    QByteArray startLater(const QByteArray& token = {})
    {
        Probe later;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DESKTOP_STARTUP_ID"_s);
        environment.insert(u"XDG_ACTIVATION_TOKEN"_s, QString::fromUtf8(token));
        later.setProcessEnvironment(environment);
        later.startProgram("instance_probe", {folder.path()});
        const QByteArray line = later.nextLine();
        EXPECT_TRUE(later.waitForFinished());
        return line;
    }
};

} // namespace

TEST_F(TwoInstances, TheSecondIsNotFirstAndRaisesTheFirst)
{
    startFirst();
    EXPECT_EQ(startLater("token-7_TIME123"), "later");
    EXPECT_EQ(first.nextLine(), "raise token-7_TIME123");
}

TEST_F(TwoInstances, ALaunchWithoutATokenRaisesToo)
{
    startFirst();
    EXPECT_EQ(startLater(), "later");
    EXPECT_EQ(first.nextLine(), "raise");
}

TEST_F(TwoInstances, LinesThatCouldNotBeQueuedArriveBeforeTheRaise)
{
    startFirst();
    QStringList lines = {u"/a b.vxl"_s, u"/100 %.mp4"_s, u"/два\nстроки"_s};
    for (int i = 0; i < 500; ++i) { // more than one read of a socket holds
        lines.append(u"/folder/of/clips/%1.mp4"_s.arg(i, 100));
    }
    Probe later;
    later.startProgram("instance_probe", QStringList(folder.path()) + lines);
    EXPECT_EQ(later.nextLine(), "later");
    const QByteArray all = "lines " + lines.join(u'|').toUtf8();
    EXPECT_EQ(first.nextLine(), all.left(all.indexOf('\n')));
    EXPECT_EQ(first.nextLine(), all.mid(all.indexOf('\n') + 1));
    EXPECT_EQ(first.nextLine(), "raise");
}

TEST_F(TwoInstances, AnotherApplicationFolderIsAnotherProgram)
{
    startFirst();
    const SettingsFolder other{QByteArray()};
    Probe second;
    second.startProgram("instance_probe", {other.path()});
    EXPECT_EQ(second.nextLine(), "first");
}

TEST_F(TwoInstances, AKilledFirstLeavesThePlaceAndItsSocketToTheNext)
{
    startFirst();
    first.kill();
    ASSERT_TRUE(first.waitForFinished());
    Probe next;
    next.startProgram("instance_probe", {folder.path()});
    EXPECT_EQ(next.nextLine(), "first");
    EXPECT_EQ(startLater("t"), "later");
    EXPECT_EQ(next.nextLine(), "raise t");
}

TEST_F(TwoInstances, AFirstThatDoesNotListenYetLetsTheSecondEnd)
{
    const SingleInstance starting(folder.path());
    ASSERT_TRUE(starting.isFirst());
    EXPECT_EQ(startLater(), "later, not heard");
}

TEST_F(TwoInstances, AReleasedPlaceIsFreeWhileTheOldProcessLives)
{
    SingleInstance instance(folder.path());
    instance.listen();
    instance.release();
    startFirst();
}

TEST_F(TwoInstances, WhereTheFileSystemKnowsNoLocksEveryProcessIsTheFirst)
{
    startFirst();
    Probe next;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    preload(variables, "no_flock.so");
    next.setProcessEnvironment(variables);
    next.startProgram("instance_probe", {folder.path()});
    EXPECT_EQ(next.nextLine(), "first");
}

TEST_F(TwoInstances, OfManyStartedAtOnceExactlyOneIsFirst)
{
    constexpr int kLaunches = 20;
    std::vector<std::unique_ptr<Probe>> probes;
    for (int i = 0; i < kLaunches; ++i) {
        probes.push_back(std::make_unique<Probe>());
        probes.back()->start(builtProgram("instance_probe"), {folder.path()});
    }
    int firsts = 0;
    for (const auto& probe : probes) {
        const QByteArray line = probe->nextLine();
        EXPECT_FALSE(line.isEmpty());
        firsts += line == "first" ? 1 : 0;
    }
    EXPECT_EQ(firsts, 1);
}

TEST_F(TwoInstances, AFirstThatIsEndingHearsNobody)
{
    SingleInstance ending(folder.path());
    int asked = 0;
    ending.listen([&] {
        ++asked;
        return false;
    });
    const QSignalSpy raised(&ending, &SingleInstance::raiseRequested);
    Probe later;
    later.startProgram("instance_probe", {folder.path()});
    ASSERT_TRUE(QTest::qWaitFor([&] { return later.canReadLine(); }, 20000));
    EXPECT_EQ(later.nextLine(), "later, not heard");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(raised.count(), 0);
}

TEST_F(TwoInstances, ACallThatLiesUnreadInAClosingSocketIsNotHeard)
{
    SingleInstance ending(folder.path());
    ending.listen();
    Probe later;
    later.startProgram("instance_probe", {folder.path()});
    ASSERT_TRUE(hasUnservedCall(ending));
    ending.release();
    EXPECT_EQ(later.nextLine(), "later, not heard");
}

TEST_F(TwoInstances, WithoutARuntimeFolderTheSocketLiesInTheApplicationFolder)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.remove(u"XDG_RUNTIME_DIR"_s);
    first.setProcessEnvironment(variables);
    startFirst();
    EXPECT_TRUE(QFileInfo::exists(folder.file(u"instance.socket"_s)));
    Probe later;
    variables.insert(u"XDG_ACTIVATION_TOKEN"_s, u"t"_s);
    later.setProcessEnvironment(variables);
    later.startProgram("instance_probe", {folder.path()});
    EXPECT_EQ(later.nextLine(), "later");
    EXPECT_EQ(first.nextLine(), "raise t");
}

TEST_F(TwoInstances, NoTokenIsSentToASocketOfAnotherUser)
{
    constexpr uid_t kOther = 65534;
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can listen as another user";
    }
    SingleInstance instance(folder.path());
    ASSERT_EQ(::seteuid(kOther), 0);
    QTemporaryDir theirs; // where the other user may listen
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(theirs.path()));
    instance.listen();
    ASSERT_EQ(::seteuid(0), 0);
    const QSignalSpy raised(&instance, &SingleInstance::raiseRequested);
    Probe later;
    later.startProgram("instance_probe", {folder.path()});
    EXPECT_TRUE(QTest::qWaitFor([&] { return later.canReadLine(); }, 20000));
    EXPECT_EQ(later.nextLine(), "later, not heard");
    EXPECT_EQ(raised.count(), 0);
    runtime.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", runtime);
    instance.release();
}

TEST_F(TwoInstances, EndSignalsArriveAsAnEvent)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        Probe instance;
        instance.startProgram("instance_probe", {folder.path()});
        ASSERT_EQ(instance.nextLine(), "first");
        sendSignal(instance, signal);
        EXPECT_EQ(instance.nextLine(), "ended") << signal;
        EXPECT_TRUE(instance.waitForFinished());
        EXPECT_EQ(instance.exitStatus(), QProcess::NormalExit);
    }
}

} // namespace orvanta
