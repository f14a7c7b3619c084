// The start-up procedure: everything that is decided before the main window shows.
#pragma once

#include "app/run_time_report.h"
#include "core/error_boundary.h"
#include "editors/program_pickers.h"
#include "model/module1.h"
#include "platform/file_types/registry.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <optional>

namespace orvanta {

class EndSignals;
class Form1;
class Program;
class SingleInstance;

/// Owns the program and what surrounds it for as long as it runs.
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
    void queueCommandLine();
    bool takePlace();
    bool becomeFirstInstance();
    void showSplash();
    void makeProgram();
    void showMainWindowUnlessAuto();
    void serveDesktop();

    void sayThatNothingIsKept();
    void raiseMainWindow(const QString& activationToken);
    void tickSoon();
    void unloadSplash();
    void leaveEventLoop();
    void releaseBeforeReport();

    QStringList m_arguments;
    QString m_commandLine;
    QString m_activationToken;
    RunTimeReport m_report{
        [this] { releaseBeforeReport(); },
        [this] { return m_module.settings().textLanguage(TextLanguage::English); }};
    HandlerBoundary m_boundary{[this](const RuntimeError& error) { m_report(error); }};
    bool m_ended = false;
    std::optional<QString> m_raiseWaiting; // token of a launch that came during the start

    // Destroyed from the last to the first: the program before what it is given, the instance's
    // lock after it.
    Module1 m_module;
    std::optional<Registry> m_registry;
    std::unique_ptr<SingleInstance> m_instance;
    ProgramPickers m_pickers{m_module, m_boundary};
    std::unique_ptr<Form1> m_splash;
    std::unique_ptr<Program> m_program;
    std::unique_ptr<EndSignals> m_endSignals;
};

} // namespace orvanta
