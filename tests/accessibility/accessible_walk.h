// What assistive technology is told of a window, asked inside the program.
#pragma once

#include <QStringList>

class QObject;

namespace orvanta::test {

/// What was found on a walk over a window, or a menu, and everything below it.
struct AccessibleWalk
{
    int met = 0;            // controls that a person can use
    QStringList complaints; // controls without a name, a role or an action, each with its place
};

/// Looks at everything that is shown below the object; of a list at its first lines.
[[nodiscard]] AccessibleWalk walkOver(QObject& top);

} // namespace orvanta::test
