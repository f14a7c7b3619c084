#include "model/editing/lesson_editing.h"

#include "core/document_saving.h"
#include "core/paths.h"
#include "model/editing/brake_times.h"
#include "model/editing/lesson_saving.h"
#include "model/editing/time_text.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static std::size_t indexOf(int number)
{
    return static_cast<std::size_t>(number - 1);
}

static int sizeOf(const PlaylistEntry& packet)
{
    return packet.ClipCount.value();
}

LessonEditing::LessonEditing(PlaylistState& playlist, QObject* parent)
    : QObject(parent),
      m_playlist(playlist)
{}

void LessonEditing::begin()
{
    m_done.clear();
    m_undone.clear();
    m_saved = 0;
    Q_EMIT stateChanged();
}

const PlaylistEntry& LessonEditing::packet(int number) const
{
    return m_playlist.Playlist[indexOf(number)];
}

bool LessonEditing::isPacket(EditPlace place) const
{
    return place.packet >= 1 && place.packet <= m_playlist.PlaylistCount.value();
}

bool LessonEditing::isLine(EditPlace place) const
{
    return isPacket(place) && place.line >= 1 && place.line <= sizeOf(packet(place.packet));
}

bool LessonEditing::hasTitles() const
{
    return m_playlist.PlaylistCount > 1 || isGroupPath(m_playlist.Document);
}

bool LessonEditing::take(EditStep step)
{
    if (step.changes.empty()) {
        return false;
    }
    applyStep(m_playlist, step);
    if (m_saved && *m_saved > m_done.size()) {
        m_saved.reset(); // it was undone, and can no longer be redone
    }
    m_done.push_back(std::move(step));
    m_undone.clear();
    Q_EMIT edited(m_done.back());
    Q_EMIT stateChanged();
    return true;
}

void LessonEditing::go(std::vector<EditStep>& from, std::vector<EditStep>& to)
{
    if (from.empty()) {
        return;
    }
    EditStep back = inverseOf(from.back());
    applyStep(m_playlist, back);
    from.pop_back();
    to.push_back(back);
    Q_EMIT edited(back);
    Q_EMIT stateChanged();
}

void LessonEditing::undo()
{
    go(m_done, m_undone);
}

void LessonEditing::redo()
{
    go(m_undone, m_done);
}

bool LessonEditing::isChanged() const
{
    return m_saved != m_done.size();
}

void LessonEditing::noteSaved()
{
    m_saved = m_done.size();
    Q_EMIT stateChanged();
}

void LessonEditing::noteDraftTaken()
{
    begin();
    m_saved.reset();
    Q_EMIT stateChanged();
}

static EditStep lineStep(EditName name, EditPlace place, const ClipEntry& before, ClipEntry after)
{
    return {.name = name,
            .changes = {LinesExchange{
                indexOf(place.packet), indexOf(place.line), {before}, {std::move(after)}}},
            .before = place,
            .after = place};
}

static EditStep packetStep(EditName name, int number, const PlaylistEntry& before,
                           PlaylistEntry after)
{
    return {.name = name,
            .changes = {PacketsExchange{indexOf(number), {before}, {std::move(after)}}},
            .before = {number, 0},
            .after = {number, 0}};
}

bool LessonEditing::setText(EditPlace place, const QString& text)
{
    const QString held = asDocumentHolds(text);
    if (isLine(place)) {
        const ClipEntry& line = packet(place.packet).Clips[indexOf(place.line)];
        ClipEntry changed = line;
        changed.Text = held;
        return line.Text != held && take(lineStep(EditName::Text, place, line, std::move(changed)));
    }
    if (!isPacket(place) || place.line != 0 || !hasTitles()) {
        return false;
    }
    PlaylistEntry changed = packet(place.packet);
    changed.Title = held;
    return packet(place.packet).Title != held &&
           take(
               packetStep(EditName::Title, place.packet, packet(place.packet), std::move(changed)));
}

bool LessonEditing::setPicture(int number, const QString& path)
{
    if (!isPacket({number, 0}) || !hasTitles() || packet(number).Picture == path) {
        return false;
    }
    PlaylistEntry changed = packet(number);
    changed.Picture = path;
    return take(packetStep(EditName::Picture, number, packet(number), std::move(changed)));
}

std::optional<EditPlace> LessonEditing::setTime(EditPlace place, double seconds)
{
    if (!isLine(place) || !packet(place.packet).HasBrakes) {
        return std::nullopt;
    }
    std::vector<ClipEntry> others = packet(place.packet).Clips;
    const ClipEntry line = others[indexOf(place.line)];
    ClipEntry changed = line;
    changed.Time = storedTime(seconds);
    if (timeOf(changed) == timeOf(line)) { // written in another way, perhaps
        return std::nullopt;
    }
    others.erase(others.begin() + (place.line - 1));
    const std::size_t to = indexForTime(others, timeOf(changed));
    EditStep step = lineStep(EditName::Time, place, line, std::move(changed));
    const std::size_t index = indexOf(place.packet);
    if (to != indexOf(place.line)) {
        step.changes.emplace_back(LineMove{index, indexOf(place.line), index, to});
    }
    step.after.line = static_cast<int>(to) + 1;
    const EditPlace after = step.after;
    take(std::move(step));
    return after;
}

