#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form5_packet_editor.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"

#include <QBoxLayout>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStackedLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

static EntryLook lookOfClip(const QStringList& entries, int row)
{
    const MarkerSplit split = splitAtLastMarker(entries.at(row));
    return {.lead = {}, .text = split.after, .aside = split.before, .isLent = false, .tip = {}};
}

static EntryLook lookOfBrake(const QStringList& entries, int row)
{
    const MarkerSplit split = splitAtLastMarker(entries.at(row));
    return {.lead = split.before, .text = split.after, .aside = {}, .isLent = false, .tip = {}};
}

void Form5::buildControls()
{
    Option1 = new QRadioButton(this);
    Option2 = new QRadioButton(this);
    Frame1 = new QGroupBox(this);
    Frame5 = new QGroupBox(this);
    Option1->setChecked(true);
    buildListControls(Frame1, lookOfClip);
    buildBrakeControls();
    buildButtons();
    setUpControls();
}

void Form5::buildBrakeControls()
{
    FolderTreeview2 = new FolderTree(texts().language(), Frame5);
    File2 = new FileListBox(Frame5);
    File2->setEnterClicks(true);
    Text3 = new LineBox(Frame5);
    ActiveMovie1 = new PreviewPane(services().makePreview, services().playerVolume, Frame5);
    PreviewButton = pictureButton(ButtonPicture::Play, Frame5);
    PreviewButton->setEnabled(false);
    Slider1 = new TimeSlider(Frame5);
    Label1 = new QLabel(u"000000.000"_s, Frame5);
    Label2 = new QLabel(u"000000.00"_s, Frame5);
    List2 = new EntryListView(lookOfBrake, Frame5);
    Text4 = new LineBox(Frame5);
}

void Form5::buildButtons()
{
    buildListButtons();
    for (QPushButton** button : {&Command15, &Command11, &Command7, &Command16}) {
        *button = captionButton(this);
    }
    Command12 = pictureButton(ButtonPicture::Create, this);
}

ControlRows Form5::controls()
{
    return {
        {this, u"Form5"},
        {Option1, u"Option1"},
        {Option2, u"Option2"},
        {Frame1, u"Frame1"},
        {FolderTreeview1, u"FolderTreeview1"},
        {File1, u"File1"},
        {List1, u"List1"},
        {Command8, u"Command8"},
        {Command5, u"Command5"},
        {Command6, u"Command6"},
        {Command9, u"Command9"},
        {Command10, u"Command10"},
        {Text1, u"Text1"},
        {Text2, u"Text2"},
        {Frame5, u"Frame5"},
        {FolderTreeview2, u"FolderTreeview2"},
        {File2, u"File2"},
        {Text3, u"Text3"},
        {ActiveMovie1, u"ActiveMovie1"},
        {PreviewButton, u"PreviewButton"},
        {Label1, u"Label1"},
        {Slider1, u"Slider1"},
        {Label2, u"Label2"},
        {List2, u"List2"},
        {Text4, u"Text4"},
        {Command15, u"Command15"},
        {Command11, u"Command11"},
        {Command3, u"Command3"},
        {Command7, u"Command7"},
        {Command4, u"Command4"},
        {Command16, u"Command16"},
        {Command2, u"Command2"},
        {Command1, u"Command1"},
        {Command12, u"Command12"},
    };
}

void Form5::layOut()
{
    auto* modes = new QHBoxLayout;
    modes->addWidget(Option1);
    modes->addWidget(Option2);
    modes->addStretch();
    layOutClipMode();
    layOutBrakeMode();
    auto* frames = new QGridLayout;
    // Both frames in one cell: the brake frame lies over the clip frame.
    frames->addWidget(Frame1, 0, 0);
    frames->addWidget(Frame5, 0, 0);
    auto* all = new QVBoxLayout(this);
    all->addLayout(modes);
    all->addLayout(frames, 1);
    all->addLayout(buttonRow({{Command3, Command7}, {Command4, Command16}}, {Command1, Command12}));
    finishLayout({980, 640});
}

static void layOutSideBySide(QGroupBox* frame, QWidget* chooser, QWidget* part)
{
    auto* splitter = new QSplitter(Qt::Horizontal, frame);
    splitter->addWidget(chooser);
    splitter->addWidget(part);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({270, 670});
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(splitter);
}

void Form5::layOutClipMode()
{
    layOutSideBySide(Frame1, chooserOf(FolderTreeview1, File1), clipListPart());
}

QWidget* Form5::clipListPart()
{
    auto* fields = new QGridLayout;
    fields->addWidget(boxLabel(texts()(u"Text1.label"), Text1), 0, 0);
    fields->addWidget(Text1, 0, 1);
    fields->addWidget(boxLabel(texts()(u"Text2.label"), Text2), 1, 0);
    fields->addWidget(Text2, 1, 1);
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->addWidget(List1, 1);
    layout->addLayout(editRow());
    layout->addLayout(fields);
    return part;
}

void Form5::layOutBrakeMode()
{
    auto* part = new QSplitter(Qt::Vertical);
    part->addWidget(previewPart());
    part->addWidget(brakeListPart());
    part->setStretchFactor(0, 3);
    part->setStretchFactor(1, 2);
    part->setChildrenCollapsible(false);
    part->setSizes({330, 170});
    layOutSideBySide(Frame5, chooserOf(FolderTreeview2, File2), part);
}

/// Room for the longest text that it shows, so that the slider does not tremble beside it.
static void keepWidth(QLabel* label)
{
    label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(label->text()));
}

QWidget* Form5::previewPart()
{
    keepWidth(Label1);
    keepWidth(Label2);
    Label2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto* clip = new QHBoxLayout;
    clip->addWidget(boxLabel(texts()(u"Text3.label"), Text3));
    clip->addWidget(Text3);
    auto* position = new QHBoxLayout;
    position->addWidget(PreviewButton);
    position->addWidget(Label1);
    position->addWidget(Slider1, 1);
    position->addWidget(Label2);
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->addLayout(clip);
    layout->addWidget(ActiveMovie1, 1);
    layout->addLayout(position);
    return part;
}

QWidget* Form5::brakeListPart()
{
    auto* edits = new QHBoxLayout;
    edits->addWidget(boxLabel(texts()(u"Text4.label"), Text4));
    edits->addWidget(Text4, 1);
    edits->addWidget(Command15);
    edits->addWidget(Command11);
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->addWidget(List2, 1);
    layout->addLayout(edits);
    return part;
}

} // namespace orvanta
