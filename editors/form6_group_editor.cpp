#include "editors/form6_group_editor.h"

#include "core/group_file.h"
#include "core/ini.h"
#include "core/paths.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "editors/small_picture.h"
#include "platform/media_locator.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

namespace orvanta {

using namespace Qt::StringLiterals;

Form6::Form6(EditorServices& services, QWidget* parent)
    : QDialog(parent),
      m_services(services),
      m_texts(u"Form6", editorLanguage(services.module))
{
    setObjectName(u"Form6"_s);
    setWindowTitle(m_texts(u"Form6"));
    buildControls();
    layOut();
    connectHandlers();
    Form6_Form_Load();
}

void Form6::connectHandlers()
{
    on(FolderTreeview1, &FolderTree::folderChosen,
       [this](const QString& folder) { Form6_FolderTreeview1_FolderClick(folder); });
    on(File1, &FileListBox::Click, [this] { Form6_File1_Click(); });
    for (const LineBox* box : {Text1, Text2, Text3}) {
        on(box, &QLineEdit::textChanged, [this](auto&&...) { Form6_Text1_Change(); });
    }
    on(Text3, &QLineEdit::textChanged, [this](auto&&...) { showPicture(); });
    on(Command1, &QPushButton::clicked, [this](auto&&...) { Form6_Command1_Click(); });
    on(Command2, &QPushButton::clicked, [this](auto&&...) { done(Rejected); });
    on(Command3, &QPushButton::clicked, [this](auto&&...) { Form6_Command3_Click(); });
    on(Command4, &QPushButton::clicked, [this](auto&&...) { Form6_Command4_Click(); });
    on(Command7, &QPushButton::clicked, [this](auto&&...) { Form6_Command7_Click(); });
    on(Command8, &QPushButton::clicked, [this](auto&&...) { Form6_Command8_Click(); });
    connectListHandlers();
}

void Form6::connectListHandlers()
{
    on(List1, &EntryListView::Click, [this](auto&&...) { Form6_List1_Click(); });
    const auto changes = [this](void (*operation)(EntryList&)) {
        return [this, operation](auto&&...) { List1->change(operation); };
    };
    on(Command5, &QPushButton::clicked, changes(removeSelected));
    on(Command6, &QPushButton::clicked, changes(removeAll));
    on(Command9, &QPushButton::clicked, changes(moveUp));
    on(Command10, &QPushButton::clicked, changes(moveDown));
    on(List1, &EntryListView::removeWanted, changes(removeSelected));
    on(List1, &EntryListView::moveUpWanted, changes(moveUp));
    on(List1, &EntryListView::moveDownWanted, changes(moveDown));
}

void Form6::Form6_Form_Load()
{
    File1->setPattern(u"*.vxl"_s);
    FolderTreeview1->setFolder(
        startFolder(ReadIni(u"save"_s, u"open"_s, m_services.module.IniPath)));
    File1->setFocus();
}

void Form6::Form6_FolderTreeview1_FolderClick(const QString& folder)
{
    File1->setFolder(folder);
}

void Form6::Form6_File1_Click()
{
    List1->change(makeRoom);
    const MemberFields fields = fieldsOfFile(File1->folder(), File1->FileName());
    fill(fields);
    List1->change([&](EntryList& list) { rebuildSelected(list, memberEntry(fields)); });
}

MemberFields Form6::shownFields() const
{
    return {.path = Text1->text(), .text = Text2->text(), .picture = Text3->text()};
}

void Form6::fill(const MemberFields& fields)
{
    const QScopedValueRollback filling(m_filling, true);
    Text1->show(fields.path);
    Text2->show(fields.text);
    Text3->show(fields.picture);
}

void Form6::Form6_Text1_Change()
{
    if (m_filling) {
        return;
    }
    List1->change([this](EntryList& list) { rebuildSelected(list, memberEntry(shownFields())); });
}

void Form6::Form6_List1_Click()
{
    fill(shownAfterClick(shownFields(), List1->list().selectedEntry()));
}

void Form6::Form6_Command7_Click()
{
    m_services.pickers.ShowOpenPicker(u"*.bmp;*.jpg;*.jpeg;*.gif;*.wmf;*.ico"_s, false);
    const QString picture = m_services.module.picker.PickedFiles.value(1);
    if (!picture.isEmpty()) {
        Text3->show(picture);
    }
}

void Form6::Form6_Command8_Click()
{
    List1->change([this](EntryList& list) {
        list.entries += entriesOfFiles(File1->folder(), File1->names());
    });
}

void Form6::Form6_Command3_Click()
{
    trapped("Form6_Command3_Click", [this] {
        m_services.pickers.ShowOpenPicker(u"*.vxg"_s, false);
        const QString group = m_services.module.picker.PickedFiles.value(1);
        if (!group.isEmpty()) {
            List1->change([&](EntryList& list) { loadMembers(list, group); });
        }
    });
}

void Form6::Form6_Command4_Click()
{
    trapped("Form6_Command4_Click", [this] {
        m_services.pickers.ShowSavePicker(u"*.vxg"_s);
        const QString& target = m_services.module.picker.SaveFileName;
        if (!target.isEmpty()) {
            writeGroup(target, List1->list().entries);
        }
    });
}

void Form6::Form6_Command1_Click()
{
    if (List1->list().entries.isEmpty()) {
        done(Rejected);
        return;
    }
    trapped("Form6_Command1_Click", [this] {
        writeGroup(programFile(m_services.module.ApplicationFolder, u"\\temp.vxg"_s),
                   List1->list().entries);
        m_services.module.EditorDone = true;
        done(Accepted);
    });
}

void Form6::showPicture()
{
    const QString file = locateFile(Text3->text(), folderOfPath(Text1->text()));
    Image1->setPixmap(smallPicture(file, Image1->contentsRect().size(), devicePixelRatioF()));
}

void Form6::reject()
{
    if (List1->list().entries.isEmpty()) {
        done(Rejected);
    }
}

void Form6::closeEvent(QCloseEvent* event)
{
    done(Rejected);
    event->accept();
}

void Form6::done(int result)
{
    WriteIni(u"save"_s, u"open"_s, File1->folder(), m_services.module.IniPath);
    QDialog::done(result);
}

} // namespace orvanta
