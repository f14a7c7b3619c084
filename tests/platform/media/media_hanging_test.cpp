// Clips whose disk gives the first byte and then nothing any more: a share of a machine that went.
// The real player library reads through this program's own read().
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>
#include <condition_variable>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <mutex>
#include <string>
#include <unistd.h>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

/// The file that hangs. Its first byte comes, asked for alone.
class DeadDisk
{
public:
    void holds(const QString& file)
    {
        const std::lock_guard lock(m_mutex);
        m_file = QFile::encodeName(file).toStdString();
    }

    void comesBack()
    {
        const std::lock_guard lock(m_mutex);
        m_file.clear();
        m_isBack.notify_all();
    }

    void waitIfHeld(int file, size_t size)
    {
        std::unique_lock lock(m_mutex);
        if (m_file.empty() || size <= 1 || nameOf(file) != m_file) {
            return;
        }
        ++m_hanging;
        m_isBack.wait(lock, [this] { return m_file.empty(); });
        --m_hanging;
    }

    [[nodiscard]] int hanging()
    {
        const std::lock_guard lock(m_mutex);
        return m_hanging;
    }

private:
    static std::string nameOf(int file)
    {
        char name[4096];
        const auto link = "/proc/self/fd/" + std::to_string(file);
        const auto length = readlink(link.c_str(), name, sizeof name);
        return {name, static_cast<size_t>(std::max<ssize_t>(length, 0))};
    }

    std::mutex m_mutex;
    std::condition_variable m_isBack;
    std::string m_file;
    int m_hanging = 0;
};

DeadDisk& deadDisk()
{
    static DeadDisk disk;
    return disk;
}

} // namespace

extern "C" ssize_t read(int file, void* bytes, size_t size)
{
    static const auto real =
        reinterpret_cast<ssize_t (*)(int, void*, size_t)>(dlsym(RTLD_NEXT, "read"));
    deadDisk().waitIfHeld(file, size);
    return real(file, bytes, size);
}

class HangingClip : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QFile::copy(testClip(u"two.mp4"_s), dead));
        deadDisk().holds(QFileInfo(dead).canonicalFilePath());
    }
    /// What hangs ends, or the program could not.
    void TearDown() override
    {
        deadDisk().comesBack();
        EXPECT_TRUE(comesTrue([] { return deadDisk().hanging() == 0; }));
    }

    static bool hangs()
    {
        return comesTrue([] { return deadDisk().hanging() > 0; });
    }

    QTemporaryDir folder;
    QString dead = folder.filePath(u"dead.mp4"_s);
};

TEST_F(HangingClip, FailsToOpenAndTheNextOneComesToAFreshPlayer)
{
    RecordedPlayer player;
    player.control.setVolume(-600);
    player.control.setSpeed(0.5);
    player.control.picture()->setTargetSize(QSize(64, 64));
    EXPECT_TRUE(player.refuses(dead));
    EXPECT_EQ(deadDisk().hanging(), 1);
    EXPECT_FALSE(player.control.isOpening());
    ASSERT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.picture, QSize(64, 64));
    const QSignalSpy frames(player.control.picture(), &PictureSource::frameChanged);
    EXPECT_TRUE(comesTrue([&] { return frames.count() > 0; }));
    EXPECT_EQ(player.control.picture()->frame().size(), QSize(64, 64));
    QElapsedTimer clock;
    clock.start();
    player.control.Run();
    EXPECT_TRUE(player.endsOnceMore());
    EXPECT_GT(clock.elapsed(), 3500) << "two seconds at half the speed";
}

TEST_F(HangingClip, DoesNotKeepTheOneThatIsOpenedInItsPlace)
{
    RecordedPlayer player;
    player.control.setFileName(dead);
    ASSERT_TRUE(hangs());
    EXPECT_TRUE(player.open(u"two.mp4"_s));
    EXPECT_EQ(player.failures, 0);
    EXPECT_EQ(deadDisk().hanging(), 1);
    EXPECT_TRUE(player.open(u"one.mp3"_s));
}

TEST_F(HangingClip, KeepsItsPlayerButNobodyWhoIsDoneWithIt)
{
    {
        RecordedPlayer player;
        player.control.setFileName(dead);
        ASSERT_TRUE(hangs());
    }
    EXPECT_EQ(deadDisk().hanging(), 1);
    RecordedPlayer other;
    EXPECT_TRUE(other.open(u"two.mp4"_s));
}
