// From one clip to the next in the real media control: what is seen and heard between them.
#include "platform/media/picture_source.h"
#include "tests/support/recorded_player.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

using namespace orvanta;
using namespace Qt::StringLiterals;

namespace {

enum class Seen
{
    Nothing,
    Black,
    Red,
    Blue,
};

/// What a surface has been able to see, one entry for each change.
class SeenPictures : public QObject
{
public:
    explicit SeenPictures(PictureSource& source)
        : m_source(source)
    {
        connect(&m_source, &PictureSource::frameChanged, this, [this] { look(); });
    }

    void look()
    {
        const Seen now = seen(m_source.frame());
        if (m_pictures.empty() || m_pictures.back() != now) {
            m_pictures.push_back(now);
        }
    }

    [[nodiscard]] const std::vector<Seen>& pictures() const { return m_pictures; }
    [[nodiscard]] bool shows(Seen what)
    {
        return comesTrue([&] {
            look();
            return m_pictures.back() == what;
        });
    }

private:
    static Seen seen(const QImage& frame)
    {
        if (frame.isNull()) {
            return Seen::Nothing;
        }
        const QRgb pixel = frame.pixel(frame.rect().center());
        if (qRed(pixel) > 128) {
            return Seen::Red;
        }
        return qBlue(pixel) > 128 ? Seen::Blue : Seen::Black;
    }

    PictureSource& m_source;
    std::vector<Seen> m_pictures;
};

/// Unloads and opens within one turn of the event loop, as the end of a clip does.
void openNext(RecordedPlayer& player, const QString& name)
{
    player.control.Stop();
    player.control.setFileName({});
    player.control.setFileName(testClip(name));
}

} // namespace

TEST(ChangeOfClip, ShowsNothingBetweenTheLastPictureAndTheNextClipsFirst)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize({64, 64});
    SeenPictures seen(source);
    ASSERT_TRUE(player.open(u"red.mp4"_s));
    ASSERT_TRUE(seen.shows(Seen::Red));
    for (int i = 0; i < 5; ++i) {
        openNext(player, u"blue.mp4"_s);
        ASSERT_TRUE(seen.shows(Seen::Blue));
        openNext(player, u"red.mp4"_s);
        ASSERT_TRUE(seen.shows(Seen::Red));
    }
    std::vector<Seen> wanted = {Seen::Nothing, Seen::Red};
    for (int i = 0; i < 5; ++i) {
        wanted.insert(wanted.end(), {Seen::Blue, Seen::Red});
    }
    if (seen.pictures().front() != Seen::Nothing) {
        wanted.erase(wanted.begin());
    }
    EXPECT_EQ(seen.pictures(), wanted);
}

TEST(ChangeOfClip, AtTheNaturalEndGoesFromTheLastPictureToTheNextClipsFirst)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize({64, 64});
    ASSERT_TRUE(player.open(u"shades.mp4"_s));
    std::vector<QRgb> seen;
    QObject::connect(&source, &PictureSource::frameChanged, &source, [&] {
        const QImage frame = source.frame();
        seen.push_back(frame.isNull() ? 0 : frame.pixel(frame.rect().center()));
    });
    // As the engine does: in the turn of the event loop after the end has been reported.
    QObject::connect(
        &player.control, &MediaControl::positionChange, &source,
        [&](double from, double to) {
            if (looksLikeEnd(from, to, player.control.Duration())) {
                openNext(player, u"red.mp4"_s);
            }
        },
        Qt::QueuedConnection);
    player.control.Run();
    ASSERT_TRUE(comesTrue([&] { return player.opened.size() == 2; }));
    // Ever lighter, until the red picture, whose green is none.
    const auto isDarker = [](QRgb one, QRgb next) { return qGreen(one) > qGreen(next); };
    ASSERT_TRUE(
        comesTrue([&] { return std::ranges::adjacent_find(seen, isDarker) != seen.end(); }));
    const auto last = std::ranges::adjacent_find(seen, isDarker);
    EXPECT_GT(qGreen(*last), 128) << "one of the clip's last pictures";
    EXPECT_GT(qRed(*(last + 1)), 128);
    EXPECT_LT(qGreen(*(last + 1)), 60);
}

