// The playlist as a check list: the main window's List1.
#pragma once

#include "model/tree_lines.h"
#include "playback/commands.h"
#include "playback/playback_view.h"

#include <QAbstractListModel>
#include <QHash>
#include <QListView>
#include <QStyledItemDelegate>

#include <functional>
#include <vector>

namespace orvanta {

/// What stands at the right end of a line while the list is edited.
struct LineNote
{
    QString time;           // of a brake, or what stands there; empty: nothing
    bool isEnd = false;     // the end mark
    bool isPicture = false; // a packet's picture: a click there chooses another
    QString words;          // for assistive technology
};
using LineNotes = std::function<LineNote(int line)>;

/// What assistive technology says of a line beside its text.
struct LineWords
{
    QString packet; // of a packet's own line
    QString playing;
    QString paused;
};

/// A snapshot of the tree's lines and their marks, never a live view of the playlist. The root has
/// no box.
class PlaylistModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Shows other lines; each is checked.
    void setLines(std::vector<TreeLine> lines);
    /// Shows more lines after those that are shown now, which keep their marks.
    void growTo(std::vector<TreeLine> lines);
    /// Shows other lines with these marks, one for each line.
    void setLines(std::vector<TreeLine> lines, std::vector<bool> checked);
    [[nodiscard]] const std::vector<TreeLine>& lines() const { return m_lines; }
    /// An empty function: the list is not edited.
    void setNotes(LineNotes notes);
    [[nodiscard]] bool isEdited() const { return m_notes != nullptr; }
    [[nodiscard]] LineNote noteOf(int line) const { return m_notes ? m_notes(line) : LineNote(); }
    void setWords(const LineWords& words) { m_words = words; }
    /// Why lines cannot be played, by line; none after setLines.
    void setMissing(QHash<int, QString> reasons);
    /// Empty for a line that can be played.
    [[nodiscard]] QString whyMissing(int line) const { return m_missing.value(line); }
    /// Which line has the sign; none after setLines. A place that is no line has none.
    void showPlaying(const PlayingPlace& place);
    [[nodiscard]] PlayingSign signOf(int line) const;
    [[nodiscard]] bool hasBox(int line) const { return line >= 1 && line < rowCount({}); }
    /// False for the root and outside the list.
    [[nodiscard]] bool isChecked(int line) const;
    /// Ignored for the root and outside the list.
    void setChecked(int line, bool checked);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    [[nodiscard]] QString describe(int line) const;
    void announce(int line);

    std::vector<TreeLine> m_lines;
    std::vector<bool> m_checked;
    QHash<int, QString> m_missing; // reasons by line
    LineWords m_words;
    LineNotes m_notes;
    PlayingPlace m_playing; // as it was shown last
    int m_playingLine = -1;
};

/// Paints a line: box, sign of playing, tree, text. The tree's prefix is drawn as lines, in the
/// places where its characters would stand.
class PlaylistDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    PlaylistDelegate(const PlaylistModel* model, QObject* parent);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override;
    /// Where a click toggles, given the line's rectangle.
    [[nodiscard]] QRect boxArea(const QRect& line) const;
    /// 1: rows of 13 pixels. What is in them grows alike.
    void setZoom(double zoom);
    /// The height of a row in pixels, over 13.
    [[nodiscard]] double zoom() const { return m_zoom; }
    [[nodiscard]] int rowHeight() const;
    /// Where a row's text stands, given the row's rectangle.
    [[nodiscard]] QRect textArea(const QRect& line, int row) const;
    /// Where its time stands, while the list is edited.
    [[nodiscard]] QRect timeArea(const QRect& line) const;

private:
    void paintRow(QPainter& painter, const QStyleOptionViewItem& option) const;
    void paintSign(QPainter& painter, const QRect& line, PlayingSign sign) const;
    static void paintMissing(QPainter& painter, const QRect& line);
    void paintBox(QPainter& painter, const QRect& line, bool checked) const;
    [[nodiscard]] int paintTree(QPainter& painter, const QRect& line, int row) const;
    [[nodiscard]] int paintNote(QPainter& painter, const QRect& line, int row, bool current) const;
    static void paintEndMark(QPainter& painter, const QRect& line);
    [[nodiscard]] QColor textColour(int row) const;
    [[nodiscard]] bool isHeader(int row) const;

    const PlaylistModel* m_model;
    double m_zoom = 1;
};

