#include "platform/file_types/type_icons.h"
#include "platform/screen/window_basics.h"
#include "system/form8_options_dialog.h"
#include "system/icon_preview.h"
#include "system/option_box.h"
#include "system/option_pictures.h"
#include "system/type_list.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr int kGrid = 8; // logical pixels
constexpr int kPageIconSide = 40;
constexpr QSize kLeastSize(560, 460); // at the opening

void Form8::buildControls()
{
    buildPageButtons();
    buildBoxes();
    buildTypeControls();
    Image2 = new QPushButton(optionPicture(u"ok"_s), {}, this);
    Image1 = new QPushButton(optionPicture(u"cancel"_s), {}, this);
    Image2->setDefault(true);
}

void Form8::buildPageButtons()
{
    const auto button = [&](const QString& picture) {
        auto* page = new QToolButton(this);
        page->setIcon(optionPicture(picture));
        page->setIconSize({kPageIconSide, kPageIconSide});
        page->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        page->setCheckable(true);
        page->setAutoExclusive(true);
        page->setAutoRaise(true);
        page->setFocusPolicy(Qt::StrongFocus);
        page->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        return page;
    };
    Image3 = button(u"playing"_s);
    Image4 = button(u"program"_s);
    Image5 = button(u"files"_s);
}

void Form8::buildBoxes()
{
    for (const OptionRow& option : options()) {
        this->*option.box = new OptionBox(this);
    }
}

void Form8::buildTypeControls()
{
    List1 = new TypeList(this);
    Text1 = new QLineEdit(this);
    Command1 = new QPushButton(this);
    Command2 = new QPushButton(this);
    Command3 = new QPushButton(this);
    Command4 = new QPushButton(this);
    Image6 = new IconPreview(this);
}

void Form8::nameControls()
{
    setObjectName(u"Form8"_s);
    for (const auto& [control, name] : std::initializer_list<std::pair<QObject*, QStringView>>{
             {Image1, u"Image1"},     {Image2, u"Image2"},     {Image3, u"Image3"},
             {Image4, u"Image4"},     {Image5, u"Image5"},     {Image6, u"Image6"},
             {Check1, u"Check1"},     {Check2, u"Check2"},     {Check3, u"Check3"},
             {Check4, u"Check4"},     {Check5, u"Check5"},     {Check6, u"Check6"},
             {Check7, u"Check7"},     {Check8, u"Check8"},     {Check9, u"Check9"},
             {List1, u"List1"},       {Text1, u"Text1"},       {Command1, u"Command1"},
             {Command2, u"Command2"}, {Command3, u"Command3"}, {Command4, u"Command4"},
         }) {
        control->setObjectName(name.toString());
    }
}

void Form8::layOut()
{
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(pageOfBoxes({Check1, Check2, Check3, Check5, Check4}));
    m_pages->addWidget(pageOfBoxes({Check6, Check7, Check9, Check8}));
    m_pages->addWidget(pageOfTypes());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(pageButtons());
    rows->addWidget(m_pages, 1);
    rows->addLayout(closingButtons());
    resize(firstSizeOn(*screen(), sizeHint().expandedTo(kLeastSize)));
}

/// The three buttons stand on a ground of their own, with a line below.
QWidget* Form8::pageButtons()
{
    auto* ground = new QWidget(this);
    ground->setBackgroundRole(QPalette::Base);
    ground->setAutoFillBackground(true);
    auto* row = new QHBoxLayout(ground);
    row->setContentsMargins(2 * kGrid, kGrid, 2 * kGrid, kGrid);
    row->setSpacing(kGrid);
    for (QToolButton* button : {Image3, Image4, Image5}) {
        row->addWidget(button, 1);
    }
    auto* bar = new QWidget(this);
    auto* rows = new QVBoxLayout(bar);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(ground);
    auto* line = new QFrame(bar);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    rows->addWidget(line);
    return bar;
}

QWidget* Form8::pageOfBoxes(std::initializer_list<OptionBox*> boxes)
{
    auto* page = new QWidget(this);
    auto* rows = new QVBoxLayout(page);
    rows->setContentsMargins(3 * kGrid, 3 * kGrid, 3 * kGrid, kGrid);
    rows->setSpacing(kGrid + kGrid / 2);
    for (OptionBox* box : boxes) {
        // What depends on the box above stands a step further in.
        const int indent = box == Check9 ? 3 * kGrid : 0;
        auto* row = new QHBoxLayout;
        row->addSpacing(indent);
        row->addWidget(box);
        rows->addLayout(row);
    }
    rows->addStretch(1);
    return page;
}

QWidget* Form8::pageOfTypes()
{
    auto* page = new QWidget(this);
    auto* columns = new QHBoxLayout(page);
    columns->setContentsMargins(3 * kGrid, 2 * kGrid, 3 * kGrid, kGrid);
    columns->setSpacing(3 * kGrid);
    columns->addLayout(typeColumn(), 1);
    columns->addLayout(iconColumn());
    return page;
}

