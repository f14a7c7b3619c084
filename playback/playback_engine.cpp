#include "playback/playback_engine.h"

#include "core/error_boundary.h"
#include "model/loaders.h"
#include "playback/advance_step.h"
#include "playback/bookmark_keeper.h"
#include "playback/brake_step.h"
#include "playback/brake_watch.h"
#include "playback/clip_starter.h"
#include "playback/close_sequence.h"
#include "playback/engine_context.h"
#include "playback/hand_over_drain.h"
#include "playback/lesson_controls.h"
#include "playback/next_clip_step.h"
#include "playback/position_slider.h"
#include "playback/practice_controls.h"
#include "playback/transport_buttons.h"
#include "playback/tray_step.h"
#include "playback/volume_sliders.h"

#include <QScopedValueRollback>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

class PlaybackEngine::Private
{
    PlaybackEngine& m_engine;

public:
    Private(Module1& module, MediaControl& control, VideoWindow& video, PlaybackEngine& engine)
        : m_engine(engine),
          context(module, control, video),
          volume(context, [&engine] { Q_EMIT engine.volumeChanged(); })
    {
        context.onStopAsked = [this] { practice.giveUpWait(); };
        context.onLineLeft = [this] { bookmark.leaveLine(); };
        context.onSuperseded = [this] {
            lesson.superseded();
            practice.step().beginLine();
        };
        context.onCursorMoved = [this, &engine] {
            practice.step().beginLine();
            Q_EMIT engine.cursorChanged();
        };
        context.operations.keepsClipAtEnd = [this] { return practice.step().keepsClip(); };
    }

    /// Runs one entry into the engine; raises nothing. A program end that is asked for inside waits
    /// until the outermost entry has returned: windows must not go while their handlers still run.
    template <typename Action> void enter(Action&& action)
    {
        ++m_depth;
        context.operations.look();
        trapped("playback engine", std::forward<Action>(action));
        --m_depth;
        if (m_depth == 0 && close.isPending()) {
            close.carryOut();
        }
    }

    void tick();
    void poll();
    void start(Int16 p, Int16 q);
    void begin();
    void beginAtListCursor();
    void goOnAfterDrop(const DropResult& dropped);
    void takePlaylist();
    void brakeIsDue();

    EngineContext context;
    PracticeControls practice{context, [this](const auto& action) { enter(action); }};
    PositionSlider slider{context};
    TransportButtons transport{context, slider};
    VolumeSliders volume;
    BookmarkKeeper bookmark{context};
    ClipStarter starter{context, transport};
    LessonControls lesson{context, starter, [this](const auto& action) { enter(action); },
                          [this] { takePlaylist(); }};
    CloseSequence close{context, transport, slider};
    AdvanceStep advance{context, transport, starter, close};
    BrakeStep brakes{context, starter, advance, practice.step()};
    NextClipStep nextClip{context, advance, starter, practice.step()};
    TrayStep tray{context, transport, advance, close};
    HandOverDrain handOver{context, transport, slider, starter};
    BrakeWatch brakeWatch{context, brakes, [this] { brakeIsDue(); }};
    BrakeStep::Position positionAge = BrakeStep::PolledByTick;
    bool ticking = false;

private:
    void showVideoWindowWithMainWindow();
    void display();
    [[nodiscard]] PlayingPlace playingPlace() const;
    void startAfterDrop(const DropResult& dropped);
    [[nodiscard]] bool moveOnAfterEnd();
    bool serveEnd();
    [[nodiscard]] bool moveOnAfterFailure();
    int m_depth = 0;
};

void PlaybackEngine::Private::poll()
{
    resumeNext("poll", [&] { context.operations.PollPlayer(); });
}

void PlaybackEngine::Private::tick()
{
    trapped("video window", [&] { showVideoWindowWithMainWindow(); });
    poll();
    resumeNext("buttons", [&] { transport.reconcile(); });
    resumeNext("volume", [&] { volume.takeVolumeOfVideoWindow(); });
    resumeNext("display", [&] { display(); });
    resumeNext("bookmark", [&] { bookmark.serve(); });
    if (!moveOnAfterEnd() && !moveOnAfterFailure()) {
        resumeNext("tray", [&] { tray.run(); });
    }
    resumeNext("next clip", [&] { nextClip.run(); });
    resumeNext("close after playing", [&] { advance.closeIfFree(); });
    if (!context.closing) {
        resumeNext("hand-over queue", [&] { handOver.serve(); });
    }
    context.view->showPlaying(playingPlace());
}

// What plays on while another playlist is open has no line there.
PlayingPlace PlaybackEngine::Private::playingPlace() const
{
    const MediaControl::State state = context.player().state;
    const bool shown = state == MediaControl::Running || state == MediaControl::Paused;
    const Cursor place = context.cursor();
    if (!shown || context.openedMeanwhile || place.packet < 1) {
        return {};
    }
    const bool runs = state == MediaControl::Running;
    return {place.packet, place.clip, runs ? PlayingSign::Playing : PlayingSign::Paused};
}

