// An editor or a picker as its user sees it: controls by the names that they bear, real clicks.
#pragma once

#include "tests/e2e/support/accessibility.h"
#include "tests/e2e/support/application.h"

#include <QStringList>

namespace orvanta::e2e {

/// Waits for each control; what is absent fails the action that wanted it.
class Dialog
{
public:
    /// title: as the window bears it.
    Dialog(Desktop& desktop, const Application& application, QString title);

    /// Waits until it is shown, or gone.
    [[nodiscard]] bool isOpen();
    [[nodiscard]] bool isClosed();

    [[nodiscard]] bool press(const QString& button);
    [[nodiscard]] bool choose(const QString& radioButton);
    /// Clicks a check box and waits until it has changed.
    [[nodiscard]] bool toggle(const QString& checkBox);
    /// Replaces the text of a box and waits until it shows the new one.
    [[nodiscard]] bool type(const QString& box, const QString& text);
    [[nodiscard]] QString textOf(const QString& box);
    [[nodiscard]] QString label(const QString& name);

    /// The entries of a list.
    [[nodiscard]] QStringList items(const QString& list);
    [[nodiscard]] bool clickItem(const QString& list, const QString& item);
    /// Clicks the mark before an entry and waits until it has changed.
    [[nodiscard]] bool toggleItem(const QString& list, const QString& item);
    /// Clicks down a tree, from a folder at its top to one below it.
    [[nodiscard]] bool openFolder(const QString& tree, const QStringList& names);

    /// Takes the slider's handle from where it is to this place, in percent of its way.
    [[nodiscard]] bool drag(const QString& slider, int percent);
    [[nodiscard]] double slider(const QString& name);

    [[nodiscard]] std::string outline();

private:
    [[nodiscard]] std::optional<Accessible> windowNow();
    [[nodiscard]] std::optional<Accessible> control(const QString& role, const QString& name);
    [[nodiscard]] bool click(const QString& role, const QString& name);
    /// The item with this name, scrolled or not, once the list has it.
    [[nodiscard]] std::optional<Accessible> item(const Accessible& list, const QString& name,
                                                 int limitMs);
    [[nodiscard]] bool expand(const Accessible& folders, const QString& child);

    Desktop& m_desktop;
    AccessibilityBus m_bus;
    qint64 m_pid;
    QString m_title;
};

} // namespace orvanta::e2e
