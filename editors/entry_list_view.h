// The list box of an editor: shows an EntryList and follows the user in it.
#pragma once

#include "editors/entry_list.h"
#include "editors/list_history.h"

#include <QListView>

#include <functional>

namespace orvanta {

class EntryModel;

/// How an entry is painted: what names it, what it holds, and where that comes from.
struct EntryLook
{
    QString lead;        // a time; empty for none
    QString text;        // the entry's own text
    QString aside;       // the path, muted
    bool isLent = false; // the text is another entry's: muted, too
    QString tip;         // what cannot be seen, in words; empty for none
};

/// Rows are the entries themselves (their text is the whole entry); the look only paints them.
/// Changes by the program never count as the user's clicks.
class EntryListView : public QListView
{
    Q_OBJECT

public:
    using Look = std::function<EntryLook(const QStringList& entries, int row)>;

    explicit EntryListView(Look look, QWidget* parent = nullptr);

    [[nodiscard]] const EntryList& list() const { return m_state.list; }
    /// How a row is painted, counted from 0.
    [[nodiscard]] EntryLook lookOf(int row) const;
    /// The clip of the brakes, and the document that the list belongs to.
    [[nodiscard]] const BrakedClip& clip() const { return m_state.clip; }
    [[nodiscard]] const ListDocument& document() const { return m_state.document; }
    [[nodiscard]] bool differsFromItsFile() const { return orvanta::differsFromItsFile(m_state); }

    /// Applies one of the list operations and shows the result: one step of undo. run: the control
    /// that changes it bit by bit, which is one step until endRun or another change.
    void change(const std::function<void(EntryList&)>& operation, const QObject* run = nullptr);
    /// The same with the clip and the document.
    void changeState(const std::function<void(ListState&)>& operation,
                     const QObject* run = nullptr);
    void endRun() { m_history.endRun(); }
    /// The document is in this file from now on. No step: undo saves nothing back.
    void setWritten(const QString& file);

    /// Without a limit; with nothing to take back, or to do again, nothing happens.
    void undo();
    void redo();

    /// The row with the mark; -1 for none. The mark is not the selection.
    void setMarkedRow(int row);
    [[nodiscard]] int markedRow() const { return m_markedRow; }

    [[nodiscard]] QSize sizeHint() const override { return {360, 120}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {120, 54}; }

Q_SIGNALS:
    /// The user came to an entry, by mouse or keyboard. Counted from 0; of several that are
    /// selected the one that the boxes are to show.
    void Click(int row);
    void entriesChanged();
    /// The list, its document, or whether the two differ.
    void documentChanged();
    /// Undo or redo have changed it. What is selected is no click of the user's.
    void restored();
    // Delete, Ctrl+Up, Ctrl+Down.
    void removeWanted();
    void moveUpWanted();
    void moveDownWanted();
    /// The selected entries were dropped before this one; the number of entries for the end.
    void moveWanted(int place);

protected:
    void startDrag(Qt::DropActions actions) override;
    void dropEvent(QDropEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command) override;

private:
    void take(const ListState& next, const QObject* run);
    void show(const ListState& next);
    void showSelection();
    [[nodiscard]] QItemSelection rangesOf(const QList<int>& rows) const;
    [[nodiscard]] QList<int> rowsOfSelection() const;
    [[nodiscard]] int rowToShow(const QList<int>& rows) const;
    /// Before which row what is dropped there goes.
    [[nodiscard]] int dropPlace(const QPoint& at) const;
    void clickedAgain(const QModelIndex& index);
    void updateRow(int row);

    EntryModel* m_model;
    Look m_look;
    ListState m_state;
    ListHistory m_history;
    int m_markedRow = -1;
    int m_anchor = -1; // the row from which Shift selects
    bool m_programChanges = false;
    bool m_pressSelected = false; // the press that is under way has reported its click already
};

} // namespace orvanta
