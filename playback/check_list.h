// Lists whose lines have boxes, as assistive technology meets them.
#pragma once

class QListView;

namespace orvanta {

/// Makes each line with a box a check box of the list and tells when one is toggled. The toolkit's
/// own lines are items with a state that screen readers pass over: they say neither "not checked"
/// nor what a key has changed. To be called when the list has its model.
void speakBoxes(QListView& list);

} // namespace orvanta
