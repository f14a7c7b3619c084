#include "editors/file_list_box.h"

#include "core/paths.h"
#include "editors/folder_names.h"
#include "editors/legible_icons.h"
#include "editors/responsive.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace orvanta {

/// Rows of names, each with the same icon.
class FileNamesModel : public QAbstractListModel
{
public:
    FileNamesModel(QIcon icon, QObject* parent)
        : QAbstractListModel(parent),
          m_icon(std::move(icon))
    {}

    [[nodiscard]] const QStringList& names() const { return m_names; }
    void setNames(QStringList names)
    {
        beginResetModel();
        m_names = std::move(names);
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_names.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        if (role == Qt::DecorationRole) {
            return m_icon;
        }
        return role == Qt::DisplayRole ? QVariant(m_names.at(index.row())) : QVariant();
    }

private:
    QIcon m_icon;
    QStringList m_names;
};

/// Rows as wide as the list, whatever the names: a name that does not fit is elided.
class FileNamePainter : public LegibleIcons
{
public:
    using LegibleIcons::LegibleIcons;

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override
    {
        constexpr int kNarrow = 100;
        const QSize whole = LegibleIcons::sizeHint(option, index);
        return {std::min(whole.width(), kNarrow), whole.height()};
    }
};

FileListBox::FileListBox(QWidget* parent)
    : QListView(parent),
      m_model(new FileNamesModel(style()->standardIcon(QStyle::SP_FileIcon), this))
{
    setModel(m_model);
    setItemDelegate(new FileNamePainter(this));
    setUniformItemSizes(true);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    setIconSize({icon, icon});
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    connect(this, &QListView::clicked, this, &FileListBox::clickCurrent);
}

void FileListBox::setPattern(const QString& pattern)
{
    m_pattern = pattern;
    list();
}

bool FileListBox::setFolder(const QString& folder)
{
    if (!FolderExists(folder)) {
        return false;
    }
    m_folder = folder;
    list();
    return true;
}

void FileListBox::list()
{
    if (m_folder.isEmpty()) {
        return;
    }
    QStringList names;
    runResponsively(
        [&names, folder = m_folder, pattern = m_pattern] { names = fileNames(folder, pattern); });
    m_model->setNames(std::move(names));
}

QStringList FileListBox::names() const
{
    return m_model->names();
}

QString FileListBox::FileName() const
{
    // The keyboard's focus makes a row current that nobody has chosen.
    const QModelIndex index = currentIndex();
    const bool isChosen = index.isValid() && selectionModel()->hasSelection();
    return isChosen ? m_model->names().at(index.row()) : QString();
}

QString FileListBox::filePath() const
{
    return joinPath(m_folder, FileName());
}

QStringList FileListBox::selectedNames() const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount({}); ++row) {
        if (selectionModel()->isRowSelected(row)) {
            names.append(m_model->names().at(row));
        }
    }
    return names;
}

bool FileListBox::selectName(const QString& name)
{
    const qsizetype row = m_model->names().indexOf(name);
    if (row < 0) {
        return false;
    }
    selectRow(static_cast<int>(row));
    return true;
}

void FileListBox::selectFirst()
{
    if (!m_model->names().isEmpty()) {
        selectRow(0);
    }
}

void FileListBox::selectRow(int row)
{
    selectionModel()->setCurrentIndex(m_model->index(row, 0, {}),
                                      QItemSelectionModel::ClearAndSelect);
    scrollTo(currentIndex());
}

/// A blank that follows a letter at once belongs to the name that is being typed.
bool FileListBox::isTyping() const
{
    return m_typed.isValid() && !m_typed.hasExpired(QApplication::keyboardInputInterval());
}

bool FileListBox::clicks(const QKeyEvent& event) const
{
    const bool isEnter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const bool isSpace = event.key() == Qt::Key_Space && event.modifiers() == Qt::NoModifier;
    return currentIndex().isValid() && ((isSpace && !isTyping()) || (isEnter && m_enterClicks));
}

/// With one file allowed, a click always chooses it: Ctrl must not take the choice away.
void FileListBox::chooseCurrent()
{
    const bool isOne = selectionMode() == QAbstractItemView::SingleSelection;
    if (isOne && !selectionModel()->isSelected(currentIndex())) {
        selectRow(currentIndex().row());
    }
}

void FileListBox::clickCurrent()
{
    chooseCurrent();
    Q_EMIT Click();
    Q_EMIT fileChosen();
}

void FileListBox::mousePressEvent(QMouseEvent* event)
{
    m_pressedBeside = !indexAt(event->pos()).isValid();
    if (!m_pressedBeside) {
        QListView::mousePressEvent(event);
    }
}

void FileListBox::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_pressedBeside || event->buttons() == Qt::NoButton) {
        QListView::mouseMoveEvent(event);
    }
}

void FileListBox::keyPressEvent(QKeyEvent* event)
{
    if (clicks(*event)) {
        m_typed.invalidate();
        clickCurrent();
        return;
    }
    if (!event->text().isEmpty() && event->text().front().isPrint()) {
        m_typed.start();
    }
    const QModelIndex before = currentIndex();
    QListView::keyPressEvent(event);
    if (currentIndex() != before) {
        Q_EMIT fileChosen();
    }
}

} // namespace orvanta
