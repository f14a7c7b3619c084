#include "system/page_button.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace orvanta {

namespace {

class PageTab : public QAccessibleWidget
{
public:
    explicit PageTab(PageButton* button)
        : QAccessibleWidget(button, QAccessible::PageTab),
          m_button(button)
    {}

    [[nodiscard]] QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = m_button->isChecked();
        return state;
    }
    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() ? m_button->text() : own;
    }
    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override
    {
        if (action == pressAction()) {
            m_button->click();
        } else {
            QAccessibleWidget::doAction(action);
        }
    }

private:
    PageButton* m_button;
};

} // namespace

static QAccessibleInterface* accessibleTab(const QString& /*className*/, QObject* object)
{
    auto* button = qobject_cast<PageButton*>(object);
    return button != nullptr ? new PageTab(button) : nullptr;
}

static void tellSelected(PageButton& button)
{
    QAccessible::State changed;
    changed.selected = true;
    QAccessibleStateChangeEvent event(&button, changed);
    QAccessible::updateAccessibility(&event);
}

PageButton::PageButton(QWidget* parent)
    : QToolButton(parent)
{
    QAccessible::installFactory(accessibleTab); // once, however often it is called
    setCheckable(true);
    setAutoExclusive(true);
    connect(this, &QToolButton::toggled, this, [this] { tellSelected(*this); });
}

} // namespace orvanta
