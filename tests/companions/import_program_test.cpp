// Import at the command line, of files that other programs have made.

#include "tests/companions/program_room.h"

namespace orvanta::test {

using namespace Qt::StringLiterals;

using ImportProgram = ProgramRoom;

static const QByteArray kChapters =
    ";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=0\nEND=1500\n"
    "title=Начало \\= start\n[CHAPTER]\nTIMEBASE=1/1000\nSTART=1500\n"
    "END=4000\ntitle=\"Second\" & more 🙂\n";

TEST_F(ImportProgram, MakesAPacketOfTheChaptersOfAClip)
{
    folder.write(u"chapters"_s, kChapters);
    for (const QString& name : {u"a.mkv"_s, u"b.mp4"_s}) {
        makeClip(name, 4, u"-i chapters -map 0 -map 1 -map_chapters 2"_s);
        const ProgramAnswer answer = import({name});
        EXPECT_EQ(answer.status, 0) << qPrintable(answer.errors);
        const QString packet = name.left(1) + u".vxl"_s;
        EXPECT_EQ(marksOf(packet),
                  (QStringList{u"000000.00 Начало = start"_s, u"000001.50 \"Second\" & more 🙂"_s,
                               u"000004.00 End"_s}));
        EXPECT_EQ(value(packet, u"main"_s, u"file"_s), name);
    }
}

TEST_F(ImportProgram, KnowsTheChaptersThatStandInComments)
{
    makeClip(u"c.ogg"_s, 4,
             u"-map 1 -c:a libvorbis -metadata CHAPTER000=00:00:00.000 -metadata CHAPTER000NAME=A "
             u"-metadata CHAPTER001=00:00:01.500 -metadata CHAPTER001NAME=B"_s);
    EXPECT_EQ(import({u"c.ogg"_s}).status, 0);
    EXPECT_EQ(marksOf(u"c.vxl"_s),
              (QStringList{u"000000.00 A"_s, u"000001.50 B"_s, u"000004.00 End"_s}));
}

TEST_F(ImportProgram, TakesSubtitlesThatFfmpegHasWritten)
{
    makeClip(u"talk.mp4"_s, 6);
    folder.write(u"talk.srt"_s, "1\n00:00:00,500 --> 00:00:02,000\n<i>Good</i>\nday\n\n"
                                "2\n00:00:03,000 --> 00:00:04,250\nДобрый день\n");
    const QStringList marks = {u"000000.50 Good day"_s, u"000003.00 Добрый день"_s,
                               u"000004.25 End"_s};
    for (const QString& name : {u"talk.srt"_s, u"talk.vtt"_s, u"talk.ass"_s}) {
        if (name != u"talk.srt") {
            ASSERT_EQ(tool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, u"talk.srt"_s, name}).status,
                      0);
        }
        const ProgramAnswer answer = import({name, u"--out"_s, u"out.vxl"_s});
        EXPECT_EQ(answer.status, 0) << qPrintable(answer.errors);
        EXPECT_EQ(marksOf(u"out.vxl"_s), marks) << qPrintable(name);
        EXPECT_EQ(value(u"out.vxl"_s, u"main"_s, u"file"_s), u"talk.mp4");
    }
}

TEST_F(ImportProgram, PutsTheEndMarkWhereTheClipEnds)
{
    makeClip(u"sound.wav"_s, 5, u"-map 1"_s);
    folder.write(u"labels.txt"_s, "1.0\t1.0\tA\n2.0\t2.0\tB\n");
    EXPECT_EQ(import({u"labels.txt"_s, u"--clip"_s, u"sound.wav"_s}).status, 0);
    EXPECT_EQ(marksOf(u"labels.vxl"_s),
              (QStringList{u"000001.00 A"_s, u"000002.00 B"_s, u"000005.00 End"_s}));
    folder.write(u"times.txt"_s, "0:00 A\n0:02 - 0:59 B\n"); // the clip ends before
    EXPECT_EQ(import({u"times.txt"_s, u"--clip"_s, u"sound.wav"_s}).status, 0);
    EXPECT_EQ(marksOf(u"times.vxl"_s).last(), u"000005.00 End");
}

TEST_F(ImportProgram, SaysThatAClipIsWantedAndWritesNothing)
{
    folder.write(u"labels.txt"_s, "1.0\t1.0\tA\n");
    const ProgramAnswer answer = import({u"labels.txt"_s});
    EXPECT_EQ(answer.status, 2);
    EXPECT_EQ(answer.errors, u"labels.txt: does not say which clip it is about\n");
    EXPECT_EQ(names(), QStringList{u"labels.txt"_s});
}

TEST_F(ImportProgram, FindsTheClipsOfAListInOldLettersAndOtherCase)
{
    QDir().mkpath(folder.file(u"Music"_s));
    folder.write(u"Music/Привет.mp3"_s, "x");
    folder.write(u"old.m3u"_s, "#EXTM3U\r\n#EXTINF:1,\xcf\xf0\xe8\xe2\xe5\xf2\r\n"
                               "music\\\xcf\xf0\xe8\xe2\xe5\xf2.MP3\r\n"
                               "http://host/a.mp3\r\nnot there.mp3\r\n");
    const ProgramAnswer answer = import({u"old.m3u"_s});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, u"Left out: old.m3u: line 4: an address, nothing is fetched: "
                             u"http://host/a.mp3\n");
    EXPECT_EQ(value(u"old.vxl"_s, u"file1"_s, u"path"_s), u"Music/Привет.mp3");
    EXPECT_EQ(value(u"old.vxl"_s, u"file1"_s, u"text"_s), u"Привет");
    EXPECT_EQ(value(u"old.vxl"_s, u"file2"_s, u"path"_s), folder.file(u"not there.mp3"_s));
}

