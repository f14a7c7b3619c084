// One run of the program around a media control of the session's choice, without a screen.
#pragma once

#include "app/program.h"
#include "playback/form13_video_window.h"
#include "system/form12_tray.h"
#include "system/form9_about.h"
#include "tests/support/scripted_pickers.h"
#include "tests/support/settings_folder.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"

#include <optional>
#include <utility>

namespace orvanta::session {

/// The tick's timer rests: the session ticks.
struct ProgramRun
{
    using MakeControl = std::function<std::unique_ptr<MediaControl>()>;

    ProgramRun(const SettingsFolder& home, Registry& registry, MakeControl makeControl,
               const QDBusConnection& bus)
        : module(moduleIn(home)),
          program({
              .module = module,
              .registry = registry,
              .pickers = pickers,
              .boundary = HandlerBoundary([this](const RuntimeError& e) { error = e.number(); }),
              .makeControl = std::move(makeControl),
              .bus = bus,
              .unloadSplash = [] {},
              .ended = [this] { ended = true; },
          })
    {
        program.loadTrayWindow();
        program.loadMainWindow();
        program.mainWindow().Timer1.stop();
        program.serveMediaControls();
        program.mainWindow().showMainWindow();
    }

    static Module1 moduleIn(const SettingsFolder& home)
    {
        Module1 module;
        module.ApplicationFolder = home.path();
        module.IniPath = home.ini();
        module.TypePattern = module.settings().typePattern();
        module.Language = 1;
        return module;
    }

    [[nodiscard]] bool hasEnded() const { return ended || error.has_value(); }

    Module1 module;
    ScriptedPickers pickers{module};
    std::optional<ErrorNumber> error; // the untrapped one that ended it
    bool ended = false;
    Program program;
};

} // namespace orvanta::session
