// The folder tree of pickers and editors.
#pragma once

#include "model/texts.h"

#include <QTreeView>

namespace orvanta {

class FolderTreeModel;

/// Shows home, root and the mounted volumes. The user's choice of a folder is a signal.
class FolderTree : public QTreeView
{
    Q_OBJECT

public:
    explicit FolderTree(TextLanguage language, QWidget* parent = nullptr);

    /// Makes a folder current, its way down opened, and reports it as chosen. Returns false, and
    /// changes nothing, when it is not there.
    bool setFolder(const QString& path);
    /// The current folder; empty when none is.
    [[nodiscard]] QString folder() const;

    [[nodiscard]] QSize sizeHint() const override { return {220, 200}; }

Q_SIGNALS:
    void folderChosen(const QString& path);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    FolderTreeModel* m_model;
};

} // namespace orvanta
