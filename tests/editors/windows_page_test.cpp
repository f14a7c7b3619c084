// docs/windows.md against the editors and pickers.

#include "editors/form10_save_picker.h"
#include "editors/form5_packet_editor.h"
#include "editors/form6_group_editor.h"
#include "editors/form7_open_picker.h"
#include "tests/editors/editor_room.h"
#include "tests/support/windows_page.h"

namespace orvanta::test {

class EditorsOnWindowsPage : public EditorRoom
{};

TEST_F(EditorsOnWindowsPage, AgreeWithIt)
{
    EditorServices given = services();
    expectOnWindowsPage(Form5(given));
    expectOnWindowsPage(Form6(given));
    expectOnWindowsPage(Form7(module, {}, u"*.vxl"_s, false));
    expectOnWindowsPage(Form10(module, {}, u"*.vxl"_s));
}

} // namespace orvanta::test
