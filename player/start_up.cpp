#include "player/start_up.h"

#include "core/ini.h"
#include "core/log.h"
#include "core/paths.h"
#include "platform/application_folder.h"
#include "platform/end_signals.h"
#include "platform/hand_over_queue.h"
#include "platform/mpv_media_control.h"
#include "platform/single_instance.h"
#include "platform/window_stacking.h"
#include "playback/form13_video_window.h"
#include "playback/form4_bookmark_sign.h"
#include "playback/playback_engine.h"
#include "player/command_line.h"
#include "player/model/type_pattern.h"
#include "player/shown_watch.h"
#include "player/start_up_steps.h"
#include "player/window/file_list.h"
#include "player/window/form11_language_dialog.h"
#include "player/window/form1_splash.h"
#include "player/window/form2_main_window.h"
#include "player/window/stand_in_pickers.h"

#include <QApplication>

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
    m_module.TypePattern = typePattern(m_module.IniPath);
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
    setLegacyCodePage(ReadIni(u"text"_s, u"codepage"_s, platformIni));
}

void StartUp::chooseLanguage()
{
    m_module.Language = storedLanguage(m_module.IniPath);
    if (m_module.Language == 0) {
        Form11(m_module.IniPath).exec();
        m_module.Language = storedLanguage(m_module.IniPath);
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
    m_videoWindow->mirror().VideoState = 0;
    m_engine->operations().ShowVideoWindow(true);
}

void StartUp::openTrayWindow() const
{
    if (m_module.optionIsOn(u"si"_s)) {
        qCInfo(logStartup, "the tray icon is switched on, but this version has none");
    }
}

void StartUp::loadMainWindow()
{
    m_pickers = std::make_unique<StandInPickers>(m_module);
    m_mainWindow = std::make_unique<Form2>(Form2Services{
        .module = m_module,
        .engine = *m_engine,
        .pickers = *m_pickers,
        .boundary = m_boundary,
        .unloadSplash = [this] { unloadSplash(); },
        .unloadOtherForms = [this] { unloadOtherForms(); },
        .videoWindow = [this] { return m_videoWindow->windowHandle(); },
        .showBookmarkSign = [] { showBookmarkSign(); },
    });
    m_videoWindow->setNeighbour(m_mainWindow.get());
    m_shownWatch = std::make_unique<ShownWatch>(*m_mainWindow);
}

void StartUp::showMainWindowUnlessAuto()
{
    if (isAutoStart(m_commandLine)) {
        unloadSplash();
        return;
    }
    m_mainWindow->showMainWindow();
}

/// From now on later launches, signals and the end of the session reach the engine. Before this a
/// signal ends the process at once, so that a launch waiting for the queue can be stopped.
void StartUp::serveDesktop()
{
    const auto endProgram = m_boundary([this](auto&&...) { m_engine->closeProgram(); });
    m_endSignals = std::make_unique<EndSignals>();
    connect(m_endSignals.get(), &EndSignals::endRequested, this, endProgram);
    connect(qApp, &QGuiApplication::commitDataRequest, this, endProgram);
    qCInfo(logStartup, "ready");
    if (m_raiseWaiting) {
        raiseMainWindow(*m_raiseWaiting);
    }
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
    m_videoWindow->hide();
    QCoreApplication::exit(0);
}

void StartUp::releaseBeforeReport()
{
    if (m_control) {
        m_control->Pause();
    }
    if (m_instance) {
        m_instance->release();
    }
}

} // namespace orvanta
