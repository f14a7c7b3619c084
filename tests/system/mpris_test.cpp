// The program on the desktop's media controls, over a real bus, with clients of their own.
#include "model/loaders.h"
#include "playback/practice_controls.h"
#include "system/mpris_service.h"
#include "tests/playback/engine_fixture.h"
#include "tests/support/plain_screen.h"
#include "tests/support/private_bus.h"

#include <QDBusArgument>
#include <QDBusInterface>
#include <QDBusReply>
#include <QSignalSpy>
#include <QUrl>

namespace orvanta::test {
namespace {

constexpr auto kName = "org.mpris.MediaPlayer2.orvanta";
constexpr auto kPath = "/org/mpris/MediaPlayer2";
constexpr auto kRoot = "org.mpris.MediaPlayer2";
constexpr auto kPlayer = "org.mpris.MediaPlayer2.Player";
constexpr auto kTrackList = "org.mpris.MediaPlayer2.TrackList";

/// Keeps what PropertiesChanged announced.
class Announcements : public QObject
{
    Q_OBJECT

public:
    explicit Announcements(QDBusConnection bus)
    {
        bus.connect(QString::fromLatin1(kName), QString::fromLatin1(kPath),
                    u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, this,
                    SLOT(changed(QString, QVariantMap, QStringList)));
        bus.connect(QString::fromLatin1(kName), QString::fromLatin1(kPath),
                    QString::fromLatin1(kPlayer), u"Seeked"_s, this, SLOT(seeked(qlonglong)));
        bus.connect(QString::fromLatin1(kName), QString::fromLatin1(kPath),
                    QString::fromLatin1(kTrackList), u"TrackListReplaced"_s, this,
                    SLOT(replaced(QList<QDBusObjectPath>, QDBusObjectPath)));
    }

    QVariantMap properties;
    QStringList invalidated;
    QList<qlonglong> seeks;
    QList<QList<QDBusObjectPath>> trackLists;

private Q_SLOTS:
    void changed(const QString&, const QVariantMap& values, const QStringList& names)
    {
        properties.insert(values);
        invalidated.append(names);
    }
    void seeked(qlonglong position) { seeks.append(position); }
    void replaced(const QList<QDBusObjectPath>& tracks, const QDBusObjectPath&)
    {
        trackLists.append(tracks);
    }
};

class Mpris : public EngineTest
{
protected:
    Mpris()
        : service({module, *engine, control, screen, view, [this] { ++quits; },
                   [this](const QString& file) { opened.append(file); }},
                  bus.connection(u"service"_s)),
          client(bus.connection(u"client"_s)),
          heard(client)
    {}

    QVariant property(const char* interface, const char* name)
    {
        return call(u"org.freedesktop.DBus.Properties"_s, u"Get"_s,
                    {QString::fromLatin1(interface), QString::fromLatin1(name)})
            .value<QDBusVariant>()
            .variant();
    }

    void setProperty(const char* interface, const char* name, const QVariant& value)
    {
        call(u"org.freedesktop.DBus.Properties"_s, u"Set"_s,
             {QString::fromLatin1(interface), QString::fromLatin1(name),
              QVariant::fromValue(QDBusVariant(value))});
    }

    /// Calls without blocking: the service lives in this very process.
    QVariant call(const QString& interface, const QString& method, const QVariantList& arguments)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QString::fromLatin1(kName), QString::fromLatin1(kPath), interface, method);
        message.setArguments(arguments);
        const QDBusPendingCall pending = client.asyncCall(message);
        EXPECT_TRUE(QTest::qWaitFor([&] { return pending.isFinished(); }));
        EXPECT_FALSE(pending.isError()) << qPrintable(pending.error().message());
        return pending.reply().arguments().value(0);
    }

    void player(const char* method, const QVariantList& arguments = {})
    {
        call(QString::fromLatin1(kPlayer), QString::fromLatin1(method), arguments);
    }

