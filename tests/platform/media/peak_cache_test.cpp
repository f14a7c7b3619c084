// Peaks that are kept from start to start.
#include "platform/media/peak_cache.h"
#include "tests/platform/media/peak_waiter.h"
#include "tests/support/log_capture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

struct stat clipNumber(quint64 number)
{
    struct stat clip = {};
    clip.st_dev = 1;
    clip.st_ino = number;
    clip.st_size = 1000;
    clip.st_mtim = {.tv_sec = 1000, .tv_nsec = 5};
    return clip;
}

Peaks somePeaks(std::size_t count)
{
    Peaks peaks(count);
    for (std::size_t i = 0; i < count; ++i) {
        peaks[i] = {static_cast<qint8>(-static_cast<int>(i % 128)), static_cast<qint8>(i % 100)};
    }
    return peaks;
}

class Kept : public testing::Test
{
protected:
    [[nodiscard]] QStringList files() const
    {
        return QDir(path).entryList(QDir::Files, QDir::Name);
    }
    [[nodiscard]] QString onlyFile() const
    {
        EXPECT_EQ(files().size(), 1);
        return path + u'/' + files().value(0);
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"a/b"_s);
    PeakCache cache{path};
};

void setAge(const QString& file, int seconds)
{
    const timespec then = {.tv_sec = time(nullptr) - seconds, .tv_nsec = 0};
    const timespec times[] = {then, then};
    ASSERT_EQ(utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times, 0), 0);
}

} // namespace

TEST_F(Kept, PeaksAreFoundAgainForExactlyTheSameClip)
{
    EXPECT_FALSE(cache.find(clipNumber(1)).has_value());
    cache.keep(clipNumber(1), somePeaks(300));
    EXPECT_EQ(cache.find(clipNumber(1)), somePeaks(300));
    EXPECT_FALSE(cache.find(clipNumber(2)).has_value());
    struct stat touched = clipNumber(1);
    ++touched.st_mtim.tv_nsec;
    EXPECT_FALSE(cache.find(touched).has_value());
    struct stat grown = clipNumber(1);
    ++grown.st_size;
    EXPECT_FALSE(cache.find(grown).has_value());
}

TEST_F(Kept, PeaksMayBeNone)
{
    cache.keep(clipNumber(1), {});
    EXPECT_EQ(cache.find(clipNumber(1)), Peaks());
}

TEST_F(Kept, PeaksTakeTwoBytesEachAndLittleMore)
{
    cache.keep(clipNumber(1), somePeaks(360000)); // an hour
    EXPECT_LT(QFileInfo(onlyFile()).size(), 720000 + 200);
}

TEST_F(Kept, SpoiltFilesAreNotUsed)
{
    cache.keep(clipNumber(1), somePeaks(50));
    QFile file(onlyFile());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray good = file.readAll();
    file.close();
    QList<QByteArray> spoilt = {QByteArray(),    good.left(10),
                                good.chopped(1), good.chopped(2),
                                good + 'x',      QByteArray("something else entirely")};
    for (qsizetype i = 0; i < good.size(); ++i) {
        QByteArray one = good;
        one[i] = static_cast<char>(one[i] ^ 4);
        spoilt.append(one);
    }
    for (const QByteArray& bytes : spoilt) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(bytes);
        file.close();
        EXPECT_FALSE(cache.find(clipNumber(1)).has_value());
    }
}

TEST_F(Kept, WhatWasUsedLongestAgoGoesFirst)
{
    const PeakCache small(path, 2500);
    small.keep(clipNumber(1), somePeaks(500));
    setAge(onlyFile(), 100);
    const QString first = onlyFile();
    small.keep(clipNumber(2), somePeaks(500));
    for (const QString& name : files()) {
        if (path + u'/' + name != first) {
            setAge(path + u'/' + name, 50);
        }
    }
    EXPECT_TRUE(small.find(clipNumber(1)).has_value()); // used now
    small.keep(clipNumber(3), somePeaks(500));
    EXPECT_TRUE(small.find(clipNumber(1)).has_value());
    EXPECT_FALSE(small.find(clipNumber(2)).has_value());
    EXPECT_TRUE(small.find(clipNumber(3)).has_value());
}

TEST_F(Kept, PeaksAreNotReadAnew)
{
    const QString clip = folder.filePath(u"clip.wav"_s);
    ASSERT_TRUE(QFile::copy(testClip(u"bursts.wav"_s), clip));
    PeakWaiter first(path);
    const Peaks peaks = first.of(clip);
    struct stat status = {};
    ASSERT_EQ(stat(QFile::encodeName(clip).constData(), &status), 0);
    EXPECT_EQ(cache.find(status), peaks);
    cache.keep(status, somePeaks(7)); // told apart from what the clip has
    PeakWaiter second(path);
    EXPECT_EQ(second.of(clip), somePeaks(7));
    EXPECT_EQ(second.news, 1);
}

TEST_F(Kept, NothingIsNoHarmWhereTheFolderCannotBeMade)
{
    QFile inTheWay(folder.filePath(u"a"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const LogCapture log("orvanta.errors");
    PeakWaiter waiter(path);
    EXPECT_EQ(waiter.of(testClip(u"bursts.wav"_s)).size(), 250U);
    EXPECT_EQ(LogCapture::lines().size(), 1);
}

TEST_F(Kept, NothingIsOfAClipThatCannotBeRead)
{
    PeakWaiter waiter(path);
    EXPECT_TRUE(waiter.of(testClip(u"noise.mp4"_s)).empty());
    EXPECT_FALSE(QDir(path).exists());
}

TEST(CacheFolder, IsTheDesktops)
{
    const QTemporaryDir folder;
    qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.path()));
    EXPECT_EQ(PeakCache::usualFolder(), folder.filePath(u"orvanta/peaks"_s));
    qunsetenv("XDG_CACHE_HOME");
}

} // namespace orvanta::test
