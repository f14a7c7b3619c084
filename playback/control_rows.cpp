#include "playback/control_rows.h"

#include "playback/spoken_focus.h"
#include "playback/window_roles.h"

#include <QComboBox>
#include <QLabel>
#include <QVariant>
#include <QWidget>

namespace orvanta {

using namespace Qt::StringLiterals;

void nameControls(const ControlRows& rows)
{
    tellWindowRoles();
    tellFocusFirst();
    for (const auto& [control, name] : rows) {
        control->setObjectName(name.toString());
        if (auto* box = qobject_cast<QComboBox*>(control)) {
            speakChoice(*box);
        }
    }
}

/// The property that holds the caption.
static const char* captionOf(const QObject& control)
{
    if (control.inherits("QMenu") || control.inherits("QGroupBox")) {
        return "title";
    }
    const auto* widget = qobject_cast<const QWidget*>(&control);
    return widget != nullptr && widget->isWindow() ? "windowTitle" : "text";
}

/// what: what follows the control's name in the table of texts.
static void tell(QObject& control, QStringView what, const QString& text)
{
    if (what.isEmpty()) {
        control.setProperty(captionOf(control), text);
    }
    if (what == u".tip") {
        control.setProperty("toolTip", text);
    }
    if (what == u".name" || (what == u".tip" && qobject_cast<QLabel*>(&control) == nullptr)) {
        control.setProperty("accessibleName", text);
    }
}

void applyTexts(const ControlRows& rows, TextLanguage language)
{
    for (const InterfaceText& text : interfaceTexts()) {
        if (text.window != rows.front().name) {
            continue;
        }
        for (const auto& [control, name] : rows) {
            if (text.control.startsWith(name)) {
                tell(*control, text.control.mid(name.size()), text.in(language));
            }
        }
    }
}

void setTipWithKey(QWidget& control, const QString& name, const QString& key)
{
    control.setToolTip(key.isEmpty() ? name : u"%1 (%2)"_s.arg(name, key));
    control.setAccessibleDescription(key);
}

void orderTabs(const ControlRows& rows)
{
    QWidget* before = nullptr;
    for (const ControlRow& row : rows) {
        auto* widget = qobject_cast<QWidget*>(row.control);
        if (widget == nullptr || widget->isWindow() || !(widget->focusPolicy() & Qt::TabFocus)) {
            continue;
        }
        if (before != nullptr) {
            QWidget::setTabOrder(before, widget);
        }
        before = widget;
    }
}

} // namespace orvanta
