#include "editors/form7_open_picker.h"

#include "editors/file_list_box.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "editors/responsive.h"

#include <QPushButton>

namespace orvanta {

Form7::Form7(Module1& module, const HandlerBoundary& boundary, const QString& pattern,
             bool severalFiles, QWidget* parent)
    : PickerWindow(module, boundary, u"Form7", pattern, parent)
{
    // With one file allowed, a drag over the list must not select more than the current one.
    File1->setSelectionMode(severalFiles ? QAbstractItemView::ExtendedSelection
                                         : QAbstractItemView::SingleSelection);
    setUpControls();
    connectHandlers();
    showStoredFolder();
}

ControlRows Form7::controls()
{
    return {{this, u"Form7"},  {PathBox, u"PathBox"},   {FolderTreeview1, u"FolderTreeview1"},
            {File1, u"File1"}, {Command1, u"Command1"}, {Command2, u"Command2"}};
}

void Form7::Form7_Command1_Click()
{
    if (File1->FileName().isEmpty()) {
        return;
    }
    storeFolder();
    QStringList& picked = module().picker.PickedFiles;
    picked = {QString()};
    for (const QString& name : File1->selectedNames()) {
        picked.append(AddBackslash(File1->folder()) + name);
    }
    QDialog::done(Accepted);
}

void Form7::Form7_Command2_Click()
{
    module().picker.PickedFiles = {QString()};
    QDialog::done(Rejected);
}

bool Form7::leadsSomewhere(const TypedPath& typed) const
{
    if (typed.name.isEmpty()) {
        return true;
    }
    QStringList names;
    runResponsively([&] { names = fileNames(typed.folder, pattern()); });
    return names.contains(typed.name);
}

void Form7::takeTypedName(const QString& name)
{
    if (File1->selectName(name)) {
        Form7_Command1_Click();
    }
}

} // namespace orvanta
