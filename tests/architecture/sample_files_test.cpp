#include "tests/architecture/sample_files.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

static constexpr qint64 kMostBytes = 4'000'000;

static QString samplesFolder()
{
    return QStringLiteral(ORVANTA_SOURCE_DIR "/samples/");
}

static QStringList documents()
{
    QStringList files;
    for (const QString& name : QDir(samplesFolder()).entryList({u"*.vxl"_s, u"*.vxg"_s})) {
        files.append(samplesFolder() + name);
    }
    return files;
}

static QStringList filesUnderSamples(const QStringList& patterns)
{
    QStringList files;
    QDirIterator found(samplesFolder(), patterns, QDir::Files, QDirIterator::Subdirectories);
    while (found.hasNext()) {
        files.append(found.next());
    }
    return files;
}

static QByteArray bytesOf(const QString& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
}

static bool hasCyrillic(const QString& text)
{
    return text.contains(QRegularExpression(u"[а-яё]"_s));
}

TEST(SampleFiles, APathThatIsAbsoluteMissingOrWrittenWithBackslashesIsFound)
{
    const QTemporaryDir folder;
    const QString packet = folder.filePath(u"packet.vxl"_s);
    QFile file(packet);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(
        "[main]\r\nfiles=4\r\n[file1]\r\npath=packet.vxl\r\ntext=here\r\n[file2]\r\n"
        "path=gone.mp4\r\n[file3]\r\npath=clips\\a.mp4\r\n[file4]\r\npath=/etc/hostname\r\n");
    file.close();
    EXPECT_EQ(unusablePaths(packet),
              QStringList({u"gone.mp4"_s, u"clips\\a.mp4"_s, u"/etc/hostname"_s}));
}

TEST(SampleFiles, EveryPathNamesAFileOfTheCheckout)
{
    ASSERT_GE(documents().size(), 4);
    for (const QString& document : documents()) {
        EXPECT_GE(namedPaths(document).size(), 2) << document.toStdString();
        EXPECT_EQ(unusablePaths(document), QStringList()) << document.toStdString();
    }
}

TEST(SampleFiles, DocumentsAreWrittenAsTheProgramWritesThem)
{
    for (const QString& document : documents()) {
        const QByteArray bytes = bytesOf(document);
        QStringDecoder decoder(QStringDecoder::Utf8);
        const QString text = decoder(bytes);
        EXPECT_FALSE(text.isEmpty() || decoder.hasError()) << document.toStdString();
        EXPECT_EQ(bytes.count("\r\n"), bytes.count('\n')) << document.toStdString();
    }
}

TEST(SampleFiles, TheGroupHasThreePacketsWithAPictureEach)
{
    const QList<Value> group = valuesOf(samplesFolder() + u"samples.vxg"_s);
    const qsizetype members = textsUnder(u"path"_s, group).size();
    EXPECT_GE(members, 3);
    EXPECT_EQ(textsUnder(u"files"_s, group), QStringList(QString::number(members)));
    EXPECT_EQ(textsUnder(u"picture"_s, group).size(), members);
    EXPECT_FALSE(textsUnder(u"picture"_s, group).contains(u"{No picture}"_s));
}

TEST(SampleFiles, ThePacketOfTheLessonMixesPicturesAndSoundOnly)
{
    const QStringList clips = textsUnder(u"path"_s, valuesOf(samplesFolder() + u"breathing.vxl"_s));
    const auto isVideo = [](const QString& clip) { return clip.endsWith(u".mp4"_s); };
    EXPECT_TRUE(std::any_of(clips.begin(), clips.end(), isVideo));
    EXPECT_FALSE(std::all_of(clips.begin(), clips.end(), isVideo));
}

TEST(SampleFiles, TheBrakePacketHasAtLeastSixBrakesInTheOrderOfTheirTimes)
{
    const QList<Value> packet = valuesOf(samplesFolder() + u"rhythm.vxl"_s);
    const QStringList times = textsUnder(u"time"_s, packet);
    EXPECT_GE(times.size(), 6);
    EXPECT_EQ(textsUnder(u"brakes"_s, packet), QStringList(QString::number(times.size())));
    // Padded with zeros, so the order of the texts is the order of the times.
    EXPECT_TRUE(std::is_sorted(times.begin(), times.end()));
    EXPECT_FALSE(textsUnder(u"text"_s, packet).contains(QString()));
}

TEST(SampleFiles, APacketHasRussianTextsAndNamesWithBlanks)
{
    const QStringList members = textsUnder(u"path"_s, valuesOf(samplesFolder() + u"samples.vxg"_s));
    const auto russian = std::find_if(members.begin(), members.end(), hasCyrillic);
    ASSERT_NE(russian, members.end());
    const QList<Value> packet = valuesOf(samplesFolder() + *russian);
    for (const QString& path : textsUnder(u"path"_s, packet)) {
        EXPECT_TRUE(hasCyrillic(path) && path.contains(u' ')) << path.toStdString();
    }
    for (const QString& text : textsUnder(u"text"_s, packet)) {
        EXPECT_TRUE(hasCyrillic(text)) << text.toStdString();
    }
}

TEST(SampleFiles, EveryMediaFileIsNamedByAPacketOrTheGroup)
{
    QStringList named;
    for (const QString& document : documents()) {
        named += namedPaths(document);
    }
    for (const QString& file :
         filesUnderSamples({u"*.mp4"_s, u"*.mp3"_s, u"*.ogg"_s, u"*.m4a"_s, u"*.jpg"_s})) {
        EXPECT_TRUE(named.contains(QDir(samplesFolder()).relativeFilePath(file)))
            << file.toStdString();
    }
}

TEST(SampleFiles, TogetherTheyStayUnderFourMegabytes)
{
    qint64 bytes = 0;
    for (const QString& file : filesUnderSamples({u"*"_s})) {
        bytes += QFileInfo(file).size();
    }
    EXPECT_GT(bytes, 100'000);
    EXPECT_LT(bytes, kMostBytes);
}

} // namespace orvanta::test
