// The program under test, and what it says on standard error.
#pragma once

#include "tests/e2e/support/desktop.h"
#include "tests/e2e/support/home.h"

#include <QRegularExpression>
#include <QStringList>

#include <optional>
#include <vector>

namespace orvanta::e2e {

/// One line of the program's log. seconds: since the program's start, by its own clock.
struct LogLine
{
    double seconds = 0;
    QString text; // "orvanta.playback: ended 1 1"
};

/// Runs build/orvanta with the application folder of a Home. Ended with the test.
class Application
{
public:
    Application(const Desktop& desktop, const Home& home);

    /// For the program alone; before start.
    void setVariable(const QString& name, const QString& value);
    /// Another program than the built one; before start.
    void setProgram(const QString& path) { m_program = path; }
    /// Starts it and returns at once.
    void start(const QStringList& arguments = {});
    /// Starts it and waits until its main window is shown. What it said until then can still be
    /// asked for: under load a clip may start before the window is painted.
    [[nodiscard]] bool startAndShow(const QStringList& arguments = {});

    [[nodiscard]] qint64 pid() const { return m_process.processId(); }
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    [[nodiscard]] bool waitForEnd(int limitMs = kLongMs);
    /// Of an ended program; -1 when a signal ended it.
    [[nodiscard]] int exitStatus() const;
    /// Waits for the end; -1 also when the program does not end.
    [[nodiscard]] int statusAtEnd() { return waitForEnd() ? exitStatus() : -1; }
    void sendSignal(int signal) const;

    /// The next line that matches, after the one given last. Nothing when none comes in time or
    /// the program ends without it.
    std::optional<LogLine> next(const QString& pattern, int limitMs = kLongMs);
    /// The same without counting it as given.
    [[nodiscard]] std::optional<LogLine> peek(const QString& pattern, int limitMs = kLongMs);
    /// The lines after the one given last, up to and without the next that matches (which counts
    /// as given). Nothing when none matches in time.
    std::optional<QStringList> linesUntil(const QString& pattern, int limitMs = kLongMs);
    /// All lines so far that match.
    [[nodiscard]] QStringList linesMatching(const QString& pattern) const;
    /// Everything that it wrote on standard error, for the message of a failing test.
    [[nodiscard]] std::string said() const;
    [[nodiscard]] QByteArray standardOutput() { return m_process.readAllStandardOutput(); }

    static constexpr int kLongMs = 60000;

private:
    void readLines();
    [[nodiscard]] std::optional<std::size_t> indexOf(const QRegularExpression& pattern) const;
    std::optional<std::size_t> waitForIndex(const QString& pattern, int limitMs);

    QString m_program;
    QByteArray m_unfinished;
    std::vector<LogLine> m_lines;
    std::size_t m_next = 0; // the first line not given yet
    OwnedProcess m_process; // goes first: while it ends, its last lines come in
};

/// The built program.
[[nodiscard]] QString programPath();

/// A second launch with these arguments, awaited. Returns its exit status.
int launchAgain(const Desktop& desktop, const Home& home, const QStringList& arguments);

} // namespace orvanta::e2e
