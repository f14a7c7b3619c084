#include "playback/command_menu.h"

#include "playback/track_menus.h"

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

CommandMenu::CommandMenu(MenuPlace place, QWidget* parent, TrackControls* tracks)
    : QMenu(parent),
      m_trackControls(tracks)
{
    MenuGroup group = MenuGroup::None;
    for (const CommandRow& row : commands()) {
        if (!isOffered(row, place)) {
            continue;
        }
        if (group != MenuGroup::None && group != row.group) {
            addSeparator();
        }
        if (group != row.group && row.group == MenuGroup::Practice) {
            addPractice();
        }
        if (group != row.group && row.group == MenuGroup::Editing) {
            addEditing();
        }
        group = row.group;
        addCommand(menuOf(group), row);
    }
    connect(this, &QMenu::triggered, this, [this](const QAction* entry) {
        if (entry->data().isValid()) { // a sound or subtitles are no command
            Q_EMIT chosen(commandOf(*entry));
        }
    });
}

void CommandMenu::addPractice()
{
    m_practice = addMenu(QString());
    m_tracks = new TrackMenus(*this, m_trackControls);
}

void CommandMenu::addEditing()
{
    m_editing = addMenu(QString());
}

QMenu& CommandMenu::menuOf(MenuGroup group)
{
    if (group == MenuGroup::Practice) {
        return *m_practice;
    }
    return group == MenuGroup::Editing ? *m_editing : *this;
}

// A shortcut of a menu that nothing drops down is never heard, which is as it should be here.
void CommandMenu::addCommand(QMenu& menu, const CommandRow& row)
{
    QAction* entry = menu.addAction(QString());
    entry->setData(int(row.command));
    entry->setCheckable(row.isSwitch);
    entry->setShortcut(QKeySequence(shownKey(row), QKeySequence::NativeText));
    entry->setShortcutVisibleInContextMenu(true);
}

QList<QAction*> CommandMenu::entries() const
{
    QList<QAction*> entries = actions();
    if (m_practice != nullptr) {
        entries += m_practice->actions();
    }
    if (m_editing != nullptr) {
        entries += m_editing->actions();
    }
    entries.removeIf([](const QAction* entry) { return !entry->data().isValid(); });
    return entries;
}

void CommandMenu::setLanguage(TextLanguage language)
{
    for (QAction* entry : entries()) {
        entry->setText(interfaceText(u"Command", rowOf(commandOf(*entry)).name, language));
    }
    if (m_editing != nullptr) {
        m_editing->setTitle(interfaceText(u"EditingMode", u"menu", language));
    }
    if (m_practice != nullptr) {
        m_practice->setTitle(interfaceText(u"Practice", u"menu", language));
        m_tracks->setLanguage(language);
    }
}

void CommandMenu::open(QPoint place, const CommandFacts& facts)
{
    if (isVisible()) {
        return;
    }
    for (QAction* entry : entries()) {
        const CommandState state = stateOf(commandOf(*entry), facts);
        entry->setEnabled(state.enabled);
        entry->setChecked(state.checked);
    }
    if (m_editing != nullptr) {
        m_editing->menuAction()->setVisible(facts.editing);
    }
    if (m_tracks != nullptr) {
        m_tracks->refresh();
    }
    popup(place);
}

QAction* CommandMenu::entryOf(Command command) const
{
    const QList<QAction*> all = entries();
    const auto entry = std::ranges::find_if(
        all, [&](const QAction* candidate) { return commandOf(*candidate) == command; });
    return entry == all.end() ? nullptr : *entry;
}

} // namespace orvanta
