// A long piece of work on a box: how far it is, whether it is to stop, and how it fails.
#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <exception>
#include <functional>

namespace orvanta {

/// What is being done. Not every box goes through all of them.
enum class BoxStep
{
    Gathering,
    Converting, // for the browser
    Writing,
    Checking, // reading back
    Burning,
};

struct BoxState
{
    BoxStep step = BoxStep::Gathering;
    qint64 done = 0; // bytes
    qint64 all = 0;  // bytes; 0: nobody knows
};

/// Why there is no box.
enum class BoxProblem
{
    Stopped,
    NoLesson,      // nothing, or something that is no packet and no group, was named
    Missing,       // some of it is not there, and nobody said to go on without
    Unreadable,    // a file of the lesson, or it has changed meanwhile
    NoRoom,        // on the disk
    TooLarge,      // a file, for the file system
    Exists,        // and is not to be replaced
    Unwritable,    // the target
    Different,     // what was written does not read back as it was
    NoProgram,     // that writes images is not there
    ProgramFailed, // and said so
    NoDrive,       // to burn with, or no medium in it
};

class BoxFailure : public std::exception
{
public:
    /// what: the file or the program's words; may be empty.
    explicit BoxFailure(BoxProblem problem, QString what = {})
        : m_problem(problem),
          m_what(std::move(what)),
          m_bytes(m_what.toUtf8())
    {}

    [[nodiscard]] BoxProblem problem() const { return m_problem; }
    [[nodiscard]] const QString& about() const { return m_what; }
    [[nodiscard]] const char* what() const noexcept override { return m_bytes.constData(); }

private:
    BoxProblem m_problem;
    QString m_what;
    QByteArray m_bytes;
};

/// Belongs to the thread that works; stop() may come from any.
class BoxWork
{
public:
    /// Called from the thread that works, ten times a second at most, and at each step's begin and
    /// end.
    using Report = std::function<void(const BoxState&)>;

    explicit BoxWork(Report report = {})
        : m_report(std::move(report))
    {}

    void stop() { m_isStopped = true; }
    [[nodiscard]] bool isStopped() const { return m_isStopped; }
    /// Raises Stopped once stop() was called.
    void goOn() const;

    /// Raises Stopped, too, as the next two.
    void begin(BoxStep step, qint64 all);
    void add(qint64 bytes) { reach(m_state.done + bytes); }
    void reach(qint64 done);

private:
    void say();

    Report m_report;
    std::atomic<bool> m_isStopped = false;
    BoxState m_state;
    std::chrono::steady_clock::time_point m_said;
};

} // namespace orvanta
