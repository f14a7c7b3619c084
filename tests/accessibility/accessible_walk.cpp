#include "tests/accessibility/accessible_walk.h"

#include <QAccessible>
#include <QObject>

#include <algorithm>
#include <array>

namespace orvanta::test {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kContainers = {QAccessible::List, QAccessible::Tree, QAccessible::Table};
constexpr std::array kUsable = {
    QAccessible::Button,     QAccessible::CheckBox,       QAccessible::RadioButton,
    QAccessible::Slider,     QAccessible::EditableText,   QAccessible::SpinBox,
    QAccessible::ComboBox,   QAccessible::ListItem,       QAccessible::TreeItem,
    QAccessible::Cell,       QAccessible::MenuItem,       QAccessible::PageTab,
    QAccessible::ButtonMenu, QAccessible::ButtonDropDown,
};

template <typename Roles> bool isOneOf(const Roles& roles, QAccessible::Role role)
{
    return std::find(roles.begin(), roles.end(), role) != roles.end();
}

bool hasAction(QAccessibleInterface& control)
{
    const QAccessibleActionInterface* actions = control.actionInterface();
    return actions != nullptr && !actions->actionNames().isEmpty();
}

/// What is wrong with one control; empty when nothing is.
QString complaintAbout(QAccessibleInterface& control)
{
    const bool isContainer = isOneOf(kContainers, control.role());
    if (control.text(QAccessible::Name).trimmed().isEmpty()) {
        return u"has no name"_s;
    }
    if (!isContainer && control.state().disabled == 0 && !hasAction(control)) {
        return u"has no action"_s;
    }
    return {};
}

void walk(QAccessibleInterface& control, const QString& above, AccessibleWalk& result)
{
    if (control.state().invisible != 0) {
        return;
    }
    const QString place = above + u'/' + control.text(QAccessible::Name);
    const auto complain = [&](const QString& what) {
        result.complaints.append(
            u"%1 (role %2) %3"_s.arg(place).arg(int{control.role()}).arg(what));
    };
    if (control.role() == QAccessible::NoRole) {
        complain(u"has no role"_s);
    }
    // A picture is mostly to look at; one that can be pressed is met like a button.
    const bool isUsablePicture = control.role() == QAccessible::Graphic && hasAction(control);
    if (isOneOf(kContainers, control.role()) || isOneOf(kUsable, control.role()) ||
        isUsablePicture) {
        ++result.met;
        if (const QString complaint = complaintAbout(control); !complaint.isEmpty()) {
            complain(complaint);
        }
    }
    constexpr int kMostLines = 20;
    const int count = std::min(control.childCount(), kMostLines);
    for (int i = 0; i < count; ++i) {
        if (QAccessibleInterface* child = control.child(i)) {
            walk(*child, place, result);
        }
    }
}

} // namespace

AccessibleWalk walkOver(QObject& top)
{
    AccessibleWalk result;
    if (QAccessibleInterface* window = QAccessible::queryAccessibleInterface(&top)) {
        walk(*window, {}, result);
    } else {
        result.complaints.append(u"is not told of at all"_s);
    }
    return result;
}

} // namespace orvanta::test