TEST(ChangeOfClip, ToOneWithoutAPictureLeavesNone)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize({64, 64});
    ASSERT_TRUE(player.open(u"red.mp4"_s));
    ASSERT_TRUE(comesTrue([&] { return !source.frame().isNull(); }));
    ASSERT_TRUE(player.open(u"one.wav"_s));
    EXPECT_TRUE(source.frame().isNull());
    EXPECT_FALSE(source.hasPicture());
}

TEST(ChangeOfClip, ToOneWithoutAPictureKeepsTheLastForASurfaceThatWantsIt)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize({64, 64});
    source.setKeepsLastFrame(true);
    ASSERT_TRUE(player.open(u"red.mp4"_s));
    ASSERT_TRUE(comesTrue([&] { return !source.frame().isNull(); }));
    ASSERT_TRUE(player.open(u"one.wav"_s));
    EXPECT_FALSE(source.hasPicture());
    EXPECT_FALSE(source.frame().isNull());
    source.setTargetSize({});
    EXPECT_TRUE(source.frame().isNull());
}

TEST(ChangeOfClip, ThatDoesNotComeLeavesNoPicture)
{
    RecordedPlayer player;
    PictureSource& source = *player.control.picture();
    source.setTargetSize({64, 64});
    ASSERT_TRUE(player.open(u"red.mp4"_s));
    ASSERT_TRUE(comesTrue([&] { return !source.frame().isNull(); }));
    player.control.setFileName({});
    EXPECT_TRUE(comesTrue([&] { return source.frame().isNull(); }));
}

namespace {

/// A player, and what its library has been told.
class LoggedPlayer
{
public:
    bool runs(const QString& clip) { return player.open(clip) && (player.control.Run(), goesOn()); }

    bool goesOn()
    {
        const double now = player.control.CurrentPosition();
        return comesTrue([&] { return player.control.CurrentPosition() > now + 0.1; });
    }

    [[nodiscard]] qsizetype count(const QByteArray& words) const
    {
        QFile file(m_folder.filePath(u"log"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll().count(words) : -1;
    }
    [[nodiscard]] qsizetype pauses() const { return count("Set property: pause=true"); }

private:
    QTemporaryDir m_folder;

public:
    RecordedPlayer player{
        {{"ao", "null"}, {"log-file", QFile::encodeName(m_folder.filePath(u"log"_s))}}};
};

} // namespace

TEST(ChangeOfClip, LeavesTheSoundDeviceOpen)
{
    LoggedPlayer logged;
    const QByteArray opening = "Trying audio driver";
    ASSERT_TRUE(logged.runs(u"one.wav"_s));
    EXPECT_EQ(logged.count(opening), 1);
    openNext(logged.player, u"two.mp4"_s);
    ASSERT_TRUE(comesTrue([&] { return logged.player.opened.size() == 2; }));
    logged.player.control.Run();
    EXPECT_TRUE(logged.goesOn());
    EXPECT_EQ(logged.count(opening), 1);
    // One that does not come closes it.
    logged.player.control.setFileName({});
    EXPECT_TRUE(comesTrue([&] { return logged.count("Run command: stop") == 1; }));
}

TEST(PauseAndRun, WithinOneTurnOfTheEventLoopAreNothingToTheSound)
{
    LoggedPlayer told;
    ASSERT_TRUE(told.runs(u"two.mp4"_s));
    const qsizetype before = told.pauses();
    told.player.control.Pause();
    EXPECT_EQ(told.player.control.CurrentState(), MediaControl::Paused);
    told.player.control.Run();
    EXPECT_EQ(told.player.control.CurrentState(), MediaControl::Running);
    EXPECT_TRUE(told.goesOn());
    EXPECT_EQ(told.pauses(), before);
    told.player.control.Pause();
    EXPECT_TRUE(comesTrue([&] { return told.pauses() == before + 1; }));
    EXPECT_EQ(told.player.control.CurrentState(), MediaControl::Paused);
}

TEST(PauseAndRun, APauseBeforeASeekStandsThere)
{
    LoggedPlayer told;
    ASSERT_TRUE(told.runs(u"two.mp4"_s));
    const qsizetype before = told.pauses();
    told.player.control.Pause();
    told.player.control.setCurrentPosition(1);
    EXPECT_TRUE(comesTrue([&] { return told.pauses() == before + 1; }));
    EXPECT_EQ(told.player.control.CurrentPosition(), 1);
}
