#include "app/start_up.h"

#include "app/command_line.h"
#include "app/player_hold.h"
#include "app/shown_watch.h"
#include "app/start_up_steps.h"
#include "core/ini.h"
#include "core/log.h"
#include "core/paths.h"
#include "editors/editor_services.h"
#include "editors/program_pickers.h"
#include "platform/media/mpv_media_control.h"
#include "platform/process/application_folder.h"
#include "platform/process/end_signals.h"
#include "platform/process/hand_over_queue.h"
#include "platform/process/single_instance.h"
#include "platform/screen/desktop_tray.h"
#include "platform/screen/idle_inhibition.h"
#include "platform/screen/window_stacking.h"
#include "playback/form13_video_window.h"
#include "playback/form4_bookmark_sign.h"
#include "playback/playback_engine.h"
#include "system/form12_tray.h"
#include "system/form8_options_dialog.h"
#include "system/form9_about.h"
#include "system/mpris_service.h"
#include "window/file_list.h"
#include "window/form11_language_dialog.h"
#include "window/form1_splash.h"
#include "window/form2_main_window.h"

#include <QApplication>
#include <QDBusConnection>
#include <QTimer>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static void letEventsRun()
{
    QCoreApplication::processEvents();
}

StartUp::StartUp(QStringList arguments, QString activationToken)
    : m_arguments(std::move(arguments)),
      m_commandLine(commandLine(m_arguments)),
      m_activationToken(std::move(activationToken)),
      m_boundary([this](const RuntimeError& error) { m_report(error); })
{
    m_report.setRelease([this] { releaseBeforeReport(); });
}

StartUp::~StartUp() = default;

int StartUp::run()
{
    bool goesOn = false;
    m_boundary([&] { goesOn = Main(); })();
    return goesOn && !m_ended ? QApplication::exec() : 0;
}

bool StartUp::Main()
{
    buildIniPath();
    chooseLanguage();
    queueCommandLine();
    if (!becomeFirstInstance()) {
        return false;
    }
    showSplash();
    repairSetupCopy(m_module.ApplicationFolder);
    checkMediaLibrary();
    m_module.TypePattern = m_module.settings().typePattern();
    letEventsRun();
    openVideoWindow();
    openTrayWindow();
    letEventsRun();
    // From here on a failing step is passed over.
    resumeNext("folder verb", [&] { registerFolderVerb(*m_registry, m_module.ApplicationFolder); });
    loadMainWindow();
    resumeNext("showing the main window", [&] { showMainWindowUnlessAuto(); });
    m_mainWindow->File1->setPattern(m_module.TypePattern);
    resumeNext("showing the video window", [&] { m_engine->operations().ShowVideoWindow(true); });
    serveDesktop();
    return true;
}

void StartUp::buildIniPath()
{
    m_module.ApplicationFolder = applicationFolder();
    m_module.IniPath = programFile(m_module.ApplicationFolder, u"\\orvanta.ini"_s);
    m_registry.emplace(m_module.ApplicationFolder);
    const QString platformIni = programFile(m_module.ApplicationFolder, u"\\platform.ini"_s);
    setLegacyCodePage(Settings(platformIni).codePage());
}

void StartUp::chooseLanguage()
{
    m_module.Language = m_module.settings().language();
    if (m_module.Language == 0) {
        Form11(m_module.IniPath).exec();
        m_module.Language = m_module.settings().language();
    }
}

void StartUp::queueCommandLine() const
{
    HandOverQueue(m_module.IniPath).append(linesToQueue(m_arguments));
}

bool StartUp::becomeFirstInstance()
{
    m_instance = std::make_unique<SingleInstance>(m_module.ApplicationFolder);
    if (!m_instance->isFirst()) {
        const bool heard = m_instance->raiseFirst(m_activationToken);
        qCInfo(logStartup, "%s", heard ? "the first instance goes on" : "the first is silent");
        return false;
    }
    connect(m_instance.get(), &SingleInstance::raiseRequested, this,
            m_boundary([this](const QString& token) { raiseMainWindow(token); }));
    m_instance->listen();
    return true;
}

void StartUp::showSplash()
{
    m_splash = std::make_unique<Form1>(m_module.Language);
    m_splash->show();
    letEventsRun();
}

void StartUp::openVideoWindow()
{
    m_control = std::make_unique<MpvMediaControl>();
    m_videoWindow = std::make_unique<Form13>(*m_control, m_boundary);
    m_engine = std::make_unique<PlaybackEngine>(m_module, *m_control, *m_videoWindow);
    m_idleInhibition = std::make_unique<IdleInhibition>(QDBusConnection::sessionBus());
    m_videoWindow->setKeepAwake([this](bool awake) { m_idleInhibition->hold(awake); });
    m_videoWindow->setPlayerKey([this](CommonKey key) { return pressPlayerKey(*m_engine, key); });
    m_videoWindow->keys().setSeek([this](double seconds) { m_engine->seekTo(seconds); });
    m_videoWindow->mirror().VideoState = 0;
    m_engine->operations().ShowVideoWindow(true);
}

/// A program that starts with the session may be there before the tray.
void StartUp::openTrayWindow()
{
    if (!m_module.optionIsOn(Option::TrayIcon)) {
        return;
    }
    m_desktopTray = std::make_unique<DesktopTray>(QDBusConnection::sessionBus());
    connect(m_desktopTray.get(), &DesktopTray::appeared, this,
            m_boundary([this] { loadTrayWindow(); }));
    if (m_desktopTray->isThere()) {
        loadTrayWindow();
    } else {
        qCInfo(logDesktop, "this desktop has no tray: no icon");
    }
}

