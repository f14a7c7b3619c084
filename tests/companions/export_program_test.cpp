// Export at the command line: other programs read from it what the lesson says.

#include "tests/companions/program_room.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

const QByteArray kTitles[] = {"Один = one; # two", "\"Quoted\" & <b> --> \\ 🙂", "Last"};

class ExportProgram : public ProgramRoom
{
protected:
    void writeLesson(const QByteArray& clip) const
    {
        folder.write(u"lesson.vxl"_s,
                     "[main]\r\nfiles=1\r\nfile=" + clip +
                         "\r\nbrakes=4\r\n[brake1]\r\ntime=000000.00\r\ntext=" + kTitles[0] +
                         "\r\n[brake2]\r\ntime=000001.25\r\ntext=" + kTitles[1] +
                         "\r\n[brake3]\r\ntime=000002.50\r\ntext=" + kTitles[2] +
                         "\r\n[brake4]\r\ntime=000003.75\r\ntext=End\r\n");
    }

    /// "0.000000 1.250000 Title", as ffprobe says.
    [[nodiscard]] QStringList chaptersIn(const QString& file) const
    {
        const QByteArray said = tool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_chapters"_s,
                                                    u"-of"_s, u"json"_s, file})
                                    .output.toUtf8();
        QStringList chapters;
        for (const auto value : QJsonDocument::fromJson(said)[u"chapters"_s].toArray()) {
            const QJsonObject chapter = value.toObject();
            chapters.append(chapter[u"start_time"_s].toString() + u' ' +
                            chapter[u"end_time"_s].toString() + u' ' +
                            chapter[u"tags"_s][u"title"_s].toString());
        }
        return chapters;
    }
    [[nodiscard]] static QStringList expectedChapters()
    {
        return {u"0.000000 1.250000 "_s + QString::fromUtf8(kTitles[0]),
                u"1.250000 2.500000 "_s + QString::fromUtf8(kTitles[1]),
                u"2.500000 3.750000 "_s + QString::fromUtf8(kTitles[2])};
    }
    [[nodiscard]] QByteArray sumOf(const QString& name) const
    {
        return QCryptographicHash::hash(folder.bytes(name), QCryptographicHash::Sha256);
    }
    /// The packets of the streams, which a copy without recoding has unchanged.
    [[nodiscard]] QString streamsOf(const QString& file) const
    {
        return tool(u"ffmpeg"_s,
                    {u"-v"_s, u"error"_s, u"-i"_s, file, u"-map"_s, u"0:v?"_s, u"-map"_s, u"0:a?"_s,
                     u"-c"_s, u"copy"_s, u"-f"_s, u"streamhash"_s, u"-"_s})
            .output;
    }
};

} // namespace

TEST_F(ExportProgram, WritesChaptersIntoACopyOfTheClip)
{
    for (const QString& clip : {u"clip.mp4"_s, u"clip.mkv"_s, u"clip.webm"_s}) {
        makeClip(clip, 5);
        writeLesson(clip.toUtf8());
        const QByteArray before = sumOf(clip);
        const QString copy = u"copy."_s + QFileInfo(clip).suffix();
        const ProgramAnswer answer = exported({u"lesson.vxl"_s, u"--to"_s, copy});
        EXPECT_EQ(answer.status, 0) << qPrintable(answer.errors);
        EXPECT_EQ(chaptersIn(copy), expectedChapters()) << qPrintable(clip);
        EXPECT_EQ(streamsOf(copy), streamsOf(clip));
        EXPECT_EQ(sumOf(clip), before);
    }
    makeClip(u"sound.mp3"_s, 5, u"-map 1"_s);
    writeLesson("sound.mp3");
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"copy.mp3"_s}).status, 0);
    // By the clock of such a file its sound begins a little behind 0.
    EXPECT_EQ(chaptersIn(u"copy.mp3"_s).value(1).section(u' ', 0, 0), u"1.275000");
    ASSERT_EQ(import({u"copy.mp3"_s}).status, 0);
    EXPECT_EQ(marksOf(u"copy.vxl"_s), marksOf(u"lesson.vxl"_s));
}

TEST_F(ExportProgram, WritesChaptersIntoTheCommentsOfSound)
{
    for (const QString& clip : {u"a.ogg"_s, u"a.opus"_s, u"a.flac"_s}) {
        makeClip(clip, 5, clip.endsWith(u"ogg") ? u"-map 1 -c:a libvorbis"_s : u"-map 1"_s);
        writeLesson(clip.toUtf8());
        const QString copy = u"copy."_s + QFileInfo(clip).suffix();
        const ProgramAnswer answer = exported({u"lesson.vxl"_s, u"--to"_s, copy});
        EXPECT_EQ(answer.status, 0) << qPrintable(answer.errors);
        ASSERT_EQ(import({copy}).status, 0);
        QStringList marks = marksOf(u"lesson.vxl"_s);
        marks.last() = marksOf(u"copy.vxl"_s).value(3); // the last chapter goes to the clip's end
        EXPECT_EQ(marksOf(u"copy.vxl"_s), marks) << qPrintable(clip);
        QFile::remove(folder.file(u"copy.vxl"_s));
        EXPECT_EQ(streamsOf(copy), streamsOf(clip));
    }
}