    QVariantMap metadata()
    {
        return qdbus_cast<QVariantMap>(property(kPlayer, "Metadata").value<QDBusArgument>());
    }

    PrivateBus bus;
    PlainScreen screen;
    int quits = 0;
    QStringList opened;
    MprisService service;
    QDBusConnection client;
    Announcements heard;
};

TEST_F(Mpris, TheServiceIsRegisteredAndSaysWhoItIs)
{
    EXPECT_TRUE(service.isRegistered());
    EXPECT_EQ(property(kRoot, "Identity").toString(), u"Orvanta"_s);
    EXPECT_EQ(property(kRoot, "DesktopEntry").toString(), u"orvanta"_s);
    EXPECT_TRUE(property(kRoot, "CanQuit").toBool());
    EXPECT_TRUE(property(kRoot, "CanRaise").toBool());
    EXPECT_TRUE(property(kRoot, "HasTrackList").toBool());
    EXPECT_EQ(property(kRoot, "SupportedUriSchemes").toStringList(), QStringList{u"file"_s});
}

TEST_F(Mpris, MetadataNamesTheClipItsPacketAndItsLength)
{
    control.duration = 12.5;
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    const QVariantMap data = metadata();
    EXPECT_EQ(data.value(u"xesam:title"_s).toString(), u"two"_s);
    EXPECT_EQ(data.value(u"xesam:album"_s).toString(), u"!Orvanta! 3.3"_s);
    EXPECT_EQ(data.value(u"mpris:length"_s).toLongLong(), 12500000);
    EXPECT_EQ(data.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(),
              u"/org/orvanta/track/1/2"_s);
}

TEST_F(Mpris, ThePacketsPictureIsTheArt)
{
    PlaylistEntry packet;
    packet.Title = u"Lesson"_s;
    const QString picture = file(u"cover picture.jpg"_s);
    packet.Picture = u"cover picture.jpg"_s;
    packet.PictureFolder = home.path() + u'/';
    packet.Clips.push_back({.Time = {}, .Text = u"one"_s, .Path = file(u"one.avi"_s)});
    addPacket(packet);
    play(1, 1);
    EXPECT_EQ(metadata().value(u"mpris:artUrl"_s).toString(),
              QUrl::fromLocalFile(picture).toString(QUrl::FullyEncoded));
}

TEST_F(Mpris, WithoutAClipTheTrackIsNone)
{
    EXPECT_EQ(metadata().value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(),
              u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s);
    EXPECT_FALSE(property(kPlayer, "CanSeek").toBool());
    EXPECT_FALSE(property(kPlayer, "CanGoNext").toBool());
}

TEST_F(Mpris, PlayPauseAndStopSteerThePlayerAndAreAnnounced)
{
    addClips({u"one"_s});
    play(1, 1);
    engine->tick();
    player("Pause");
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return heard.properties.value(u"PlaybackStatus"_s) == u"Paused"_s; }));
    engine->tick();
    player("PlayPause");
    EXPECT_EQ(property(kPlayer, "PlaybackStatus").toString(), u"Playing"_s);
    engine->tick();
    player("Stop");
    EXPECT_EQ(property(kPlayer, "PlaybackStatus").toString(), u"Stopped"_s);
}

TEST_F(Mpris, PlayWithNothingLoadedBeginsWithTheCurrentClip)
{
    addClips({u"one"_s, u"two"_s});
    engine->playlistReplaced(); // opened, but not to be played at once
    ASSERT_EQ(clip(), 1);
    player("Play");
    waitUntilRunning();
    EXPECT_EQ(clip(), 1);
}

TEST_F(Mpris, PlayAfterTheLastClipBeginsAgainWithTheFirst)
{
    option("agnc");
    option("agnp");
    addClips({u"one"_s, u"two"_s});
    play(1, 2);
    endClip();
    ASSERT_EQ(control.CurrentState(), MediaControl::NotLoaded);
    player("PlayPause");
    waitUntilRunning();
    EXPECT_EQ(clip(), 1);
}

