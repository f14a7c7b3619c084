// The start-up procedure: everything that is decided before the main window shows.
#pragma once

#include "app/run_time_report.h"
#include "core/error_boundary.h"
#include "model/module1.h"
#include "platform/file_types/registry.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

namespace orvanta {

struct EditorServices;
class DesktopTray;
class EndSignals;
class Form1;
class Form12;
class Form13;
class Form2;
class Form9;
class IdleInhibition;
class MprisService;
class MediaControl;
class Pickers;
class PlaybackEngine;
class PlayerHold;
class ShownWatch;
class SingleInstance;

/// Owns the windows and services for as long as the program runs.
class StartUp : public QObject
{
    Q_OBJECT

public:
    /// arguments: those behind the program's name. activationToken: the one of this launch.
    StartUp(QStringList arguments, QString activationToken);
    ~StartUp() override;

    /// Runs Main and then the event loop until the program ends. Returns the exit status. An
    /// error that Main does not trap ends the process through the report.
    int run();

private:
    /// False when another instance goes on with this launch's command line.
    bool Main();

    void buildIniPath();
    void chooseLanguage();
    void queueCommandLine() const;
    bool becomeFirstInstance();
    void showSplash();
    void openVideoWindow();
    void openTrayWindow();
    void loadTrayWindow();
    void loadMainWindow();
    void makeEditors();
    void changeOptions();
    void showMainWindowUnlessAuto();
    void showAbout();
    void serveDesktop();
    void serveMediaControls();
    void openAndPlaySoon(const QString& path);

    void raiseMainWindow(const QString& activationToken);
    void unloadSplash();
    void unloadOtherForms();
    void releaseBeforeReport();

    QStringList m_arguments;
    QString m_commandLine;
    QString m_activationToken;
    RunTimeReport m_report;
    HandlerBoundary m_boundary;
    bool m_ended = false;
    std::optional<QString> m_raiseWaiting; // token of a launch that came during the start

    // Destroyed from the last to the first: windows before the engine, the engine before the
    // player, the instance's lock after all of them.
    Module1 m_module;
    std::optional<Registry> m_registry;
    std::unique_ptr<SingleInstance> m_instance;
    std::unique_ptr<MediaControl> m_control;
    std::unique_ptr<IdleInhibition> m_idleInhibition;
    std::unique_ptr<Form13> m_videoWindow;
    std::unique_ptr<PlaybackEngine> m_engine;
    std::unique_ptr<Pickers> m_pickers;
    std::unique_ptr<PlayerHold> m_hold;
    std::unique_ptr<EditorServices> m_editors;
    std::unique_ptr<Form1> m_splash;
    std::unique_ptr<DesktopTray> m_desktopTray;
    std::unique_ptr<Form12> m_trayWindow; // only while the option asks for it
    std::unique_ptr<Form2> m_mainWindow;
    std::unique_ptr<Form9> m_about; // from the first time that it is asked for
    std::unique_ptr<MprisService> m_mediaControls;
    std::unique_ptr<ShownWatch> m_shownWatch;
    std::unique_ptr<EndSignals> m_endSignals;
};

} // namespace orvanta
