#include "core/numbers.h"
#include "core/paths.h"
#include "model/loaders.h"
#include "platform/screen/window_basics.h"
#include "platform/screen/window_stacking.h"
#include "playback/announcement.h"
#include "playback/command_menu.h"
#include "playback/lesson_controls.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>
#include <QWindow>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

void Form2::connectHandlers()
{
    const auto on = [this](auto* sender, auto signal, auto handler) {
        connect(sender, signal, this, m_services.boundary(handler));
    };
    const auto press = [&](SkinButton* button, void (Form2::*handler)()) {
        on(button, &SkinButton::clicked, [this, handler](auto&&...) { (this->*handler)(); });
    };
    press(Image8, &Form2::Form2_Image8_Click);
    press(Image14, &Form2::Form2_Image14_Click);
    press(Image9, &Form2::Form2_Image9_Click);
    press(Image10, &Form2::Form2_Image10_Click);
    press(Image11, &Form2::Form2_Image11_Click);
    press(Image12, &Form2::Form2_Image12_Click);
    press(Image13, &Form2::Form2_Image13_Click);
    connect(this, &Form2::closeAsked, this, m_services.boundary([this] { Form2_Image13_Click(); }),
            Qt::QueuedConnection);
    press(Image5, &Form2::Form2_Image5_Click);
    press(Image3, &Form2::Form2_Image3_Click);
    press(Image4, &Form2::Form2_Image4_Click);
    press(Image2, &Form2::Form2_Image2_Click);
    connectPractice();
    connectEditing();
    connectMissingClips();
    connectStartPage();
    on(Text1, &QLineEdit::returnPressed, [this] { Form2_Image2_Click(); });
    on(&m_missed, &QTimer::timeout, [this](auto&&...) { showFound(true); });
    on(List1, &PlaylistList::cursorMoved, [this](int line) { Form2_List1_Click(line); });
    on(List1, &PlaylistList::lineChosen, [this] { Form2_List1_DblClick(); });
    on(List1, &PlaylistList::pointerMoved, [this](int y) { Form2_List1_MouseMove(y); });
    on(List1, &PlaylistList::menuAsked, [this](QPoint place) { Form2_List1_Menu(place); });
    on(ListMenu, &CommandMenu::chosen, [this](Command command) { carryOut(command); });
    // From the queue: the program that dragged waits for the drop's answer.
    connect(
        List1, &PlaylistList::filesDropped, this,
        m_services.boundary([this](const QStringList& files) { Form2_List1_OLEDragDrop(files); }),
        Qt::QueuedConnection);
    on(Slider1, &SkinSlider::userChanged, [this](double v) { Form2_Slider1_Change(v); });
    on(Slider1, &SkinSlider::committed, [this](double) { Form2_Slider1_Commit(); });
    on(Slider1, &SkinSlider::interactionEnded, [this] { Form2_Slider1_End(); });
    on(Slider2, &SkinSlider::userChanged, [this](double v) { Form2_Slider2_Change(v); });
    on(Slider3, &SkinSlider::userChanged, [this](double v) { Form2_Slider3_Change(v); });
    on(&Timer1, &QTimer::timeout, [this](auto&&...) { Form2_Timer1_Timer(); });
    on(&Timer2, &QTimer::timeout, [this](auto&&...) { Form2_Timer2_Timer(); });
    on(&Timer3, &QTimer::timeout, [this](auto&&...) { Form2_Timer3_Timer(); });
    connectMenus();
}

void Form2::connectMenus()
{
    const auto choose = [this](QAction* entry, void (Form2::*handler)()) {
        connect(entry, &QAction::triggered, this,
                m_services.boundary([this, handler](auto&&...) { (this->*handler)(); }));
    };
    choose(cp, &Form2::Form2_cp_Click);
    choose(cg, &Form2::Form2_cg_Click);
    choose(op, &Form2::Form2_op_Click);
    choose(cdc, &Form2::Form2_cdc_Click);
    choose(doc, &Form2::Form2_doc_Click);
    choose(tu, &Form2::Form2_tu_Click);
    choose(ab, &Form2::Form2_ab_Click);
    connect(ai, &QMenu::triggered, this, m_services.boundary([this](QAction* entry) {
        Form2_add_Click(static_cast<int>(std::ranges::find(add, entry) - add.begin()));
    }));
}

