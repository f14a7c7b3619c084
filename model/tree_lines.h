// The text tree that displays the playlist: pure rules.
#pragma once

#include "model/module1.h"

#include <QString>

#include <vector>

namespace orvanta {

inline constexpr char16_t kRootLine[] = u"!Orvanta!";
inline constexpr char16_t kPacketTitle[] = u"!Orvanta! 3.3";

/// Where a line hangs in the tree, which decides its prefix.
enum class TreeBranch : quint8
{
    Root,
    Packet,
    Clip,
    LastPacketClip
};

/// The text shares the playlist's memory. With its prefix it would be a second copy of each one.
struct TreeLine
{
    QString text; // without its prefix
    Int16 packet; // the line's number: 0 for the root
    TreeBranch branch = TreeBranch::Root;
};

/// The line as it is shown, with its tree prefix.
[[nodiscard]] QString textWithPrefix(const TreeLine& line);

/// The lines that RebuildTree shows.
[[nodiscard]] std::vector<TreeLine> treeLines(const PlaylistState& playlist);

/// Packet and clip of a line by its index (0 is the root). Clip 0 is a packet's header.
struct TreePlace
{
    Int16 packet;
    Int16 clip;
};
[[nodiscard]] TreePlace placeOfLine(const std::vector<TreeLine>& lines, int index);

/// Index of the header line of packet p; -1 when it has none.
[[nodiscard]] int headerLine(const std::vector<TreeLine>& lines, Int16 packet);

/// Whether a line is a packet's and not a clip's.
[[nodiscard]] bool isHeaderLine(const TreeLine& line);

/// The line without its tree prefix; null for the root, which has none, and for no other line.
[[nodiscard]] QString textWithoutPrefix(const TreeLine& line);

/// Row under the pointer: y in twips inside the list, topIndex the first visible line.
[[nodiscard]] Int16 rowUnderPointer(double yTwips, int topIndex);

/// Row of the next match, or -1. Compares upper-cased texts from the fifth character on, rows
/// first..count-1.
[[nodiscard]] int findRow(const std::vector<TreeLine>& lines, const QString& wanted, int firstRow);

} // namespace orvanta
