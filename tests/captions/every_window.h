// Every window of the program that bears captions, made as the program makes it.
#pragma once

#include "core/error_boundary.h"
#include "editors/editor_services.h"
#include "editors/program_pickers.h"
#include "platform/file_types/registry.h"
#include "playback/playback_engine.h"
#include "system/form8_options_dialog.h"
#include "tests/support/desktop_room.h"
#include "tests/support/plain_screen.h"
#include "tests/support/plain_video_window.h"
#include "tests/support/scripted_media_control.h"
#include "tests/support/settings_folder.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QMenu;

namespace orvanta::test {

/// What a window needs to be made, in one language.
struct Surroundings
{
    explicit Surroundings(int language);

    DesktopRoom desktop;
    SettingsFolder home;
    Module1 module;
    ScriptedMediaControl control;
    PlainVideoWindow video{control};
    PlaybackEngine engine{module, control, video};
    PlainScreen screen;
    VideoWindowKeys videoKeys{control, video.mirror(), screen, [](double) {}};
    HandlerBoundary boundary;
    ProgramPickers pickers{module, boundary};
    EditorServices editors; // with a preview that plays nothing
    Registry registry{home.path(), QStringLiteral("/usr/bin/true")};
    OptionsServices options{module, registry, pickers, boundary};
};

/// One window, or one page or mode of it.
struct WindowOfProgram
{
    const char* name;
    std::function<std::unique_ptr<QWidget>(Surroundings&)> make;
    int captions; // at least so many are seen on it
};

/// A new window is added in every_window.cpp by one line.
[[nodiscard]] const std::vector<WindowOfProgram>& everyWindow();

} // namespace orvanta::test