/// Ascending, without lines of packets that are there themselves, without strangers.
static std::vector<EditPlace> ordered(std::vector<EditPlace> places)
{
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    std::vector<EditPlace> kept;
    for (const EditPlace& place : places) {
        const bool isCovered = !kept.empty() && kept.back().line == 0 && place.line != 0 &&
                               kept.back().packet == place.packet;
        if (!isCovered) {
            kept.push_back(place);
        }
    }
    return kept;
}

/// What is left of a packet whose brakes are all gone: its one clip.
static PlaylistEntry withoutBrakes(const PlaylistEntry& packet)
{
    PlaylistEntry clips = packet;
    clips.HasBrakes = false;
    clips.MediaFile.clear();
    clips.Clips = {
        {.Time = {}, .Text = clipNameOfPath(packet.MediaFile), .Path = packet.MediaFile}};
    clips.ClipCount = 1;
    return clips;
}

/// How many places from this one on, most of them at last, stand for lines one above the other.
template <typename Place> static int neighbours(Place place, Place end, int most)
{
    int count = 1;
    for (Place next = place + 1; next != end && count < most; ++next, ++count) {
        if (next->packet != place->packet || next->line != place->line - count || next->line == 0) {
            break;
        }
    }
    return count;
}

static EditChange withoutLines(std::size_t index, const PlaylistEntry& owner, int first, int count)
{
    const auto begin = owner.Clips.begin() + (first - 1);
    return LinesExchange{index, indexOf(first), {begin, begin + count}, {}};
}

static EditChange withoutLastBrake(std::size_t index, const PlaylistEntry& owner, EditPlace place)
{
    PlaylistEntry last = owner;
    last.Clips = {owner.Clips[indexOf(place.line)]};
    last.ClipCount = 1;
    return PacketsExchange{index, {std::move(last)}, {withoutBrakes(owner)}};
}

bool LessonEditing::remove(std::vector<EditPlace> places)
{
    std::erase_if(places, [&](EditPlace place) {
        return !isLine(place) && (place.line != 0 || !isPacket(place));
    });
    places = ordered(std::move(places));
    const auto packets = std::count_if(places.begin(), places.end(),
                                       [](EditPlace place) { return place.line == 0; });
    if (places.empty() || packets == m_playlist.PlaylistCount.value()) {
        return false;
    }
    EditStep step = {
        .name = EditName::Remove, .changes = {}, .before = places.front(), .after = {}};
    std::vector<int> left(m_playlist.Playlist.size());
    std::transform(m_playlist.Playlist.begin(), m_playlist.Playlist.end(), left.begin(), sizeOf);
    for (auto place = places.rbegin(); place != places.rend();) {
        const std::size_t index = indexOf(place->packet);
        const PlaylistEntry& owner = packet(place->packet);
        if (place->line == 0) {
            step.changes.emplace_back(PacketsExchange{index, {owner}, {}});
            ++place;
        } else if (const int most = left[index] - (owner.HasBrakes ? 1 : 0); most > 0) {
            const int count = neighbours(place, places.rend(), most);
            step.changes.push_back(withoutLines(index, owner, place->line - count + 1, count));
            left[index] -= count;
            place += count;
        } else {
            step.changes.push_back(withoutLastBrake(index, owner, *place));
            ++place;
        }
    }
    return take(std::move(step));
}

/// Whether a line, or a packet, may be moved by hand.
static bool isMovable(const PlaylistState& playlist, EditPlace place)
{
    return place.line == 0 || !playlist.Playlist[indexOf(place.packet)].HasBrakes;
}

/// Of a packet by its own line, else of a line within its packet.
static EditChange moveOf(EditPlace place, int direction)
{
    if (place.line == 0) {
        return PacketMove{indexOf(place.packet), indexOf(place.packet + direction)};
    }
    const std::size_t packet = indexOf(place.packet);
    return LineMove{packet, indexOf(place.line), packet, indexOf(place.line + direction)};
}

bool LessonEditing::moveBy(std::vector<EditPlace> places, int direction)
{
    std::erase_if(places, [&](EditPlace place) {
        return (!isLine(place) && (place.line != 0 || !isPacket(place))) ||
               !isMovable(m_playlist, place);
    });
    places = ordered(std::move(places));
    if (direction > 0) {
        std::reverse(places.begin(), places.end());
    }
    EditStep step = {.name = EditName::Move,
                     .changes = {},
                     .before = places.empty() ? EditPlace() : places.front(),
                     .after = {}};
    std::optional<EditPlace> blocked; // the first or last one stays, and who comes up against it
    for (const EditPlace& place : places) {
        const bool isPacketLine = place.line == 0;
        const int number = isPacketLine ? place.packet : place.line;
        const int count =
            isPacketLine ? m_playlist.PlaylistCount.value() : sizeOf(packet(place.packet));
        EditPlace target = place;
        (isPacketLine ? target.packet : target.line) += direction;
        if (number + direction < 1 || number + direction > count || blocked == target) {
            blocked = place;
            continue;
        }
        step.changes.push_back(moveOf(place, direction));
    }
    step.after = placeAfter(step, step.before).value_or(step.before);
    return take(std::move(step));
}

