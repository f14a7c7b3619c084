// The playlist while it is edited: several selected lines, dragging, a place to drop at.
#include "window/file_drop.h"
#include "window/playlist_list.h"
#include "window/skin.h"

#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kDraggedLines = u"application/x-orvanta-lines"_s;

void PlaylistList::setEditing(LineNotes notes)
{
    const bool edited = notes != nullptr;
    const int cursor = cursorLine();
    m_model->setNotes(std::move(notes));
    setSelectionMode(edited ? ExtendedSelection : SingleSelection);
    setDragDropMode(edited ? DragDrop : DropOnly);
    if (cursor >= 0) {
        setCursorLine(cursor); // one line is selected again
    }
    scheduleDelayedItemsLayout();
    viewport()->update();
}

std::vector<int> PlaylistList::selectedLines() const
{
    std::vector<int> lines;
    for (const QModelIndex& index : selectionModel()->selectedIndexes()) {
        if (index.row() >= 1) {
            lines.push_back(index.row());
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

void PlaylistList::showEdited(std::vector<TreeLine> lines, std::vector<bool> checked)
{
    const int top = topLine();
    m_model->setLines(std::move(lines), std::move(checked));
    if (m_model->rowCount({}) > 0) {
        doItemsLayout();
        scrollTo(m_model->index(std::min(top, m_model->rowCount({}) - 1)), PositionAtTop);
    }
}

QRect PlaylistList::textArea(int line) const
{
    return m_delegate->textArea(visualRect(m_model->index(line)), line);
}

QRect PlaylistList::timeArea(int line) const
{
    return m_delegate->timeArea(visualRect(m_model->index(line)));
}

// A press on one of several selected lines may begin a drag of all of them: only the release
// selects that line alone.
void PlaylistList::pressWhileEdited(const QMouseEvent& event)
{
    const QPoint place = event.position().toPoint();
    const QModelIndex line = indexAt(place);
    if (event.button() != Qt::LeftButton || line.row() < 1 || toggleAt(place)) {
        return;
    }
    if (m_model->noteOf(line.row()).isPicture && timeArea(line.row()).contains(place)) {
        setCursorLine(line.row());
        Q_EMIT pictureAsked(line.row());
        return;
    }
    m_pressedAt = place;
    using Model = QItemSelectionModel;
    if (event.modifiers().testFlag(Qt::ControlModifier)) {
        selectionModel()->setCurrentIndex(line, Model::Toggle);
    } else if (event.modifiers().testFlag(Qt::ShiftModifier) && currentIndex().isValid()) {
        const QItemSelection range(std::min(m_model->index(cursorLine()), line),
                                   std::max(m_model->index(cursorLine()), line));
        selectionModel()->select(range, Model::ClearAndSelect);
    } else if (selectionModel()->isSelected(line)) {
        m_pressedLine = line.row();
    } else {
        setCursorLine(line.row());
    }
}

void PlaylistList::dragLines()
{
    m_pressedAt = {};
    m_pressedLine = -1;
    if (selectedLines().empty()) {
        return;
    }
    auto* lines = new QMimeData;
    lines->setData(kDraggedLines, QByteArray::number(selectedLines().front()));
    auto* drag = new QDrag(this);
    drag->setMimeData(lines);
    drag->exec(Qt::MoveAction);
}

/// Lines are dragged within their own list only.
static bool areOwnLines(const QDropEvent& event, const QWidget* list)
{
    return event.source() == list && event.mimeData()->hasFormat(kDraggedLines);
}

int PlaylistList::lineToDropBefore(QPoint place) const
{
    const QModelIndex line = indexAt(place);
    if (!line.isValid()) {
        return place.y() <= 0 ? 1 : m_model->rowCount({});
    }
    const bool isBelow = place.y() > visualRect(line).center().y();
    return std::max(line.row() + (isBelow ? 1 : 0), 1);
}

void PlaylistList::showDropPlace(int line)
{
    if (line != m_dropBefore) {
        m_dropBefore = line;
        viewport()->update();
    }
}

void PlaylistList::dragEnterEvent(QDragEnterEvent* event)
{
    if (areOwnLines(*event, this)) {
        event->acceptProposedAction();
    } else {
        welcomeFiles(*event);
    }
}

void PlaylistList::dragMoveEvent(QDragMoveEvent* event)
{
    if (areOwnLines(*event, this)) {
        event->acceptProposedAction();
    } else {
        welcomeFiles(*event);
    }
    if (isEdited()) {
        showDropPlace(lineToDropBefore(event->position().toPoint()));
    }
}

void PlaylistList::dragLeaveEvent(QDragLeaveEvent* event)
{
    showDropPlace(-1);
    QListView::dragLeaveEvent(event);
}

void PlaylistList::dropEvent(QDropEvent* event)
{
    const int line = lineToDropBefore(event->position().toPoint());
    showDropPlace(-1);
    if (areOwnLines(*event, this)) {
        event->acceptProposedAction();
        Q_EMIT linesDropped(line);
        return;
    }
    const QStringList files = takeFiles(*event);
    if (files.isEmpty()) {
        return;
    }
    if (isEdited()) {
        Q_EMIT filesDroppedBefore(files, line);
    } else {
        Q_EMIT filesDropped(files);
    }
}

void PlaylistList::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    if (m_dropBefore < 0) {
        return;
    }
    const QRect above = visualRect(m_model->index(m_dropBefore - 1));
    QPainter painter(viewport());
    painter.setPen(QPen(skin::kAccent, 2));
    const int left = m_delegate->boxArea(above).right();
    painter.drawLine(left, above.bottom() + 1, above.right(), above.bottom() + 1);
}

} // namespace orvanta
