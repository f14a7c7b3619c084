// Editing what is open where it plays: the main window's mode for it.
#pragma once

#include "core/error_boundary.h"
#include "model/editing/drafts.h"
#include "model/editing/lesson_editing.h"
#include "model/editing/lesson_saving.h"
#include "model/pickers.h"
#include "model/texts.h"
#include "playback/command_state.h"
#include "playback/playback_engine.h"
#include "window/editing_row.h"
#include "window/editing_sound.h"
#include "window/line_editor.h"
#include "window/playlist_list.h"

#include <QImage>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QAction;

namespace orvanta {

class EditNotice;
class SilenceRow;
class WaveformStrip;
class PlaylistList;

/// What the mode works with. All of it outlives the mode.
struct EditingPorts
{
    Module1& module;
    PlaybackEngine& engine;
    Pickers& pickers;
    HandlerBoundary boundary;
    TextLanguage language;
    PlaylistList& list;
    EditingRow& row;
    EditNotice& notice;
    WaveformStrip& strip;
    SilenceRow& silences;
    std::function<void(const QString& title)> showTitle; // of the document; empty: none
    std::function<void(const QString& path)> openDocument;
    std::function<QImage()> frame; // of the clip's picture, now; null without one
};

/// Interface thread only. Nothing is raised.
class EditingMode : public QObject
{
    Q_OBJECT

public:
    EditingMode(EditingPorts ports, QObject* parent);

    [[nodiscard]] bool isOn() const { return m_on; }
    void setOn(bool on);

    /// False for a command that is none of editing, or while the mode is off.
    bool carryOut(Command command);
    /// What the menu needs to know of editing.
    void addFacts(CommandFacts& facts) const;

    /// Something else is open now.
    void playlistShown();
    /// More is open now, behind what was open before.
    void playlistGrown();
    /// The program begins with nothing open.
    void offerDrafts();
    /// The program ends.
    void end();

    /// The steps that were done, for who tests and shows them.
    [[nodiscard]] const LessonEditing& editing() const { return m_editing; }
    [[nodiscard]] LineEditor& box() { return *m_box; }

Q_SIGNALS:
    void switched(bool on);

private:
    struct Left // what was open before, with changes that are not saved
    {
        PlaylistState playlist;
        std::vector<PlaylistEntry> saved;
    };

    // Lines: editing_mode_lines.cpp
    void mark();
    void editField(int line, LineEditor::Field field);
    void takeTyped(int line, LineEditor::Field field, const QString& text);
    void nudge(double seconds);
    void playFrom(EditPlace place);
    void dropLines(int before);
    void dropFiles(const QStringList& files, int before);
    void showStep(const EditStep& step);
    [[nodiscard]] std::vector<EditPlace> uncheckedAfter(const EditStep& step) const;
    void selectAfter(const EditStep& step, const std::vector<EditPlace>& before);
    [[nodiscard]] EditPlace placeOf(int line) const;
    [[nodiscard]] int lineOf(EditPlace place) const;
    [[nodiscard]] EditPlace current() const { return placeOfCursor(); }
    [[nodiscard]] EditPlace placeOfCursor() const;
    [[nodiscard]] std::vector<EditPlace> selected() const;
    [[nodiscard]] std::optional<MarkSetting> markSetting() const;
    [[nodiscard]] LineNote noteOf(int line) const;
    [[nodiscard]] LineNote pictureNote(const PlaylistEntry& packet) const;
    [[nodiscard]] QString fieldText(EditPlace place, LineEditor::Field field) const;

    // What is seldom needed: editing_mode_more.cpp
    void fillMore();
    void showMore();
    void pickPicture();
    void takeFrame();
    void setPicture(int packet, const QString& path);
    void takeEarlier();
    void fillSuggestions();
    void setMarks(const std::vector<SuggestedMark>& marks);

    // Documents: editing_mode_documents.cpp
    void keepDraft();
    void keepDraftOrSay();
    void keepDraftSoon();
    bool save(bool elsewhere);
    [[nodiscard]] QString askTarget();
    void discard();
    void noteLeaving();
    void sayLeft();
    void saveLeft(const std::shared_ptr<Left>& left);
    void openDraft(const QString& document);
    void sayFailed(const QString& document);
    void offerDraftOfDocument();
    void takeDraft(const QString& document);
    void sayUnsaved();
    [[nodiscard]] QString unsavedText(const QString& document) const;
    [[nodiscard]] QString nameOf(const QString& document) const;
    [[nodiscard]] QString text(QStringView name) const;

    void connectList();
    [[nodiscard]] bool carryOutWhileOn(Command command);
    void refresh();

    EditingPorts m_ports;
    LessonEditing m_editing;
    LessonSaving m_saving;
    Drafts m_drafts;
    EditingSound* m_sound;                  // the strip and what the clip suggests
    LineEditor* m_box;                      // edits a line in place
    int m_typedLine = -1;                   // where the line is whose field was typed last
    std::vector<QAction*> m_pictureEntries; // of the menu: a group's
    QAction* m_frameEntry = nullptr;
    QAction* m_marksEntry = nullptr; // what the clip that plays suggests
    QTimer m_draftTimer;
    std::shared_ptr<Left> m_leaving; // as it was when something else was about to begin
    std::shared_ptr<Left> m_left;    // what the notice asks about
    int m_revision = 0;              // of the playlist after the last step, or as it was opened
    bool m_isFollowed = false;       // what is saved of it is known
    bool m_on = false;
    bool m_canMark = false; // as it was shown last
    bool m_draftIsDue = false;
    bool m_hasDraftFailed = false; // the last one could not be written
    bool m_hasOldDraft = false;    // of what is open: one that nobody has taken
};

} // namespace orvanta
