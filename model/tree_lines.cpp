#include "model/tree_lines.h"

#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kPacketPrefix = u"|-- "_s;
static const QString kClipPrefix = u"|  |- "_s;
static const QString kLastPacketClipPrefix = u"   |- "_s;

// A fixed 13-pixel line below a 6-pixel margin; the list's own font follows it.
constexpr double kTwipsPerPixel = 15;
constexpr double kTopMarginPixels = 6;
constexpr double kLineHeightPixels = 13;

/// A match is sought behind a packet's prefix, which is also skipped in every other line.
constexpr qsizetype kFindFrom = 4;

static QString prefixOf(TreeBranch branch)
{
    switch (branch) {
    case TreeBranch::Packet:
        return kPacketPrefix;
    case TreeBranch::Clip:
        return kClipPrefix;
    case TreeBranch::LastPacketClip:
        return kLastPacketClipPrefix;
    case TreeBranch::Root:
        break;
    }
    return {};
}

QString textWithPrefix(const TreeLine& line)
{
    return prefixOf(line.branch) + line.text;
}

static void addPacketLines(std::vector<TreeLine>& lines, const PlaylistEntry& packet, Int16 p,
                           bool isLast)
{
    const TreeBranch branch = isLast ? TreeBranch::LastPacketClip : TreeBranch::Clip;
    lines.push_back({packet.Title, p, TreeBranch::Packet});
    for (const ClipEntry& clip : packet.Clips) {
        lines.push_back({clip.Text, p, branch});
    }
}

std::vector<TreeLine> treeLines(const PlaylistState& playlist)
{
    std::vector<TreeLine> lines;
    const int count = playlist.PlaylistCount.value();
    lines.reserve(static_cast<std::size_t>(1 + count + playlist.entryCount()));
    lines.push_back({QStringView(kRootLine).toString(), 0, TreeBranch::Root});
    for (int p = 1; p <= count; ++p) {
        addPacketLines(lines, playlist.packet(p), p, p == count);
    }
    return lines;
}

static bool isLine(const std::vector<TreeLine>& lines, int index)
{
    return index >= 0 && index < static_cast<int>(lines.size());
}

TreePlace placeOfLine(const std::vector<TreeLine>& lines, int index)
{
    if (!isLine(lines, index)) {
        return {0, 0};
    }
    const Int16 packet = lines[static_cast<std::size_t>(index)].packet;
    int above = index;
    while (above >= 0 && lines[static_cast<std::size_t>(above)].packet >= packet) {
        --above;
    }
    return {packet, above < 0 ? Int16(0) : Int16(index - above - 1)};
}

int headerLine(const std::vector<TreeLine>& lines, Int16 packet)
{
    const auto found =
        std::lower_bound(lines.begin(), lines.end(), packet,
                         [](const TreeLine& line, Int16 wanted) { return line.packet < wanted; });
    const bool exists = found != lines.end() && found->packet == packet;
    return exists ? static_cast<int>(found - lines.begin()) : -1;
}

bool isHeaderLine(const TreeLine& line)
{
    return line.branch == TreeBranch::Packet;
}

QString textWithoutPrefix(const TreeLine& line)
{
    if (line.branch == TreeBranch::Root) {
        return {};
    }
    return line.text.isNull() ? u""_s : line.text;
}

Int16 rowUnderPointer(double yTwips, int topIndex)
{
    const double pixelsBelowMargin = std::floor(yTwips / kTwipsPerPixel - kTopMarginPixels);
    return roundToInt16(pixelsBelowMargin / kLineHeightPixels + topIndex);
}

int findRow(const std::vector<TreeLine>& lines, const QString& wanted, int firstRow)
{
    if (wanted.isEmpty()) {
        return -1;
    }
    const QString upper = wanted.toUpper();
    for (int row = std::max(firstRow, 0); isLine(lines, row); ++row) {
        const QString line = textWithPrefix(lines[static_cast<std::size_t>(row)]);
        if (line.mid(kFindFrom).toUpper().contains(upper)) {
            return row;
        }
    }
    return -1;
}

} // namespace orvanta
