#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form6_group_editor.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>

#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

static EntryLook lookOfMember(const QString& entry)
{
    const MemberFields fields = shownAfterClick({}, entry);
    const bool hasThreeFields = splitAtLastMarker(entry).before != fields.path;
    return {.lead = {},
            .text = hasThreeFields ? fields.text : splitAtLastMarker(entry).after,
            .aside = fields.path};
}

void Form6::buildControls()
{
    FolderTreeview1 = new FolderTree(m_texts.language(), this);
    File1 = new FileListBox(this);
    File1->setEnterClicks(true);
    List1 = new EntryListView(lookOfMember, this);
    Text1 = new LineBox(this);
    Text2 = new LineBox(this);
    Text3 = new LineBox(this);
    Image1 = new QLabel(this);
    Image1->setFixedSize(144, 108);
    Image1->setFrameShape(QFrame::StyledPanel);
    Image1->setAlignment(Qt::AlignCenter);
    buildButtons();
    nameControls();
}

QPushButton* Form6::button(QStringView control)
{
    QPushButton* made = captionButton(m_texts(control), this);
    made->setObjectName(control.toString());
    return made;
}

void Form6::buildButtons()
{
    Command3 = button(u"Command3");
    Command4 = button(u"Command4");
    Command5 = button(u"Command5");
    Command6 = button(u"Command6");
    Command7 = button(u"Command7");
    Command8 = button(u"Command8");
    Command9 = button(u"Command9");
    Command10 = button(u"Command10");
    Command2 = button(u"Command2");
    Command1 = pictureButton(ButtonPicture::Create, m_texts(u"Command1.name"), this);
    Command7->setToolTip(m_texts(u"Command7.name"));
}

void Form6::nameControls()
{
    nameControl(FolderTreeview1, u"FolderTreeview1"_s, m_texts(u"FolderTreeview1.name"));
    nameControl(File1, u"File1"_s, m_texts(u"File1.name"));
    nameControl(List1, u"List1"_s, m_texts(u"List1.name"));
    nameControl(Text1, u"Text1"_s);
    nameControl(Text2, u"Text2"_s);
    nameControl(Text3, u"Text3"_s);
    nameControl(Image1, u"Image1"_s, m_texts(u"Text3.label"));
    nameControl(Command1, u"Command1"_s);
    nameControl(Command7, u"Command7"_s, m_texts(u"Command7.name"));
}

void Form6::layOut()
{
    auto* parts = new QSplitter(Qt::Horizontal, this);
    parts->addWidget(chooserOf(FolderTreeview1, File1));
    parts->addWidget(memberPart());
    parts->setStretchFactor(1, 1);
    parts->setChildrenCollapsible(false);
    parts->setSizes({280, 620});
    auto* all = new QVBoxLayout(this);
    all->addWidget(parts, 1);
    all->addLayout(buttonRow());
    orderTabs();
    setSizeGripEnabled(true);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    resize(920, 600);
}

QWidget* Form6::memberPart()
{
    auto* details = new QHBoxLayout;
    details->addLayout(fieldRows(), 1);
    details->addWidget(Image1);
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->setContentsMargins(6, 0, 0, 0);
    layout->addWidget(List1, 1);
    layout->addLayout(editRow());
    layout->addLayout(details);
    return part;
}

QBoxLayout* Form6::editRow()
{
    auto* row = new QHBoxLayout;
    for (QPushButton* command : {Command8, Command5, Command6}) {
        row->addWidget(command);
    }
    row->addStretch();
    row->addWidget(Command9);
    row->addWidget(Command10);
    return row;
}

QGridLayout* Form6::fieldRows()
{
    Command7->setMaximumWidth(Command7->fontMetrics().horizontalAdvance(u"......"_s) + 16);
    auto* fields = new QGridLayout;
    fields->addWidget(boxLabel(m_texts(u"Text1.label"), Text1), 0, 0);
    fields->addWidget(Text1, 0, 1, 1, 2);
    fields->addWidget(boxLabel(m_texts(u"Text2.label"), Text2), 1, 0);
    fields->addWidget(Text2, 1, 1, 1, 2);
    fields->addWidget(boxLabel(m_texts(u"Text3.label"), Text3), 2, 0);
    fields->addWidget(Text3, 2, 1);
    fields->addWidget(Command7, 2, 2);
    return fields;
}

QBoxLayout* Form6::buttonRow()
{
    auto* row = new QHBoxLayout;
    row->addWidget(Command3);
    row->addWidget(Command4);
    row->addStretch();
    row->addWidget(Command2);
    row->addWidget(Command1);
    for (QPushButton* command : {Command2, Command3, Command4}) {
        command->setMinimumHeight(Command1->sizeHint().height());
    }
    return row;
}

void Form6::orderTabs()
{
    const std::vector<QWidget*> order = {
        FolderTreeview1, File1, List1, Command8, Command5, Command6, Command9, Command10,
        Text1,           Text2, Text3, Command7, Command3, Command4, Command2, Command1};
    for (std::size_t i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

} // namespace orvanta
