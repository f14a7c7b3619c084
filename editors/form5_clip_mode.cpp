#include "core/packet_file.h"
#include "core/paths.h"
#include "editors/clip_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"

namespace orvanta {

using namespace Qt::StringLiterals;

void Form5::Form5_FolderTreeview1_FolderClick(const QString& folder)
{
    File1->setFolder(folder);
}

void Form5::Form5_File1_Click()
{
    List1->change([this](EntryList& list) { addClip(list, File1->folder(), File1->FileName()); });
    Text1->show(File1->filePath());
    Text2->show(nameWithoutExtension(File1->FileName()));
}

void Form5::Form5_Text1_Change()
{
    List1->change([this](EntryList& list) {
        rebuildSelected(list, clipEntry(Text1->text(), Text2->text()));
    });
}

void Form5::Form5_List1_Click()
{
    const MarkerSplit split = splitAtLastMarker(List1->list().selectedEntry());
    if (split.found) {
        Text2->show(split.after);
        Text1->show(split.before);
    }
}

void Form5::Form5_Command8_Click()
{
    List1->change([this](EntryList& list) {
        list.entries += entriesOfFiles(File1->folder(), File1->names());
    });
}

void Form5::Form5_Command3_Click()
{
    trapped("Form5_Command3_Click", [this] {
        m_services.pickers.ShowOpenPicker(u"*.vxl"_s, false);
        const QString packet = m_services.module.picker.PickedFiles.value(1);
        if (!packet.isEmpty()) {
            List1->change([&](EntryList& list) { loadClips(list, packet); });
        }
    });
}

void Form5::Form5_Command4_Click()
{
    trapped("Form5_Command4_Click", [this] {
        m_services.pickers.ShowSavePicker(u"*.vxl"_s);
        const QString& target = m_services.module.picker.SaveFileName;
        if (!target.isEmpty()) {
            writeClipListPacket(target, List1->list().entries);
        }
    });
}

void Form5::Form5_Command1_Click()
{
    if (List1->list().entries.isEmpty()) {
        done(Rejected);
        return;
    }
    trapped("Form5_Command1_Click", [this] {
        writeClipListPacket(programFile(m_services.module.ApplicationFolder, u"\\temp.vxl"_s),
                            List1->list().entries);
        finishCreate();
    });
}

} // namespace orvanta
