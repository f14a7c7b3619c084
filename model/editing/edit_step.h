// One step of editing what is open, as undo and redo go over it: pure exchanges and moves.
#pragma once

#include "model/module1.h"

#include <cstddef>
#include <optional>
#include <variant>
#include <vector>

namespace orvanta {

/// A line of what is open. Both count from 1; line 0 is the packet's own.
struct EditPlace
{
    int packet = 0;
    int line = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the check trips over the defaulted operator.
    friend auto operator<=>(const EditPlace&, const EditPlace&) = default;
};

/// Lines of a packet exchanged for others; indices count from 0.
struct LinesExchange
{
    std::size_t packet = 0;
    std::size_t first = 0;
    std::vector<ClipEntry> removed;
    std::vector<ClipEntry> inserted;
};

/// Packets exchanged for others; the index counts from 0.
struct PacketsExchange
{
    std::size_t first = 0;
    std::vector<PlaylistEntry> removed;
    std::vector<PlaylistEntry> inserted;
};

/// One line goes elsewhere; indices count from 0, the target's without the line itself.
struct LineMove
{
    std::size_t fromPacket = 0;
    std::size_t from = 0;
    std::size_t toPacket = 0;
    std::size_t to = 0;
};

/// One packet goes elsewhere; indices count from 0, the target's without the packet itself.
struct PacketMove
{
    std::size_t from = 0;
    std::size_t to = 0;
};

using EditChange = std::variant<LinesExchange, PacketsExchange, LineMove, PacketMove>;

/// What a step is called in "Undo: …".
enum class EditName
{
    Mark,
    Text,
    Time,
    Title,
    Picture,
    Remove,
    Move,
    Insert,
    Suggest,
    Version, // an earlier one comes back
    Discard, // of all that is not saved
};

struct EditStep
{
    EditName name = EditName::Text;
    std::vector<EditChange> changes; // in the order of doing
    EditPlace before;                // the line that is selected before the step
    EditPlace after;                 // and behind it; packet 0: none in particular
};

/// The step that takes it back.
[[nodiscard]] EditStep inverseOf(const EditStep& step);

/// Does the step. What the step exchanges must be what is open there: counts and texts stay as
/// consistent as they are. Raises 6, with nothing changed, where a list would get too long.
void applyStep(PlaylistState& playlist, const EditStep& step);

/// Where a line is after the step; none when the step removes it. A packet that is exchanged for
/// another in its place keeps its lines' numbers as far as there are so many.
[[nodiscard]] std::optional<EditPlace> placeAfter(const EditStep& step, EditPlace place);

} // namespace orvanta
