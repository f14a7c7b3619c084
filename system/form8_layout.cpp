#include "platform/file_types/type_icons.h"
#include "platform/screen/window_basics.h"
#include "system/form8_options_dialog.h"
#include "system/icon_preview.h"
#include "system/option_box.h"
#include "system/option_pictures.h"
#include "system/page_button.h"
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
    for (const OptionRow& option : kOptionRows) {
        this->*option.box = new OptionBox(this);
    }
    buildTypeControls();
    Image2 = new QPushButton(optionPicture(u"ok"_s), {}, this);
    Image1 = new QPushButton(optionPicture(u"cancel"_s), {}, this);
    Image2->setDefault(true);
}

void Form8::buildPageButtons()
{
    const auto button = [&](const QString& picture) {
        auto* page = new PageButton(this);
        page->setIcon(optionPicture(picture));
        page->setIconSize({kPageIconSide, kPageIconSide});
        page->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
        page->setAutoRaise(true);
        page->setFocusPolicy(Qt::StrongFocus);
        page->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        return page;
    };
    Image3 = button(u"playing"_s);
    Image4 = button(u"program"_s);
    Image5 = button(u"files"_s);
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
    m_listLabel = new QLabel(this);
    m_listLabel->setBuddy(List1);
    m_boxLabel = new QLabel(this);
    m_boxLabel->setBuddy(Text1);
}

ControlRows Form8::controls()
{
    ControlRows rows = {
        {this, u"Form8"}, {Image3, u"Image3"}, {Image4, u"Image4"}, {Image5, u"Image5"}};
    for (const OptionRow& option : kOptionRows) {
        rows.push_back({this->*option.box, option.name});
    }
    const ControlRows others = {{m_listLabel, u"List1.label"},
                                {List1, u"List1"},
                                {m_boxLabel, u"Text1.label"},
                                {Text1, u"Text1"},
                                {Command1, u"Command1"},
                                {Image6, u"Image6"},
                                {Command3, u"Command3"},
                                {Command4, u"Command4"},
                                {Command2, u"Command2"},
                                {Image2, u"Image2"},
                                {Image1, u"Image1"}};
    rows.insert(rows.end(), others.begin(), others.end());
    return rows;
}

void Form8::layOut()
{
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(pageOfBoxes(0));
    m_pages->addWidget(pageOfBoxes(1));
    m_pages->addWidget(pageOfTypes());
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(pageButtons());
    rows->addWidget(m_pages, 1);
    rows->addLayout(closingButtons());
    resize(firstSizeOn(*screen(), sizeHint().expandedTo(kLeastSize)));
}

/// The list of types stays, since it also says which endings count as media.
void Form8::hideRegistration()
{
    const std::array<QWidget*, 4> registering = {Check9, Image6, Command3, Command4};
    for (QWidget* control : registering) {
        control->hide();
    }
    List1->setMarked(false);
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

QWidget* Form8::pageOfBoxes(int page)
{
    auto* ground = new QWidget(this);
    auto* rows = new QVBoxLayout(ground);
    rows->setContentsMargins(3 * kGrid, 3 * kGrid, 3 * kGrid, kGrid);
    rows->setSpacing(kGrid + kGrid / 2);
    for (const OptionRow& option : kOptionRows) {
        if (option.page == page) {
            auto* row = new QHBoxLayout;
            row->addSpacing(option.isDependent ? 3 * kGrid : 0);
            row->addWidget(this->*option.box);
            rows->addLayout(row);
        }
    }
    rows->addStretch(1);
    return ground;
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
    auto* add = new QHBoxLayout;
    add->setSpacing(kGrid);
    add->addWidget(m_boxLabel);
    add->addWidget(Text1, 1);
    add->addWidget(Command1);
    auto* rows = new QVBoxLayout;
    rows->setSpacing(kGrid);
    rows->addWidget(m_listLabel);
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

void Form8::showTexts(TextLanguage language)
{
    applyTexts(controls(), language);
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
    List1->setAccessibleName(m_listLabel->text().remove(u'&').remove(u':'));
    Text1->setAccessibleName(m_boxLabel->text().remove(u'&').remove(u':'));
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
