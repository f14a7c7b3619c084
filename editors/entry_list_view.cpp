#include "editors/entry_list_view.h"

#include "editors/entry_painter.h"
#include "editors/window_parts.h"
#include "platform/screen/window_basics.h"

#include <QAbstractListModel>
#include <QDrag>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace orvanta {

/// The entries as rows. A change is told as what it is, so that the view keeps its place.
class EntryModel : public QAbstractListModel
{
public:
    explicit EntryModel(const EntryListView* view, QObject* parent)
        : QAbstractListModel(parent),
          m_view(view)
    {}

    void setEntries(const QStringList& next);

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_entries.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return m_entries.at(index.row());
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return wordsFor(index.row(), role);
        default:
            return {};
        }
    }

    // Entries are dragged, and dropped between others.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags flags = QAbstractListModel::flags(index);
        return flags | (index.isValid() ? Qt::ItemIsDragEnabled : Qt::ItemIsDropEnabled);
    }
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    [[nodiscard]] QStringList mimeTypes() const override { return {kDragType.toString()}; }
    /// Says that this list's entries are dragged and not which: the list knows.
    [[nodiscard]] QMimeData* mimeData(const QModelIndexList& /*indexes*/) const override
    {
        auto* data = new QMimeData;
        data->setData(kDragType.toString(), m_ownMark);
        return data;
    }
    /// Another list's entries mean something else, in this program and in another one.
    [[nodiscard]] bool canDropMimeData(const QMimeData* data, Qt::DropAction action, int /*row*/,
                                       int /*column*/, const QModelIndex& /*parent*/) const override
    {
        return action == Qt::MoveAction && data->data(kDragType.toString()) == m_ownMark;
    }

private:
    static constexpr QStringView kDragType = u"application/x-orvanta-entries";

    /// None leaves the view's own tool tip.
    [[nodiscard]] QVariant wordsFor(int row, int role) const
    {
        const QString tip = m_view->lookOf(row).tip;
        if (tip.isEmpty()) {
            return {};
        }
        return role == Qt::ToolTipRole ? plainToolTip(tip) : tip;
    }
    void removeRowsBetween(qsizetype first, qsizetype end);
    void insertRowsOf(const QStringList& next, qsizetype first, qsizetype end);

    const EntryListView* m_view;
    QStringList m_entries;
    const QByteArray m_ownMark = QUuid::createUuid().toByteArray();
};

void EntryModel::setEntries(const QStringList& next)
{
    const auto [first, oldEnd, newEnd] = differenceOf(m_entries, next);
    if (oldEnd == newEnd) {
        m_entries = next;
        Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(newEnd) - 1));
        return;
    }
    removeRowsBetween(first, oldEnd);
    insertRowsOf(next, first, newEnd);
}

void EntryModel::removeRowsBetween(qsizetype first, qsizetype end)
{
    if (first < end) {
        beginRemoveRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
        m_entries.remove(first, end - first);
        endRemoveRows();
    }
}

void EntryModel::insertRowsOf(const QStringList& next, qsizetype first, qsizetype end)
{
    if (first < end) {
        beginInsertRows({}, static_cast<int>(first), static_cast<int>(end) - 1);
        m_entries = next;
        endInsertRows();
    }
}

EntryListView::EntryListView(Look look, QWidget* parent)
    : QListView(parent),
      m_model(new EntryModel(this, this)),
      m_look(std::move(look))
{
    setModel(m_model);
    setItemDelegate(new EntryPainter(this));
    setUniformItemSizes(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragDrop);
    setDefaultDropAction(Qt::MoveAction);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListView::clicked, this, &EntryListView::clickedAgain);
}

void EntryListView::change(const std::function<void(EntryList&)>& operation, const QObject* run)
{
    changeState([&](ListState& state) { operation(state.list); }, run);
}

void EntryListView::changeState(const std::function<void(ListState&)>& operation,
                                const QObject* run)
{
    ListState next = m_state;
    // What an operation did before it failed is shown, too.
    try {
        operation(next);
    } catch (...) {
        take(next, run);
        throw;
    }
    take(next, run);
}

void EntryListView::take(const ListState& next, const QObject* run)
{
    if (!haveSameContents(m_state, next)) {
        m_history.record(m_state, next, run);
    }
    show(next);
}

void EntryListView::setWritten(const QString& file)
{
    orvanta::setWritten(m_state, file);
    Q_EMIT documentChanged();
}

void EntryListView::undo()
{
    ListState state = m_state;
    if (m_history.undo(state)) {
        show(state);
        Q_EMIT restored();
    }
}

void EntryListView::redo()
{
    ListState state = m_state;
    if (m_history.redo(state)) {
        show(state);
        Q_EMIT restored();
    }
}

EntryLook EntryListView::lookOf(int row) const
{
    const bool isThere = row >= 0 && row < m_state.list.entries.size();
    return isThere ? m_look(m_state.list.entries, row) : EntryLook();
}

void EntryListView::show(const ListState& next)
{
    const QScopedValueRollback guard(m_programChanges, true);
    const bool sameEntries = next.list.entries == m_state.list.entries;
    const bool sameList = sameEntries && next.list == m_state.list;
    m_state = next;
    if (!sameEntries) {
        m_model->setEntries(m_state.list.entries);
    }
    if (!sameList) {
        showSelection();
    }
    if (!sameEntries) {
        Q_EMIT entriesChanged();
    }
    Q_EMIT documentChanged();
}

