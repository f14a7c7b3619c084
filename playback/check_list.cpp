#include "playback/check_list.h"

#include <QAbstractItemModel>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QListView>
#include <QMap>
#include <QPointer>

#include <utility>

namespace orvanta {

constexpr const char* kHasBoxes = "orvantaHasBoxes";

namespace {

/// A line of the list, whatever stands there: it is asked for by its row, counted from 0.
class CheckLine : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    CheckLine(QListView* list, int row)
        : m_list(list),
          m_row(row)
    {}

    [[nodiscard]] bool isValid() const override { return m_list != nullptr && index().isValid(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_list);
    }
    [[nodiscard]] QWindow* window() const override { return parent()->window(); }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override
    {
        return nullptr;
    }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override
    {
        return -1;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override
    {
        return hasBox() ? QAccessible::CheckBox : roleWithoutBox();
    }
    [[nodiscard]] QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return hasBox() ? QStringList{toggleAction(), setFocusAction()}
                        : QStringList{setFocusAction()};
    }
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*action*/) const override
    {
        return {};
    }

private:
    [[nodiscard]] QModelIndex index() const { return m_list->model()->index(m_row, 0); }
    [[nodiscard]] bool hasBox() const
    {
        return isValid() && index().data(Qt::CheckStateRole).isValid();
    }
    /// One item among check boxes would be counted, and the list be said to have one.
    [[nodiscard]] QAccessible::Role roleWithoutBox() const
    {
        const bool isOverBoxes =
            isValid() && m_list->model()->index(m_row + 1, 0).data(Qt::CheckStateRole).isValid();
        return isOverBoxes ? QAccessible::Heading : QAccessible::ListItem;
    }
    [[nodiscard]] bool isChecked() const
    {
        return index().data(Qt::CheckStateRole).toInt() == Qt::Checked;
    }

    QPointer<QListView> m_list;
    int m_row;
};

QString CheckLine::text(QAccessible::Text kind) const
{
    if (!isValid()) {
        return {};
    }
    if (kind == QAccessible::Name) {
        const QVariant spoken = index().data(Qt::AccessibleTextRole);
        return (spoken.isValid() ? spoken : index().data(Qt::DisplayRole)).toString();
    }
    return kind == QAccessible::Description ? index().data(Qt::AccessibleDescriptionRole).toString()
                                            : QString();
}

QRect CheckLine::rect() const
{
    if (!isValid()) {
        return {};
    }
    const QRect place = m_list->visualRect(index());
    return {m_list->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessible::State CheckLine::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    state.selectable = state.focusable = true;
    state.selected = m_list->selectionModel()->isSelected(index());
    state.focused = m_list->hasFocus() && m_list->currentIndex() == index();
    state.checkable = hasBox();
    state.checked = hasBox() && isChecked();
    state.disabled = !m_list->isEnabled();
    state.invisible =
        !m_list->isVisible() || !m_list->viewport()->rect().intersects(m_list->visualRect(index()));
    return state;
}

void CheckLine::doAction(const QString& action)
{
    if (action == setFocusAction() && isValid()) {
        m_list->setCurrentIndex(index());
        m_list->setFocus();
    } else if (action == toggleAction() && hasBox()) {
        m_list->model()->setData(index(), isChecked() ? Qt::Unchecked : Qt::Checked,
                                 Qt::CheckStateRole);
    }
}

class CheckList : public QAccessibleWidget
{
public:
    explicit CheckList(QListView* list);
    ~CheckList() override { forgetFrom(0); }
    CheckList(const CheckList&) = delete;
    CheckList& operator=(const CheckList&) = delete;

    [[nodiscard]] int childCount() const override { return m_list->model()->rowCount(); }
    [[nodiscard]] QAccessibleInterface* child(int row) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(m_list->indexAt(m_list->viewport()->mapFromGlobal(QPoint(x, y))).row());
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override
    {
        return child(m_list->currentIndex().row());
    }

private:
    void forgetFrom(int row);

    QListView* m_list;
    mutable QMap<int, QAccessible::Id> m_lines; // those that were asked for
    QObject m_context;                          // ends what listens to the model
};

CheckList::CheckList(QListView* list)
    : QAccessibleWidget(list, QAccessible::List),
      m_list(list)
{
    const auto forget = [this](const QModelIndex& /*parent*/, int first) { forgetFrom(first); };
    const QAbstractItemModel* model = list->model();
    QObject::connect(model, &QAbstractItemModel::modelReset, &m_context, [this] { forgetFrom(0); });
    QObject::connect(model, &QAbstractItemModel::rowsInserted, &m_context, forget);
    QObject::connect(model, &QAbstractItemModel::rowsRemoved, &m_context, forget);
}

QAccessibleInterface* CheckList::child(int row) const
{
    if (row < 0 || row >= childCount()) {
        return nullptr;
    }
    auto known = m_lines.constFind(row);
    if (known == m_lines.cend()) {
        const auto id = QAccessible::registerAccessibleInterface(new CheckLine(m_list, row));
        known = m_lines.insert(row, id);
    }
    return QAccessible::accessibleInterface(*known);
}

int CheckList::indexOfChild(const QAccessibleInterface* child) const
{
    return m_lines.key(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child)), -1);
}

/// Another line with the old one's identity would be taken for the old one.
void CheckList::forgetFrom(int row)
{
    for (auto line = m_lines.lowerBound(row); line != m_lines.end(); line = m_lines.erase(line)) {
        QAccessible::deleteAccessibleInterface(*line);
    }
}

} // namespace

static QAccessibleInterface* accessibleCheckList(const QString& /*className*/, QObject* object)
{
    auto* list = qobject_cast<QListView*>(object);
    return list != nullptr && list->property(kHasBoxes).toBool() ? new CheckList(list) : nullptr;
}

/// The toolkit tells nobody that a box of a line has changed.
static void tellToggled(QListView* list, const QModelIndex& line)
{
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(list, changed);
    event.setChild(line.row());
    QAccessible::updateAccessibility(&event);
}

void speakBoxes(QListView& list)
{
    list.setProperty(kHasBoxes, true);
    QAccessible::installFactory(accessibleCheckList); // once, however often it is called
    if (QAccessible::isActive()) { // has been asked for it already, while it was being made
        const auto* early = QAccessible::queryAccessibleInterface(&list);
        QAccessible::deleteAccessibleInterface(
            QAccessible::uniqueId(const_cast<QAccessibleInterface*>(early)));
    }
    QObject::connect(list.model(), &QAbstractItemModel::dataChanged, &list,
                     [list = &list](const QModelIndex& line, const QModelIndex& /*last*/,
                                    const QList<int>& roles) {
                         if (QAccessible::isActive() && roles.contains(Qt::CheckStateRole)) {
                             tellToggled(list, line);
                         }
                     });
}

} // namespace orvanta
