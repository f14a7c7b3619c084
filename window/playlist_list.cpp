#include "window/playlist_list.h"

#include "playback/check_list.h"
#include "playback/typed_key.h"
#include "window/skin.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

void PlaylistModel::setLines(std::vector<TreeLine> lines)
{
    beginResetModel();
    m_lines = std::move(lines);
    m_checked.assign(m_lines.size(), true);
    m_missing.clear();
    m_playing = {};
    m_playingLine = -1;
    endResetModel();
}

void PlaylistModel::setLines(std::vector<TreeLine> lines, std::vector<bool> checked)
{
    const PlayingPlace playing = m_playing;
    setLines(std::move(lines));
    m_checked = std::move(checked);
    m_checked.resize(m_lines.size(), true);
    showPlaying(playing);
}

void PlaylistModel::setNotes(LineNotes notes)
{
    m_notes = std::move(notes);
    if (!m_lines.empty()) {
        Q_EMIT dataChanged(index(0), index(rowCount({}) - 1));
    }
}

void PlaylistModel::setMissing(QHash<int, QString> reasons)
{
    if (reasons == m_missing) {
        return;
    }
    m_missing = std::move(reasons);
    Q_EMIT dataChanged(index(0), index(rowCount({}) - 1), {Qt::AccessibleDescriptionRole});
}

void PlaylistModel::growTo(std::vector<TreeLine> lines)
{
    if (m_lines.empty() || lines.size() < m_lines.size()) {
        return setLines(std::move(lines));
    }
    if (lines.size() == m_lines.size()) {
        return; // an empty folder or group has added nothing
    }
    const int before = rowCount({});
    beginInsertRows({}, before, static_cast<int>(lines.size()) - 1);
    m_lines = std::move(lines);
    m_checked.resize(m_lines.size(), true);
    endInsertRows();
    // A last branch may have become one of many.
    Q_EMIT dataChanged(index(0), index(before - 1), {Qt::DisplayRole});
}

void PlaylistModel::showPlaying(const PlayingPlace& place)
{
    if (place == m_playing) {
        return;
    }
    m_playing = place;
    const int header = place.sign == PlayingSign::None ? -1 : headerLine(m_lines, place.packet);
    const int line = header + place.clip.value();
    const bool exists = header >= 0 && line < rowCount({});
    const int before = std::exchange(m_playingLine, exists ? line : -1);
    announce(before);
    announce(m_playingLine);
}

void PlaylistModel::announce(int line)
{
    if (line >= 0) {
        Q_EMIT dataChanged(index(line), index(line), {Qt::AccessibleDescriptionRole});
    }
}

PlayingSign PlaylistModel::signOf(int line) const
{
    return line >= 0 && line == m_playingLine ? m_playing.sign : PlayingSign::None;
}

QString PlaylistModel::describe(int line) const
{
    QString packet =
        isHeaderLine(m_lines[static_cast<std::size_t>(line)]) ? m_words.packet : QString();
    QStringList words = {packet, noteOf(line).words, whyMissing(line)};
    if (const PlayingSign sign = signOf(line); sign != PlayingSign::None) {
        words.append(sign == PlayingSign::Playing ? m_words.playing : m_words.paused);
    }
    words.removeAll(QString());
    return words.isEmpty() ? QString() : words.join(u", "_s);
}

bool PlaylistModel::isChecked(int line) const
{
    return hasBox(line) && m_checked[static_cast<std::size_t>(line)];
}

void PlaylistModel::setChecked(int line, bool checked)
{
    if (isChecked(line) != checked && hasBox(line)) {
        m_checked[static_cast<std::size_t>(line)] = checked;
        Q_EMIT dataChanged(index(line), index(line), {Qt::CheckStateRole});
    }
}

int PlaylistModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant PlaylistModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const auto line = static_cast<std::size_t>(index.row());
    if (role == Qt::DisplayRole) {
        return textWithPrefix(m_lines[line]);
    }
    // The tree is for the eye; what it says is which lines are packets.
    if (role == Qt::AccessibleTextRole && hasBox(index.row())) {
        const QString text = textWithoutPrefix(m_lines[line]);
        return text.isEmpty() ? u" "_s : text; // for an empty one the toolkit takes the line
    }
    if (role == Qt::AccessibleDescriptionRole) {
        const QString description = describe(index.row());
        return description.isNull() ? QVariant() : description;
    }
    if (role == Qt::CheckStateRole && hasBox(index.row())) {
        return isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    }
    return {};
}

bool PlaylistModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::CheckStateRole || !hasBox(index.row())) {
        return false;
    }
    setChecked(index.row(), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags PlaylistModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return hasBox(index.row()) ? plain | Qt::ItemIsUserCheckable : plain;
}

PlaylistList::PlaylistList(QWidget* parent)
    : QListView(parent),
      m_model(new PlaylistModel(this)),
      m_delegate(new PlaylistDelegate(m_model, this))
{
    setModel(m_model);
    speakBoxes(*this);
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setFont(skin::listFont());
    setAcceptDrops(true);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(false);
}

