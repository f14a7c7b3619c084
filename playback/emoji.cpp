#include "playback/emoji.h"

#include <QTextBoundaryFinder>

#include <algorithm>
#include <array>
#include <utility>

namespace orvanta {

constexpr char16_t kAsText = 0xFE0E;    // asks for the sign before it without colour
constexpr char16_t kAsPicture = 0xFE0F; // asks for its picture
constexpr char16_t kKeycap = 0x20E3;    // puts the figure before it on a key

// What Unicode shows as pictures unless asked otherwise (Emoji_Presentation). From U+1F300 on the
// few signs between that are none are left in: no emoji font has them.
constexpr auto kPictures = std::to_array<std::pair<char32_t, char32_t>>({
    {0x231A, 0x231B},   {0x23E9, 0x23EC},   {0x23F0, 0x23F0},   {0x23F3, 0x23F3},
    {0x25FD, 0x25FE},   {0x2614, 0x2615},   {0x2648, 0x2653},   {0x267F, 0x267F},
    {0x2693, 0x2693},   {0x26A1, 0x26A1},   {0x26AA, 0x26AB},   {0x26BD, 0x26BE},
    {0x26C4, 0x26C5},   {0x26CE, 0x26CE},   {0x26D4, 0x26D4},   {0x26EA, 0x26EA},
    {0x26F2, 0x26F3},   {0x26F5, 0x26F5},   {0x26FA, 0x26FA},   {0x26FD, 0x26FD},
    {0x2705, 0x2705},   {0x270A, 0x270B},   {0x2728, 0x2728},   {0x274C, 0x274C},
    {0x274E, 0x274E},   {0x2753, 0x2755},   {0x2757, 0x2757},   {0x2795, 0x2797},
    {0x27B0, 0x27B0},   {0x27BF, 0x27BF},   {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},
    {0x2B55, 0x2B55},   {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E},
    {0x1F191, 0x1F19A}, {0x1F1E6, 0x1F1FF}, {0x1F201, 0x1F201}, {0x1F21A, 0x1F21A},
    {0x1F22F, 0x1F22F}, {0x1F232, 0x1F236}, {0x1F238, 0x1F23A}, {0x1F250, 0x1F251},
    {0x1F300, 0x1FAFF},
});

static bool isShownAsPicture(char32_t sign)
{
    return std::ranges::any_of(kPictures, [sign](const auto& range) {
        return range.first <= sign && sign <= range.second;
    });
}

/// cluster: what the cursor passes over in one step.
static bool isEmoji(QStringView cluster)
{
    // Qt does not put the parts of a key together, and alone the figure is dim in an emoji font.
    if (cluster.contains(kAsText) || cluster.contains(kKeycap)) {
        return false;
    }
    const bool isPair = cluster.size() > 1 && cluster[0].isHighSurrogate();
    const char32_t first =
        isPair ? QChar::surrogateToUcs4(cluster[0], cluster[1]) : cluster[0].unicode();
    return cluster.contains(kAsPicture) || isShownAsPicture(first);
}

QList<TextRange> emojiIn(QStringView text)
{
    QList<TextRange> ranges;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.data(), text.size());
    for (qsizetype begin = 0, end = 0; (end = finder.toNextBoundary()) > begin; begin = end) {
        if (!isEmoji(text.mid(begin, end - begin))) {
            continue;
        }
        const TextRange range{static_cast<int>(begin), static_cast<int>(end - begin)};
        if (!ranges.isEmpty() && ranges.last().begin + ranges.last().length == range.begin) {
            ranges.last().length += range.length;
        } else {
            ranges.append(range);
        }
    }
    return ranges;
}

} // namespace orvanta
