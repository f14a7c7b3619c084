// Whether everything that is written in a window can be read.
#pragma once

#include <QString>
#include <QStringList>

class QMenu;
class QWidget;

namespace orvanta::test {

/// What does not fit in a shown window: "Command1 "Cancel" needs 60, has 40". Looks at every
/// visible control by its own kind: the text, with the room that the control's frame takes.
[[nodiscard]] QStringList captionsThatDoNotFit(const QWidget& window);

/// Access keys that two entries of one menu, or two controls of one window, share; and menu
/// entries without a caption.
[[nodiscard]] QStringList accessKeyComplaints(const QMenu& menu);
[[nodiscard]] QStringList accessKeyComplaints(const QWidget& window);

/// How many captions the window shows: a walk that sees none proves nothing.
[[nodiscard]] int captionCount(const QWidget& window);

} // namespace orvanta::test
