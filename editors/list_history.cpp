#include "editors/list_history.h"

#include <utility>

namespace orvanta {

bool haveSameContents(const ListState& a, const ListState& b)
{
    return a.list.entries == b.list.entries && a.clip == b.clip && a.document == b.document;
}

bool differsFromItsFile(const ListState& state)
{
    return state.list.entries != state.document.writtenEntries ||
           state.clip != state.document.writtenClip;
}

void setWritten(ListState& state, const QString& file)
{
    state.document.file = file;
    state.document.writtenEntries = state.list.entries;
    state.document.writtenClip = state.clip;
}

template <typename Part>
static std::optional<Part> ifExchanged(const Part& before, const Part& after)
{
    return before == after ? std::nullopt : std::optional(before);
}

static EntryList selectionOf(const EntryList& list)
{
    return {.entries = {}, .selected = list.selected, .others = list.others};
}

static void select(EntryList& list, const EntryList& selection)
{
    list.selected = selection.selected;
    list.others = selection.others;
}

ListHistory::Step ListHistory::stepBetween(const ListState& before, const ListState& after)
{
    const ListDifference differs = differenceOf(before.list.entries, after.list.entries);
    const qsizetype first = differs.first;
    return {.first = first,
            .removed = before.list.entries.mid(first, differs.oldEnd - first),
            .inserted = after.list.entries.mid(first, differs.newEnd - first),
            .before = selectionOf(before.list),
            .after = selectionOf(after.list),
            .clip = ifExchanged(before.clip, after.clip),
            .document = ifExchanged(before.document, after.document)};
}

void ListHistory::record(const ListState& before, const ListState& after, const void* run)
{
    const bool goesOn = run != nullptr && run == m_run;
    if (!goesOn) {
        m_run = run;
        m_runStart = before;
    } else if (m_runHasStep) {
        m_done.pop_back();
    }
    m_undone.clear();
    m_runHasStep = !haveSameContents(m_runStart, after);
    if (m_runHasStep) {
        m_done.push_back(stepBetween(m_runStart, after));
    }
}

void ListHistory::endRun()
{
    m_run = nullptr;
    m_runStart = {};
}

void ListHistory::exchange(Step& step, ListState& state)
{
    if (step.clip) {
        std::swap(*step.clip, state.clip);
    }
    if (step.document) {
        std::swap(*step.document, state.document);
    }
}

static void putInPlaceOf(const QStringList& old, const QStringList& next, qsizetype first,
                         QStringList& entries)
{
    entries = entries.first(first) + next + entries.sliced(first + old.size());
}

bool ListHistory::undo(ListState& state)
{
    endRun();
    if (m_done.empty()) {
        return false;
    }
    Step step = std::move(m_done.back());
    m_done.pop_back();
    putInPlaceOf(step.inserted, step.removed, step.first, state.list.entries);
    select(state.list, step.before);
    exchange(step, state);
    m_undone.push_back(std::move(step));
    return true;
}

bool ListHistory::redo(ListState& state)
{
    endRun();
    if (m_undone.empty()) {
        return false;
    }
    Step step = std::move(m_undone.back());
    m_undone.pop_back();
    putInPlaceOf(step.removed, step.inserted, step.first, state.list.entries);
    select(state.list, step.after);
    exchange(step, state);
    m_done.push_back(std::move(step));
    return true;
}

} // namespace orvanta
