#include "editors/folder_tree_model.h"

#include "core/paths.h"
#include "editors/folder_names.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace orvanta {

struct FolderTreeModel::Node
{
    QString name;
    QString path;
    QIcon icon;
    Node* parent = nullptr;
    std::vector<std::unique_ptr<Node>> children = {};
    bool isRead = false;

    [[nodiscard]] int row() const;
    [[nodiscard]] bool isAboveItself() const;
};

/// A folder on disk, whatever the path that leads to it.
static std::pair<dev_t, ino_t> identityOf(const QString& path)
{
    struct stat status = {};
    if (stat(QFile::encodeName(path).constData(), &status) != 0) {
        return {};
    }
    return {status.st_dev, status.st_ino};
}

int FolderTreeModel::Node::row() const
{
    const auto& siblings = parent->children;
    const auto place = std::find_if(siblings.begin(), siblings.end(),
                                    [this](const auto& node) { return node.get() == this; });
    return static_cast<int>(place - siblings.begin());
}

/// Whether a link led back up to a folder on the way down.
bool FolderTreeModel::Node::isAboveItself() const
{
    const auto identity = identityOf(path);
    for (const Node* above = parent; above != nullptr && !above->path.isEmpty();
         above = above->parent) {
        if (identityOf(above->path) == identity) {
            return true;
        }
    }
    return false;
}

FolderTreeModel::FolderTreeModel(const std::vector<Root>& roots, const QIcon& folderIcon,
                                 QObject* parent)
    : QAbstractItemModel(parent),
      m_top(std::make_unique<Node>()),
      m_folderIcon(folderIcon)
{
    m_top->isRead = true;
    for (const Root& root : roots) {
        m_top->children.push_back(std::make_unique<Node>(
            Node{.name = root.label, .path = root.path, .icon = root.icon, .parent = m_top.get()}));
    }
}

FolderTreeModel::~FolderTreeModel() = default;

FolderTreeModel::Node* FolderTreeModel::nodeOf(const QModelIndex& index)
{
    return static_cast<Node*>(index.internalPointer());
}

QModelIndex FolderTreeModel::indexOf(const Node* node) const
{
    return node == m_top.get() ? QModelIndex()
                               : createIndex(node->row(), 0, const_cast<Node*>(node));
}

QString FolderTreeModel::pathOf(const QModelIndex& index)
{
    return index.isValid() ? nodeOf(index)->path : QString();
}

static bool isBelow(const QString& path, const QString& folder)
{
    return path == folder || path.startsWith(AddBackslash(folder));
}

/// The root with the longest path that leads to the folder.
FolderTreeModel::Node* FolderTreeModel::rootAbove(const QString& path) const
{
    Node* best = nullptr;
    for (const auto& root : m_top->children) {
        const bool leads = isBelow(path, root->path);
        if (leads && (best == nullptr || root->path.size() > best->path.size())) {
            best = root.get();
        }
    }
    return best;
}

QModelIndex FolderTreeModel::indexOfFolder(const QString& path)
{
    const QString wanted = QDir::cleanPath(path);
    Node* node = FolderExists(wanted) ? rootAbove(wanted) : nullptr;
    if (node == nullptr) {
        return {};
    }
    const QString way = wanted.mid(node->path.size());
    for (const QString& name : way.split(u'/', Qt::SkipEmptyParts)) {
        node = childOf(node, name);
    }
    return indexOf(node);
}

FolderTreeModel::Node* FolderTreeModel::childOf(Node* node, const QString& name)
{
    fetchMore(indexOf(node));
    const auto isWanted = [&](const auto& child) { return child->name == name; };
    auto child = std::find_if(node->children.begin(), node->children.end(), isWanted);
    if (child == node->children.end()) {
        // Hidden, or younger than what was read. The caller knows that it is there.
        insertChild(node, name);
        child = std::prev(node->children.end());
    }
    return child->get();
}

void FolderTreeModel::insertChild(Node* node, const QString& name)
{
    const int row = static_cast<int>(node->children.size());
    beginInsertRows(indexOf(node), row, row);
    node->children.push_back(std::make_unique<Node>(Node{
        .name = name, .path = joinPath(node->path, name), .icon = m_folderIcon, .parent = node}));
    endInsertRows();
}

void FolderTreeModel::readChildren(Node* node)
{
    node->isRead = true;
    const QStringList names = node->isAboveItself() ? QStringList() : folderNames(node->path);
    if (names.isEmpty()) {
        return;
    }
    beginInsertRows(indexOf(node), 0, static_cast<int>(names.size()) - 1);
    for (const QString& name : names) {
        node->children.push_back(std::make_unique<Node>(Node{.name = name,
                                                             .path = joinPath(node->path, name),
                                                             .icon = m_folderIcon,
                                                             .parent = node}));
    }
    endInsertRows();
}

void FolderTreeModel::refresh(const QModelIndex& index)
{
    if (!index.isValid()) {
        return;
    }
    Node* node = nodeOf(index);
    if (!node->children.empty()) {
        beginRemoveRows(index, 0, static_cast<int>(node->children.size()) - 1);
        node->children.clear();
        endRemoveRows();
    }
    readChildren(node);
}

QModelIndex FolderTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    const Node* node = parent.isValid() ? nodeOf(parent) : m_top.get();
    if (column != 0 || row < 0 || row >= static_cast<int>(node->children.size())) {
        return {};
    }
    return createIndex(row, 0, node->children[static_cast<std::size_t>(row)].get());
}

QModelIndex FolderTreeModel::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(nodeOf(index)->parent) : QModelIndex();
}

int FolderTreeModel::rowCount(const QModelIndex& parent) const
{
    const Node* node = parent.isValid() ? nodeOf(parent) : m_top.get();
    return static_cast<int>(node->children.size());
}

QVariant FolderTreeModel::headerData(int /*section*/, Qt::Orientation /*orientation*/,
                                     int role) const
{
    const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
    const QObject* tree = QObject::parent();
    return isText && tree != nullptr ? tree->property("accessibleName") : QVariant();
}

int FolderTreeModel::columnCount(const QModelIndex& /*parent*/) const
{
    return 1;
}

QVariant FolderTreeModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const Node* node = nodeOf(index);
    switch (role) {
    case Qt::DisplayRole:
        return node->name;
    case Qt::DecorationRole:
        return node->icon;
    case Qt::ToolTipRole:
    case PathRole:
        return node->path;
    default:
        return {};
    }
}

bool FolderTreeModel::hasChildren(const QModelIndex& parent) const
{
    const Node* node = parent.isValid() ? nodeOf(parent) : m_top.get();
    return !node->isRead || !node->children.empty();
}

bool FolderTreeModel::canFetchMore(const QModelIndex& parent) const
{
    return parent.isValid() && !nodeOf(parent)->isRead;
}

void FolderTreeModel::fetchMore(const QModelIndex& parent)
{
    if (canFetchMore(parent)) {
        readChildren(nodeOf(parent));
    }
}

} // namespace orvanta