TEST_F(Mpris, PlayAndNextBeginWithWhatWasDroppedWhenNothingHasBeenStarted)
{
    for (const char* method : {"Play", "Next"}) {
        module.playlist.Playlist.clear();
        module.playlist.PlaylistCount = 0;
        control.setFileName({});
        addClips({u"one"_s, u"two"_s});
        module.playlist.CurrentPacket = 0;
        module.playlist.CurrentClip = 0;
        player(method);
        waitUntilRunning();
        EXPECT_EQ(clip(), 1) << method;
    }
}

TEST_F(Mpris, PlayWhileAClipIsBeingOpenedOpensItNotAgain)
{
    addClips({u"one"_s});
    control.autoOpen = false;
    engine->ListClick(1, 1);
    const qsizetype before = loads();
    player("Play");
    EXPECT_EQ(loads(), before);
    control.completeOpening();
    waitUntilRunning();
}

TEST_F(Mpris, NextAndPreviousGoOverCheckedClipsWhateverTheOptionsSay)
{
    addClips({u"one"_s, u"two"_s, u"three"_s});
    addClips({u"four"_s});
    play(1, 1);
    view.checked.at(3) = false;
    player("Next");
    waitUntilRunning();
    EXPECT_EQ(clip(), 3);
    player("Next");
    waitUntilRunning();
    EXPECT_EQ(packet(), 2);
    player("Previous");
    waitUntilRunning();
    EXPECT_EQ(packet(), 1);
    EXPECT_EQ(clip(), 3);
}

TEST_F(Mpris, NextAtTheVeryEndStops)
{
    addClips({u"one"_s});
    play(1, 1);
    engine->tick();
    player("Next");
    EXPECT_NE(control.CurrentState(), MediaControl::Running);
}

TEST_F(Mpris, SeekMovesByMicrosecondsAndTellsTheNewPosition)
{
    control.duration = 100.0;
    addClips({u"one"_s});
    play(1, 1);
    control.playTo(10.0);
    engine->tick();
    player("Seek", {QVariant::fromValue(qlonglong(5000000))});
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 15.0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.seeks.contains(15000000); }));
    EXPECT_EQ(property(kPlayer, "Position").toLongLong(), 15000000);
}

TEST_F(Mpris, ASeekBeyondTheEndActsLikeNext)
{
    control.duration = 100.0;
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    player("Seek", {QVariant::fromValue(qlonglong(200000000))});
    waitUntilRunning();
    EXPECT_EQ(clip(), 2);
}

TEST_F(Mpris, SetPositionOfAnotherTrackOrOutsideTheClipIsIgnored)
{
    control.duration = 100.0;
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    control.playTo(10.0);
    const auto track = [](const char* path) {
        return QVariant::fromValue(QDBusObjectPath(QString::fromLatin1(path)));
    };
    player("SetPosition", {track("/org/orvanta/track/1/2"), qlonglong(50000000)});
    player("SetPosition", {track("/org/orvanta/track/1/1"), qlonglong(500000000)});
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 10.0);
    player("SetPosition", {track("/org/orvanta/track/1/1"), qlonglong(50000000)});
    EXPECT_DOUBLE_EQ(control.CurrentPosition(), 50.0);
}

TEST_F(Mpris, VolumeIsTheSlidersScaleAndIsClamped)
{
    setProperty(kPlayer, "Volume", 0.5);
    EXPECT_EQ(module.playback.CachedVolume, 50);
    EXPECT_EQ(control.Volume(), -1000);
    setProperty(kPlayer, "Volume", 7.0);
    EXPECT_DOUBLE_EQ(property(kPlayer, "Volume").toDouble(), 1.0);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return heard.properties.value(u"Volume"_s).toDouble() == 1.0; }));
}

