#include "editors/form5_packet_editor.h"

#include "editors/clip_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"

#include <QGroupBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

namespace orvanta {

Form5::Form5(EditorServices& services, QWidget* parent)
    : EditorWindow(services, u"Form5", parent)
{
    buildControls();
    layOut();
    connectHandlers();
    Form5_Form_Load();
}

Form5::~Form5() = default;

void Form5::connectHandlers()
{
    // Not clicked: assistive technology chooses one without a click.
    on(Option1, &QRadioButton::toggled,
       [this](bool chosen) { chosen ? Form5_Option1_Click() : Form5_Option2_Click(); });
    connectListHandlers();
    connectClipMode();
    connectBrakeMode();
}

void Form5::connectClipMode()
{
    on(File1, &FileListBox::Click, [this] { Form5_File1_Click(); });
    for (const LineBox* box : {Text1, Text2}) {
        on(box, &LineBox::edited, [this, box] { Form5_Text1_Change(box); });
    }
    on(List1, &EntryListView::Click, [this](auto&&...) { Form5_List1_Click(); });
    on(List1, &EntryListView::restored, [this] { Form5_List1_Click(); });
    on(Command3, &QPushButton::clicked, [this](auto&&...) { Form5_Command3_Click(); });
    on(Command4, &QPushButton::clicked, [this](auto&&...) { Form5_Command4_Click(); });
    on(Command1, &QPushButton::clicked, [this](auto&&...) { Form5_Command1_Click(); });
}

void Form5::connectBrakeMode()
{
    on(FolderTreeview2, &FolderTree::folderChosen,
       [this](const QString& folder) { Form5_FolderTreeview2_FolderClick(folder); });
    on(File2, &FileListBox::Click, [this] { Form5_File2_Click(); });
    on(ActiveMovie1, &PreviewPane::opened,
       [this](double duration) { Form5_ActiveMovie1_OpenComplete(duration); });
    on(ActiveMovie1, &PreviewPane::closed, [this] { Form5_ActiveMovie1_OpenComplete(0); });
    on(ActiveMovie1, &PreviewPane::stateChanged, [this] { showPreviewState(); });
    on(ActiveMovie1, &PreviewPane::durationChanged, [this](double s) { showDuration(s); });
    on(ActiveMovie1, &PreviewPane::positionChanged, [this](double s) { followPreview(s); });
    on(PreviewButton, &QPushButton::clicked, [this](auto&&...) { ActiveMovie1->toggle(); });
    Frame5->installEventFilter(this);
    on(ActiveMovie1, &PreviewPane::runs, [this] { pausePlayer(); });
    on(Slider1, &TimeSlider::moved,
       [this](double seconds, bool held) { Form5_Slider1_Change(seconds, held); });
    on(List2, &EntryListView::Click, [this](auto&&...) { Form5_List2_Click(); });
    on(List2, &EntryListView::entriesChanged, [this] { takeBrakeTimes(); });
    on(List2, &EntryListView::documentChanged, [this] { showTitle(); });
    on(List2, &EntryListView::restored, [this] { showRestoredBrakes(); });
    on(Text3, &LineBox::edited, [this] { Form5_Text3_Change(); });
    on(Text4, &LineBox::edited, [this] { Form5_Text4_Change(); });
    on(Text4, &QLineEdit::returnPressed, [this] { Form5_Text4_Return(); });
    on(Command7, &QPushButton::clicked, [this](auto&&...) { Form5_Command7_Click(); });
    on(Command15, &QPushButton::clicked, [this](auto&&...) { Form5_Command15_Click(); });
    on(Command16, &QPushButton::clicked, [this](auto&&...) { Form5_Command16_Click(); });
    on(Command12, &QPushButton::clicked, [this](auto&&...) { Form5_Command12_Click(); });
    connectRemove(List2, Command11);
    connectMoves(List2, nullptr, nullptr);
    connectRunOf(Text3, List2);
    connectRunOf(Text4, List2);
}

void Form5::Form5_Form_Load()
{
    QString pattern;
    resumeNext("Form5_Form_Load", [&] { pattern = services().module.settings().clipPattern(); });
    File1->setPattern(pattern);
    File2->setPattern(pattern);
    showStoredFolder(FolderTreeview1);
    showStoredFolder(FolderTreeview2);
    Form5_Option1_Click();
    File1->setFocus();
}

void Form5::Form5_Option1_Click()
{
    Command16->hide();
    Command12->hide();
    Frame5->hide();
    for (QWidget* covered : std::initializer_list<QWidget*>{Frame1, Command3, Command4, Command1}) {
        covered->show();
    }
    Command7->hide();
    showTitle();
}

void Form5::Form5_Option2_Click()
{
    Command16->show();
    Command12->show();
    Frame5->show();
    for (QWidget* covered : std::initializer_list<QWidget*>{Frame1, Command3, Command4, Command1}) {
        covered->hide();
    }
    Command7->show();
    showTitle();
}

static bool isPlainSpace(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress) {
        return false;
    }
    const auto& key = static_cast<const QKeyEvent&>(event);
    return key.key() == Qt::Key_Space && key.modifiers() == Qt::NoModifier && !key.isAutoRepeat();
}

// A frame would swallow the key: it is the one that checks a frame.
bool Form5::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Frame5 && isPlainSpace(*event)) {
        ActiveMovie1->toggle();
        return true;
    }
    return EditorWindow::eventFilter(watched, event);
}

bool Form5::isEmpty() const
{
    return EditorWindow::isEmpty() && List2->list().entries.isEmpty();
}

EntryListView* Form5::shownList() const
{
    return Option2->isChecked() ? List2 : List1;
}

} // namespace orvanta
