#include "app/start_up.h"

#include "app/command_line.h"
#include "app/program.h"
#include "app/start_up_steps.h"
#include "core/ini.h"
#include "core/log.h"
#include "core/paths.h"
#include "platform/media/media_library.h"
#include "platform/process/application_folder.h"
#include "platform/process/end_signals.h"
#include "platform/process/folder_search.h"
#include "platform/process/hand_over_queue.h"
#include "platform/process/shipped_add_ins.h"
#include "platform/process/single_instance.h"
#include "platform/screen/window_stacking.h"
#include "playback/playback_engine.h"
#include "window/clip_line.h"
#include "window/form11_language_dialog.h"
#include "window/form1_splash.h"
#include "window/form2_main_window.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr std::chrono::seconds kPatienceWithFirst(10);
constexpr unsigned long kPauseBetweenLooksMs = 15;
constexpr std::chrono::seconds kPauseBeforeWarning(1);

static void letEventsRun()
{
    QCoreApplication::processEvents();
}

StartUp::StartUp(QStringList arguments, QString activationToken)
    : m_arguments(std::move(arguments)),
      m_commandLine(commandLine(m_arguments)),
      m_activationToken(std::move(activationToken))
{}

/// What is still looking through folders ends with the program.
StartUp::~StartUp()
{
    forgetFolders();
}

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
    makeProgram();
    m_program->openTrayWindow();
    letEventsRun();
    // From here on a failing step is passed over.
    if (!qEnvironmentVariableIsSet("ORVANTA_UNREGISTERED")) { // set for a run from the checkout
        resumeNext("folder verb",
                   [&] { registerFolderVerb(*m_registry, m_module.ApplicationFolder); });
    }
    m_program->loadMainWindow();
    resumeNext("showing the main window", [&] { showMainWindowUnlessAuto(); });
    resumeNext("showing the video window",
               [&] { m_program->engine().operations().ShowVideoWindow(true); });
    serveDesktop();
    return true;
}

void StartUp::buildIniPath()
{
    m_module.ApplicationFolder = applicationFolder();
    requireSettings(m_module.ApplicationFolder);
    m_module.IniPath = programFile(m_module.ApplicationFolder, u"\\orvanta.ini"_s);
    bringShippedAddIns(m_module.IniPath);
    m_registry.emplace(m_module.ApplicationFolder);
    prepareDocuments(m_module.ApplicationFolder);
}

void StartUp::chooseLanguage()
{
    m_module.Language = m_module.settings().language();
    if (m_module.Language == 0) {
        Form11(m_module.IniPath).exec();
        m_module.Language = m_module.settings().language();
    }
}

/// Where the settings cannot be written the lines go by memory, and to a first instance by its
/// socket.
void StartUp::queueCommandLine()
{
    const QStringList lines = linesToQueue(m_arguments);
    if (!HandOverQueue(m_module.IniPath).append(lines)) {
        std::fprintf(stderr, "orvanta: the settings in %s cannot be written\n",
                     QFile::encodeName(m_module.IniPath).constData());
        m_module.HandedOver = lines;
    }
}

bool StartUp::takePlace()
{
    m_instance = std::make_unique<SingleInstance>(m_module.ApplicationFolder);
    return m_instance->isFirst();
}

/// Until the first instance has heard this launch and taken what it queued. One that is just ending
/// does neither, and leaves its place to this one.
bool StartUp::becomeFirstInstance()
{
    const HandOverQueue queue(m_module.IniPath);
    const QDeadlineTimer patience(kPatienceWithFirst);
    bool heard = false;
    while (!takePlace()) {
        heard = heard || m_instance->raiseFirst(m_activationToken, m_module.HandedOver);
        const bool isTaken = !m_module.HandedOver.isEmpty() || !queue.hasEntries();
        if ((heard && isTaken) || patience.hasExpired()) {
            qCInfo(logStartup, "%s", heard ? "the first instance goes on" : "the first is silent");
            return false;
        }
        QThread::msleep(kPauseBetweenLooksMs);
    }
    connect(m_instance.get(), &SingleInstance::raiseRequested, this,
            m_boundary([this](const QString& token) { raiseMainWindow(token); }));
    connect(m_instance.get(), &SingleInstance::linesHandedOver, this,
            [this](const QStringList& lines) { m_module.HandedOver += lines; });
    m_instance->listen([this] { return !m_program || !m_program->engine().isClosing(); });
    return true;
}

