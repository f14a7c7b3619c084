// The list of file types, each with its icon and a mark that says whether it is selected.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QIcon>
#include <QListView>
#include <QStringList>

#include <functional>

namespace orvanta {

/// Rows count from 0. Selected rows are those with a mark; the current row is another thing.
class TypeList : public QListView
{
    Q_OBJECT

public:
    explicit TypeList(QWidget* parent = nullptr);
    ~TypeList() override;

    /// Asked for the icon file of a type when its row is painted for the first time.
    void setIconFile(std::function<QString(const QString& extension)> iconFile);
    /// The icon file of a type has changed.
    void forgetIcon(const QString& extension);

    void clear();
    void addRow(const QString& extension);
    void removeRow(int row);
    [[nodiscard]] int rowCount() const;
    [[nodiscard]] QString extension(int row) const; // empty outside the rows
    [[nodiscard]] QStringList extensions() const;

    /// Without marks no row can be selected by the user.
    void setMarked(bool marked);
    [[nodiscard]] bool isRowSelected(int row) const;
    void selectRow(int row, bool selected);

    /// −1 for none.
    [[nodiscard]] int currentRow() const;
    void setCurrentRow(int row);

Q_SIGNALS:
    /// Another row is current, or none; or the current one was clicked.
    void rowClicked();

private:
    class Model;

    Model* m_model;
};

} // namespace orvanta