void Form2::Form2_Form_Activate()
{
    m_services.engine.operations().PollPlayer();
    m_services.unloadSplash();
}

// Once for each activation: from a paint event it would raise and repaint without end.
void Form2::Form2_Form_Paint()
{
    QWindow* video = m_services.videoWindow();
    if (video != nullptr && video->isVisible()) {
        stackBehind(video, windowHandle());
    }
}

void Form2::Form2_Image8_Click()
{
    trapped("open clip", [this] {
        const bool picked = m_services.pickers.ShowOpenPicker(m_services.module.TypePattern, true);
        const QStringList clips = m_services.module.picker.PickedFiles.mid(1);
        if (picked && !clips.value(0).isEmpty()) {
            open([this, clips] { OpenFiles(m_services.module.playlist, clips); });
        }
    });
}

void Form2::Form2_Image14_Click()
{
    trapped("open file", [this] {
        const bool picked = m_services.pickers.ShowOpenPicker(u"*.vxl;*.vxg"_s, false);
        const QString path = m_services.module.picker.PickedFiles.value(1);
        if (picked && !path.isEmpty()) {
            openPacketOrGroup(path);
        }
    });
}

// Only the last character decides, and only the small letter.
void Form2::openPacketOrGroup(const QString& path)
{
    openDocument(path, path.endsWith(u'l') ? OpenPacket : OpenGroup);
}

void Form2::openDocument(const QString& path, void (*load)(PlaylistState&, const QString&),
                         const RecentLesson* left)
{
    PlaylistState& playlist = m_services.module.playlist;
    openFolderOf(playlist, path);
    open([&] { load(playlist, path); }, left);
}

// A loader that fails ends the opening, but the tree shows what it had read until then.
void Form2::open(const std::function<void()>& load, const RecentLesson* left)
{
    if (m_services.engine.isClosing()) {
        return; // the program ended while the picker or the editor was open
    }
    PlaylistState& playlist = m_services.module.playlist;
    m_services.engine.lesson().leave();
    playlist.OpenedFromExplorer = false;
    if (!resumeNext("loader", [&] { runBusy(load); })) {
        m_services.engine.playlistCutShort();
    } else if (left != nullptr) {
        m_services.engine.lesson().playlistContinued(placeIn(playlist, *left));
    } else {
        m_services.engine.playlistReplaced();
    }
}

void Form2::Form2_Image9_Click()
{
    dropDown(create, Image9);
}

void Form2::Form2_Image10_Click()
{
    dropDown(tools, Image10);
}

void Form2::Form2_Image11_Click()
{
    dropDown(help, Image11);
}

// At the pointer; pressed by key, where the pointer may be anywhere, below the button.
void Form2::dropDown(QMenu* menu, SkinButton* button)
{
    const bool byPointer = button->underMouse();
    menu->popup(byPointer ? QCursor::pos() : button->mapToGlobal(QPoint(0, button->height() + 2)));
}

void Form2::Form2_Image12_Click()
{
    m_minimiseRequested = true;
    showMinimized();
}

void Form2::Form2_Image13_Click()
{
    m_services.engine.pressClose();
}

void Form2::Form2_Image5_Click()
{
    m_services.engine.play();
}

void Form2::Form2_Image3_Click()
{
    m_services.engine.pressPause();
}

void Form2::Form2_Image4_Click()
{
    m_services.engine.pressStop();
}

void Form2::Form2_Image2_Click()
{
    if (!Text1->text().isEmpty()) {
        (void)find(Text1->text());
    }
}

