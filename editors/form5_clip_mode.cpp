#include "core/packet_file.h"
#include "editors/clip_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/found_paths.h"

namespace orvanta {

using namespace Qt::StringLiterals;

void Form5::Form5_File1_Click()
{
    List1->change([this](EntryList& list) { addClip(list, File1->folder(), File1->FileName()); });
    Text1->show(File1->filePath());
    Text2->show(nameWithoutExtension(File1->FileName()));
}

void Form5::Form5_Text1_Change(const LineBox* box)
{
    List1->change(
        [this](EntryList& list) { rebuildSelected(list, clipEntry(Text1->text(), Text2->text())); },
        box);
}

void Form5::Form5_List1_Click()
{
    const MarkerSplit split = splitAtLastMarker(List1->list().selectedEntry());
    if (split.found) {
        Text2->show(split.after);
        Text1->show(split.before);
    }
}

void Form5::Form5_Command3_Click()
{
    loadList(u"*.vxl"_s, loadClips);
}

void Form5::Form5_Command4_Click()
{
    save(u"*.vxl"_s, [this](const QString& target) { writeClips(target); });
}

void Form5::Form5_Command1_Click()
{
    create(*List1, u"\\temp.vxl"_s, [this](const QString& target) { writeClips(target); });
}

void Form5::writeClips(const QString& target) const
{
    writeClipListPacket(target, entriesFor(target, documentFolder(), List1->list().entries));
}

} // namespace orvanta