QBoxLayout* Form8::typeColumn()
{
    auto* listLabel = new QLabel(this);
    listLabel->setObjectName(u"List1.label"_s);
    listLabel->setBuddy(List1);
    auto* boxLabel = new QLabel(this);
    boxLabel->setObjectName(u"Text1.label"_s);
    boxLabel->setBuddy(Text1);
    auto* add = new QHBoxLayout;
    add->setSpacing(kGrid);
    add->addWidget(boxLabel);
    add->addWidget(Text1, 1);
    add->addWidget(Command1);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(kGrid);
    rows->addWidget(listLabel);
    rows->addWidget(List1, 1);
    rows->addLayout(add);
    return rows;
}

QBoxLayout* Form8::iconColumn()
{
    auto* rows = new QVBoxLayout;
    rows->setSpacing(kGrid);
    rows->addSpacing(fontMetrics().height() + kGrid); // the list's label beside it
    rows->addWidget(Image6, 0, Qt::AlignHCenter);
    rows->addWidget(Command3);
    rows->addWidget(Command4);
    rows->addStretch(1);
    rows->addWidget(Command2);
    return rows;
}

QBoxLayout* Form8::closingButtons()
{
    auto* row = new QHBoxLayout;
    row->setContentsMargins(3 * kGrid, kGrid, 3 * kGrid, 2 * kGrid);
    row->setSpacing(kGrid);
    row->addStretch(1);
    row->addWidget(Image2);
    row->addWidget(Image1);
    Image2->setMinimumWidth(12 * kGrid);
    Image1->setMinimumWidth(12 * kGrid);
    return row;
}

void Form8::orderTabs()
{
    const QList<QWidget*> order = {Image3,   Image4,   Image5,   Check1,   Check2, Check3, Check5,
                                   Check4,   Check6,   Check7,   Check9,   Check8, List1,  Text1,
                                   Command1, Command3, Command4, Command2, Image2, Image1};
    for (qsizetype i = 1; i < order.size(); ++i) {
        setTabOrder(order[i - 1], order[i]);
    }
}

void Form8::applyTexts(TextLanguage language)
{
    const auto text = [language](QStringView control) {
        return interfaceText(u"Form8", control, language);
    };
    setWindowTitle(text(u"Form8"));
    for (QAbstractButton* button : std::initializer_list<QAbstractButton*>{
             Image1, Image2, Image3, Image4, Image5, Check1, Check2, Check3, Check4, Check5, Check6,
             Check7, Check8, Check9, Command1, Command2, Command3, Command4}) {
        button->setText(text(button->objectName()));
    }
    for (QPushButton* button : {Command1, Command2, Command3, Command4}) {
        button->setMinimumWidth(button->sizeHint().width() + 2 * kGrid);
    }
    for (QAbstractButton* picture :
         std::initializer_list<QAbstractButton*>{Image1, Image2, Image3, Image4, Image5}) {
        picture->setToolTip(picture->text());
        picture->setAccessibleName(picture->text());
    }
    // A caption takes away the key that stood for the one before.
    Image3->setShortcut(QKeySequence(u"Alt+1"_s));
    Image4->setShortcut(QKeySequence(u"Alt+2"_s));
    Image5->setShortcut(QKeySequence(u"Alt+3"_s));
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setText(text(label->objectName()));
    }
    List1->setAccessibleName(text(u"List1.label").remove(u'&').remove(u':'));
    Text1->setAccessibleName(text(u"Text1.label").remove(u'&').remove(u':'));
    Image6->setAccessibleName(text(u"Image6.name"));
}

void Form8::connectHandlers()
{
    const auto press = [this](QAbstractButton* button, void (Form8::*handler)()) {
        connect(button, &QAbstractButton::clicked, this,
                m_services.boundary([this, handler](bool) { (this->*handler)(); }));
    };
    press(Image3, &Form8::Form8_Image3_Click);
    press(Image4, &Form8::Form8_Image4_Click);
    press(Image5, &Form8::Form8_Image5_Click);
    press(Image2, &Form8::Form8_Image2_Click);
    press(Image1, &Form8::Form8_Image1_Click);
    press(Command1, &Form8::Form8_Command1_Click);
    press(Command2, &Form8::Form8_Command2_Click);
    press(Command3, &Form8::Form8_Command3_Click);
    press(Command4, &Form8::Form8_Command4_Click);
    connect(Check7, &QCheckBox::toggled, this,
            m_services.boundary([this](bool) { Form8_Check7_Click(); }));
    connect(List1, &TypeList::rowClicked, this,
            m_services.boundary([this] { Form8_List1_Click(); }));
    const QString& folder = m_services.module.ApplicationFolder;
    List1->setIconFile([folder](const QString& type) { return currentIcon(folder, type); });
    Text1->installEventFilter(this);
}

} // namespace orvanta
