// Form10, the save picker.
//
//   FolderTreeview1  the folders      File1     the folder's files that match the pattern
//   FolderLabel      the folder's name
//   Text1            the new name     Label1    what OK will meet: an older file, no right
//   Command1         OK               Command2  Cancel
//   PathBox          the folder's path, or one to go to
#pragma once

#include "editors/picker_window.h"

namespace orvanta {

/// Puts the new file's path into SaveFileName; empty when nothing was chosen. The pattern's
/// extension is always appended, also to a name that ends in it already. proposedName: without
/// extension; empty for "no name".
class Form10 : public PickerWindow
{
    Q_OBJECT

public:
    Form10(Module1& module, const HandlerBoundary& boundary, const QString& pattern,
           const QString& proposedName = {}, QWidget* parent = nullptr);

    QLabel* FolderLabel = nullptr; // where the file will lie, by the folder's own name
    LineBox* Text1 = nullptr;      // the new file's name without its extension
    QLabel* Label1 = nullptr; // a quiet line: the file will be replaced, or cannot be saved there

protected:
    [[nodiscard]] ControlRows controls() override;
    void Command1_Click() override { Form10_Command1_Click(); }
    void Command2_Click() override { Form10_Command2_Click(); }
    [[nodiscard]] bool leadsSomewhere(const TypedPath& /*typed*/) const override { return true; }
    void takeTypedName(const QString& name) override;
    void folderShown() override;

private:
    void buildNameRow();
    void Form10_File1_Click();
    void Form10_Command1_Click();
    void Form10_Command2_Click();
    void showOutlook();
    [[nodiscard]] QString target() const;
};

} // namespace orvanta