TEST_F(Mpris, AVolumeThatIsNoNumberIsIgnored)
{
    setProperty(kPlayer, "Volume", 0.5);
    setProperty(kPlayer, "Volume", qQNaN());
    EXPECT_DOUBLE_EQ(property(kPlayer, "Volume").toDouble(), 0.5);
    setProperty(kPlayer, "Volume", -qInf());
    EXPECT_DOUBLE_EQ(property(kPlayer, "Volume").toDouble(), 0.0);
}

TEST_F(Mpris, TheRateIsThePracticesSpeedAndARateOfZeroPauses)
{
    addClips({u"one"_s});
    play(1, 1);
    engine->tick();
    EXPECT_DOUBLE_EQ(property(kPlayer, "Rate").toDouble(), 1.0);
    EXPECT_DOUBLE_EQ(property(kPlayer, "MinimumRate").toDouble(), 0.25);
    EXPECT_DOUBLE_EQ(property(kPlayer, "MaximumRate").toDouble(), 2.0);
    setProperty(kPlayer, "Rate", 0.8);
    EXPECT_DOUBLE_EQ(control.Speed(), 0.8);
    EXPECT_TRUE(QTest::qWaitFor([&] { return heard.properties.value(u"Rate"_s) == 0.8; }));
    setProperty(kPlayer, "Rate", 9.0);
    EXPECT_DOUBLE_EQ(control.Speed(), 2.0);
    setProperty(kPlayer, "Rate", qQNaN());
    EXPECT_DOUBLE_EQ(control.Speed(), 2.0);
    setProperty(kPlayer, "Rate", 0.0);
    EXPECT_EQ(control.CurrentState(), MediaControl::Paused);
    EXPECT_DOUBLE_EQ(control.Speed(), 2.0);
}

TEST_F(Mpris, TheLoopIsThisLineOrEverythingOrNone)
{
    addClips({u"one"_s});
    EXPECT_EQ(property(kPlayer, "LoopStatus"), u"None"_s);
    setProperty(kPlayer, "LoopStatus", u"Track"_s);
    EXPECT_TRUE(engine->practice().values().isEndless());
    EXPECT_EQ(property(kPlayer, "LoopStatus"), u"Track"_s);
    setProperty(kPlayer, "LoopStatus", u"Playlist"_s);
    EXPECT_FALSE(engine->practice().values().isEndless());
    EXPECT_TRUE(module.optionIsOn(Option::Replay));
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return heard.properties.value(u"LoopStatus"_s) == u"Playlist"_s; }));
    setProperty(kPlayer, "LoopStatus", u"Sideways"_s);
    EXPECT_EQ(property(kPlayer, "LoopStatus"), u"Playlist"_s);
    setProperty(kPlayer, "LoopStatus", u"None"_s);
    EXPECT_FALSE(module.optionIsOn(Option::Replay));
    EXPECT_EQ(property(kPlayer, "LoopStatus"), u"None"_s);
}

TEST_F(Mpris, RaiseQuitAndFullscreenReachTheProgram)
{
    call(QString::fromLatin1(kRoot), u"Raise"_s, {});
    EXPECT_EQ(view.shown, 1);
    EXPECT_EQ(view.broughtToFront, 1);
    setProperty(kRoot, "Fullscreen", true);
    EXPECT_TRUE(screen.on);
    call(QString::fromLatin1(kRoot), u"Quit"_s, {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return quits == 1; }));
}

TEST_F(Mpris, OpenUriOpensFilesAndNothingElse)
{
    const QString one = home.write(u"a b.vxl"_s, "");
    const QString other = home.write(u"c.vxl"_s, "");
    player("OpenUri", {QUrl::fromLocalFile(one).toString(QUrl::FullyEncoded)});
    player("OpenUri", {u"http://example.org/a.vxl"_s});
    player("OpenUri", {u"file://elsewhere.example"_s + one});
    player("OpenUri", {u"file://localhost"_s + other});
    EXPECT_EQ(opened, (QStringList{one, other}));
}

