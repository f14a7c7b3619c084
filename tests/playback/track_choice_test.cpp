// Which sound and subtitles a clip plays with, and which files beside it count.
#include "model/languages.h"
#include "platform/media/subtitle_file.h"
#include "playback/track_choice.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace orvanta {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

MediaTrack sound(int id, const QString& language, bool chosen = false)
{
    return {.kind = MediaTrack::Sound, .id = id, .language = language, .chosen = chosen};
}

MediaTrack subtitles(int id, const QString& language)
{
    return {.kind = MediaTrack::Subtitles, .id = id, .language = language};
}

const std::vector<MediaTrack> kFilm = {sound(1, u"eng"_s, true), sound(2, u"rus"_s),
                                       subtitles(1, u"ger"_s), subtitles(2, {})};

class FilesBeside : public testing::Test
{
protected:
    QString write(const QString& name, qint64 size = 10)
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(size));
        return file.fileName();
    }
    [[nodiscard]] std::vector<SubtitleFile> found() const
    {
        return subtitleFilesBeside(folder.filePath(u"a clip[1].mp4"_s));
    }
    [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

} // namespace

TEST(LanguageCode, IsOneForEachWayToWriteALanguage)
{
    for (const QString& written : {u"en"_s, u"eng"_s, u"EN"_s, u"en-GB"_s, u"en_US"_s, u" en "_s}) {
        EXPECT_EQ(languageCode(written), u"en") << qPrintable(written);
    }
    EXPECT_EQ(languageCode(u"ger"_s), u"de");
    EXPECT_EQ(languageCode(u"deu"_s), u"de");
    EXPECT_EQ(languageCode(u"und"_s), u"und");
    for (const QString& spoilt :
         {u""_s, u"e"_s, u"english"_s, u"qq"_s, u"12"_s, u"C"_s, u"1.0"_s}) {
        EXPECT_EQ(languageCode(spoilt), QString()) << qPrintable(spoilt);
    }
}

TEST(LanguageName, IsInTheLanguageOfTheInterface)
{
    EXPECT_EQ(languageName(u"de"_s, TextLanguage::English), u"German");
    EXPECT_EQ(languageName(u"de"_s, TextLanguage::Russian), u"Немецкий");
    EXPECT_FALSE(languageName(u"sw"_s, TextLanguage::Russian).isEmpty());
}

TEST(LanguageName, StandsUnderTheCodeThatIsAskedFor)
{
    for (const InterfaceText& text : interfaceTexts()) {
        if (text.window == u"Language") {
            EXPECT_EQ(languageCode(text.control.toString()), text.control);
        }
    }
}

TEST(ChooseTracks, WithoutAWishChangesNothing)
{
    EXPECT_EQ(chooseTracks(kFilm, {{.path = u"/a.srt"_s, .language = u"en"_s}}, {}), TrackChoice());
}

TEST(ChooseTracks, GoesByLanguageHoweverItIsWritten)
{
    EXPECT_EQ(chooseTracks(kFilm, {}, {.sound = u"ru"_s, .subtitles = u"de"_s}),
              (TrackChoice{.sound = 2, .subtitles = 1}));
}

TEST(ChooseTracks, ALanguageThatIsMissingLeavesTheClipAsItIs)
{
    EXPECT_EQ(chooseTracks(kFilm, {}, {.sound = u"fr"_s, .subtitles = u"fr"_s}), TrackChoice());
    EXPECT_EQ(chooseTracks({}, {}, {.sound = u"fr"_s, .subtitles = u"fr"_s}), TrackChoice());
}

TEST(ChooseTracks, OfSeveralTakesTheOneThatTheClipHasChosenElseTheFirst)
{
    const std::vector<MediaTrack> tracks = {sound(1, u"ru"_s), sound(2, u"en"_s),
                                            sound(3, u"eng"_s, true)};
    EXPECT_EQ(chooseTracks(tracks, {}, {.sound = u"en"_s}).sound, 3);
    EXPECT_EQ(chooseTracks({sound(1, u"ru"_s, true), sound(2, u"en"_s), sound(3, u"en"_s)}, {},
                           {.sound = u"en"_s})
                  .sound,
              2);
}

TEST(ChooseTracks, AFileComesAfterTheClipsOwnSubtitles)
{
    const std::vector<SubtitleFile> files = {{.path = u"/a.de.srt"_s, .language = u"de"_s},
                                             {.path = u"/a.fr.srt"_s, .language = u"fr"_s}};
    EXPECT_EQ(chooseTracks(kFilm, files, {.subtitles = u"de"_s}), (TrackChoice{.subtitles = 1}));
    EXPECT_EQ(chooseTracks(kFilm, files, {.subtitles = u"fr"_s}),
              (TrackChoice{.file = u"/a.fr.srt"_s}));
}

TEST(ChooseTracks, WhatHasNoLanguageIsHeldToo)
{
    EXPECT_EQ(chooseTracks(kFilm, {}, {.subtitles = u"und"_s}).subtitles, 2);
}

TEST_F(FilesBeside, AreThoseOfTheClipsNameWithOrWithoutALanguage)
{
    for (const QString& name :
         {u"a clip[1].srt"_s, u"a clip[1].en.srt"_s, u"a clip[1].rus.VTT"_s, u"a clip[1].ass"_s,
          u"a clip[1].forced.srt"_s, u"a clip[1]2.srt"_s, u"a clip.srt"_s, u"a clip1.srt"_s,
          u"a clip[1].sub"_s, u"a clip[1].idx"_s, u"a clip[1].txt"_s, u"other.srt"_s}) {
        write(name);
    }
    EXPECT_THAT(found(),
                testing::UnorderedElementsAre(
                    SubtitleFile{.path = path(u"a clip[1].srt"_s), .language = u"und"_s},
                    SubtitleFile{.path = path(u"a clip[1].ass"_s), .language = u"und"_s},
                    SubtitleFile{.path = path(u"a clip[1].en.srt"_s), .language = u"en"_s},
                    SubtitleFile{.path = path(u"a clip[1].rus.VTT"_s), .language = u"ru"_s}));
}

TEST_F(FilesBeside, AreRegularOnesOfASizeThatIsRead)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"a clip[1].srt"_s)).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(path(u"a clip[1].srt"_s), path(u"a clip[1].fr.srt"_s)));
    ASSERT_TRUE(QFile::link(u"/dev/zero"_s, path(u"a clip[1].de.srt"_s)));
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"a clip[1].es.srt"_s));
    write(u"a clip[1].it.srt"_s, kMostSubtitleBytes + 1);
    write(u"a clip[1].en.srt"_s, kMostSubtitleBytes);
    ASSERT_TRUE(QFile::link(path(u"a clip[1].en.srt"_s), path(u"a clip[1].ru.srt"_s)));
    EXPECT_THAT(found(),
                testing::UnorderedElementsAre(
                    SubtitleFile{.path = path(u"a clip[1].en.srt"_s), .language = u"en"_s},
                    SubtitleFile{.path = path(u"a clip[1].ru.srt"_s), .language = u"ru"_s}));
}

TEST_F(FilesBeside, AreNoneWhereThereIsNoFolder)
{
    EXPECT_TRUE(subtitleFilesBeside(u"/no/such/clip.mp4"_s).empty());
    EXPECT_TRUE(subtitleFilesBeside(QString()).empty());
}

} // namespace orvanta
