#include "app/program.h"

#include "app/player_hold.h"
#include "app/shown_watch.h"
#include "core/log.h"
#include "editors/editor_services.h"
#include "platform/file_types/desktop_folders.h"
#include "platform/screen/colour_scheme.h"
#include "platform/screen/desktop_tray.h"
#include "platform/screen/idle_inhibition.h"
#include "playback/form13_video_window.h"
#include "playback/form4_bookmark_sign.h"
#include "playback/lesson_controls.h"
#include "playback/lesson_keeper.h"
#include "playback/outlined_indicators.h"
#include "playback/playback_engine.h"
#include "playback/practice_controls.h"
#include "playback/track_controls.h"
#include "system/form12_tray.h"
#include "system/form8_options_dialog.h"
#include "system/form9_about.h"
#include "system/mpris_service.h"
#include "window/form2_main_window.h"
#include "window/skin.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

Program::Program(ProgramSurroundings surroundings)
    : m_surroundings(std::move(surroundings)),
      m_control(m_surroundings.makePlayer ? m_surroundings.makePlayer()
                                          : m_surroundings.makeControl()),
      m_tracks(std::make_unique<TrackControls>(m_surroundings.module, *m_control)),
      m_idleInhibition(std::make_unique<IdleInhibition>(m_surroundings.bus)),
      m_colourScheme(std::make_unique<ColourScheme>(m_surroundings.bus))
{
    QApplication::setStyle(new OutlinedIndicators);
    openVideoWindow();
    makeEditors();
}

Program::~Program() = default;

void Program::openVideoWindow()
{
    m_videoWindow = std::make_unique<Form13>(Form13Services{
        .control = *m_control,
        .boundary = m_surroundings.boundary,
        .keepAwake = [this](bool awake) { m_idleInhibition->hold(awake); },
        .carryOut =
            [this](Command command) {
                return carryOutInPlayer(*m_engine, command) ||
                       (m_mainWindow && m_mainWindow->carryOutForVideoWindow(command));
            },
        .seek = [this](double seconds) { m_engine->seekTo(seconds); },
        .mainWindow = [this] { return m_mainWindow.get(); },
        .textLevel = [this] { return m_surroundings.module.settings().textLevel(); },
        .setTextLevel =
            [this](TextLevel level) { m_surroundings.module.settings().setTextLevel(level); },
        .language =
            [this] {
                return textLanguage(m_surroundings.module.Language.value(), TextLanguage::Russian);
            },
        .hasEntries = [this] { return m_surroundings.module.playlist.entryCount() > 0; },
        .practice = [this] { return m_engine->practice().values(); },
        .menuSheet = skin::commandMenuSheet(),
        .bar = {.previousLine = [this] { m_engine->lineStep(-1); },
                .nextLine = [this] { m_engine->lineStep(1); },
                .lineAgain = [this] { m_engine->lineAgain(); },
                .marks = [this] { return m_engine->lesson().marks(); },
                .toggleRepeat = [this] { m_engine->practice().toggleRepeat(); },
                .isRepeating = [this] { return m_engine->practice().values().isEndless(); },
                .repeatText = [this] { return m_engine->practice().roundText(); },
                .speed = [this] { return m_control->Speed(); },
                .goOn = [this] { m_engine->practice().goOn(); }},
        .tracks = m_tracks.get(),
    });
    m_engine = std::make_unique<PlaybackEngine>(m_surroundings.module, *m_control, *m_videoWindow);
    m_keeper = std::make_unique<LessonKeeper>(m_surroundings.module, *m_engine, *m_control);
    connect(m_engine.get(), &PlaybackEngine::cursorChanged, m_videoWindow.get(),
            [this] { m_videoWindow->setLine(m_engine->lesson().line()); });
    connect(m_engine.get(), &PlaybackEngine::volumeChanged, m_videoWindow.get(),
            &Form13::showVolume);
    connect(&m_engine->practice(), &PracticeControls::said, m_videoWindow.get(),
            [this](const QString& text) { m_videoWindow->showSign(text); });
    connect(m_engine.get(), &PlaybackEngine::lineChosen, m_videoWindow.get(),
            &Form13::showLineSign);
    connect(&m_engine->practice(), &PracticeControls::waitBegan, m_videoWindow.get(),
            &Form13::showWait);
    connect(&m_engine->practice(), &PracticeControls::waitOver, m_videoWindow.get(),
            &Form13::showWaitOver);
    connect(&m_engine->practice(), &PracticeControls::changed, m_videoWindow.get(),
            &Form13::refreshBar);
    m_videoWindow->mirror().VideoState = 0;
    m_engine->operations().ShowVideoWindow(true);
}