/// Clicking a box toggles it, clicking a text moves the cursor. Letters are not searched for: they
/// pass on to the window, and so does Space for who uses the mouse: only a line to which the
/// keyboard has gone is checked by it, or a pause would take the line out of the lesson. Rows are
/// 13 pixels high, times the zoom, and begin at the viewport's top.
class PlaylistList : public QListView
{
    Q_OBJECT

public:
    explicit PlaylistList(QWidget* parent);

    /// What assistive technology says of a line, its text and its state; empty outside the list.
    [[nodiscard]] QString spokenLine(int line) const;
    /// Shows other lines, each checked; no line is current.
    void setLines(std::vector<TreeLine> lines);
    /// Shows a tree that has grown at its end: marks and the current line stay.
    void growTo(std::vector<TreeLine> lines) { m_model->growTo(std::move(lines)); }
    [[nodiscard]] const std::vector<TreeLine>& lines() const { return m_model->lines(); }
    /// The current line; -1 for none.
    [[nodiscard]] int cursorLine() const { return currentIndex().row(); }
    /// Makes a line current and visible; outside the list no line is current.
    void setCursorLine(int line);
    /// The first line that is in sight.
    [[nodiscard]] int topLine() const;
    [[nodiscard]] bool isLineChecked(int line) const { return m_model->isChecked(line); }
    void checkLine(int line) { m_model->setChecked(line, true); }
    /// Ignored for the root and outside the list.
    void toggleLine(int line) { m_model->setChecked(line, !m_model->isChecked(line)); }
    /// Asks for the menu of the current line, as the Menu key does.
    void askForMenu();
    void setWords(const LineWords& words) { m_model->setWords(words); }
    void showPlaying(const PlayingPlace& place) { m_model->showPlaying(place); }
    [[nodiscard]] PlayingSign signOf(int line) const { return m_model->signOf(line); }
    void setMissing(QHash<int, QString> reasons) { m_model->setMissing(std::move(reasons)); }
    [[nodiscard]] QString whyMissing(int line) const { return m_model->whyMissing(line); }
    /// 1: rows of 13 pixels. What is in them grows alike.
    void setZoom(double zoom);
    [[nodiscard]] double zoom() const { return m_delegate->zoom(); }
    [[nodiscard]] int rowHeight() const { return m_delegate->rowHeight(); }
    /// Where a click toggles a line, given its rectangle.
    [[nodiscard]] QRect boxArea(const QRect& line) const { return m_delegate->boxArea(line); }

    void keyboardSearch(const QString& /*search*/) override {}

    /// Editing: several lines can be selected and dragged, and rows are higher, with room for a
    /// second column. An empty function ends it.
    void setEditing(LineNotes notes);
    [[nodiscard]] bool isEdited() const { return m_model->isEdited(); }
    /// Ascending, without the root.
    [[nodiscard]] std::vector<int> selectedLines() const;
    /// Shows lines that were edited, with these marks; the cursor is to be set anew.
    void showEdited(std::vector<TreeLine> lines, std::vector<bool> checked);
    [[nodiscard]] QRect textArea(int line) const;
    [[nodiscard]] QRect timeArea(int line) const;

Q_SIGNALS:
    /// A line has become current, by whatever way.
    void cursorMoved(int line);
    /// Double click on a line's text, or Return on the current line.
    void lineChosen();
    /// A menu is wanted at this place of the screen; what it concerns is the current line.
    void menuAsked(QPoint place);
    /// The pointer moved over the list; y in pixels from the top of the lines.
    void pointerMoved(int y);
    /// Files were dropped on the list: their paths, at least one.
    void filesDropped(const QStringList& files);
    /// While it is edited, before this line; one behind the last: at the end.
    void filesDroppedBefore(const QStringList& files, int line);
    /// The selected lines were dragged to before this line.
    void linesDropped(int line);
    /// A click where a packet's picture stands.
    void pictureAsked(int line);
    /// A key of editing was pressed.
    void editingAsked(orvanta::Command command);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    bool viewportEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void pressWhileEdited(const QMouseEvent& event);
    void dragLines();
    void showDropPlace(int line);
    [[nodiscard]] int lineToDropBefore(QPoint place) const;
    /// Toggles when the place is in a line's box; says whether it was.
    bool toggleAt(QPoint place);
    void showToolTip(const QPoint& globalPlace, const QPoint& place);
    void choose();

    PlaylistModel* m_model;
    PlaylistDelegate* m_delegate;
    QPoint m_pressedAt;     // while lines may be dragged; null: nowhere
    int m_pressedLine = -1; // one of several selected ones, which a click alone selects
    int m_dropBefore = -1;  // the line above which the place of a drop shows; -1: none
};

} // namespace orvanta
