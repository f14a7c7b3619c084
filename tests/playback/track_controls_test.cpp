// Sound and subtitles as a person steers them, with a scripted player.
#include "core/ini.h"
#include "playback/track_controls.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/settings_folder.h"

#include <gtest/gtest.h>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

class TrackSteering : public testing::Test
{
protected:
    TrackSteering()
    {
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        module.Language = 1;
        control.autoOpen = false;
        control.clipTracks = {
            {.kind = MediaTrack::Sound, .id = 1, .language = u"eng"_s, .chosen = true},
            {.kind = MediaTrack::Sound, .id = 2, .language = u"rus"_s, .title = u"Commentary"_s},
            {.kind = MediaTrack::Sound, .id = 3},
            {.kind = MediaTrack::Subtitles, .id = 1, .language = u"ger"_s}};
    }

    void open(const QString& clip = u"clip.mp4"_s)
    {
        control.setFileName(home.file(clip));
        control.calls.clear();
        control.completeOpening();
    }

    [[nodiscard]] static QStringList texts(const std::vector<TrackEntry>& entries)
    {
        QStringList texts;
        for (const TrackEntry& entry : entries) {
            texts += (entry.chosen ? u"*"_s : QString()) + entry.text;
        }
        return texts;
    }

    SettingsFolder home;
    Module1 module;
    ScriptedMediaControl control;
    TrackControls tracks{module, control};
};

} // namespace

TEST_F(TrackSteering, NamesWhatThereIsInTheLanguageOfTheInterface)
{
    home.write(u"clip.srt"_s, "1");
    home.write(u"clip.en.vtt"_s, "1");
    open();
    EXPECT_EQ(texts(tracks.sounds()),
              (QStringList{u"*English"_s, u"Russian — Commentary"_s, u"Track 3"_s}));
    EXPECT_EQ(texts(tracks.subtitles()),
              (QStringList{u"*Off"_s, u"German"_s, u"English — clip.en.vtt"_s, u"clip.srt"_s}));
    module.Language = 2;
    EXPECT_EQ(texts(tracks.sounds()),
              (QStringList{u"*Английский"_s, u"Русский — Commentary"_s, u"Дорожка 3"_s}));
    EXPECT_EQ(texts(tracks.subtitles()).first(), u"*Выключены"_s);
}

TEST_F(TrackSteering, ChangesNothingByItself)
{
    home.write(u"clip.srt"_s, "1");
    open();
    EXPECT_EQ(control.calls, QStringList());
    EXPECT_FALSE(home.value("practice", "sound").size());
}

TEST_F(TrackSteering, WithoutSubtitlesThereIsNothingToChoose)
{
    control.clipTracks.clear();
    open();
    EXPECT_TRUE(tracks.subtitles().empty());
    EXPECT_TRUE(tracks.sounds().empty());
    tracks.chooseSound(0);
    tracks.chooseSubtitles(3);
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(TrackSteering, AChoiceHoldsByLanguageFromClipToClip)
{
    open();
    tracks.chooseSound(1);
    tracks.chooseSubtitles(1);
    EXPECT_EQ(texts(tracks.sounds()).at(1), u"*Russian — Commentary"_s);
    EXPECT_EQ(home.value("practice", "sound"), u"ru");
    EXPECT_EQ(home.value("practice", "subtitles"), u"de");
    control.clipTracks = {{.kind = MediaTrack::Sound, .id = 1, .language = u"ru"_s},
                          {.kind = MediaTrack::Sound, .id = 2, .language = u"en"_s, .chosen = true},
                          {.kind = MediaTrack::Subtitles, .id = 1, .language = u"en"_s},
                          {.kind = MediaTrack::Subtitles, .id = 2, .language = u"deu"_s}};
    open();
    EXPECT_EQ(control.calls, (QStringList{u"sound 1"_s, u"subtitles 2"_s}));
}

TEST_F(TrackSteering, AClipWithoutTheLanguagePlaysAsItSaysAndTheChoiceStays)
{
    open();
    tracks.chooseSound(1);
    tracks.chooseSubtitles(1);
    const std::vector<MediaTrack> film = control.clipTracks;
    control.clipTracks = {
        {.kind = MediaTrack::Sound, .id = 1, .language = u"fr"_s, .chosen = true}};
    open();
    EXPECT_EQ(control.calls, QStringList());
    control.clipTracks = film;
    open();
    EXPECT_EQ(control.calls, (QStringList{u"sound 2"_s, u"subtitles 1"_s}));
}

TEST_F(TrackSteering, OffIsKeptToo)
{
    open();
    tracks.chooseSubtitles(1);
    tracks.chooseSubtitles(0);
    EXPECT_EQ(texts(tracks.subtitles()).first(), u"*Off"_s);
    open();
    EXPECT_EQ(control.calls, QStringList());
}

TEST_F(TrackSteering, AFileIsAddedOnceAndByItsLanguageToTheNextClip)
{
    const QString first = home.write(u"clip.fr.srt"_s, "1");
    const QString second = home.write(u"next.fra.ass"_s, "1");
    open();
    tracks.chooseSubtitles(2);
    EXPECT_EQ(control.calls, QStringList{u"subtitle file "_s + first});
    EXPECT_EQ(texts(tracks.subtitles()),
              (QStringList{u"Off"_s, u"German"_s, u"*French — clip.fr.srt"_s}));
    open(u"next.mp4"_s);
    EXPECT_EQ(control.calls, QStringList{u"subtitle file "_s + second});
}

TEST_F(TrackSteering, AFileWithoutALanguageHoldsForSuchFiles)
{
    home.write(u"clip.srt"_s, "1");
    const QString second = home.write(u"next.vtt"_s, "1");
    open();
    tracks.chooseSubtitles(2);
    open(u"next.mp4"_s);
    EXPECT_EQ(control.calls, QStringList{u"subtitle file "_s + second});
}

TEST_F(TrackSteering, SpoiltSettingsAreNone)
{
    for (const QString& spoilt : {u"english"_s, u"1"_s, u"../../x"_s, u"?"_s}) {
        WriteIni(u"practice"_s, u"sound"_s, spoilt, home.ini());
        WriteIni(u"practice"_s, u"subtitles"_s, spoilt, home.ini());
        open();
        EXPECT_EQ(control.calls, QStringList()) << qPrintable(spoilt);
        EXPECT_EQ(module.settings().trackWish(), TrackWish());
    }
}

TEST_F(TrackSteering, SettingsWrittenByHandMayUseOtherCodes)
{
    WriteIni(u"practice"_s, u"sound"_s, u"RUS"_s, home.ini());
    WriteIni(u"practice"_s, u"subtitles"_s, u"de-AT"_s, home.ini());
    open();
    EXPECT_EQ(control.calls, (QStringList{u"sound 2"_s, u"subtitles 1"_s}));
}

} // namespace orvanta::test