QItemSelection EntryListView::rangesOf(const QList<int>& rows) const
{
    QItemSelection ranges;
    for (auto first = rows.cbegin(); first != rows.cend();) {
        const auto gap = std::adjacent_find(first, rows.cend(),
                                            [](int row, int next) { return next != row + 1; });
        const auto last = gap == rows.cend() ? gap - 1 : gap;
        ranges.append(QItemSelectionRange(m_model->index(*first), m_model->index(*last)));
        first = last + 1;
    }
    return ranges;
}

void EntryListView::showSelection()
{
    if (!m_state.list.hasSelection()) {
        selectionModel()->clearSelection();
        setToolTip({});
        return;
    }
    const QModelIndex index = m_model->index(m_state.list.selected);
    // The others first: Shift goes on from what is selected last.
    selectionModel()->select(rangesOf(m_state.list.others), QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::Select);
    m_anchor = m_state.list.selected;
    scrollTo(index);
    setToolTip(plainToolTip(m_state.list.selectedEntry()));
}

void EntryListView::selectionChanged(const QItemSelection& selected,
                                     const QItemSelection& deselected)
{
    QListView::selectionChanged(selected, deselected);
    if (m_programChanges) {
        return;
    }
    m_history.endRun();
    m_pressSelected = true;
    const int shownBefore = m_state.list.selected;
    const QList<int> rows = rowsOfSelection();
    selectRows(m_state.list, rows, rowToShow(rows));
    setToolTip(plainToolTip(m_state.list.selectedEntry()));
    m_anchor = rows.size() == 1 ? rows.front() : currentIndex().row();
    // Among several only another one in the boxes is a click.
    if (m_state.list.hasSelection() && (rows.size() == 1 || m_state.list.selected != shownBefore)) {
        Q_EMIT Click(m_state.list.selected);
    }
}

QList<int> EntryListView::rowsOfSelection() const
{
    QList<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        rows.append(index.row());
    }
    std::sort(rows.begin(), rows.end());
    return rows;
}

/// The one that the user came to, else the one that was shown, else the first. -1 for none.
int EntryListView::rowToShow(const QList<int>& rows) const
{
    for (const int row : {currentIndex().row(), m_state.list.selected}) {
        if (std::binary_search(rows.cbegin(), rows.cend(), row)) {
            return row;
        }
    }
    return rows.value(0, -1);
}

// The view's own idea of where Shift began stays behind when entries are moved.
void EntryListView::setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command)
{
    const int reached = currentIndex().row();
    const bool isShift = command.testFlag(QItemSelectionModel::SelectCurrent);
    if (!isShift || reached < 0 || m_anchor < 0 || m_anchor >= m_state.list.entries.size()) {
        QListView::setSelection(area, command);
        return;
    }
    const QScopedValueRollback anchorStays(m_anchor);
    const auto [first, last] = std::minmax(m_anchor, reached);
    selectionModel()->select(QItemSelection(m_model->index(first), m_model->index(last)), command);
}

int EntryListView::dropPlace(const QPoint& at) const
{
    const int row = indexAt(at).row();
    switch (dropIndicatorPosition()) {
    case QAbstractItemView::AboveItem:
        return row;
    case QAbstractItemView::BelowItem:
        return row + 1;
    default:
        return static_cast<int>(m_state.list.entries.size());
    }
}

// Without the view's picture of the rows, which would lie over the line that shows where they go.
void EntryListView::startDrag(Qt::DropActions actions)
{
    auto* drag = new QDrag(this); // the library deletes it
    drag->setMimeData(m_model->mimeData({}));
    drag->exec(actions, Qt::MoveAction);
}

// The view would take the rows out of the model behind the list's back.
void EntryListView::dropEvent(QDropEvent* event)
{
    if (!m_model->canDropMimeData(event->mimeData(), event->dropAction(), -1, -1, {})) {
        return;
    }
    const int place = dropPlace(event->position().toPoint());
    event->setDropAction(Qt::IgnoreAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    Q_EMIT moveWanted(place);
}

void EntryListView::mousePressEvent(QMouseEvent* event)
{
    m_pressSelected = false;
    if (!indexAt(event->pos()).isValid()) {
        // Beside the entries: none is selected, so that the slider moves no brake.
        selectionModel()->clearSelection();
    }
    QListView::mousePressEvent(event);
}

void EntryListView::clickedAgain(const QModelIndex& index)
{
    if (!m_pressSelected && m_state.list.selected == index.row()) {
        Q_EMIT Click(index.row());
    }
}

void EntryListView::keyPressEvent(QKeyEvent* event)
{
    const bool isControl = event->modifiers() == Qt::ControlModifier;
    const bool isSpace = event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier;
    if (isSpace && m_state.list.hasSelection() && currentIndex().row() == m_state.list.selected) {
        event->ignore(); // there is nothing to select: the key is the window's
    } else if (event->key() == Qt::Key_Delete) {
        Q_EMIT removeWanted();
    } else if (isControl && event->key() == Qt::Key_Up) {
        Q_EMIT moveUpWanted();
    } else if (isControl && event->key() == Qt::Key_Down) {
        Q_EMIT moveDownWanted();
    } else {
        QListView::keyPressEvent(event);
    }
}

void EntryListView::setMarkedRow(int row)
{
    if (row != m_markedRow) {
        updateRow(std::exchange(m_markedRow, row));
        updateRow(row);
    }
}

void EntryListView::updateRow(int row)
{
    if (row >= 0 && row < m_state.list.entries.size()) {
        update(m_model->index(row));
    }
}

} // namespace orvanta
