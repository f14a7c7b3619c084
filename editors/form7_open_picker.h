// Form7, the open picker.
//
//   FolderTreeview1  the folders      File1     the folder's files that match the pattern
//   Command1         OK               Command2  Cancel
//   PathBox          the folder's path, or one to go to
#pragma once

#include "editors/picker_window.h"

namespace orvanta {

/// Puts the chosen files into PickedFiles, entries from 1 in the list's order. Closing it by the
/// window manager leaves PickedFiles as the use before left it.
class Form7 : public PickerWindow
{
    Q_OBJECT

public:
    Form7(Module1& module, const HandlerBoundary& boundary, const QString& pattern,
          bool severalFiles, QWidget* parent = nullptr);

protected:
    [[nodiscard]] ControlRows controls() override;
    void Command1_Click() override { Form7_Command1_Click(); }
    void Command2_Click() override { Form7_Command2_Click(); }
    /// A folder, or a file that its list shows.
    [[nodiscard]] bool leadsSomewhere(const TypedPath& typed) const override;
    /// A file that is listed is chosen, as by a double click.
    void takeTypedName(const QString& name) override;

private:
    void Form7_Command1_Click();
    void Form7_Command2_Click();
};

} // namespace orvanta
