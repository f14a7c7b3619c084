#include "core/numbers.h"
#include "core/packet_file.h"
#include "core/paths.h"
#include "editors/brake_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/form5_packet_editor.h"
#include "editors/found_paths.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"
#include "platform/process/media_locator.h"

#include <QLabel>
#include <QPushButton>

namespace orvanta {

using namespace Qt::StringLiterals;

void Form5::Form5_FolderTreeview2_FolderClick(const QString& folder)
{
    File2->setFolder(folder);
}

void Form5::Form5_File2_Click()
{
    List2->changeState([this](ListState& state) {
        removeAll(state.list);
        state.clip = {.path = File2->filePath(), .text = File2->filePath()};
    });
    openPreview(File2->filePath(), File2->folder());
    m_openedClip = File2->filePath();
    Text3->show(m_openedClip);
}

void Form5::openPreview(const QString& pathText, const QString& packetFolder)
{
    m_previewSeconds.reset();
    markPassedBrake();
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
    if (!splitAtLastMarker(List2->list().selectedEntry()).found) {
        m_chosenSeconds = 0; // a brake that was clicked while the clip opened keeps its time
    }
    showPosition();
    showPreviewState();
}

void Form5::followPreview(double seconds)
{
    m_previewSeconds = seconds;
    markPassedBrake();
    if (ActiveMovie1->isRunning() && !Slider1->isSliderDown()) {
        Slider1->setSeconds(seconds);
        showPosition();
    }
}

void Form5::showPreviewState()
{
    const auto picture = ActiveMovie1->isRunning() ? ButtonPicture::Pause : ButtonPicture::Play;
    PreviewButton->setIcon(buttonPicture(picture));
    PreviewButton->setEnabled(ActiveMovie1->isOpen());
}

void Form5::Form5_Slider1_Change(double seconds, bool held)
{
    m_chosenSeconds = seconds;
    if (held) {
        ActiveMovie1->previewAt(seconds);
    } else {
        ActiveMovie1->runFrom(seconds);
    }
    showPosition();
    List2->change([&](EntryList& list) { rebuildBrake(list, seconds, Text4->text()); }, Slider1);
    if (!held) {
        List2->endRun();
    }
}

void Form5::Form5_Text4_Change()
{
    List2->change([this](EntryList& list) { rebuildBrake(list, m_chosenSeconds, Text4->text()); },
                  Text4);
}

void Form5::Form5_Text3_Change()
{
    List2->changeState([this](ListState& state) { state.clip.text = Text3->text(); }, Text3);
}

void Form5::Form5_List2_Click()
{
    const MarkerSplit split = splitAtLastMarker(List2->list().selectedEntry());
    if (split.found) {
        showBrake(split);
        ActiveMovie1->runFrom(Slider1->seconds());
        showPosition();
    }
}

void Form5::showBrake(const MarkerSplit& brake)
{
    // A time that is no number leaves the slider where it is.
    resumeNext("Form5 showBrake", [&] { Slider1->setSeconds(decimalValue(brake.before)); });
    m_chosenSeconds = Slider1->seconds();
    Text4->show(brake.after);
}

// Shows what came back, and runs nothing: nobody has clicked a brake.
void Form5::showRestoredBrakes()
{
    const BrakedClip clip = List2->clip();
    if (Text3->text() != clip.text) {
        Text3->show(clip.text);
    }
    if (m_openedClip != clip.path) {
        m_openedClip = clip.path;
        openPreview(clip.path, List2->document().folder);
        // The slider goes to the beginning of the clip, and no brake must go with it.
        List2->change([](EntryList& list) { selectRows(list, {}, -1); });
    }
    const MarkerSplit split = splitAtLastMarker(List2->list().selectedEntry());
    if (split.found) {
        showBrake(split);
        showPosition();
    }
}

void Form5::Form5_Command15_Click()
{
    List2->change([this](EntryList& list) { addBrake(list, Slider1->seconds(), Text4->text()); });
    List2->scrollToBottom();
    // The next brake's text is typed over this one's.
    Text4->setFocus();
    Text4->selectAll();
}

// With a brake selected the box holds that one's text.
void Form5::Form5_Text4_Return()
{
    if (!List2->list().hasSelection()) {
        Form5_Command15_Click();
    }
}

void Form5::Form5_Command7_Click()
{
    const QString packet = pickFile(u"*.vxl"_s);
    if (packet.isEmpty()) {
        return;
    }
    const BrakeDocument document = readBrakeDocument(packet);
    m_openedClip = document.mediaFile;
    Text3->show(document.mediaFile);
    openPreview(document.mediaFile, folderOfPath(packet));
    List2->changeState([&](ListState& state) {
        removeAll(state.list);
        state.list.entries = document.entries;
        state.clip = {.path = document.mediaFile, .text = document.mediaFile};
        state.document = {.file = packet, .folder = folderOfPath(packet)};
        setWritten(state, packet);
    });
}

void Form5::Form5_Command16_Click()
{
    save(u"*.vxl"_s, *List2, [this](const QString& target) { writeBrakes(target); });
}

void Form5::Form5_Command12_Click()
{
    create(*List2, u"\\temp.vxl"_s, [this](const QString& target) { writeBrakes(target); });
}

void Form5::writeBrakes(const QString& target) const
{
    const QString& folder = List2->document().folder;
    // Not what File2 shows by now: keys and other folders lead away from the clip of the brakes.
    writeBrakePacket(target, pathFor(target, folder, m_openedClip),
                     pathFor(target, folder, Text3->text()), List2->list().entries);
}

void Form5::takeBrakeTimes()
{
    m_brakeTimes = brakeTimes(List2->list().entries);
    markPassedBrake();
}

void Form5::markPassedBrake()
{
    List2->setMarkedRow(m_previewSeconds ? brakePassed(m_brakeTimes, *m_previewSeconds) : -1);
}

void Form5::pausePlayer()
{
    m_hasPausedPlayer = services().pausePlayer() || m_hasPausedPlayer;
}

} // namespace orvanta