TEST_F(Mpris, OpenUriLeavesWhatIsOpenWhenNothingIsThere)
{
    player("OpenUri", {u"file:///nowhere/a.vxl"_s});
    player("OpenUri", {u"file:///f/tmp"_s}); // no switch with the folder /tmp behind it
    player("OpenUri", {u""_s});
    EXPECT_EQ(opened, QStringList());
}

TEST_F(Mpris, TheTrackListIsTheCurrentPacketAndGoToStartsATrack)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    const auto tracks =
        qdbus_cast<QList<QDBusObjectPath>>(property(kTrackList, "Tracks").value<QDBusArgument>());
    ASSERT_EQ(tracks.size(), 2);
    call(QString::fromLatin1(kTrackList), u"GoTo"_s, {QVariant::fromValue(tracks.at(1))});
    waitUntilRunning();
    EXPECT_EQ(clip(), 2);
    EXPECT_FALSE(property(kTrackList, "CanEditTracks").toBool());
}

TEST_F(Mpris, TracksMetadataComesInTheOrderAsked)
{
    addClips({u"one"_s, u"two"_s});
    play(1, 1);
    const QList<QDBusObjectPath> asked{QDBusObjectPath(u"/org/orvanta/track/1/2"_s),
                                       QDBusObjectPath(u"/org/orvanta/track/1/1"_s)};
    const QVariant answer =
        call(QString::fromLatin1(kTrackList), u"GetTracksMetadata"_s, {QVariant::fromValue(asked)});
    const auto all = qdbus_cast<QList<QVariantMap>>(answer.value<QDBusArgument>());
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all.at(0).value(u"xesam:title"_s).toString(), u"two"_s);
    EXPECT_EQ(all.at(1).value(u"xesam:title"_s).toString(), u"one"_s);
}

TEST_F(Mpris, AnotherPlaylistOfTheSameShapeIsAnotherTrackList)
{
    const auto announcedLists = [this](qsizetype count) {
        return QTest::qWaitFor([&] { return heard.trackLists.size() == count; });
    };
    OpenFiles(module.playlist, {file(u"one.avi"_s), file(u"two.avi"_s)});
    engine->playlistReplaced();
    ASSERT_TRUE(announcedLists(1));
    EXPECT_EQ(heard.trackLists.last().size(), 2);
    EXPECT_TRUE(heard.invalidated.contains(u"Tracks"_s));
    OpenFiles(module.playlist, {file(u"three.avi"_s), file(u"four.avi"_s)});
    engine->playlistReplaced();
    EXPECT_TRUE(announcedLists(2));
    engine->volumeMoved(40); // announced too, but nothing of the tracks
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return heard.properties.value(u"Volume"_s).toDouble() == 0.4; }));
    EXPECT_EQ(heard.trackLists.size(), 2);
}

TEST_F(Mpris, ATrackThatIsNoneOfOursGoesNowhere)
{
    addClips({u"one"_s});
    play(1, 1);
    const qsizetype before = loads();
    call(QString::fromLatin1(kTrackList), u"GoTo"_s,
         {QVariant::fromValue(QDBusObjectPath(u"/org/orvanta/track/9/9"_s))});
    EXPECT_EQ(loads(), before);
}

TEST(MprisWithoutABus, TheServiceIsNotRegisteredAndNothingFails)
{
    Module1 module;
    ScriptedMediaControl control;
    PlainVideoWindow video(control);
    PlainPlaybackView view(module);
    PlaybackEngine engine(module, control, video);
    PlainScreen screen;
    const MprisService service({module, engine, control, screen, view, {}, {}},
                               QDBusConnection(u"no such connection"_s));
    EXPECT_FALSE(service.isRegistered());
}

} // namespace
} // namespace orvanta::test

#include "mpris_test.moc"