void PlaylistList::setZoom(double zoom)
{
    m_delegate->setZoom(zoom);
    scheduleDelayedItemsLayout();
    viewport()->update();
}

void PlaylistList::setLines(std::vector<TreeLine> lines)
{
    m_model->setLines(std::move(lines));
}

void PlaylistList::setCursorLine(int line)
{
    if (line < 0 || line >= m_model->rowCount({})) {
        selectionModel()->clear();
        return;
    }
    setCurrentIndex(m_model->index(line));
    scrollTo(currentIndex());
}

int PlaylistList::topLine() const
{
    return verticalScrollBar()->value();
}

void PlaylistList::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    // Without the keyboard no line has the focus; the base class would tell of one all the same.
    if (hasFocus()) {
        QListView::currentChanged(current, previous);
    } else {
        // NOLINTNEXTLINE(bugprone-parent-virtual-call)
        QAbstractItemView::currentChanged(current, previous);
    }
    if (current.isValid()) {
        Q_EMIT cursorMoved(current.row());
    }
}

// The root never stays current, so keys stop at the line below it.
QModelIndex PlaylistList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex target = QListView::moveCursor(action, modifiers);
    return target.isValid() && target.row() == 0 ? m_model->index(1) : target;
}

bool PlaylistList::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        showToolTip(help->globalPos(), help->pos());
        return true;
    }
    return QListView::viewportEvent(event);
}

// Bound to its line's rectangle, so that the next line brings its own text.
void PlaylistList::showToolTip(const QPoint& globalPlace, const QPoint& place)
{
    const QModelIndex line = indexAt(place);
    QToolTip::showText(globalPlace, toolTip(), viewport(),
                       line.isValid() ? visualRect(line) : QRect());
}

bool PlaylistList::toggleAt(QPoint place)
{
    const QModelIndex line = indexAt(place);
    if (!m_model->hasBox(line.row()) || !boxArea(visualRect(line)).contains(place)) {
        return false;
    }
    toggleLine(line.row());
    return true;
}

void PlaylistList::mousePressEvent(QMouseEvent* event)
{
    if (isEdited()) {
        return pressWhileEdited(*event);
    }
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !toggleAt(place) && indexAt(place).isValid()) {
        setCursorLine(indexAt(place).row());
    }
}

void PlaylistList::mouseMoveEvent(QMouseEvent* event)
{
    Q_EMIT pointerMoved(event->position().toPoint().y());
    const QPoint way = event->position().toPoint() - m_pressedAt;
    if (!m_pressedAt.isNull() && way.manhattanLength() >= QApplication::startDragDistance()) {
        dragLines();
    }
}

// Everything happened at the press; the base class would edit or drag.
void PlaylistList::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    m_pressedAt = {};
    if (const int line = std::exchange(m_pressedLine, -1); line >= 0) {
        setCursorLine(line);
    }
}

void PlaylistList::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (event->button() == Qt::LeftButton && !toggleAt(place) && indexAt(place).isValid()) {
        choose();
    }
}

QString PlaylistList::spokenLine(int line) const
{
    const QModelIndex index = m_model->index(line);
    const QString description = index.data(Qt::AccessibleDescriptionRole).toString();
    const QString text = index.data(Qt::AccessibleTextRole).toString();
    return description.isEmpty() ? text : text + u", "_s + description;
}

void PlaylistList::choose()
{
    Q_EMIT lineChosen();
}

void PlaylistList::keyPressEvent(QKeyEvent* event)
{
    const auto editing = isEdited() ? namedCommand(*event, KeyPlace::Editing) : std::nullopt;
    if (editing) {
        event->accept();
        Q_EMIT editingAsked(*editing);
        return;
    }
    if (namedCommand(*event, KeyPlace::List) == Command::CheckLine) {
        return toggleLine(cursorLine());
    }
    switch (event->key()) {
    case Qt::Key_Space: // without Ctrl it is the player's, here as everywhere
        event->setAccepted(event->modifiers() == Qt::ControlModifier);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose();
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        QListView::keyPressEvent(event);
        break;
    default:
        event->ignore();
    }
}

// The right button takes the line under the pointer; the key and beside the lines none is taken.
void PlaylistList::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        return askForMenu();
    }
    const QPoint place = viewport()->mapFromGlobal(event->globalPos());
    const QModelIndex line = indexAt(place);
    if (selectionModel()->isSelected(line)) { // one of several: the menu is for all of them
        selectionModel()->setCurrentIndex(line, QItemSelectionModel::NoUpdate);
    } else if (line.row() >= 1) {
        setCursorLine(line.row());
    }
    Q_EMIT menuAsked(event->globalPos());
}

void PlaylistList::askForMenu()
{
    const QRect line = visualRect(currentIndex()).intersected(viewport()->rect());
    const QPoint place = line.isEmpty() ? viewport()->rect().topLeft() : line.bottomLeft();
    Q_EMIT menuAsked(viewport()->mapToGlobal(place + QPoint(skin::kGrid, 0)));
}

// The base class would make the first line current as soon as the list is reached by Tab.
void PlaylistList::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
}

} // namespace orvanta
