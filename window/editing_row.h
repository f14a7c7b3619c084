// The row of buttons of the editing mode.
//
//   MarkButton    a mark at the place that plays    RemoveButton  the selected lines
//   UpButton      moves lines up                    DownButton    moves lines down
//   UndoButton    takes a change back               RedoButton    does it again
//   SaveButton    to where it came from             MoreButton    what is seldom needed: a menu
//   DoneButton    leaves the mode
#pragma once

#include "playback/commands.h"
#include "playback/control_rows.h"

#include <QWidget>

class QMenu;
class QPushButton;

namespace orvanta {

/// What the row shows of the state of editing.
struct EditingState
{
    bool canMark = false;
    bool hasLine = false; // one or more are selected
    bool changed = false;
    QString undo; // what it would take back; empty: nothing
    QString redo;
};

class EditingRow : public QWidget
{
    Q_OBJECT

public:
    EditingRow(TextLanguage language, QWidget* parent);

    QPushButton* MarkButton;   // a mark at the place that plays
    QPushButton* RemoveButton; // the selected lines
    QPushButton* UpButton;     // moves lines up
    QPushButton* DownButton;   // moves lines down
    QPushButton* UndoButton;   // takes a change back
    QPushButton* RedoButton;   // does it again
    QPushButton* SaveButton;   // to where it came from
    QPushButton* MoreButton;   // what is seldom needed
    QPushButton* DoneButton;   // leaves the mode

    QMenu* More; // drops down from MoreButton; who owns the row fills it

    void setState(const EditingState& state);

Q_SIGNALS:
    void asked(orvanta::Command command);

private:
    QPushButton* makeButton(const QString& picture, Command command);
    void layOut();
    [[nodiscard]] ControlRows controls();
    void nameKeys();

    TextLanguage m_language;
};

} // namespace orvanta
