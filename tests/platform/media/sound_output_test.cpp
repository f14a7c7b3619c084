// The sound after its server has gone and come back.
#include "tests/support/recorded_player.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

class SoundServer : public testing::Test
{
protected:
    SoundServer() { qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(socket())); }
    ~SoundServer() override
    {
        stop();
        qunsetenv("PULSE_SERVER");
    }

    void start()
    {
        QFile::remove(socket()); // a killed one leaves it
        m_server = std::make_unique<QProcess>();
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        for (const QString& name : {u"HOME"_s, u"XDG_RUNTIME_DIR"_s, u"XDG_CONFIG_HOME"_s}) {
            variables.insert(name, m_folder.path());
        }
        variables.remove(u"PULSE_SERVER"_s); // else it takes itself for another machine's
        m_server->setProcessEnvironment(variables);
        m_server->start(
            u"pulseaudio"_s,
            {u"-n"_s, u"--daemonize=no"_s, u"--use-pid-file=no"_s, u"--exit-idle-time=-1"_s,
             u"--disable-shm=yes"_s, u"--load=module-null-sink sink_name=speaker"_s,
             u"--load=module-native-protocol-unix auth-anonymous=1 socket="_s + socket()});
        ASSERT_TRUE(comesTrue([&] { return QFile::exists(socket()); }));
    }

    void stop()
    {
        if (m_server) {
            m_server->kill();
            m_server->waitForFinished();
            m_server.reset();
        }
    }

    /// Whether the server has the player among its sounds.
    [[nodiscard]] static bool isHeard()
    {
        QProcess list;
        list.start(u"pactl"_s, {u"list"_s, u"short"_s, u"sink-inputs"_s});
        return list.waitForFinished() && !list.readAllStandardOutput().trimmed().isEmpty();
    }

private:
    [[nodiscard]] QString socket() const { return m_folder.filePath(u"sound"_s); }

    QTemporaryDir m_folder;
    std::unique_ptr<QProcess> m_server;
};

/// Waits while the clip, which is short, goes on running.
bool comesTrueWhileRunning(RecordedPlayer& player, const std::function<bool()>& condition)
{
    return comesTrue(
        [&] {
            if (player.control.CurrentPosition() > 3) {
                player.control.setCurrentPosition(0);
            }
            return condition();
        },
        60000);
}

} // namespace

TEST_F(SoundServer, ThatComesBackIsHeardAgainInTheSameClip)
{
    ASSERT_NO_FATAL_FAILURE(start());
    RecordedPlayer player(MpvOptionList{{"ao", "pulse"}});
    ASSERT_TRUE(player.open(u"quiet.wav"_s));
    player.control.Run();
    ASSERT_TRUE(comesTrueWhileRunning(player, isHeard));
    stop();
    const double before = player.control.CurrentPosition();
    ASSERT_TRUE(comesTrue([&] { return player.control.CurrentPosition() != before; }));
    ASSERT_NO_FATAL_FAILURE(start());
    EXPECT_TRUE(comesTrueWhileRunning(player, isHeard));
    EXPECT_EQ(player.control.CurrentState(), MediaControl::Running);
}