void Program::makeEditors()
{
    m_hold = std::make_unique<PlayerHold>(*m_control);
    m_editors = std::make_unique<EditorServices>(EditorServices{
        .module = m_surroundings.module,
        .pickers = m_surroundings.pickers,
        .boundary = m_surroundings.boundary,
        .makePreview = m_surroundings.makeControl,
        .playerVolume = [this] { return m_control->Volume(); },
        .pausePlayer =
            [this] {
                m_engine->practice().giveUpWait();
                return m_hold->hold();
            },
        .resumePlayer =
            [this] {
                if (!m_engine->isClosing()) {
                    m_hold->release();
                }
            },
    });
}

/// A program that starts with the session may be there before the tray.
void Program::openTrayWindow()
{
    if (!m_surroundings.module.optionIsOn(Option::TrayIcon)) {
        return;
    }
    m_desktopTray = std::make_unique<DesktopTray>(m_surroundings.bus);
    connect(m_desktopTray.get(), &DesktopTray::appeared, this,
            m_surroundings.boundary([this] { loadTrayWindow(); }));
    if (m_desktopTray->isThere()) {
        loadTrayWindow();
    } else {
        qCInfo(logDesktop, "this desktop has no tray: no icon");
    }
}

void Program::loadTrayWindow()
{
    Module1& module = m_surroundings.module;
    if (module.optionIsOn(Option::TrayIcon) && !m_trayWindow && !m_engine->isClosing()) {
        m_trayWindow = std::make_unique<Form12>(module);
    }
}

void Program::loadMainWindow()
{
    m_mainWindow = std::make_unique<Form2>(Form2Services{
        .module = m_surroundings.module,
        .engine = *m_engine,
        .pickers = m_surroundings.pickers,
        .boundary = m_surroundings.boundary,
        .unloadSplash = m_surroundings.unloadSplash,
        .unloadOtherForms = [this] { unloadOtherForms(); },
        .videoWindow = [this] { return m_videoWindow->windowHandle(); },
        .showBookmarkSign =
            [this] {
                showBookmarkSign(*screenOfLesson());
                m_videoWindow->showBookmark();
            },
        .showOptions = [this] { changeOptions(); },
        .videoKeys = m_videoWindow->keys(),
        .nextTextLevel = [this] { m_videoWindow->nextTextLevel(); },
        .showPacketEditor =
            [this] { return showPacketEditor(*m_editors, m_mainWindow.get()).fileToOpen; },
        .showGroupEditor =
            [this] { return showGroupEditor(*m_editors, m_mainWindow.get()).fileToOpen; },
        .showAbout = [this] { showAbout(); },
        .tracks = m_tracks.get(),
        .closingBegins = m_surroundings.closing,
        .frame = [this] { return m_videoWindow->currentFrame(); },
    });
    m_shownWatch = std::make_unique<ShownWatch>(*m_mainWindow);
}

/// Where the user looks: at the picture, without one at the main window.
const QScreen* Program::screenOfLesson() const
{
    return m_videoWindow->isVisible() ? m_videoWindow->screen() : m_mainWindow->screen();
}

/// What the dialog changes takes effect at once. Types change without OK too.
void Program::changeOptions()
{
    Module1& module = m_surroundings.module;
    OptionsServices services{.module = module,
                             .registry = m_surroundings.registry,
                             .pickers = m_surroundings.pickers,
                             .boundary = m_surroundings.boundary,
                             .reachesDesktop = DesktopFolders::areSeen()};
    const bool isAccepted = showOptions(services, m_mainWindow.get());
    resumeNext("types after the options",
               [&] { module.TypePattern = module.settings().typePattern(); });
    if (isAccepted && module.optionIsOn(Option::TrayIcon) != (m_trayWindow != nullptr)) {
        m_trayWindow.reset();
        openTrayWindow();
    }
}

void Program::showAbout()
{
    if (!m_about) {
        m_about = std::make_unique<Form9>(m_surroundings.module,
                                          [this] { return m_control->pictureFacts(); });
    }
    m_about->showAbout();
}

void Program::serveMediaControls()
{
    m_mediaControls = std::make_unique<MprisService>(
        MprisPorts{
            .module = m_surroundings.module,
            .engine = *m_engine,
            .control = *m_control,
            .screen = *m_videoWindow,
            .view = *m_mainWindow,
            .quit = m_surroundings.boundary([this] { m_engine->closeProgram(); }),
            .open = [this](const QString& path) { openAndPlaySoon(path); },
        },
        m_surroundings.bus);
    connect(m_videoWindow.get(), &Form13::fullScreenChanged, m_mediaControls.get(),
            &MprisService::announceChanges);
}

/// From the event loop: the caller's answer does not wait for the media.
void Program::openAndPlaySoon(const QString& path)
{
    QTimer::singleShot(0, this,
                       m_surroundings.boundary([this, path] { m_engine->openAndPlay(path); }));
}

void Program::unloadOtherForms()
{
    m_trayWindow.reset();
    m_videoWindow->hide();
    m_surroundings.ended();
}

void Program::fallSilent()
{
    m_trayWindow.reset();
    m_control->Pause();
}

} // namespace orvanta
