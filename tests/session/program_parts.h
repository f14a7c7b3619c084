// The program's parts put together as its start does, around a media control of the test's choice,
// without a screen.
#pragma once

#include "app/player_hold.h"
#include "editors/editor_services.h"
#include "platform/file_types/registry.h"
#include "playback/form13_video_window.h"
#include "system/form12_tray.h"
#include "system/form8_options_dialog.h"
#include "system/form9_about.h"
#include "system/mpris_service.h"
#include "tests/support/settings_folder.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"

#include <QDBusConnection>

#include <functional>
#include <memory>
#include <optional>

namespace orvanta::session {

/// Answers at once with the files that the session has laid out.
class LaidOutPickers : public Pickers
{
public:
    explicit LaidOutPickers(Module1& module)
        : m_module(module)
    {}

    QStringList answer; // none: cancelled
    QString saveAnswer; // empty: cancelled

    void ShowOpenPicker(const QString& /*pattern*/, bool /*several*/) override
    {
        m_module.picker.PickedFiles = QStringList{QString()} + answer;
    }
    void ShowSavePicker(const QString& /*pattern*/) override
    {
        m_module.picker.SaveFileName = saveAnswer;
    }

private:
    Module1& m_module;
};

/// One run of the program. The tick's timer rests: the session ticks.
class ProgramParts
{
public:
    using MakeControl = std::function<std::unique_ptr<MediaControl>()>;

    /// What outlives one run of the program.
    struct Surroundings
    {
        const SettingsFolder& home;
        Registry& registry;      // whose end waits for the desktop's caches
        MakeControl makeControl; // for the player and for each preview
    };

    /// bus: where the media controls are served.
    ProgramParts(const Surroundings& surroundings, QDBusConnection bus);
    ~ProgramParts();
    ProgramParts(const ProgramParts&) = delete;
    ProgramParts& operator=(const ProgramParts&) = delete;

    [[nodiscard]] bool hasEnded() const { return m_ended || m_error.has_value(); }
    /// The untrapped error that ended it.
    [[nodiscard]] std::optional<ErrorNumber> error() const { return m_error; }

    Module1 module;
    std::unique_ptr<MediaControl> control;
    LaidOutPickers pickers{module};
    std::optional<OptionsServices> options;
    std::optional<PlayerHold> hold;
    std::optional<EditorServices> editors;
    std::unique_ptr<Form13> videoWindow;
    std::unique_ptr<PlaybackEngine> engine;
    std::unique_ptr<Form12> tray;
    std::unique_ptr<Form2> mainWindow;
    std::unique_ptr<Form9> about; // from the first time that it is asked for
    std::unique_ptr<MprisService> mediaControls;

private:
    void makeEditors(const HandlerBoundary& boundary);
    void changeOptions();
    void showAbout();
    void openVideoWindow(const HandlerBoundary& boundary);
    void loadMainWindow(const HandlerBoundary& boundary);
    void serveMediaControls(QDBusConnection bus);

    MakeControl m_makeControl;
    std::optional<ErrorNumber> m_error;
    bool m_ended = false;
};

} // namespace orvanta::session