TEST_F(ImportProgram, PutsSeveralFilesIntoOneGroup)
{
    folder.write(u"a.m3u"_s, "1.mp3\n");
    folder.write(u"b.pls"_s, "[playlist]\nFile1=2.mp3\n");
    folder.write(u"c.pls"_s, "[playlist]\n");
    const ProgramAnswer answer =
        import({u"a.m3u"_s, u"b.pls"_s, u"c.pls"_s, u"--out"_s, u"all.vxg"_s});
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.errors, u"c.pls: nothing to import in it\n");
    EXPECT_EQ(value(u"all.vxg"_s, u"file2"_s, u"text"_s), u"b");
    EXPECT_EQ(import({u"a.m3u"_s, u"b.pls"_s, u"--out"_s, u"all.vxl"_s}).status, 2);
    EXPECT_FALSE(QFileInfo::exists(folder.file(u"all.vxl"_s)));
    EXPECT_EQ(import({u"a.m3u"_s, u"--out"_s, u"a.txt"_s}).status, 2);
}

TEST_F(ImportProgram, KeepsWhatItReplacesAsAnEarlierVersion)
{
    folder.write(u"a.m3u"_s, "1.mp3\n");
    folder.write(u"out.vxl"_s, "[main]\r\nfiles=0\r\n");
    EXPECT_EQ(import({u"a.m3u"_s, u"--out"_s, u"out.vxl"_s}).status, 0);
    EXPECT_FALSE(QDir(folder.file(u"state/orvanta/versions"_s))
                     .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                     .isEmpty());
    EXPECT_EQ(import({u"a.m3u"_s}).status, 0);
    EXPECT_EQ(import({u"a.m3u"_s}).status, 0); // a name of its own each time
    EXPECT_TRUE(names().contains(u"a (2).vxl"_s));
}

TEST_F(ImportProgram, SplitsAListThatNoPacketHolds)
{
    QByteArray list("#EXTM3U\n");
    for (int i = 0; i < 33000; ++i) {
        list +=
            "#EXTINF:1," + QByteArray::number(i) + "\n/none/" + QByteArray::number(i) + ".mp3\n";
    }
    folder.write(u"long.m3u8"_s, list);
    EXPECT_EQ(import({u"long.m3u8"_s}).status, 0);
    EXPECT_EQ(value(u"long 1.vxl"_s, u"main"_s, u"files"_s), u"32767");
    EXPECT_EQ(value(u"long 2.vxl"_s, u"file1"_s, u"text"_s), u"32767");
}

TEST_F(ImportProgram, SaysThatADocumentHoldsOnlyTheBeginningOfALongText)
{
    folder.write(u"a.m3u"_s, "#EXTINF:1," + QByteArray(3000, 'x') + "\na.mp3\n");
    const ProgramAnswer answer = import({u"a.m3u"_s});
    EXPECT_EQ(answer.status, 1);
    EXPECT_TRUE(answer.errors.contains(u"the end of a text that is too long: xxx"));
    EXPECT_EQ(value(u"a.vxl"_s, u"file1"_s, u"text"_s), QString(2047, u'x'));
}

TEST_F(ImportProgram, RefusesWhatIsNoTextOfReasonableSize)
{
    QFile large(folder.file(u"large.m3u"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly));
    large.write("#EXTM3U\n");
    ASSERT_TRUE(large.resize((qint64{16} << 20) + 1));
    large.close();
    EXPECT_EQ(import({u"large.m3u"_s}).errors, u"large.m3u: more than 16 MB of text\n");
    EXPECT_EQ(import({u"absent.m3u"_s}).errors, u"absent.m3u: cannot be read\n");
    ASSERT_EQ(tool(u"mkfifo"_s, {u"pipe.m3u"_s}).status, 0);
    EXPECT_EQ(import({u"pipe.m3u"_s}).status, 2); // and does not wait for it
    makeClip(u"plain.mp4"_s, 1);
    EXPECT_EQ(import({u"plain.mp4"_s}).errors, u"plain.mp4: a clip without chapters\n");
    folder.write(u"noise.mkv"_s, QByteArray("\x1a\x45\xdf\xa3\0\0\xff", 7).repeated(1000));
    EXPECT_EQ(import({u"noise.mkv"_s}).status, 2);
}

TEST_F(ImportProgram, AnswersAtATerminal)
{
    const ProgramAnswer help = import({u"--help"_s});
    EXPECT_EQ(help.status, 0);
    EXPECT_TRUE(help.output.startsWith(u"Usage: orvanta-import "));
    EXPECT_TRUE(import({u"--version"_s}).output.startsWith(u"orvanta-import "));
    EXPECT_EQ(import({u"--what"_s}).status, 2);
    EXPECT_EQ(import({u"--out"_s}).status, 2);
    folder.write(u"--odd.m3u"_s, "1.mp3\n");
    EXPECT_EQ(import({u"--"_s, u"--odd.m3u"_s}).status, 0);
}

TEST_F(ImportProgram, SpeaksTheLanguageOfTheProgram)
{
    QFile settings(folder.file(u"home/orvanta.ini"_s));
    ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
    settings.write("[main]\r\nlanguage=2\r\n");
    settings.close();
    EXPECT_EQ(import({u"absent.m3u"_s}).errors, u"absent.m3u: не удаётся прочитать\n");
    EXPECT_TRUE(import({u"--help"_s}).output.startsWith(u"Вызов: orvanta-import "));
}

} // namespace orvanta::test
