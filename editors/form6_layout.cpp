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
    buildListControls(this, lookOfMember);
    Text3 = new LineBox(this);
    Image1 = new QLabel(this);
    Image1->setFixedSize(144, 108);
    Image1->setFrameShape(QFrame::StyledPanel);
    Image1->setAlignment(Qt::AlignCenter);
    buildListButtons();
    Command7 = button(u"Command7");
    Command7->setToolTip(texts()(u"Command7.name"));
    nameControl(Command7, u"Command7"_s, texts()(u"Command7.name"));
    nameControl(Text3, u"Text3"_s);
    nameControl(Image1, u"Image1"_s, texts()(u"Text3.label"));
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
    all->addLayout(buttonRow({{Command3}, {Command4}}, {Command1}));
    finishLayout({920, 600}, tabOrder());
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

QGridLayout* Form6::fieldRows()
{
    Command7->setFixedWidth(Command7->fontMetrics().horizontalAdvance(u"......"_s) + 16);
    auto* fields = new QGridLayout;
    fields->addWidget(boxLabel(texts()(u"Text1.label"), Text1), 0, 0);
    fields->addWidget(Text1, 0, 1, 1, 2);
    fields->addWidget(boxLabel(texts()(u"Text2.label"), Text2), 1, 0);
    fields->addWidget(Text2, 1, 1, 1, 2);
    fields->addWidget(boxLabel(texts()(u"Text3.label"), Text3), 2, 0);
    fields->addWidget(Text3, 2, 1);
    fields->addWidget(Command7, 2, 2);
    return fields;
}

std::vector<QWidget*> Form6::tabOrder() const
{
    return {FolderTreeview1, File1, List1, Command8, Command5, Command6, Command9, Command10,
            Text1,           Text2, Text3, Command7, Command3, Command4, Command2, Command1};
}

} // namespace orvanta
