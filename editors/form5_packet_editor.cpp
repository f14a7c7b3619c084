#include "editors/form5_packet_editor.h"

#include "core/ini.h"
#include "editors/clip_list.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_names.h"
#include "editors/folder_tree.h"
#include "editors/preview_pane.h"
#include "editors/time_slider.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

namespace orvanta {

using namespace Qt::StringLiterals;

Form5::Form5(EditorServices& services, QWidget* parent)
    : QDialog(parent),
      m_services(services),
      m_texts(u"Form5", editorLanguage(services.module))
{
    setObjectName(u"Form5"_s);
    setWindowTitle(m_texts(u"Form5"));
    buildControls();
    layOut();
    connectHandlers();
    Form5_Form_Load();
}

Form5::~Form5() = default;

void Form5::connectHandlers()
{
    on(Option1, &QRadioButton::clicked, [this](auto&&...) { Form5_Option1_Click(); });
    on(Option2, &QRadioButton::clicked, [this](auto&&...) { Form5_Option2_Click(); });
    on(Command2, &QPushButton::clicked, [this](auto&&...) { Form5_Command2_Click(); });
    connectClipMode();
    connectBrakeMode();
}

void Form5::connectClipMode()
{
    on(FolderTreeview1, &FolderTree::folderChosen,
       [this](const QString& folder) { Form5_FolderTreeview1_FolderClick(folder); });
    on(File1, &FileListBox::Click, [this] { Form5_File1_Click(); });
    on(Text1, &LineBox::edited, [this] { Form5_Text1_Change(); });
    on(Text2, &LineBox::edited, [this] { Form5_Text1_Change(); });
    on(List1, &EntryListView::Click, [this](auto&&...) { Form5_List1_Click(); });
    on(Command3, &QPushButton::clicked, [this](auto&&...) { Form5_Command3_Click(); });
    on(Command4, &QPushButton::clicked, [this](auto&&...) { Form5_Command4_Click(); });
    on(Command8, &QPushButton::clicked, [this](auto&&...) { Form5_Command8_Click(); });
    on(Command1, &QPushButton::clicked, [this](auto&&...) { Form5_Command1_Click(); });
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

void Form5::connectBrakeMode()
{
    on(FolderTreeview2, &FolderTree::folderChosen,
       [this](const QString& folder) { Form5_FolderTreeview2_FolderClick(folder); });
    on(File2, &FileListBox::Click, [this] { Form5_File2_Click(); });
    on(ActiveMovie1, &PreviewPane::opened,
       [this](double duration) { Form5_ActiveMovie1_OpenComplete(duration); });
    on(ActiveMovie1, &PreviewPane::durationChanged, [this](double s) { showDuration(s); });
    on(ActiveMovie1, &PreviewPane::positionChanged, [this](double s) { markPassedBrake(s); });
    on(ActiveMovie1, &PreviewPane::runs, [this] { pausePlayer(); });
    on(Slider1, &TimeSlider::moved,
       [this](double seconds, bool held) { Form5_Slider1_Change(seconds, held); });
    on(List2, &EntryListView::Click, [this](auto&&...) { Form5_List2_Click(); });
    on(List2, &EntryListView::entriesChanged, [this] { takeBrakeTimes(); });
    on(Text4, &LineBox::edited, [this] { Form5_Text4_Change(); });
    on(Command7, &QPushButton::clicked, [this](auto&&...) { Form5_Command7_Click(); });
    on(Command15, &QPushButton::clicked, [this](auto&&...) { Form5_Command15_Click(); });
    on(Command16, &QPushButton::clicked, [this](auto&&...) { Form5_Command16_Click(); });
    on(Command12, &QPushButton::clicked, [this](auto&&...) { Form5_Command12_Click(); });
    const auto changes = [this](void (*operation)(EntryList&)) {
        return [this, operation](auto&&...) { List2->change(operation); };
    };
    on(Command11, &QPushButton::clicked, changes(removeSelected));
    on(List2, &EntryListView::removeWanted, changes(removeSelected));
    on(List2, &EntryListView::moveUpWanted, changes(moveUp));
    on(List2, &EntryListView::moveDownWanted, changes(moveDown));
}

void Form5::Form5_Form_Load()
{
    const QString& iniPath = m_services.module.IniPath;
    QString pattern;
    resumeNext("Form5_Form_Load", [&] { pattern = clipPattern(iniPath); });
    File1->setPattern(pattern);
    File2->setPattern(pattern);
    const QString folder = startFolder(ReadIni(u"save"_s, u"open"_s, iniPath));
    FolderTreeview1->setFolder(folder);
    FolderTreeview2->setFolder(folder);
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
}

void Form5::Form5_Command2_Click()
{
    done(Rejected);
}

bool Form5::isEmpty() const
{
    return List1->list().entries.isEmpty() && List2->list().entries.isEmpty();
}

void Form5::finishCreate()
{
    m_services.module.EditorDone = true;
    done(Accepted);
}

void Form5::reject()
{
    if (isEmpty()) {
        done(Rejected);
    }
}

void Form5::closeEvent(QCloseEvent* event)
{
    done(Rejected);
    event->accept();
}

void Form5::done(int result)
{
    WriteIni(u"save"_s, u"open"_s, File1->folder(), m_services.module.IniPath);
    QDialog::done(result);
}

} // namespace orvanta
