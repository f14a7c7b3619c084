// What assistive technology hears of a control that gets the keyboard.
#pragma once

class QComboBox;
class QLineEdit;

namespace orvanta {

/// From here on a line of text that gets the keyboard tells that first and nothing of what was
/// selected in it on the way, and a list that gets it names its current line. The toolkit tells of
/// the selection before; a screen reader then takes the field for known and does not name it. Once
/// for the application, however often it is called.
void tellFocusFirst();

/// The same for what is done to a field on its way to the keyboard: passed over until it has it, or
/// the event loop is reached.
void tellFocusAlone(QLineEdit& field);

/// Readers say the name of a box of the toolkit and not what is chosen in it: its description is
/// that. They hear the lines of an open box, but nothing of a closed one that a key or the wheel
/// changes: that is announced. The box must be in its window.
void speakChoice(QComboBox& box);

} // namespace orvanta