TEST_F(ExportProgram, ReplacesTheChaptersThatAClipHadAndComesBackByImport)
{
    folder.write(u"old"_s, ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1\nSTART=0\nEND=5\ntitle=old\n");
    makeClip(u"clip.mp4"_s, 5, u"-i old -map 0 -map 1 -map_chapters 2"_s);
    writeLesson("clip.mp4");
    ASSERT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"new.mp4"_s}).status, 0);
    EXPECT_EQ(chaptersIn(u"new.mp4"_s), expectedChapters());
    ASSERT_EQ(import({u"new.mp4"_s}).status, 0);
    EXPECT_EQ(marksOf(u"new.vxl"_s), marksOf(u"lesson.vxl"_s));
}

TEST_F(ExportProgram, SaysWhenAContainerHoldsNoChaptersAndLeavesNothing)
{
    makeClip(u"clip.avi"_s, 2, u"-c:v mpeg4 -c:a mp2"_s);
    writeLesson("clip.avi");
    folder.write(u"broken.mp4"_s, "no media at all");
    const QStringList before = names();
    const ProgramAnswer answer = exported({u"lesson.vxl"_s, u"--to"_s, u"copy.avi"_s});
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.errors,
              u"%1: files of this kind hold no chapters: avi\n"_s.arg(folder.file(u"copy.avi"_s)));
    writeLesson("broken.mp4");
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"copy.mp4"_s}).status, 2);
    EXPECT_EQ(names(), before);
    EXPECT_TRUE(QDir(folder.path())
                    .entryList({u".orvanta-*"_s}, QDir::AllEntries | QDir::Hidden)
                    .isEmpty());
}

TEST_F(ExportProgram, NeverReplacesAFileOfTheLesson)
{
    makeClip(u"clip.mp4"_s, 2);
    writeLesson("clip.mp4");
    const QByteArray clip = sumOf(u"clip.mp4"_s);
    ASSERT_EQ(tool(u"ln"_s, {u"-s"_s, u"clip.mp4"_s, u"link.mp4"_s}).status, 0);
    for (const QString& target : {u"clip.mp4"_s, u"link.mp4"_s, u"lesson.vxl"_s, u"other.vxg"_s}) {
        EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, target}).status, 2) << qPrintable(target);
    }
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"clip.mp4"_s, u"--format"_s, u"vtt"_s}).status,
              2);
    EXPECT_EQ(sumOf(u"clip.mp4"_s), clip);
}

TEST_F(ExportProgram, NeverReplacesAPictureOfTheGroup)
{
    makeClip(u"clip.mp4"_s, 2);
    writeLesson("clip.mp4");
    folder.write(u"pic.jpg"_s, "a picture");
    folder.write(u"group.vxg"_s,
                 "[main]\nfiles=1\n[file1]\npath=lesson.vxl\ntext=One\npicture=pic.jpg\n");
    EXPECT_EQ(exported({u"group.vxg"_s, u"--to"_s, u"pic.jpg"_s, u"--format"_s, u"xspf"_s}).status,
              2);
    EXPECT_EQ(folder.bytes(u"pic.jpg"_s), "a picture");
}

TEST_F(ExportProgram, WritesChaptersThatMkvmergeTakesAndMkvextractGivesBack)
{
    makeClip(u"clip.mkv"_s, 5);
    writeLesson("clip.mkv");
    ASSERT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"chapters.xml"_s}).status, 0);
    const ProgramAnswer merged =
        tool(u"mkvmerge"_s, {u"-q"_s, u"-o"_s, u"merged.mkv"_s, u"--chapters"_s, u"chapters.xml"_s,
                             u"clip.mkv"_s});
    ASSERT_EQ(merged.status, 0) << qPrintable(merged.output);
    EXPECT_EQ(chaptersIn(u"merged.mkv"_s), expectedChapters());
    ASSERT_EQ(tool(u"mkvextract"_s, {u"merged.mkv"_s, u"chapters"_s, u"back.xml"_s}).status, 0);
    ASSERT_EQ(import({u"back.xml"_s, u"--clip"_s, u"clip.mkv"_s}).status, 0);
    EXPECT_EQ(marksOf(u"back.vxl"_s), marksOf(u"lesson.vxl"_s));
    // The copy that ffmpeg has made says the same to mkvextract.
    ASSERT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"copy.mkv"_s}).status, 0);
    ASSERT_EQ(tool(u"mkvextract"_s, {u"copy.mkv"_s, u"chapters"_s, u"copy.xml"_s}).status, 0);
    ASSERT_EQ(import({u"copy.xml"_s, u"--clip"_s, u"clip.mkv"_s}).status, 0);
    EXPECT_EQ(marksOf(u"copy.vxl"_s), marksOf(u"lesson.vxl"_s));
}

