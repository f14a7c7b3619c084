#include "playback/announcement.h"
#include "playback/command_menu.h"
#include "window/clip_line.h"
#include "window/edit_notice.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"
#include "window/silence_row.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"
#include "window/start_page.h"
#include "window/waveform_strip.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

namespace orvanta {

using namespace Qt::StringLiterals;

static SkinPicture bright(const QString& name)
{
    return {name, skin::kText};
}

static SkinPicture quiet(const QString& name)
{
    return {name, skin::kTextMuted};
}

static void configure(QTimer& timer, QObject* owner, int milliseconds, bool once)
{
    timer.setParent(owner);
    timer.setInterval(milliseconds);
    timer.setSingleShot(once);
}

void Form2::buildControls()
{
    m_surface = new QWidget(this);
    // Of its own, so that the cursor of the window's edge stays at the edge.
    m_surface->setCursor(Qt::ArrowCursor);
    buildButtons();
    buildBoxes();
    buildSliders();
    buildMenus();
    configure(Timer1, this, 300, false);
    configure(Timer2, this, 100, true);
    configure(Timer3, this, 200, true);
    nameControls(controls());
    // A submenu's entry is an object of its own.
    ai->menuAction()->setObjectName(ai->objectName());
    m_announcement = &announcementBeside(*this);
}

void Form2::buildButtons()
{
    using Face = SkinButton::Face;
    const auto button = [this](Face face, int side, const SkinPicture& picture) {
        return new SkinButton(face, side, picture, m_surface);
    };
    Image8 = button(Face::Raised, skin::kButtonSide, bright(u"open_clip"_s));
    Image14 = button(Face::Raised, skin::kButtonSide, bright(u"open_file"_s));
    Image9 = button(Face::Raised, skin::kButtonSide, bright(u"new"_s));
    Image10 = button(Face::Raised, skin::kButtonSide, bright(u"tools"_s));
    Image11 = button(Face::Raised, skin::kButtonSide, bright(u"help"_s));
    Image2 = button(Face::Raised, skin::kButtonSide, bright(u"find"_s));
    Image12 = button(Face::Flat, skin::kWindowButtonSide, quiet(u"minimize"_s));
    Image13 = button(Face::Warning, skin::kWindowButtonSide, quiet(u"close"_s));
    Image4 = button(Face::Raised, skin::kTransportSide, bright(u"stop"_s));
    Image3 = button(Face::Raised, skin::kTransportSide, {u"pause"_s, skin::kTreeLine});
    Image3->setEnabled(false);
    Image5 = button(Face::Accent, skin::kPlaySide, {u"play"_s, skin::kSurface});
    PracticeButton = button(Face::Raised, skin::kButtonSide, bright(u"practice"_s));
    PracticeButton->setCheckable(true);
    EditButton = button(Face::Raised, skin::kButtonSide, bright(u"pencil"_s));
    EditButton->setCheckable(true);
    Image15 = new PictureHolder({u"play"_s, skin::kPlayOff}, m_surface);
    Image17 = new PictureHolder(bright(u"pause"_s), m_surface);
    Image20 = new PictureHolder({}, m_surface);
}

void Form2::buildBoxes()
{
    Text1 = new QLineEdit(m_surface);
    // Not by the style sheet: a colour there makes the placeholder half as strong.
    QPalette palette = Text1->palette();
    palette.setColor(QPalette::Text, skin::kText);
    palette.setColor(QPalette::PlaceholderText, skin::kTextMuted);
    Text1->setPalette(palette);
    Text2 = new ClipLine(m_surface);
    List1 = new PlaylistList(m_surface);
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    StartPage = new StartPageList(language, m_surface);
    StartPage->hide();
    Chips = new PracticeChips(language, Text2);
    Text2->keepAtRight(Chips, [this](int width) { Chips->fitInto(width); });
    Panel = new PracticePanel(language, m_surface);
    buildEditing();
}

void Form2::buildSliders()
{
    Slider1 = new SkinSlider(SkinSlider::Fill::FromLeft, 1, m_surface);
    Slider2 = new SkinSlider(SkinSlider::Fill::FromLeft, 5, m_surface);
    Slider3 = new SkinSlider(SkinSlider::Fill::FromCentre, 5, m_surface);
    const auto label = [this](const QColor& colour) {
        auto* made = new QLabel(u"0.00"_s, m_surface);
        QPalette palette = made->palette();
        palette.setColor(QPalette::WindowText, colour);
        made->setPalette(palette);
        return made;
    };
    Label1 = label(skin::kText);
    Label2 = label(skin::kTextMuted);
    Label2->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void Form2::buildMenus()
{
    create = new QMenu(m_surface);
    cp = create->addAction(QString());
    cg = create->addAction(QString());
    tools = new QMenu(m_surface);
    op = tools->addAction(QString());
    cdc = tools->addAction(QString());
    ai = tools->addMenu(QString());
    add = {ai->addAction(QString())};
    help = new QMenu(m_surface);
    doc = help->addAction(QString());
    tu = help->addAction(QString());
    ab = help->addAction(QString());
    ListMenu = new CommandMenu(MenuPlace::List, m_surface, m_services.tracks);
    ListMenu->setStyleSheet(skin::commandMenuSheet());
}

ControlRows Form2::controls()
{
    return {
        {this, u"Form2"},
        {Image8, u"Image8"},
        {Image14, u"Image14"},
        {Image9, u"Image9"},
        {Image10, u"Image10"},
        {Image11, u"Image11"},
        {Text1, u"Text1"},
        {Image2, u"Image2"},
        {Text2, u"Text2"},
        {Editing, u"Editing"},
        {Notice, u"Notice"},
        {List1, u"List1"},
        {StartPage, u"StartPage"},
        {Silence, u"Silence"},
        {Strip, u"Strip"},
        {Label1, u"Label1"},
        {Slider1, u"Slider1"},
        {Label2, u"Label2"},
        {Image4, u"Image4"},
        {Image3, u"Image3"},
        {Image5, u"Image5"},
        {PracticeButton, u"PracticeButton"},
        {EditButton, u"EditButton"},
        {Panel, u"Panel"},
        {Chips, u"Chips"},
        {Slider2, u"Slider2"},
        {Slider3, u"Slider3"},
        {Image12, u"Image12"},
        {Image13, u"Image13"},
        {Image15, u"Image15"},
        {Image17, u"Image17"},
        {Image20, u"Image20"},
        {create, u"create"},
        {cp, u"cp"},
        {cg, u"cg"},
        {tools, u"tools"},
        {op, u"op"},
        {cdc, u"cdc"},
        {ai, u"ai"},
        {add.front(), u"add"},
        {help, u"help"},
        {doc, u"doc"},
        {tu, u"tu"},
        {ab, u"ab"},
        {ListMenu, u"ListMenu"},
        {&Timer1, u"Timer1"},
        {&Timer2, u"Timer2"},
        {&Timer3, u"Timer3"},
    };
}

} // namespace orvanta