/// Appends the move of one line to where another stands, both as they are by then; behind: to the
/// place after it.
static void addLineMove(EditStep& step, EditPlace from, EditPlace target, bool behind)
{
    int to = target.line + (behind ? 1 : 0);
    if (from.packet == target.packet && from.line < to) {
        --to; // it leaves the place before
    }
    if (from.packet != target.packet || from.line != to) {
        step.changes.emplace_back(LineMove{indexOf(from.packet), indexOf(from.line),
                                           indexOf(target.packet), indexOf(to)});
    }
}

/// A clip that leaves its packet's folder takes its path along.
static void addPathOfMoved(EditStep& step, EditPlace from, const PlaylistEntry& source,
                           ClipEntry line, const PlaylistEntry& target)
{
    ClipEntry moved = line;
    moved.Path = absolutePathText(line.Path, source.Folder);
    if (source.Folder != target.Folder && moved.Path != line.Path) {
        step.changes.emplace_back(LinesExchange{
            indexOf(from.packet), indexOf(from.line), {std::move(line)}, {std::move(moved)}});
    }
}

static void addPacketMove(EditStep& step, int from, int target, bool behind)
{
    int to = target + (behind ? 1 : 0);
    if (from < to) {
        --to;
    }
    if (from != to) {
        step.changes.emplace_back(PacketMove{indexOf(from), indexOf(to)});
    }
}

bool LessonEditing::moveTo(std::vector<EditPlace> places, EditPlace before)
{
    const bool ofPackets = before.line == 0;
    std::erase_if(places, [&](EditPlace place) {
        const bool fits = ofPackets ? place.line == 0 && isPacket(place) : isLine(place);
        return !fits || !isMovable(m_playlist, place);
    });
    places = ordered(std::move(places));
    const bool isThere =
        ofPackets ? before.packet >= 1 && before.packet <= m_playlist.PlaylistCount.value() + 1
                  : isPacket(before) && isMovable(m_playlist, before) &&
                        before.line <= sizeOf(packet(before.packet)) + 1;
    if (places.empty() || !isThere) {
        return false;
    }
    EditStep step = {.name = EditName::Move, .changes = {}, .before = places.front(), .after = {}};
    std::optional<EditPlace> last; // each one goes behind the one before it
    for (const EditPlace& place : places) {
        const EditPlace from = placeAfter(step, place).value_or(place);
        const EditPlace target = last ? placeAfter(step, *last).value_or(before) : before;
        if (ofPackets) {
            addPacketMove(step, from.packet, target.packet, last.has_value());
        } else {
            addPathOfMoved(step, from, packet(place.packet),
                           packet(place.packet).Clips[indexOf(place.line)], packet(target.packet));
            addLineMove(step, from, target, last.has_value());
        }
        last = place;
    }
    step.after = placeAfter(step, places.front()).value_or(before);
    return take(std::move(step));
}

bool LessonEditing::insertClips(EditPlace before, const QStringList& paths,
                                const QStringList& texts)
{
    const bool isThere = isPacket(before) && before.line >= 1 &&
                         before.line <= sizeOf(packet(before.packet)) + 1 &&
                         !packet(before.packet).HasBrakes;
    if (!isThere || paths.isEmpty()) {
        return false;
    }
    LinesExchange lines = {indexOf(before.packet), indexOf(before.line), {}, {}};
    for (qsizetype i = 0; i < paths.size(); ++i) {
        lines.inserted.push_back({.Time = {}, .Text = asDocumentHolds(texts[i]), .Path = paths[i]});
    }
    return take({.name = EditName::Insert,
                 .changes = {std::move(lines)},
                 .before = before,
                 .after = before});
}

bool LessonEditing::insertPackets(int before, const std::vector<PlaylistEntry>& packets)
{
    if (before < 1 || before > m_playlist.PlaylistCount.value() + 1 || packets.empty()) {
        return false;
    }
    const EditPlace place = {before, 0};
    return take({.name = EditName::Insert,
                 .changes = {PacketsExchange{indexOf(before), {}, packets}},
                 .before = place,
                 .after = place});
}

bool LessonEditing::replacePacket(EditName name, int number, PlaylistEntry other)
{
    return isPacket({number, 0}) &&
           take(packetStep(name, number, packet(number), std::move(other)));
}

bool LessonEditing::replaceAll(EditName name, const std::vector<PlaylistEntry>& packets)
{
    if (packets.empty()) {
        return false;
    }
    return take({.name = name,
                 .changes = {PacketsExchange{0, m_playlist.Playlist, packets}},
                 .before = {1, 0},
                 .after = {1, 0}});
}

} // namespace orvanta