/// A text that was typed and not searched for yet is found first; one that is nowhere plays
/// nothing.
void Form2::Form2_Text1_CtrlReturn()
{
    const QString wanted = Text1->text();
    const bool isNew = !wanted.isEmpty() && wanted != m_lastFind;
    if (!isNew || find(wanted)) {
        Form2_List1_DblClick();
    }
}

bool Form2::find(const QString& wanted)
{
    const int first = wanted == m_lastFind ? m_lastFound + 1 : 1;
    m_lastFind = wanted;
    const int row = findRow(List1->lines(), wanted, first);
    if (row >= 0) {
        m_lastFound = row;
        List1->setCursorLine(row);
    }
    showFound(row >= 0);
    row >= 0 ? sayLine(row) : m_announcement->say(Text1->accessibleDescription());
    return row >= 0;
}

constexpr int kMissedMilliseconds = 2000;

// A tint for the eye, the box's description for assistive technology, both for a moment.
void Form2::showFound(bool found)
{
    const TextLanguage language =
        textLanguage(m_services.module.Language.value(), TextLanguage::Russian);
    Text1->setProperty("missed", !found);
    Text1->style()->unpolish(Text1);
    Text1->style()->polish(Text1);
    const QString missed = interfaceText(u"Form2", u"Text1.missed", language);
    Text1->setAccessibleDescription(found ? shownKey(rowOf(Command::Find)) : missed);
    if (found) {
        m_missed.stop();
    } else {
        m_missed.start(kMissedMilliseconds);
    }
}

void Form2::Form2_List1_Click(int line)
{
    if (line == 0) {
        List1->setCursorLine(-1);
    }
}

void Form2::Form2_List1_DblClick()
{
    if (List1->cursorLine() < 0) {
        return;
    }
    QCoreApplication::processEvents();
    // What ran meanwhile may have rebuilt the list: the line is looked up only now.
    List1->checkLine(List1->cursorLine());
    const TreePlace place = placeOfLine(List1->lines(), List1->cursorLine());
    if (place.clip != Int16(0)) {
        m_services.engine.ListClick(place.packet, place.clip);
    }
}

void Form2::Form2_List1_MouseMove(int y)
{
    constexpr int kTwipsPerPixel = 15;
    const double rows = static_cast<double>(List1->rowHeight()) / skin::kRowHeight;
    // Far down in the longest lists the row leaves 16 bits; the tool tip is not worth the program.
    trapped("tool tip of the playlist", [&] {
        const Int16 row = rowUnderPointer(y * kTwipsPerPixel / rows, List1->topLine());
        if (row < Int16(1) || row.index() >= List1->lines().size()) {
            return;
        }
        const QString text = textWithoutPrefix(List1->lines()[row.index()]);
        if (!text.isNull()) {
            const QString why = List1->whyMissing(row.value());
            List1->setToolTip(plainToolTip(why.isEmpty() ? text : text + u'\n' + why));
        }
    });
}

void Form2::Form2_Slider1_Change(double value)
{
    m_sliderHeld = true;
    trapped("position preview", [&] { m_services.engine.sliderMoved(value); });
}

void Form2::Form2_Slider1_Commit()
{
    trapped("position seek", [this] { m_services.engine.sliderCommitted(); });
}

void Form2::Form2_Slider1_End()
{
    m_sliderHeld = false;
}

void Form2::Form2_Slider2_Change(double value)
{
    m_services.engine.volumeMoved(roundToInt16(value));
}

void Form2::Form2_Slider3_Change(double value)
{
    m_services.engine.balanceMoved(roundToInt16(value));
}

void Form2::Form2_Timer1_Timer()
{
    m_services.engine.tick();
    m_tickRest->ticked(m_services.engine.isQuiet());
}

void Form2::Form2_Timer2_Timer()
{
    Timer2.stop();
    List1->checkLine(m_lineToMark);
}

void Form2::Form2_Timer3_Timer()
{
    Timer3.stop();
    m_services.engine.operations().ShowVideoWindow(true);
    bringMainWindowToFront();
}

void Form2::Form2_op_Click()
{
    m_services.showOptions();
}

} // namespace orvanta
