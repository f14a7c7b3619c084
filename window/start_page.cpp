#include "window/start_page.h"

#include "platform/screen/window_basics.h"
#include "window/file_drop.h"
#include "window/skin.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

StartPageModel::StartPageModel(TextLanguage language, QObject* parent)
    : QAbstractListModel(parent),
      m_language(language)
{}

void StartPageModel::setLessons(std::vector<RecentLesson> lessons)
{
    beginResetModel();
    m_rows.clear();
    for (RecentLesson& lesson : lessons) {
        const bool isThere = lesson.isThere();
        m_rows.push_back({.lesson = std::move(lesson), .isThere = isThere});
    }
    endResetModel();
}

const RecentLesson* StartPageModel::lesson(int row) const
{
    return row >= 0 && row < lessonCount() ? &m_rows[static_cast<std::size_t>(row)].lesson
                                           : nullptr;
}

bool StartPageModel::isThere(int row) const
{
    return lesson(row) != nullptr && m_rows[static_cast<std::size_t>(row)].isThere;
}

QString StartPageModel::folderAt(int row) const
{
    return isThere(row) ? lesson(row)->folder() : interfaceText(u"Recent", u"gone", m_language);
}

QString StartPageModel::placeAt(int row) const
{
    return isThere(row) ? placeText(*lesson(row), QDate::currentDate(), m_language)
                        : interfaceText(u"Recent", u"hint", m_language);
}

QString StartPageModel::text(QStringView key) const
{
    return interfaceText(u"Form2", u"StartPage.%1"_s.arg(key), m_language);
}

int StartPageModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() || m_rows.empty() ? 0 : lessonCount() + 1;
}

QVariant StartPageModel::data(const QModelIndex& index, int role) const
{
    const RecentLesson* const shown = lesson(index.row());
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
        return shown == nullptr
                   ? text(u"forget")
                   : spokenText(*shown, isThere(index.row()), QDate::currentDate(), m_language);
    }
    if (role == Qt::ToolTipRole && shown != nullptr) {
        return plainToolTip(shown->path);
    }
    return {};
}

StartPageList::StartPageList(TextLanguage language, QWidget* parent)
    : QListView(parent),
      m_model(new StartPageModel(language, this)),
      m_delegate(new StartPageDelegate(m_model, this))
{
    setModel(m_model);
    setItemDelegate(m_delegate);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setFont(skin::interfaceFont(13));
    setAcceptDrops(true);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(false);
    connect(this, &QListView::clicked, this, &StartPageList::choose);
}

void StartPageList::setZoom(double zoom)
{
    m_delegate->setZoom(zoom);
    scheduleDelayedItemsLayout();
    viewport()->update();
}

void StartPageList::setLessons(std::vector<RecentLesson> lessons)
{
    const int before = std::max(currentIndex().row(), 0);
    m_model->setLessons(std::move(lessons));
    const int last = std::max(m_model->lessonCount() - 1, 0);
    setCurrentIndex(m_model->index(std::min(before, last)));
}

void StartPageList::choose(const QModelIndex& index)
{
    if (m_model->isForgetRow(index.row())) {
        Q_EMIT forgetAsked();
    } else if (const RecentLesson* lesson = m_model->lesson(index.row())) {
        Q_EMIT lessonChosen(RecentLesson(*lesson)); // the rows change under it
    }
}

void StartPageList::takeOff(int row)
{
    if (const RecentLesson* lesson = m_model->lesson(row)) {
        Q_EMIT takeOffAsked(QString(lesson->path));
    }
}

void StartPageList::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        event->setAccepted(!event->modifiers().testFlag(Qt::ControlModifier));
        return event->isAccepted() ? choose(currentIndex()) : void();
    case Qt::Key_Delete:
        return takeOff(currentIndex().row());
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        return QListView::keyPressEvent(event);
    default:
        event->ignore();
    }
}

void StartPageList::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        return askForMenu();
    }
    const QModelIndex under = indexAt(viewport()->mapFromGlobal(event->globalPos()));
    if (under.isValid()) {
        setCurrentIndex(under);
    }
    openMenu(event->globalPos());
}

void StartPageList::askForMenu()
{
    const QRect row = visualRect(currentIndex()).intersected(viewport()->rect());
    const QPoint corner = row.isEmpty() ? viewport()->rect().topLeft() : row.bottomLeft();
    openMenu(viewport()->mapToGlobal(corner + QPoint(skin::kGrid, 0)));
}

void StartPageList::openMenu(QPoint place)
{
    const QPersistentModelIndex row = currentIndex();
    const bool isLesson = m_model->lesson(row.row()) != nullptr;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyleSheet(skin::commandMenuSheet());
    QAction* open = menu->addAction(m_model->text(u"open"), this, [this, row] { choose(row); });
    open->setEnabled(isLesson && m_model->isThere(row.row()));
    menu->addAction(m_model->text(u"take"), this, [this, row] { takeOff(row.row()); })
        ->setEnabled(isLesson);
    menu->addSeparator();
    menu->addAction(m_model->text(u"forget"), this, &StartPageList::forgetAsked);
    menu->popup(place);
}

void StartPageList::dragEnterEvent(QDragEnterEvent* event)
{
    welcomeFiles(*event);
}

void StartPageList::dragMoveEvent(QDragMoveEvent* event)
{
    welcomeFiles(*event);
}

void StartPageList::dropEvent(QDropEvent* event)
{
    const QStringList files = takeFiles(*event);
    if (!files.isEmpty()) {
        Q_EMIT filesDropped(files);
    }
}

} // namespace orvanta
