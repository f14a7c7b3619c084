#include "playback/command_menu.h"

#include <QAction>
#include <QKeySequence>

#include <algorithm>

namespace orvanta {

static bool isOffered(const CommandRow& row, MenuPlace place)
{
    return row.group != MenuGroup::None && (int(row.menus) & int(place)) != 0;
}

static Command commandOf(const QAction& entry)
{
    return Command(entry.data().toInt());
}

CommandMenu::CommandMenu(MenuPlace place, QWidget* parent)
    : QMenu(parent)
{
    MenuGroup group = MenuGroup::None;
    for (const CommandRow& row : commands()) {
        if (!isOffered(row, place)) {
            continue;
        }
        if (group != MenuGroup::None && group != row.group) {
            addSeparator();
        }
        group = row.group;
        addCommand(row);
    }
    connect(this, &QMenu::triggered, this,
            [this](const QAction* entry) { Q_EMIT chosen(commandOf(*entry)); });
}

// A shortcut of a menu that nothing drops down is never heard, which is as it should be here.
void CommandMenu::addCommand(const CommandRow& row)
{
    QAction* entry = addAction(QString());
    entry->setData(int(row.command));
    entry->setCheckable(row.isSwitch);
    entry->setShortcut(QKeySequence(shownKey(row), QKeySequence::NativeText));
    entry->setShortcutVisibleInContextMenu(true);
}

void CommandMenu::setLanguage(TextLanguage language)
{
    for (QAction* entry : actions()) {
        if (!entry->isSeparator()) {
            entry->setText(interfaceText(u"Command", rowOf(commandOf(*entry)).name, language));
        }
    }
}

void CommandMenu::open(QPoint place, const CommandFacts& facts)
{
    if (isVisible()) {
        return;
    }
    for (QAction* entry : actions()) {
        const CommandState state = stateOf(commandOf(*entry), facts);
        entry->setEnabled(entry->isSeparator() || state.enabled);
        entry->setChecked(state.checked);
    }
    popup(place);
}

QAction* CommandMenu::entryOf(Command command) const
{
    const QList<QAction*> entries = actions();
    const auto entry = std::ranges::find_if(entries, [&](const QAction* candidate) {
        return !candidate->isSeparator() && commandOf(*candidate) == command;
    });
    return entry == entries.end() ? nullptr : *entry;
}

} // namespace orvanta