TEST_F(ExportProgram, WritesMetadataAndCuesThatFfmpegReads)
{
    makeClip(u"clip.mp4"_s, 5);
    writeLesson("clip.mp4");
    ASSERT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"a.ffmeta"_s}).status, 0);
    EXPECT_EQ(chaptersIn(u"a.ffmeta"_s), expectedChapters());
    ASSERT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"a.vtt"_s}).status, 0);
    const ProgramAnswer cues = tool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s,
                                                   u"packet=pts_time,duration_time"_s, u"-of"_s,
                                                   u"csv=p=0"_s, u"a.vtt"_s});
    EXPECT_EQ(
        cues.output.split(u'\n', Qt::SkipEmptyParts),
        (QStringList{u"0.000000,1.250000"_s, u"1.250000,1.250000"_s, u"2.500000,1.250000"_s}));
    for (const QString& name : {u"a.ffmeta"_s, u"a.vtt"_s}) {
        ASSERT_EQ(import({name, u"--clip"_s, u"clip.mp4"_s, u"--out"_s, u"back.vxl"_s}).status, 0);
        EXPECT_EQ(marksOf(u"back.vxl"_s), marksOf(u"lesson.vxl"_s)) << qPrintable(name);
    }
}

TEST_F(ExportProgram, WritesListsOfAGroupAndOneFileOfMarksForEachPacket)
{
    makeClip(u"clip.mp4"_s, 5);
    writeLesson("clip.mp4");
    folder.write(u"clips.vxl"_s, "[main]\r\nfiles=1\r\n[file1]\r\npath=clip.mp4\r\ntext=Whole\r\n");
    folder.write(u"all.vxg"_s, "[main]\r\nfiles=3\r\n[file1]\r\npath=lesson.vxl\r\ntext=One\r\n"
                               "[file2]\r\npath=clips.vxl\r\ntext=Two\r\n"
                               "[file3]\r\npath=lesson.vxl\r\ntext=Three\r\n");
    for (const QString& list : {u"list.m3u8"_s, u"list.xspf"_s}) {
        ASSERT_EQ(exported({u"all.vxg"_s, u"--to"_s, list}).status, 0);
        ASSERT_EQ(import({list, u"--out"_s, u"back.vxg"_s}).status, 0);
        EXPECT_EQ(marksOf(u"back 1.vxl"_s), marksOf(u"lesson.vxl"_s));
        EXPECT_EQ(value(u"back 2.vxl"_s, u"file1"_s, u"text"_s), u"Whole");
        EXPECT_EQ(value(u"back.vxg"_s, u"file3"_s, u"text"_s), u"Three");
    }
    const ProgramAnswer answer = exported({u"all.vxg"_s, u"--to"_s, u"marks.vtt"_s});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, u"Left out: all.vxg: a packet without marks: Two\n");
    EXPECT_TRUE(names().contains(u"marks 1.vtt"_s) && names().contains(u"marks 2.vtt"_s));
    EXPECT_EQ(exported({u"clips.vxl"_s, u"--to"_s, u"none.vtt"_s}).status, 2);
    EXPECT_FALSE(names().contains(u"none.vtt"_s));
}

TEST_F(ExportProgram, SaysWhatItCannotDo)
{
    writeLesson("clip.mp4");
    EXPECT_EQ(exported({u"absent.vxl"_s, u"--to"_s, u"a.m3u8"_s}).status, 2);
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"a.m3u8"_s, u"--format"_s, u"doc"_s}).errors,
              u"there is no such format\n");
    EXPECT_EQ(exported({u"lesson.vxl"_s}).status, 2);
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"nowhere/a.m3u8"_s}).status, 2);
    EXPECT_EQ(exported({u"lesson.vxl"_s, u"--to"_s, u"a.mp4"_s}).status, 2); // no such clip
    variables.insert(u"PATH"_s, folder.path());
    EXPECT_TRUE(exported({u"lesson.vxl"_s, u"--to"_s, u"a.mp4"_s})
                    .errors.contains(u"the program ffmpeg is not installed"));
    EXPECT_TRUE(exported({u"--help"_s}).output.startsWith(u"Usage: orvanta-export "));
}

} // namespace orvanta::test
