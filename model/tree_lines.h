// The text tree that displays the playlist: pure rules.
#pragma once

#include "model/module1.h"

#include <QString>

#include <vector>

namespace orvanta {

inline constexpr char16_t kRootLine[] = u"!Orvanta!";
inline constexpr char16_t kPacketTitle[] = u"!Orvanta! 3.3";

struct TreeLine
{
    QString text; // with its prefix
    Int16 packet; // the line's number: 0 for the root
};

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

/// Whether a line, by its prefix, is a packet's and not a clip's.
[[nodiscard]] bool isHeaderLine(const QString& line);

/// The line without its tree prefix; a line without prefix gives a null text.
[[nodiscard]] QString textWithoutPrefix(const QString& line);

/// Row under the pointer: y in twips inside the list, topIndex the first visible line.
[[nodiscard]] Int16 rowUnderPointer(double yTwips, int topIndex);

/// Row of the next match, or -1. Compares upper-cased texts from the fifth character on, rows
/// first..count-1.
[[nodiscard]] int findRow(const std::vector<TreeLine>& lines, const QString& wanted, int firstRow);

} // namespace orvanta
