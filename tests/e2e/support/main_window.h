// The main window as its user sees it: controls by their English names, real clicks and keys.
#pragma once

#include "tests/e2e/support/accessibility.h"
#include "tests/e2e/support/application.h"

#include <QStringList>

#include <vector>

namespace orvanta::e2e {

/// One of a menu's entries, which are all of one height.
struct MenuEntry
{
    int number; // counted from 1
    int of;     // how many there are
};

/// A line of the playlist, as it is read out.
struct ListedLine
{
    QString text;
    bool isPacket;
};

/// Waits for each control; an absent one gives empty answers. Made after the window is shown.
class MainWindow
{
public:
    MainWindow(Desktop& desktop, const Application& application);

    /// Clicks a button: "Play", "Stop", "Find", "Close button".
    void press(const QString& button);
    [[nodiscard]] bool isEnabled(const QString& button);
    /// Drops a button's menu down and clicks one of its entries. A menu is grabbing the keyboard
    /// only some time after it can be seen; the mouse finds it at once.
    [[nodiscard]] bool clickInMenu(const QString& button, MenuEntry entry);
    /// The same in a submenu: entry is the submenu's own.
    [[nodiscard]] bool clickInSubmenu(const QString& button, MenuEntry submenu, MenuEntry entry);
    /// Drops a button's menu down and chooses an entry, counted from 1, by keyboard.
    [[nodiscard]] bool chooseFromMenu(const QString& button, int entry);

    [[nodiscard]] QString currentTime(); // as the label shows it
    [[nodiscard]] double currentSeconds() { return currentTime().toDouble(); }
    [[nodiscard]] QString clipLength();
    [[nodiscard]] QString clipText();
    [[nodiscard]] QString findText();

    [[nodiscard]] double slider(const QString& name); // "Position", "Volume", "Balance"
    /// Clicks a slider's groove at this percentage.
    void clickSlider(const QString& name, int percent);
    [[nodiscard]] QPoint sliderCentre(const QString& name);

    [[nodiscard]] QStringList rows(); // the texts of the playlist's lines, as they are read out
    [[nodiscard]] std::vector<ListedLine> lines();
    /// Index of the current line; -1 for none.
    [[nodiscard]] int currentRow();
    void doubleClickRow(int row);
    [[nodiscard]] QPoint listCentre();
    /// Replaces the text of the find box.
    void typeFindText(const QString& text);

    [[nodiscard]] QString outline();

private:
    /// Clicks the entry of the menu that opens, which is a window that was not there before.
    [[nodiscard]] bool clickInOpening(const QStringList& before, MenuEntry entry);
    [[nodiscard]] std::optional<Accessible> control(const QString& role, const QString& name);

    Desktop& m_desktop;
    AccessibilityBus m_bus;
    qint64 m_pid;
    QHash<QString, Accessible> m_known; // by role and name
};

} // namespace orvanta::e2e
