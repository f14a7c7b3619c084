#include "playback/window_roles.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace orvanta {

static bool isWindowOfProgram(const QWidget& widget)
{
    const Qt::WindowType type = widget.windowType();
    return type == Qt::Window || type == Qt::Dialog || type == Qt::SplashScreen;
}

/// Asked for each class from the object's own down: whatever is more than a plain widget has been
/// answered by then.
static QAccessibleInterface* accessibleWindow(const QString& className, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    const bool isPlain = className == QLatin1String("QWidget") && widget != nullptr;
    if (!isPlain || !isWindowOfProgram(*widget)) {
        return nullptr;
    }
    const auto role =
        widget->windowType() == Qt::Dialog ? QAccessible::Dialog : QAccessible::Window;
    return new QAccessibleWidget(widget, role);
}

void tellWindowRoles()
{
    QAccessible::installFactory(accessibleWindow); // once, however often it is called
}

} // namespace orvanta
