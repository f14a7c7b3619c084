#include "tests/session/program_parts.h"

#include "window/file_list.h"

#include <QTimer>

#include <utility>

namespace orvanta::session {

ProgramParts::ProgramParts(const Surroundings& surroundings, QDBusConnection bus)
    : control(surroundings.makeControl()),
      m_makeControl(surroundings.makeControl)
{
    const SettingsFolder& home = surroundings.home;
    module.ApplicationFolder = home.path();
    module.IniPath = home.ini();
    module.TypePattern = module.settings().typePattern();
    module.Language = 1;
    const HandlerBoundary boundary([this](const RuntimeError& error) { m_error = error.number(); });
    openVideoWindow(boundary);
    makeEditors(boundary);
    options.emplace(OptionsServices{module, surroundings.registry, pickers, boundary});
    tray = std::make_unique<Form12>(module);
    loadMainWindow(boundary);
    serveMediaControls(std::move(bus));
    mainWindow->showMainWindow();
}

ProgramParts::~ProgramParts()
{
    mediaControls.reset();
    about.reset();
    mainWindow.reset();
    tray.reset();
    engine.reset();
    videoWindow.reset();
}

void ProgramParts::openVideoWindow(const HandlerBoundary& boundary)
{
    videoWindow = std::make_unique<Form13>(*control, boundary);
    engine = std::make_unique<PlaybackEngine>(module, *control, *videoWindow);
    videoWindow->setPlayerKey([this](CommonKey key) { return pressPlayerKey(*engine, key); });
    videoWindow->keys().setSeek([this](double seconds) { engine->seekTo(seconds); });
    videoWindow->mirror().VideoState = 0;
    engine->operations().ShowVideoWindow(true);
}

void ProgramParts::makeEditors(const HandlerBoundary& boundary)
{
    hold.emplace(*control);
    editors.emplace(EditorServices{
        .module = module,
        .pickers = pickers,
        .boundary = boundary,
        .makePreview = m_makeControl,
        .playerVolume = [this] { return control->Volume(); },
        .pausePlayer = [this] { return hold->hold(); },
        .resumePlayer =
            [this] {
                if (!engine->isClosing()) {
                    hold->release();
                }
            },
    });
}

void ProgramParts::changeOptions()
{
    const bool isAccepted = showOptions(*options, mainWindow.get());
    module.TypePattern = module.settings().typePattern();
    mainWindow->File1->setPattern(module.TypePattern);
    if (isAccepted) {
        tray = std::make_unique<Form12>(module); // in the language that is stored now
    }
}

void ProgramParts::showAbout()
{
    if (!about) {
        about = std::make_unique<Form9>(module);
    }
    about->showAbout();
}

void ProgramParts::loadMainWindow(const HandlerBoundary& boundary)
{
    mainWindow = std::make_unique<Form2>(Form2Services{
        .module = module,
        .engine = *engine,
        .pickers = pickers,
        .boundary = boundary,
        .unloadSplash = [] {},
        .unloadOtherForms = [this] { m_ended = true; },
        .videoWindow = [this] { return videoWindow->windowHandle(); },
        .showOptions = [this] { changeOptions(); },
        .videoKeys = &videoWindow->keys(),
        .showPacketEditor =
            [this] { return showPacketEditor(*editors, mainWindow.get()).fileToOpen; },
        .showGroupEditor =
            [this] { return showGroupEditor(*editors, mainWindow.get()).fileToOpen; },
        .showAbout = [this] { showAbout(); },
    });
    mainWindow->Timer1.stop();
    mainWindow->File1->setPattern(module.TypePattern);
    videoWindow->setNeighbour(mainWindow.get());
}

void ProgramParts::serveMediaControls(QDBusConnection bus)
{
    mediaControls = std::make_unique<MprisService>(
        MprisPorts{
            .module = module,
            .engine = *engine,
            .control = *control,
            .screen = *videoWindow,
            .view = *mainWindow,
            .quit = [this] { engine->closeProgram(); },
            .open =
                [this](const QString& path) {
                    QTimer::singleShot(0, engine.get(),
                                       [this, path] { engine->openAndPlay(path); });
                },
        },
        std::move(bus));
}

} // namespace orvanta::session