void StartUp::showSplash()
{
    m_splash = std::make_unique<Form1>(m_module.Language);
    m_splash->show();
    letEventsRun();
}

void StartUp::makeProgram()
{
    m_program = std::make_unique<Program>(ProgramSurroundings{
        .module = m_module,
        .registry = *m_registry,
        .pickers = m_pickers,
        .boundary = m_boundary,
        .makeControl =
            [this] { return makeMediaControl(playerOptions(m_module.ApplicationFolder)); },
        .makePlayer =
            [this] {
                return makeMediaControl(playerOptions(m_module.ApplicationFolder),
                                        rendererChoice(m_module.ApplicationFolder));
            },
        .bus = QDBusConnection::sessionBus(),
        .unloadSplash = [this] { unloadSplash(); },
        .ended = [this] { leaveEventLoop(); },
        .closing = [this] { m_instance->release(); },
    });
}

void StartUp::showMainWindowUnlessAuto()
{
    if (isAutoStart(m_commandLine)) {
        unloadSplash();
        return;
    }
    m_program->mainWindow().showMainWindow();
}

/// From now on later launches, signals and the end of the session reach the engine. Before this a
/// signal ends the process at once, so that a launch waiting for the queue can be stopped.
void StartUp::serveDesktop()
{
    const auto endProgram = m_boundary([this](auto&&...) { m_program->engine().closeProgram(); });
    m_endSignals = std::make_unique<EndSignals>();
    connect(m_endSignals.get(), &EndSignals::endRequested, this, endProgram);
    connect(qApp, &QGuiApplication::commitDataRequest, this, endProgram);
    m_program->serveMediaControls();
    qCInfo(logStartup, "ready");
    if (!m_module.HandedOver.isEmpty() || !canWriteIni(m_module.IniPath)) {
        // When what was handed over is open, and its text in the line.
        QTimer::singleShot(kPauseBeforeWarning, this, [this] { sayThatNothingIsKept(); });
    }
    if (m_raiseWaiting) {
        raiseMainWindow(*m_raiseWaiting);
    }
    tickSoon();
}

/// What a launch hands over does not wait for the timer. Queued: a tick may wait in the event loop,
/// which a call at the socket must not.
void StartUp::tickSoon()
{
    QTimer::singleShot(0, this, m_boundary([this] { m_program->engine().tick(); }));
}

void StartUp::sayThatNothingIsKept()
{
    const TextLanguage language = textLanguage(m_module.Language.value(), TextLanguage::Russian);
    m_program->mainWindow().Text2->sayForAMoment(
        interfaceText(u"Form2", u"Text2.unkept", language));
}

void StartUp::raiseMainWindow(const QString& activationToken)
{
    if (!m_endSignals) {
        m_raiseWaiting = activationToken; // still starting: there is no window to raise yet
        return;
    }
    qCInfo(logStartup, "raised by a later launch");
    Form2& window = m_program->mainWindow();
    window.showMainWindow();
    window.raiseFor(activationToken);
    tickSoon();
}

void StartUp::unloadSplash()
{
    if (m_splash) {
        m_splash->hide();
        m_splash.release()->deleteLater(); // perhaps asked for by one of its own events
    }
}

/// exit, not quit: quit would first ask every window to close.
void StartUp::leaveEventLoop()
{
    m_ended = true;
    QCoreApplication::exit(0);
}

void StartUp::releaseBeforeReport()
{
    if (m_program) {
        m_program->fallSilent();
    }
    if (m_instance) {
        m_instance->release();
    }
}

} // namespace orvanta
