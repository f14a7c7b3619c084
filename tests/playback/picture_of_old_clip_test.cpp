// The video window over a real engine: whose text lies over the picture after an opening.
#include "playback/lesson_controls.h"
#include "playback/overlay_picture.h"
#include "playback/playback_engine.h"
#include "tests/playback/video_window_fixture.h"
#include "tests/support/plain_playback_view.h"

#include <QFile>

using namespace orvanta;
using namespace orvanta::test;
using namespace Qt::StringLiterals;

namespace {

class PictureOfOldClip : public VideoWindowTest
{
protected:
    PictureOfOldClip()
    {
        storedLevel = TextLevel::Text;
        control.pictureSize = {640, 480};
        engine.attachView(view);
        QObject::connect(&engine, &PlaybackEngine::cursorChanged, &form,
                         [this] { form.setLine(engine.lesson().line()); });
        QObject::connect(&engine, &PlaybackEngine::lineChosen, &form, &Form13::showLineSign);
    }

    /// A packet of one clip takes the place of what is there.
    void setPlaylist(const QString& text)
    {
        const QString path = folder.filePath(text + u".avi"_s);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        PlaylistEntry packet;
        packet.Clips.push_back({.Time = {}, .Text = text, .Path = path});
        packet.ClipCount = 1;
        module.playlist.Playlist = {packet};
        module.playlist.PlaylistCount = 1;
        view.RebuildTree();
    }

    void awaitText()
    {
        ASSERT_TRUE(QTest::qWaitFor([this] { return form.LessonText->strength() == 1; }));
    }

    PlainPlaybackView view{module};
    PlaybackEngine engine{module, control, form};
};

} // namespace

TEST_F(PictureOfOldClip, HasNoTextOfWhatWasOpenedMeanwhileUntilThatPlays)
{
    setPlaylist(u"Old"_s);
    engine.ListClick(1, 1);
    awaitText();
    setPlaylist(u"New"_s);
    engine.playlistReplaced();
    ASSERT_EQ(control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !form.LessonText->isVisible(); }));
    form.nextTextLevel(); // large: laid out anew, and still nothing
    QCoreApplication::processEvents();
    EXPECT_FALSE(form.LessonText->isVisible());
    engine.lineStep(1);
    awaitText();
    EXPECT_TRUE(form.LessonText->isVisible());
}