void StartUp::loadTrayWindow()
{
    if (m_module.optionIsOn(Option::TrayIcon) && !m_trayWindow && !m_engine->isClosing()) {
        m_trayWindow = std::make_unique<Form12>(m_module);
    }
}

void StartUp::loadMainWindow()
{
    makeEditors();
    m_mainWindow = std::make_unique<Form2>(Form2Services{
        .module = m_module,
        .engine = *m_engine,
        .pickers = *m_pickers,
        .boundary = m_boundary,
        .unloadSplash = [this] { unloadSplash(); },
        .unloadOtherForms = [this] { unloadOtherForms(); },
        .videoWindow = [this] { return m_videoWindow->windowHandle(); },
        .showBookmarkSign = [] { showBookmarkSign(); },
        .showOptions = [this] { changeOptions(); },
        .videoKeys = &m_videoWindow->keys(),
        .showPacketEditor =
            [this] { return showPacketEditor(*m_editors, m_mainWindow.get()).fileToOpen; },
        .showGroupEditor =
            [this] { return showGroupEditor(*m_editors, m_mainWindow.get()).fileToOpen; },
        .showAbout = [this] { showAbout(); },
    });
    m_videoWindow->setNeighbour(m_mainWindow.get());
    m_shownWatch = std::make_unique<ShownWatch>(*m_mainWindow);
}

void StartUp::makeEditors()
{
    m_pickers = std::make_unique<ProgramPickers>(m_module, m_boundary);
    m_hold = std::make_unique<PlayerHold>(*m_control);
    m_editors = std::make_unique<EditorServices>(EditorServices{
        .module = m_module,
        .pickers = *m_pickers,
        .boundary = m_boundary,
        .makePreview = [] { return std::make_unique<MpvMediaControl>(); },
        .playerVolume = [this] { return m_control->Volume(); },
        .pausePlayer = [this] { return m_hold->hold(); },
        .resumePlayer =
            [this] {
                if (!m_engine->isClosing()) {
                    m_hold->release();
                }
            },
    });
}

/// What the dialog changes takes effect at once. Types change without OK too.
void StartUp::changeOptions()
{
    OptionsServices services{m_module, *m_registry, *m_pickers, m_boundary};
    const bool isAccepted = showOptions(services, m_mainWindow.get());
    resumeNext("types after the options", [this] {
        m_module.TypePattern = m_module.settings().typePattern();
        m_mainWindow->File1->setPattern(m_module.TypePattern);
    });
    if (isAccepted && m_module.optionIsOn(Option::TrayIcon) != (m_trayWindow != nullptr)) {
        m_trayWindow.reset();
        openTrayWindow();
    }
}

void StartUp::showMainWindowUnlessAuto()
{
    if (isAutoStart(m_commandLine)) {
        unloadSplash();
        return;
    }
    m_mainWindow->showMainWindow();
}

void StartUp::showAbout()
{
    if (!m_about) {
        m_about = std::make_unique<Form9>(m_module);
    }
    m_about->showAbout();
}

/// From now on later launches, signals and the end of the session reach the engine. Before this a
/// signal ends the process at once, so that a launch waiting for the queue can be stopped.
void StartUp::serveDesktop()
{
    const auto endProgram = m_boundary([this](auto&&...) { m_engine->closeProgram(); });
    m_endSignals = std::make_unique<EndSignals>();
    connect(m_endSignals.get(), &EndSignals::endRequested, this, endProgram);
    connect(qApp, &QGuiApplication::commitDataRequest, this, endProgram);
    serveMediaControls();
    qCInfo(logStartup, "ready");
    if (m_raiseWaiting) {
        raiseMainWindow(*m_raiseWaiting);
    }
}

void StartUp::serveMediaControls()
{
    m_mediaControls = std::make_unique<MprisService>(
        MprisPorts{
            .module = m_module,
            .engine = *m_engine,
            .control = *m_control,
            .screen = *m_videoWindow,
            .view = *m_mainWindow,
            .quit = m_boundary([this] { m_engine->closeProgram(); }),
            .open = [this](const QString& path) { openAndPlaySoon(path); },
        },
        QDBusConnection::sessionBus());
    connect(m_videoWindow.get(), &Form13::fullScreenChanged, m_mediaControls.get(),
            &MprisService::announceChanges);
}

/// From the event loop: the caller's answer does not wait for the media.
void StartUp::openAndPlaySoon(const QString& path)
{
    QTimer::singleShot(0, this, m_boundary([this, path] { m_engine->openAndPlay(path); }));
}

void StartUp::raiseMainWindow(const QString& activationToken)
{
    if (!m_endSignals) {
        m_raiseWaiting = activationToken; // still starting: there is no window to raise yet
        return;
    }
    qCInfo(logStartup, "raised by a later launch");
    m_mainWindow->showMainWindow();
    if (m_mainWindow->isMinimized()) {
        m_mainWindow->showNormal();
    }
    bringToFront(m_mainWindow->windowHandle(), activationToken);
}

void StartUp::unloadSplash()
{
    if (m_splash) {
        m_splash->hide();
        m_splash.release()->deleteLater(); // perhaps asked for by one of its own events
    }
}

/// exit, not quit: quit would first ask every window to close.
void StartUp::unloadOtherForms()
{
    m_ended = true;
    m_trayWindow.reset();
    m_videoWindow->hide();
    QCoreApplication::exit(0);
}

void StartUp::releaseBeforeReport()
{
    m_trayWindow.reset();
    if (m_control) {
        m_control->Pause();
    }
    if (m_instance) {
        m_instance->release();
    }
}

} // namespace orvanta
