// What was done to the list of an editor, so that it can be taken back and done again.
#pragma once

#include "editors/entry_list.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace orvanta {

/// The clip that brakes are set in; empty in the other lists.
struct BrakedClip
{
    QString path; // opened last, as the packet names it
    QString text; // what its box shows

    friend bool operator==(const BrakedClip& a, const BrakedClip& b) = default;
};

/// The file that a list belongs to; empty while it belongs to none.
struct ListDocument
{
    QString file;   // loaded or saved last, a full path
    QString folder; // of the one that was loaded last: its relative paths begin there
    QStringList writtenEntries = {}; // as the file has them
    BrakedClip writtenClip = {};

    friend bool operator==(const ListDocument& a, const ListDocument& b) = default;
};

/// All that undo gives back. The document goes with the list, since the paths of a loaded list
/// mean nothing without its folder.
struct ListState
{
    EntryList list;
    BrakedClip clip;
    ListDocument document;
};

/// The same but for the selection.
[[nodiscard]] bool haveSameContents(const ListState& a, const ListState& b);
/// Whether there is something that the document's file does not have.
[[nodiscard]] bool differsFromItsFile(const ListState& state);
/// The document is in this file from now on.
void setWritten(ListState& state, const QString& file);

/// Steps without a limit. A step keeps what differs and not the lists, so that typing into one of
/// many thousand entries costs little.
class ListHistory
{
public:
    /// A change of contents has been made. run: changes of the same run, one right after the
    /// other, are one step (a text that is typed, a slider that is dragged); null for none.
    void record(const ListState& before, const ListState& after, const void* run = nullptr);
    /// What comes next is a step of its own, whatever its run.
    void endRun();

    /// Takes the last step back, or does the one that was taken back last again. False, and
    /// nothing has changed, when there is none.
    [[nodiscard]] bool undo(ListState& state);
    [[nodiscard]] bool redo(ListState& state);

private:
    struct Step
    {
        qsizetype first = 0;
        QStringList removed;
        QStringList inserted;
        EntryList before; // what was selected; the entries are above
        EntryList after;
        // The other one of the two, where the step has exchanged it. The document is exchanged and
        // not put back as it was: it may have been saved elsewhere since.
        std::optional<BrakedClip> clip;
        std::optional<ListDocument> document;
    };
    [[nodiscard]] static Step stepBetween(const ListState& before, const ListState& after);
    static void exchange(Step& step, ListState& state);

    std::vector<Step> m_done;
    std::vector<Step> m_undone;
    const void* m_run = nullptr;
    ListState m_runStart;      // as it was before the run
    bool m_runHasStep = false; // false while the run has led back to its start
};

} // namespace orvanta
