#include "core/group_file.h"
#include "core/paths.h"
#include "editors/entry_list_view.h"
#include "editors/file_list_box.h"
#include "editors/folder_tree.h"
#include "editors/form6_group_editor.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

/// The text, and the picture's name behind it.
static QString inARow(const MemberFields& fields)
{
    const bool hasPicture =
        !fields.picture.isEmpty() && fields.picture != QStringView(kNoPicture).toString();
    return hasPicture ? fields.text + u" · "_s + fileNameOfPath(fields.picture) : fields.text;
}

EntryLook Form6::lookOfMember(const QStringList& entries, int row) const
{
    const QString& entry = entries.at(row);
    const QString path = entry.left(std::max<qsizetype>(entry.indexOf(entryMarker()), 0));
    const auto place = static_cast<std::size_t>(row);
    const WrittenFields written =
        writtenFields(entries, row, place < m_lenders.size() ? m_lenders[place] : -1);
    if (!written.areLent) {
        const bool isMember = entry.contains(entryMarker());
        return {.lead = {},
                .text = isMember ? written.fields.text : QString(),
                .aside = path,
                .isLent = false,
                .tip = {}};
    }
    const QString words = written.areThere ? texts()(u"List1.lent") + u' ' + written.fields.text +
                                                 u" · "_s + written.fields.picture
                                           : texts()(u"List1.bare");
    return {
        .lead = {}, .text = inARow(written.fields), .aside = path, .isLent = true, .tip = words};
}

void Form6::buildControls()
{
    buildListControls(
        this, [this](const QStringList& entries, int row) { return lookOfMember(entries, row); });
    Text3 = new LineBox(this);
    Image1 = new QLabel(this);
    Image1->setFixedSize(144, 108);
    Image1->setFrameShape(QFrame::StyledPanel);
    Image1->setAlignment(Qt::AlignCenter);
    buildListButtons();
    Command7 = captionButton(this);
    setUpControls();
    Image1->setAccessibleName(texts()(u"Text3.label"));
}

ControlRows Form6::controls()
{
    return {
        {this, u"Form6"},          {FolderTreeview1, u"FolderTreeview1"},
        {File1, u"File1"},         {List1, u"List1"},
        {Command8, u"Command8"},   {Command5, u"Command5"},
        {Command6, u"Command6"},   {Command9, u"Command9"},
        {Command10, u"Command10"}, {Text1, u"Text1"},
        {Text2, u"Text2"},         {Text3, u"Text3"},
        {Image1, u"Image1"},       {Command7, u"Command7"},
        {Command3, u"Command3"},   {Command4, u"Command4"},
        {Command2, u"Command2"},   {Command1, u"Command1"},
    };
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
    finishLayout({920, 600});
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

} // namespace orvanta