void PlaybackEngine::Private::showVideoWindowWithMainWindow()
{
    const bool normal = context.view->isWindowNormal();
    if (normal != context.module.playback.VideoWindowShown) {
        context.operations.ShowVideoWindow(normal);
    }
}

void PlaybackEngine::Private::display()
{
    if (context.player().isRunning() && !context.view->isSliderHeld()) {
        slider.display();
        brakes.run(positionAge);
    }
}

void PlaybackEngine::Private::brakeIsDue()
{
    const QScopedValueRollback now(positionAge, BrakeStep::JustReported);
    m_engine.tick();
}

bool PlaybackEngine::Private::moveOnAfterEnd()
{
    if (!context.operations.TakeClipEnded()) {
        return false;
    }
    context.log.ended(context.cursor());
    const bool held = practice.step().clipEnded([this] {
        context.operations.UnloadMedia();
        serveEnd();
    });
    return held || serveEnd();
}

bool PlaybackEngine::Private::serveEnd()
{
    if (context.isCurrentPacketBraked() && !context.openedMeanwhile) {
        transport.showBeginning();
        resumeNext("end of a braked clip", [&] { brakes.clipEnded(); });
        return false;
    }
    resumeNext("advance", [&] { advance.run(); });
    return true;
}

bool PlaybackEngine::Private::moveOnAfterFailure()
{
    const bool settled = !starter.isWaiting() && context.player().isEmpty();
    if (!context.startFailed || !settled) {
        return false;
    }
    context.startFailed = false;
    resumeNext("advance after a failure", [&] { advance.runAfterFailure(); });
    return true;
}

void PlaybackEngine::Private::start(Int16 p, Int16 q)
{
    if (!context.closing) {
        starter.ListClick(p, q);
    }
}

void PlaybackEngine::Private::begin()
{
    if (!context.closing && context.player().isEmpty()) {
        advance.begin();
    }
}

void PlaybackEngine::Private::beginAtListCursor()
{
    if (!context.closing) {
        advance.beginAtListCursor();
    }
}

// A clip that began since the last tick is loaded all the same.
void PlaybackEngine::Private::goOnAfterDrop(const DropResult& dropped)
{
    poll();
    logLoaded(context.module.playlist);
    advance.callClosingOff();
    if (context.module.optionIsOn(Option::StartPlaying)) {
        startAfterDrop(dropped);
    } else if (context.player().isLoaded()) {
        practice.giveUpWait();
        context.operations.StopIfRunning();
        slider.reset();
        context.view->setCurrentTime(u"0.00"_s);
        context.view->setClipText(QString());
    }
}

void PlaybackEngine::Private::startAfterDrop(const DropResult& dropped)
{
    if (context.module.playlist.PlaylistCount == 0) {
        return; // a folder without clips: the first line is still to come
    }
    const bool nothingStarted = context.cursor() == Cursor{0, 0};
    const bool stands = context.player().state <= MediaControl::Stopped;
    if (nothingStarted || dropped.groupDropped) {
        start(1, 1);
    } else if (context.listOver && stands && dropped.firstPacket >= 1) {
        start(dropped.firstPacket, dropped.firstClip);
    }
}

PlaybackEngine::PlaybackEngine(Module1& module, MediaControl& control, VideoWindow& video,
                               QObject* parent)
    : QObject(parent),
      m_private(std::make_unique<Private>(module, control, video, *this))
{
    // The next clip does not wait for the timer. Queued: the video window notes the end first.
    connect(
        &control, &MediaControl::positionChange, this,
        [this] {
            if (m_private->context.video.mirror().VideoEnded) {
                tick();
            }
        },
        Qt::QueuedConnection);
    connect(&control, &MediaControl::position, this,
            [this] { m_private->brakeWatch.positionReported(); });
    connect(&control, &MediaControl::stateChange, this,
            [this](auto /*from*/, MediaControl::State to) { m_private->practice.playerIs(to); });
    connect(&control, &MediaControl::openFailed, this, [this] {
        m_private->context.operations.look();
        m_private->starter.openingFailed();
    });
}

PlaybackEngine::~PlaybackEngine() = default;

void PlaybackEngine::attachView(PlaybackView& view)
{
    m_private->context.view = &view;
    m_private->transport.showAgain();
}

PlaybackOperations& PlaybackEngine::operations()
{
    return m_private->context.operations;
}

const TransportLooks& PlaybackEngine::transport() const
{
    return m_private->transport.looks();
}

PracticeControls& PlaybackEngine::practice()
{
    return m_private->practice;
}

LessonControls& PlaybackEngine::lesson()
{
    return m_private->lesson;
}

