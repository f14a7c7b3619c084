// The report of an error that no handler trapped. It ends the program.
#pragma once

#include "core/run_time_error.h"
#include "model/texts.h"

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
    using Language = std::function<TextLanguage()>;

    /// release: gives up what others may be waiting for (the instance lock) and silences the
    /// player. It runs before the dialog shows. language: of what the dialog advises.
    explicit RunTimeReport(std::function<void()> release, Language language = {})
        : m_release(std::move(release)),
          m_language(std::move(language))
    {}

    /// From here on no timer and no queued call of the program runs, and SIGTERM ends it at once.
    /// Where nobody can see or close a dialog there is none.
    [[noreturn]] void operator()(const RuntimeError& error) const;

private:
    void showDialog(const RuntimeError& error) const;

    std::function<void()> m_release;
    Language m_language;
};

/// The line on standard error: "Run-time error '13': Type mismatch".
[[nodiscard]] QString reportLine(const RuntimeError& error);

/// What can be mended, and where; empty where nobody can tell. The next line there.
[[nodiscard]] QString reportAdvice(const RuntimeError& error, TextLanguage language);

/// The dialog, not yet shown: "Run-time error '13':", a blank line, "Type mismatch", and a button.
/// What a person can mend stands below, in this language.
[[nodiscard]] std::unique_ptr<QMessageBox>
reportDialog(const RuntimeError& error, TextLanguage language = TextLanguage::English);

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
