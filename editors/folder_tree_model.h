// The folders below home, root and the mounted volumes, read when they are opened.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include <memory>

namespace orvanta {

/// Column 0 shows the folders' names; the path is PathRole. Links to folders are followed; a folder
/// that is one of those above it has no children, so no way down is endless. Hidden folders are not
/// shown until indexOfFolder asks for one.
class FolderTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role
    {
        PathRole = Qt::UserRole + 1,
    };

    /// A folder at the top of the tree.
    struct Root
    {
        QString label;
        QString path;
        QIcon icon;
    };

    FolderTreeModel(const std::vector<Root>& roots, const QIcon& folderIcon,
                    QObject* parent = nullptr);
    ~FolderTreeModel() override;

    /// The folder's place, with everything on the way down read and hidden folders on it shown.
    /// Invalid when the path is not below a root or is not there.
    [[nodiscard]] QModelIndex indexOfFolder(const QString& path);
    /// Reads a folder again, as it is now.
    void refresh(const QModelIndex& index);
    [[nodiscard]] static QString pathOf(const QModelIndex& index);

    [[nodiscard]] QModelIndex index(int row, int column, const QModelIndex& parent) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    /// The header is not shown, but told: by the tree's own name, else it would be a number.
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] bool hasChildren(const QModelIndex& parent) const override;
    [[nodiscard]] bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

private:
    struct Node;

    [[nodiscard]] static Node* nodeOf(const QModelIndex& index);
    [[nodiscard]] QModelIndex indexOf(const Node* node) const;
    [[nodiscard]] Node* rootAbove(const QString& path) const;
    Node* childOf(Node* node, const QString& name);
    void readChildren(Node* node);
    void insertChild(Node* node, const QString& name);

    std::unique_ptr<Node> m_top;
    QIcon m_folderIcon;
};

} // namespace orvanta
