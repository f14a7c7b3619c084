// Setting marks: LessonEditing::mark and addMarks.
#include "core/document_saving.h"
#include "model/editing/brake_times.h"
#include "model/editing/lesson_editing.h"
#include "model/editing/time_text.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace orvanta {

static std::size_t markIndex(int number)
{
    return static_cast<std::size_t>(number - 1);
}

static ClipEntry brakeOf(const NewMark& mark)
{
    return {.Time = storedTime(mark.seconds), .Text = asDocumentHolds(mark.text), .Path = {}};
}

/// Inserts the marks that are not there yet, and tells of each at which index.
template <typename Inserted>
static void insertMarks(std::vector<ClipEntry>& brakes, const std::vector<NewMark>& marks,
                        const Inserted& inserted)
{
    for (const NewMark& mark : marks) {
        const double seconds = std::round(std::max(mark.seconds, 0.0) * 100) / 100;
        if (brakeOfTime(brakes, seconds) == 0) {
            const std::size_t at = indexForTime(brakes, seconds);
            const ClipEntry brake = brakeOf({seconds, mark.text});
            brakes.insert(brakes.begin() + static_cast<std::ptrdiff_t>(at), brake);
            inserted(at, brake);
        }
    }
}

/// The packet of one clip that marks make of it, with an end mark at its end.
static PlaylistEntry brakedPacket(const PlaylistEntry& packet, const ClipEntry& clip,
                                  const MarkSetting& setting, const std::vector<NewMark>& marks)
{
    PlaylistEntry braked = packet;
    braked.HasBrakes = true;
    braked.MediaFile = clip.Path;
    braked.Clips.clear();
    insertMarks(braked.Clips, marks, [](std::size_t, const ClipEntry&) {});
    const double last = braked.Clips.empty() ? 0 : timeOf(braked.Clips.back());
    braked.Clips.push_back(brakeOf({std::max(setting.duration, last), setting.endText}));
    braked.ClipCount = Int16(static_cast<qint64>(braked.Clips.size()));
    return braked;
}

static EditChange newBrakePacket(PlaylistEntry braked, const ClipEntry& clip, std::size_t at)
{
    braked.Title = clip.Text;
    braked.Picture.clear();
    braked.Origin = std::make_shared<PacketOrigin>();
    return PacketsExchange{at, {}, {std::move(braked)}};
}

std::optional<EditStep> LessonEditing::marksStep(const MarkSetting& setting,
                                                 const std::vector<NewMark>& marks) const
{
    const EditPlace line = setting.line;
    if (!isPacket(line) || (!isLine(line) && !packet(line.packet).HasBrakes)) {
        return std::nullopt;
    }
    const PlaylistEntry& playing = packet(line.packet);
    const std::size_t index = markIndex(line.packet);
    EditStep step = {.name = EditName::Mark, .changes = {}, .before = line, .after = {}};
    if (playing.HasBrakes) {
        std::vector<ClipEntry> brakes = playing.Clips;
        insertMarks(brakes, marks, [&](std::size_t at, const ClipEntry& brake) {
            step.changes.emplace_back(LinesExchange{index, at, {}, {brake}});
        });
        return step;
    }
    const ClipEntry& clip = playing.Clips[markIndex(line.line)];
    PlaylistEntry braked = brakedPacket(playing, clip, setting, marks);
    step.changes.push_back(playing.ClipCount == 1
                               ? EditChange(PacketsExchange{index, {playing}, {std::move(braked)}})
                               : newBrakePacket(std::move(braked), clip, index + 1));
    return step;
}

/// In which packet marks of this line's clip come to stand.
static int packetOfMarks(const PlaylistEntry& playing, int number)
{
    return playing.HasBrakes || playing.ClipCount == 1 ? number : number + 1;
}

std::optional<EditPlace> LessonEditing::mark(const MarkSetting& setting, const NewMark& mark)
{
    std::optional<EditStep> step = marksStep(setting, {mark});
    if (!step) {
        return std::nullopt;
    }
    const int number = packetOfMarks(packet(setting.line.packet), setting.line.packet);
    EditPlace& place = step->after;
    place.packet = number;
    if (step->changes.empty()) {
        place.line = brakeOfTime(packet(number).Clips, mark.seconds);
        return place;
    }
    if (const auto* lines = std::get_if<LinesExchange>(&step->changes.front())) {
        place.line = static_cast<int>(lines->first) + 1;
    } else {
        place.line = 1;
    }
    const EditPlace marked = place;
    take(*std::move(step));
    return marked;
}

int LessonEditing::addMarks(const MarkSetting& setting, const std::vector<NewMark>& marks)
{
    std::optional<EditStep> step = marks.empty() ? std::nullopt : marksStep(setting, marks);
    if (!step || step->changes.empty()) {
        return 0;
    }
    const int number = packetOfMarks(packet(setting.line.packet), setting.line.packet);
    const bool isOld = packet(setting.line.packet).HasBrakes;
    const int before = isOld ? packet(number).ClipCount.value() : 1; // the end mark comes by itself
    step->name = EditName::Suggest;
    step->after = {number, 1};
    take(*std::move(step));
    return packet(number).ClipCount.value() - before;
}

} // namespace orvanta
