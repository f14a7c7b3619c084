// The menu of the commands that one place offers.
#pragma once

#include "model/texts.h"
#include "playback/command_state.h"

#include <QMenu>

namespace orvanta {

class TrackControls;
class TrackMenus;

/// Goes by the table of commands; practice is a submenu, and so are editing, sound and
/// subtitles of the clip. Each entry shows its key; an entry that can do nothing is grey. The keys
/// are shown alone: the windows hear them.
class CommandMenu : public QMenu
{
    Q_OBJECT

public:
    /// tracks: null without a choice of sound and subtitles.
    CommandMenu(MenuPlace place, QWidget* parent, TrackControls* tracks = nullptr);

    /// Gives the entries their captions. An open menu keeps its own.
    void setLanguage(TextLanguage language);
    /// Opens at a place of the screen. Does nothing while it is open.
    void open(QPoint place, const CommandFacts& facts);
    /// Null for a command that this menu does not offer.
    [[nodiscard]] QAction* entryOf(Command command) const;

Q_SIGNALS:
    void chosen(Command command);

private:
    void addPractice();
    void addEditing();
    /// Where the entries of a group stand.
    [[nodiscard]] QMenu& menuOf(MenuGroup group);
    static void addCommand(QMenu& menu, const CommandRow& row);
    /// Those of the submenu among them, without the lines between groups.
    [[nodiscard]] QList<QAction*> entries() const;

    QMenu* m_editing = nullptr;  // the group of editing, in sight only while there is any
    QMenu* m_practice = nullptr; // the group of practice, which would make the menu too long
    TrackControls* m_trackControls;
    TrackMenus* m_tracks = nullptr; // after practice
};

} // namespace orvanta
