#include "core/numbers.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "editors/brake_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"
#include "platform/media_locator.h"

#include <QLabel>

namespace orvanta {

using namespace Qt::StringLiterals;

void Form5::Form5_FolderTreeview2_FolderClick(const QString& folder)
{
    File2->setFolder(folder);
}

void Form5::Form5_File2_Click()
{
    List2->change(removeAll);
    openPreview(File2->filePath(), File2->folder());
    Text3->show(File2->filePath());
}

void Form5::openPreview(const QString& pathText, const QString& packetFolder)
{
    // A machine whose player library fails can still edit brakes.
    resumeNext("Form5 preview",
               [&] { ActiveMovie1->openFile(locateFile(pathText, packetFolder)); });
}

void Form5::showDuration(double seconds)
{
    Label2->setText(decimalText(seconds).replace(u'.', userDecimalMark()));
    Slider1->setLength(seconds);
}

void Form5::showPosition()
{
    Label1->setText(formatPicture(Slider1->seconds(), kPositionPicture));
}

void Form5::Form5_ActiveMovie1_OpenComplete(double durationSeconds)
{
    showDuration(durationSeconds);
    Slider1->setSeconds(0);
    showPosition();
}

void Form5::Form5_Slider1_Change(double seconds, bool held)
{
    if (held) {
        ActiveMovie1->previewAt(seconds);
    } else {
        ActiveMovie1->runFrom(seconds);
    }
    showPosition();
    List2->change([&](EntryList& list) { rebuildBrake(list, seconds, Text4->text()); });
}

void Form5::Form5_Text4_Change()
{
    List2->change(
        [this](EntryList& list) { rebuildBrake(list, Slider1->seconds(), Text4->text()); });
}

void Form5::Form5_List2_Click()
{
    const MarkerSplit split = splitAtLastMarker(List2->list().selectedEntry());
    if (!split.found) {
        return;
    }
    // A time that is no number leaves the slider where it is.
    resumeNext("Form5_List2_Click", [&] { Slider1->setSeconds(decimalValue(split.before)); });
    Text4->show(split.after);
    ActiveMovie1->runFrom(Slider1->seconds());
    showPosition();
}

void Form5::Form5_Command15_Click()
{
    List2->change([this](EntryList& list) { addBrake(list, Slider1->seconds(), Text4->text()); });
}

void Form5::Form5_Command7_Click()
{
    m_services.pickers.ShowOpenPicker(u"*.vxl"_s, false);
    const QString packet = m_services.module.picker.PickedFiles.value(1);
    if (packet.isEmpty()) {
        return;
    }
    const BrakeDocument document = readBrakeDocument(packet);
    Text3->show(document.mediaFile);
    openPreview(document.mediaFile, folderOfPath(packet));
    List2->change([&](EntryList& list) {
        removeAll(list);
        list.entries = document.entries;
    });
}

void Form5::Form5_Command16_Click()
{
    trapped("Form5_Command16_Click", [this] {
        m_services.pickers.ShowSavePicker(u"*.vxl"_s);
        const QString& target = m_services.module.picker.SaveFileName;
        if (!target.isEmpty()) {
            writeBrakePacket(target, File2->filePath(), Text3->text(), List2->list().entries);
        }
    });
}

void Form5::Form5_Command12_Click()
{
    if (List2->list().entries.isEmpty()) {
        done(Rejected);
        return;
    }
    trapped("Form5_Command12_Click", [this] {
        writeBrakePacket(programFile(m_services.module.ApplicationFolder, u"\\temp.vxl"_s),
                         File2->filePath(), Text3->text(), List2->list().entries);
        finishCreate();
    });
}

void Form5::takeBrakeTimes()
{
    m_brakeTimes = brakeTimes(List2->list().entries);
}

void Form5::markPassedBrake(double positionSeconds)
{
    List2->setMarkedRow(brakePassed(m_brakeTimes, positionSeconds));
}

void Form5::pausePlayer()
{
    m_hasPausedPlayer = m_services.pausePlayer() || m_hasPausedPlayer;
}

} // namespace orvanta
