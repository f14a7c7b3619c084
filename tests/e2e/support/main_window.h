// The main window as its user sees it: controls by their English names, real clicks and keys.
#pragma once

#include "tests/e2e/support/accessibility.h"
#include "tests/e2e/support/application.h"

#include <QStringList>

namespace orvanta::e2e {

/// Waits for each control; an absent one gives empty answers. Made after the window is shown.
class MainWindow
{
public:
    MainWindow(Desktop& desktop, const Application& application);

    /// Clicks a button: "Play", "Stop", "Find", "Close button".
    void press(const QString& button);
    [[nodiscard]] bool isEnabled(const QString& button);

    [[nodiscard]] QString currentTime(); // as the label shows it
    [[nodiscard]] double currentSeconds() { return currentTime().toDouble(); }
    [[nodiscard]] QString clipLength();
    [[nodiscard]] QString clipText();
    [[nodiscard]] QString findText();

    [[nodiscard]] double slider(const QString& name); // "Position", "Volume", "Balance"
    /// Clicks a slider's groove at this percentage.
    void clickSlider(const QString& name, int percent);
    [[nodiscard]] QPoint sliderCentre(const QString& name);

    [[nodiscard]] QStringList rows();
    /// Index of the current line; -1 for none.
    [[nodiscard]] int currentRow();
    void doubleClickRow(int row);
    /// Replaces the text of the find box.
    void typeFindText(const QString& text);

    [[nodiscard]] QString outline();

private:
    [[nodiscard]] std::optional<Accessible> control(const QString& role, const QString& name);

    Desktop& m_desktop;
    AccessibilityBus m_bus;
    qint64 m_pid;
    QHash<QString, Accessible> m_known; // by role and name
};

} // namespace orvanta::e2e
