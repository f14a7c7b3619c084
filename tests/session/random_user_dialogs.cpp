// What the random user does in menus and in dialogs.
#include "tests/session/random_user.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <algorithm>
#include <array>
#include <vector>

namespace orvanta::session {

using namespace Qt::StringLiterals;

void RandomUser::usePopup(ProgramRun& run)
{
    if (!m_dice.chance(70) || !chooseInMenu(run)) {
        pressKeyInPopup();
    }
}

// The other entries start programs of the desktop.
bool RandomUser::chooseInMenu(ProgramRun& run)
{
    const Form2& window = run.program.mainWindow();
    const auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    std::vector<QAction*> entries = {window.cp, window.cg, window.op, window.ab};
    std::erase_if(entries, [&](QAction* entry) {
        return menu == nullptr || !menu->actions().contains(entry);
    });
    if (entries.empty()) {
        return false;
    }
    QAction* entry = m_dice.oneOf(entries);
    ++m_chosenEntries;
    run.pickers.answer = someFiles(4);
    run.pickers.saveAnswer = m_dice.oneOf(m_files.toSave);
    note(u"menu entry "_s + entry->objectName());
    QTest::mouseClick(QApplication::activePopupWidget(), Qt::LeftButton, {},
                      menu->actionGeometry(entry).center());
    return true;
}

void RandomUser::useDialog(ProgramRun& run)
{
    QWidget* dialog = QApplication::activeModalWidget();
    run.pickers.answer = someFiles(4);
    run.pickers.saveAnswer = m_dice.oneOf(m_files.toSave);
    ++m_dialogDeeds;
    const int what = m_dice.below(100);
    if (what < 4) {
        note(u"close the "_s + dialog->objectName());
        dialog->close();
    } else if (what < 60) {
        clickInDialog(*dialog);
    } else if (what < 85) {
        clickLineInDialog(*dialog);
    } else {
        pressKeyInDialog(*dialog);
    }
}

template <typename Control> static QList<Control*> usableIn(const QWidget& dialog)
{
    QList<Control*> usable = dialog.findChildren<Control*>();
    usable.removeIf(
        [](const Control* control) { return !control->isVisible() || !control->isEnabled(); });
    return usable;
}

void RandomUser::clickInDialog(QWidget& dialog)
{
    const QList<QAbstractButton*> buttons = usableIn<QAbstractButton>(dialog);
    if (buttons.isEmpty()) {
        return note(u"no button to click"_s);
    }
    QAbstractButton* button = m_dice.oneOf(buttons);
    note(u"click %1 of the %2"_s.arg(button->objectName(), dialog.objectName()));
    QTest::mouseClick(button, Qt::LeftButton);
}

void RandomUser::clickLineInDialog(QWidget& dialog)
{
    const QList<QAbstractItemView*> lists = usableIn<QAbstractItemView>(dialog);
    if (lists.isEmpty()) {
        return note(u"no list to click"_s);
    }
    QAbstractItemView* list = m_dice.oneOf(lists);
    const QPoint place(m_dice.below(std::max(1, list->viewport()->width())),
                       m_dice.below(std::max(1, list->viewport()->height())));
    note(u"click %1 of the %2 at %3, %4"_s.arg(list->objectName(), dialog.objectName())
             .arg(place.x())
             .arg(place.y()));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
}

void RandomUser::pressKeyInDialog(QWidget& dialog)
{
    static constexpr std::array kKeys = {Qt::Key_Tab,    Qt::Key_Down, Qt::Key_Up,   Qt::Key_Right,
                                         Qt::Key_Delete, Qt::Key_A,    Qt::Key_Home, Qt::Key_End};
    const Qt::Key key = m_dice.oneOf(kKeys);
    note(u"key %1 in the %2"_s.arg(QKeySequence(key).toString(), dialog.objectName()));
    QTest::keyClick(dialog.windowHandle(), key);
}

void RandomUser::useAbout(ProgramRun& run)
{
    if (Form9* about = run.program.about(); about != nullptr && about->isVisible()) {
        note(u"close the About window"_s);
        about->close();
    }
}

} // namespace orvanta::session
