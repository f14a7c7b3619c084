// The report of an error that no handler trapped. It ends the program.
#pragma once

#include "core/run_time_error.h"

#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <utility>

class QMessageBox;

namespace orvanta {

/// Says the error on standard error and in a dialog, and ends the process with exit status 1.
class RunTimeReport
{
public:
    /// release: gives up what others may be waiting for (the instance lock) and silences the
    /// player. It runs before the dialog shows.
    explicit RunTimeReport(std::function<void()> release)
        : m_release(std::move(release))
    {}

    /// From here on no timer and no queued call of the program runs, and SIGTERM ends it at once.
    /// Where nobody can see or close a dialog there is none.
    [[noreturn]] void operator()(const RuntimeError& error) const;

private:
    std::function<void()> m_release;
};

/// The line on standard error: "Run-time error '13': Type mismatch".
[[nodiscard]] QString reportLine(const RuntimeError& error);

/// The dialog, not yet shown: "Run-time error '13':", a blank line, "Type mismatch", and a button.
[[nodiscard]] std::unique_ptr<QMessageBox> reportDialog(const RuntimeError& error);

/// While it lives, the program's timers and the calls queued to its objects do not run.
class Standstill : public QObject
{
    Q_OBJECT

public:
    Standstill();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace orvanta
