#include "editors/folder_tree.h"

#include "editors/folder_names.h"
#include "editors/folder_tree_model.h"
#include "editors/legible_icons.h"

#include <QDir>
#include <QKeyEvent>
#include <QStyle>

#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

static std::vector<FolderTreeModel::Root> rootsOf(const QStyle& style, TextLanguage language)
{
    std::vector<FolderTreeModel::Root> roots = {
        {.label = interfaceText(u"FolderTree", u"home", language),
         .path = QDir::homePath(),
         .icon = style.standardIcon(QStyle::SP_DirHomeIcon)},
        {.label = interfaceText(u"FolderTree", u"root", language),
         .path = QDir::rootPath(),
         .icon = style.standardIcon(QStyle::SP_ComputerIcon)},
    };
    for (const QString& volume : mountedVolumes()) {
        roots.push_back({.label = volume.section(u'/', -1),
                         .path = volume,
                         .icon = style.standardIcon(QStyle::SP_DriveHDIcon)});
    }
    return roots;
}

FolderTree::FolderTree(TextLanguage language, QWidget* parent)
    : QTreeView(parent),
      m_model(new FolderTreeModel(rootsOf(*style(), language),
                                  style()->standardIcon(QStyle::SP_DirIcon), this))
{
    setModel(m_model);
    setItemDelegate(new LegibleIcons(this));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideMiddle);
}

bool FolderTree::setFolder(const QString& path)
{
    const QModelIndex index = m_model->indexOfFolder(path);
    if (!index.isValid()) {
        return false;
    }
    if (index == currentIndex()) {
        // Chosen again: what it holds may have changed.
        Q_EMIT folderChosen(folder());
        return true;
    }
    setCurrentIndex(index);
    expand(index.parent());
    scrollTo(index, QAbstractItemView::PositionAtCenter);
    return true;
}

QString FolderTree::folder() const
{
    return FolderTreeModel::pathOf(currentIndex());
}

void FolderTree::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (current.isValid()) {
        Q_EMIT folderChosen(FolderTreeModel::pathOf(current));
    }
}

void FolderTree::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Refresh)) {
        m_model->refresh(currentIndex());
        Q_EMIT folderChosen(folder());
        return;
    }
    QTreeView::keyPressEvent(event);
}

} // namespace orvanta
