// The program: player, engine, windows and services, and how they are connected.
#pragma once

#include "core/error_boundary.h"
#include "model/module1.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>

class QScreen;

namespace orvanta {

struct EditorServices;
class ColourScheme;
class DesktopTray;
class Form12;
class Form13;
class Form2;
class Form9;
class LessonKeeper;
class IdleInhibition;
class MediaControl;
class MprisService;
class Pickers;
class PlaybackEngine;
class PlayerHold;
class Registry;
class ShownWatch;
class TrackControls;

/// Everything the program is given. All of it outlives the program.
struct ProgramSurroundings
{
    Module1& module;
    Registry& registry;
    Pickers& pickers;
    HandlerBoundary boundary;
    /// A media control of its own for the player and for each preview. May raise 53.
    std::function<std::unique_ptr<MediaControl>()> makeControl;
    /// The one for the video window, which may draw by OpenGL; empty: as for the previews.
    std::function<std::unique_ptr<MediaControl>()> makePlayer = {};
    QDBusConnection bus;                   // the session's
    std::function<void()> unloadSplash;    // Form1 goes at the main window's first activation
    std::function<void()> ended;           // its windows are gone
    std::function<void()> closing = [] {}; // it will end; long before its windows are gone, perhaps
};

/// Made step by step, as the start goes on. Interface thread only.
class Program : public QObject
{
    Q_OBJECT

public:
    /// Opens the player and the video window.
    explicit Program(ProgramSurroundings surroundings);
    ~Program() override;

    /// Shows the icon (Form12) when the option asks for it, as soon as the desktop has a tray.
    void openTrayWindow();
    /// The same for a desktop that is known to have one.
    void loadTrayWindow();
    /// Loads the main window, not yet shown.
    void loadMainWindow();
    /// From now on the desktop's media controls steer the program. After loadMainWindow.
    void serveMediaControls();
    /// The icon goes and the player pauses: an error is about to be reported.
    void fallSilent();

    [[nodiscard]] MediaControl& control() const { return *m_control; }
    [[nodiscard]] PlaybackEngine& engine() const { return *m_engine; }
    [[nodiscard]] Form13& videoWindow() const { return *m_videoWindow; }
    /// Not before loadMainWindow.
    [[nodiscard]] Form2& mainWindow() const { return *m_mainWindow; }
    /// Null while there is none.
    [[nodiscard]] Form12* trayWindow() const { return m_trayWindow.get(); }
    [[nodiscard]] Form9* about() const { return m_about.get(); }

private:
    void openVideoWindow();
    void makeEditors();
    void changeOptions();
    [[nodiscard]] const QScreen* screenOfLesson() const;
    void showAbout();
    void openAndPlaySoon(const QString& path);
    void unloadOtherForms();

    ProgramSurroundings m_surroundings;

    // Destroyed from the last to the first: windows before the engine, the engine before the
    // player.
    std::unique_ptr<MediaControl> m_control;
    std::unique_ptr<TrackControls> m_tracks;
    std::unique_ptr<IdleInhibition> m_idleInhibition;
    std::unique_ptr<ColourScheme> m_colourScheme;
    std::unique_ptr<Form13> m_videoWindow;
    std::unique_ptr<PlaybackEngine> m_engine;
    std::unique_ptr<LessonKeeper> m_keeper;
    std::unique_ptr<PlayerHold> m_hold;
    std::unique_ptr<EditorServices> m_editors;
    std::unique_ptr<DesktopTray> m_desktopTray;
    std::unique_ptr<Form12> m_trayWindow; // only while the option asks for it
    std::unique_ptr<Form2> m_mainWindow;
    std::unique_ptr<Form9> m_about; // from the first time that it is asked for
    std::unique_ptr<MprisService> m_mediaControls;
    std::unique_ptr<ShownWatch> m_shownWatch;
};

} // namespace orvanta
