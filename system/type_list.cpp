#include "system/type_list.h"

#include "platform/file_types/type_icons.h"
#include "playback/check_list.h"

#include <QItemSelectionModel>

#include <algorithm>
#include <utility>
#include <vector>

namespace orvanta {

constexpr int kIconSide = 20; // logical pixels

/// A row's icon is read when somebody looks at it: two hundred rows cost what is seen of them.
class TypeList::Model : public QAbstractListModel
{
public:
    struct Row
    {
        QString extension;
        bool isSelected = false;
    };

    using QAbstractListModel::QAbstractListModel;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rows.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const Row& row = rows[static_cast<std::size_t>(index.row())];
        switch (role) {
        case Qt::DisplayRole:
            return row.extension;
        case Qt::CheckStateRole:
            return isMarked ? QVariant(row.isSelected ? Qt::Checked : Qt::Unchecked) : QVariant();
        case Qt::DecorationRole:
            return icon(row.extension);
        default:
            return {};
        }
    }

    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole) {
            return false;
        }
        rows[static_cast<std::size_t>(index.row())].isSelected = value.toInt() == Qt::Checked;
        Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
        return true;
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags mark = isMarked ? Qt::ItemIsUserCheckable : Qt::NoItemFlags;
        return QAbstractListModel::flags(index) | mark | Qt::ItemNeverHasChildren;
    }

    [[nodiscard]] QIcon icon(const QString& extension) const
    {
        const auto known = icons.constFind(extension);
        if (known != icons.cend()) {
            return known.value();
        }
        QIcon icon;
        const QString file = iconFile ? iconFile(extension) : QString();
        for (const int side : {kIconSide, 2 * kIconSide}) {
            const QImage picture = readIcon(file, side);
            if (!picture.isNull()) {
                icon.addPixmap(QPixmap::fromImage(picture));
            }
        }
        if (icon.isNull()) { // keeps the place
            QPixmap nothing(kIconSide, kIconSide);
            nothing.fill(Qt::transparent);
            icon.addPixmap(nothing);
        }
        return icons.insert(extension, icon).value();
    }

    void changeRows(const std::function<void()>& change)
    {
        beginResetModel();
        change();
        endResetModel();
    }

    void append(const QString& extension)
    {
        beginInsertRows({}, rowCount(), rowCount());
        rows.push_back({extension, false});
        endInsertRows();
    }

    void remove(int row)
    {
        beginRemoveRows({}, row, row);
        rows.erase(rows.begin() + row);
        endRemoveRows();
    }

    std::vector<Row> rows;
    bool isMarked = true;
    std::function<QString(const QString&)> iconFile;
    mutable QHash<QString, QIcon> icons;
};

TypeList::TypeList(QWidget* parent)
    : QListView(parent),
      m_model(new Model(this))
{
    setModel(m_model);
    speakBoxes(*this);
    setUniformItemSizes(true);
    setIconSize({kIconSide, kIconSide});
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, &TypeList::rowClicked);
    connect(this, &QListView::clicked, this, &TypeList::rowClicked);
}

TypeList::~TypeList() = default;

void TypeList::setIconFile(std::function<QString(const QString& extension)> iconFile)
{
    m_model->iconFile = std::move(iconFile);
}

void TypeList::forgetIcon(const QString& extension)
{
    m_model->icons.remove(extension);
    viewport()->update();
}

void TypeList::clear()
{
    m_model->changeRows([this] { m_model->rows.clear(); });
}

void TypeList::addRow(const QString& extension)
{
    m_model->append(extension);
}

void TypeList::removeRow(int row)
{
    if (row >= 0 && row < rowCount()) {
        m_model->remove(row);
    }
}

int TypeList::rowCount() const
{
    return m_model->rowCount();
}

QString TypeList::extension(int row) const
{
    const bool isThere = row >= 0 && row < rowCount();
    return isThere ? m_model->rows[static_cast<std::size_t>(row)].extension : QString();
}

QStringList TypeList::extensions() const
{
    QStringList all;
    for (const Model::Row& row : m_model->rows) {
        all.append(row.extension);
    }
    return all;
}

void TypeList::setMarked(bool marked)
{
    m_model->changeRows([&] { m_model->isMarked = marked; });
}

bool TypeList::isRowSelected(int row) const
{
    return row >= 0 && row < rowCount() && m_model->rows[static_cast<std::size_t>(row)].isSelected;
}

void TypeList::selectRow(int row, bool selected)
{
    m_model->setData(m_model->index(row), selected ? Qt::Checked : Qt::Unchecked,
                     Qt::CheckStateRole);
}

int TypeList::currentRow() const
{
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void TypeList::setCurrentRow(int row)
{
    if (row < 0) {
        selectionModel()->clear();
    } else {
        setCurrentIndex(m_model->index(row));
    }
}

} // namespace orvanta
