#include "editors/form6_group_editor.h"

#include "core/group_file.h"
#include "core/paths.h"
#include "editors/file_list_box.h"
#include "editors/found_paths.h"
#include "platform/process/media_locator.h"

#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>

namespace orvanta {

using namespace Qt::StringLiterals;

Form6::Form6(EditorServices& services, QWidget* parent)
    : EditorWindow(services, u"Form6", parent)
{
    buildControls();
    layOut();
    connectHandlers();
    Form6_Form_Load();
}

void Form6::connectHandlers()
{
    connectListHandlers();
    on(File1, &FileListBox::Click, [this] { Form6_File1_Click(); });
    for (const LineBox* box : {Text1, Text2, Text3}) {
        on(box, &QLineEdit::textChanged, [this, box](auto&&...) { Form6_Text1_Change(box); });
    }
    // A relative picture lies beside the packet.
    for (const LineBox* box : {Text1, Text3}) {
        on(box, &QLineEdit::textChanged, [this](auto&&...) { showPicture(); });
    }
    on(Command1, &QPushButton::clicked, [this](auto&&...) { Form6_Command1_Click(); });
    on(Command3, &QPushButton::clicked, [this](auto&&...) { Form6_Command3_Click(); });
    on(Command4, &QPushButton::clicked, [this](auto&&...) { Form6_Command4_Click(); });
    on(Command7, &QPushButton::clicked, [this](auto&&...) { Form6_Command7_Click(); });
    on(List1, &EntryListView::entriesChanged,
       [this] { m_lenders = lendersOf(List1->list().entries); });
    connectRunOf(Text3, List1);
    on(List1, &EntryListView::restored, [this] { Form6_List1_Click(); });
    on(List1, &EntryListView::Click, [this](auto&&...) { Form6_List1_Click(); });
}

void Form6::Form6_Form_Load()
{
    File1->setPattern(u"*.vxl"_s);
    showStoredFolder(FolderTreeview1);
    File1->setFocus();
}

void Form6::Form6_File1_Click()
{
    const MemberFields fields = fieldsOfFile(File1->folder(), File1->FileName());
    fill(fields);
    List1->change([&](EntryList& list) {
        makeRoom(list);
        rebuildSelected(list, memberEntry(fields));
    });
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

void Form6::Form6_Text1_Change(const LineBox* box)
{
    if (m_filling) {
        return;
    }
    List1->change([this](EntryList& list) { rebuildSelected(list, memberEntry(shownFields())); },
                  box);
}

void Form6::Form6_List1_Click()
{
    fill(shownAfterClick(shownFields(), List1->list().selectedEntry()));
}

void Form6::Form6_Command7_Click()
{
    const QString picture = pickFile(kPicturePattern.toString());
    if (!picture.isEmpty()) {
        List1->endRun();
        Text3->show(picture);
        // Also when the box showed it already: a member of two fields has it from now on.
        Form6_Text1_Change(Text3);
        List1->endRun();
    }
}

void Form6::Form6_Command3_Click()
{
    loadList(u"*.vxg"_s, loadMembers);
}

void Form6::Form6_Command4_Click()
{
    save(u"*.vxg"_s, [this](const QString& target) { writeMembers(target); });
}

void Form6::Form6_Command1_Click()
{
    create(*List1, u"\\temp.vxg"_s, [this](const QString& target) { writeMembers(target); });
}

void Form6::writeMembers(const QString& target) const
{
    writeGroup(target, entriesFor(target, documentFolder(), List1->list().entries));
}

void Form6::showPicture()
{
    const QString packet = pathFoundBeside(documentFolder(), Text1->text());
    const QString file = locateFile(Text3->text(), folderOfPath(packet));
    const qreal ratio = devicePixelRatioF();
    m_pictureReading.read(file, Image1->contentsRect().size() * ratio,
                          [this, ratio](const QImage& picture) {
                              QPixmap pixmap = QPixmap::fromImage(picture);
                              pixmap.setDevicePixelRatio(ratio);
                              Image1->setPixmap(pixmap);
                          });
}

} // namespace orvanta