void PlaybackEngine::lineStep(int direction)
{
    m_private->enter([&] {
        if (direction > 0 && m_private->practice.isWaiting() &&
            !m_private->practice.values().isEndless()) {
            m_private->practice.step().goOn();
        } else if (!m_private->context.closing) {
            m_private->advance.lineStep(direction);
        }
    });
    Q_EMIT lineChosen();
}

void PlaybackEngine::lineAgain()
{
    m_private->enter([&] { m_private->advance.lineAgain(m_private->practice.step()); });
}

QString PlaybackEngine::playingText() const
{
    return m_private->context.playingText();
}

void PlaybackEngine::keepPosition()
{
    m_private->bookmark.keep();
}

void PlaybackEngine::startCurrent()
{
    m_private->enter([&] { m_private->begin(); });
}

void PlaybackEngine::nextChecked()
{
    m_private->enter([&] { m_private->advance.next(); });
    Q_EMIT lineChosen();
}

void PlaybackEngine::previousChecked()
{
    m_private->enter([&] { m_private->advance.previous(); });
    Q_EMIT lineChosen();
}

bool PlaybackEngine::isClosing() const
{
    return m_private->context.closing;
}

void PlaybackEngine::tick()
{
    if (m_private->ticking || m_private->context.closing || m_private->context.view == nullptr) {
        return;
    }
    m_private->enter([&] {
        const QScopedValueRollback<bool> once(m_private->ticking, true);
        m_private->tick();
    });
}

bool PlaybackEngine::isQuiet() const
{
    return !m_private->context.player().opening && !m_private->context.player().isRunning();
}

void PlaybackEngine::ListClick(Int16 p, Int16 q)
{
    m_private->enter([&] {
        if (!m_private->context.closing) {
            m_private->starter.startByHand(p, q);
        }
    });
    Q_EMIT lineChosen();
}

// Presses come faster than ticks: each works on the player as it is now.
void PlaybackEngine::pressPlay()
{
    m_private->poll();
    m_private->transport.pressPlay();
}

void PlaybackEngine::play()
{
    m_private->poll();
    if (m_private->context.player().isEmpty()) {
        m_private->enter([&] { m_private->beginAtListCursor(); });
    } else {
        m_private->transport.pressPlay();
    }
}

void PlaybackEngine::pressPause()
{
    m_private->poll();
    m_private->transport.pressPause();
}

void PlaybackEngine::pressStop()
{
    m_private->poll();
    m_private->transport.pressStop();
}

void PlaybackEngine::pressClose()
{
    m_private->enter([&] { m_private->close.press(); });
}

void PlaybackEngine::closeProgram()
{
    m_private->enter([&] { m_private->close.request(); });
}

void PlaybackEngine::Private::takePlaylist()
{
    context.supersede();
    context.operations.look();
    context.module.playlist.OpenedFromExplorer = false;
    const bool hasEntries = context.module.playlist.entryCount() > 0;
    hasEntries ? context.setCursorToOpened() : context.setCursorAhead({0, 0});
    context.view->RebuildTree();
    if (context.areBrakesPlaying() && !context.openedMeanwhile) {
        context.moveListCursor(context.cursor());
    }
    logLoaded(context.module.playlist);
}

void PlaybackEngine::playlistCutShort()
{
    m_private->takePlaylist();
}

void PlaybackEngine::playlistReplaced()
{
    m_private->takePlaylist();
    if (m_private->context.module.optionIsOn(Option::StartPlaying)) {
        m_private->enter([&] { m_private->start(1, 1); });
    }
}

void PlaybackEngine::openAndPlay(const QString& path)
{
    m_private->context.module.playlist.OpenedFromExplorer = false;
    m_private->enter([&] {
        if (m_private->handOver.replacePlaylist({path})) {
            m_private->start(1, 1);
        }
    });
}

void PlaybackEngine::playlistExtended(const DropResult& dropped)
{
    m_private->enter([&] { m_private->goOnAfterDrop(dropped); });
    Q_EMIT cursorChanged();
}

void PlaybackEngine::sliderMoved(double value)
{
    m_private->context.operations.look();
    m_private->slider.moved(value);
}

void PlaybackEngine::sliderCommitted()
{
    m_private->practice.giveUpWait();
    m_private->context.operations.look();
    m_private->slider.committed();
}

void PlaybackEngine::volumeMoved(Int16 value)
{
    m_private->volume.volumeMoved(value);
}

Int16 PlaybackEngine::applyStoredVolume()
{
    return m_private->volume.applyStoredVolume();
}

void PlaybackEngine::balanceMoved(Int16 value)
{
    m_private->volume.balanceMoved(value);
}

Int16 PlaybackEngine::storedBalance() const
{
    return m_private->volume.storedBalance();
}

void PlaybackEngine::seekTo(double seconds)
{
    m_private->practice.giveUpWait(); // what is sought is to be heard
    m_private->context.operations.look();
    m_private->slider.seekTo(seconds);
}

} // namespace orvanta
