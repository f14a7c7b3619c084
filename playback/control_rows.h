// A window's controls as one table: names, texts and the order of Tab follow from it.
#pragma once

#include "model/texts.h"

#include <vector>

class QObject;
class QWidget;

namespace orvanta {

struct ControlRow
{
    QObject* control;
    QStringView name;
};

/// The window itself first, then its controls in the order in which Tab goes through them.
using ControlRows = std::vector<ControlRow>;

/// Gives each control its object name, and windows their role for assistive technology.
void nameControls(const ControlRows& rows);

/// Gives each control the texts that the table of texts has for its window and name: the text "X"
/// is X's caption, "X.tip" its tool tip and its accessible name, "X.name" its accessible name
/// alone. A label's tool tip describes it and does not name it: its own text is what is read out.
void applyTexts(const ControlRows& rows, TextLanguage language);

/// Makes the tool tip the name with the key behind it. To assistive technology the key alone is
/// told beside the name, which would otherwise be read out twice.
void setTipWithKey(QWidget& control, const QString& name, const QString& key);

/// Called when the window is laid out: a widget that changes its parent goes to the end.
void orderTabs(const ControlRows& rows);

} // namespace orvanta
