#include "tests/session/program_parts.h"

#include "player/model/type_pattern.h"
#include "player/window/file_list.h"

#include <QTimer>

#include <utility>

namespace orvanta::session {

ProgramParts::ProgramParts(const SettingsFolder& home, std::unique_ptr<MediaControl> player,
                           QDBusConnection bus)
    : control(std::move(player))
{
    module.ApplicationFolder = home.path();
    module.IniPath = home.ini();
    module.TypePattern = typePattern(module.IniPath);
    module.Language = 1;
    const HandlerBoundary boundary([this](const RuntimeError& error) { m_error = error.number(); });
    openVideoWindow(boundary);
    tray = std::make_unique<Form12>(module);
    loadMainWindow(boundary);
    serveMediaControls(std::move(bus));
    mainWindow->showMainWindow();
}

ProgramParts::~ProgramParts()
{
    mediaControls.reset();
    mainWindow.reset();
    tray.reset();
    engine.reset();
    videoWindow.reset();
}

void ProgramParts::openVideoWindow(const HandlerBoundary& boundary)
{
    videoWindow = std::make_unique<Form13>(*control, boundary);
    engine = std::make_unique<PlaybackEngine>(module, *control, *videoWindow);
    videoWindow->setQuit([this] { engine->closeProgram(); });
    videoWindow->keys().setSeek([this](double seconds) { engine->seekTo(seconds); });
    videoWindow->mirror().VideoState = 0;
    engine->operations().ShowVideoWindow(true);
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
        .videoKeys = &videoWindow->keys(),
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
