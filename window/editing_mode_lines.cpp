// The editing mode's part in the lines: marks, texts, times, what is moved and dropped.
#include "core/error_boundary.h"
#include "core/group_file.h"
#include "core/paths.h"
#include "model/drop.h"
#include "model/editing/brake_times.h"
#include "model/editing/time_text.h"
#include "model/loaders.h"
#include "playback/brakes.h"
#include "playback/lesson_controls.h"
#include "window/edit_notice.h"
#include "window/editing_mode.h"
#include "window/playlist_list.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

/// An end mark is heard from so long before it: from itself on there is nothing.
constexpr double kBeforeEnd = 1; // seconds

EditPlace EditingMode::placeOf(int line) const
{
    const TreePlace place = placeOfLine(m_ports.list.lines(), line);
    return {place.packet.value(), place.clip.value()};
}

EditPlace EditingMode::placeOfCursor() const
{
    const int line = m_ports.list.cursorLine();
    return line < 1 ? EditPlace() : placeOf(line);
}

int EditingMode::lineOf(EditPlace place) const
{
    const int header = headerLine(m_ports.list.lines(), Int16(place.packet));
    return header < 0 ? -1 : header + place.line;
}

std::vector<EditPlace> EditingMode::selected() const
{
    std::vector<EditPlace> places;
    for (const int line : m_ports.list.selectedLines()) {
        places.push_back(placeOf(line));
    }
    return places;
}

/// None unless a clip of what is open plays or is paused.
std::optional<MarkSetting> EditingMode::markSetting() const
{
    PlaybackOperations& operations = m_ports.engine.operations();
    const std::optional<LessonPlace> place = m_ports.engine.lesson().place();
    operations.look();
    if (!place || !operations.player().isLoaded()) {
        return std::nullopt;
    }
    return MarkSetting{.line = {place->packet.value(), place->clip.value()},
                       .duration = operations.durationSeconds(),
                       .endText = text(u"mark.end")};
}

static int marksWithoutEnd(const PlaylistEntry& packet)
{
    return packet.HasBrakes ? std::max(packet.ClipCount.value() - 1, 0) : 0;
}

void EditingMode::mark()
{
    const std::optional<MarkSetting> setting = markSetting();
    if (!setting) {
        return;
    }
    const PlaylistEntry& packet = m_ports.module.playlist.packet(Int16(setting->line.packet));
    const NewMark mark = {.seconds = m_ports.engine.operations().secondsNow(),
                          .text = text(u"mark.text").arg(marksWithoutEnd(packet) + 1)};
    const std::optional<EditPlace> place = m_editing.mark(*setting, mark);
    if (!place) {
        return;
    }
    m_ports.list.setCursorLine(lineOf(*place));
    if (m_ports.list.window()->isActiveWindow()) {
        editField(lineOf(*place), LineEditor::Field::Text);
    }
}

QString EditingMode::fieldText(EditPlace place, LineEditor::Field field) const
{
    const PlaylistEntry& packet = m_ports.module.playlist.packet(Int16(place.packet));
    if (place.line == 0) {
        return packet.Title;
    }
    const ClipEntry& line = packet.clip(Int16(place.line));
    return field == LineEditor::Field::Text ? line.Text : markTimeText(timeOf(line));
}

void EditingMode::editField(int line, LineEditor::Field field)
{
    const EditPlace place = line < 1 ? EditPlace() : placeOf(line);
    if (place.packet < 1 || (place.line == 0 && !m_editing.hasTitles())) {
        return;
    }
    const bool hasTime =
        place.line >= 1 && m_ports.module.playlist.packet(Int16(place.packet)).HasBrakes;
    if (field == LineEditor::Field::Time && !hasTime) {
        field = LineEditor::Field::Text;
    }
    m_box->setAccessibleName(text(field == LineEditor::Field::Text ? u"edit.text" : u"edit.time"));
    m_box->edit(line, field, fieldText(place, field));
}

/// A time that is none changes nothing.
void EditingMode::takeTyped(int line, LineEditor::Field field, const QString& typed)
{
    const EditPlace place = placeOf(line);
    m_typedLine = line;
    if (field == LineEditor::Field::Text) {
        m_editing.setText(place, typed);
    } else if (const std::optional<double> seconds = markTime(typed)) {
        m_typedLine = lineOf(m_editing.setTime(place, *seconds).value_or(place));
    }
}

void EditingMode::nudge(double seconds)
{
    const EditPlace place = current();
    const PlaylistState& playlist = m_ports.module.playlist;
    if (place.line < 1 || !playlist.packet(Int16(place.packet)).HasBrakes) {
        return;
    }
    const double time = timeOf(playlist.packet(Int16(place.packet)).clip(Int16(place.line)));
    const std::optional<EditPlace> moved = m_editing.setTime(place, std::max(time + seconds, 0.0));
    if (moved) {
        playFrom(*moved);
    }
}

void EditingMode::playFrom(EditPlace place)
{
    const PlaylistEntry& packet = m_ports.module.playlist.packet(Int16(place.packet));
    if (endMarkOf(packet).value() != place.line) {
        return m_ports.engine.ListClick(Int16(place.packet), Int16(place.line));
    }
    const auto playing = m_ports.engine.lesson().place();
    if (!playing || playing->packet != Int16(place.packet)) {
        return m_ports.engine.ListClick(Int16(place.packet), Int16(std::max(place.line - 1, 1)));
    }
    const double end = timeOf(packet.clip(Int16(place.line)));
    m_ports.engine.seekTo(std::max(end - kBeforeEnd, 0.0));
}

/// Only groups hold pictures.
LineNote EditingMode::pictureNote(const PlaylistEntry& packet) const
{
    if (!m_editing.hasTitles()) {
        return {};
    }
    const bool has = !packet.Picture.isEmpty() && packet.Picture != kNoPicture;
    const QString name = has ? fileNameOfPath(packet.Picture) : text(u"picture.none");
    return {
        .time = name, .isPicture = true, .words = has ? text(u"picture.is").arg(name) : QString()};
}

LineNote EditingMode::noteOf(int line) const
{
    const EditPlace place = placeOf(line);
    if (place.packet < 1 || place.packet > m_ports.module.playlist.PlaylistCount.value()) {
        return {};
    }
    const PlaylistEntry& packet = m_ports.module.playlist.packet(Int16(place.packet));
    if (place.line == 0) {
        return pictureNote(packet);
    }
    if (!packet.HasBrakes || place.line > packet.ClipCount.value()) {
        return {};
    }
    const double seconds = timeOf(packet.clip(Int16(place.line)));
    if (seconds < 0) {
        return {}; // it is no time
    }
    const QString time = markTimeText(seconds);
    const bool isEnd = endMarkOf(packet).value() == place.line;
    return {
        .time = time, .isEnd = isEnd, .words = text(isEnd ? u"line.end" : u"line.time").arg(time)};
}

void EditingMode::dropLines(int before)
{
    const std::vector<EditPlace> places = selected();
    if (places.empty()) {
        return;
    }
    const int count = static_cast<int>(m_ports.list.lines().size());
    const EditPlace last = placeOf(count - 1);
    const EditPlace target = before < count ? placeOf(before) : EditPlace{last.packet + 1, 0};
    if (places.front().line == 0) {
        m_editing.moveTo(places, {target.line == 0 ? target.packet : target.packet + 1, 0});
        return;
    }
    // Before a packet's own line is behind the last line of the packet above it.
    const EditPlace above = placeOf(before - 1);
    m_editing.moveTo(places, target.line >= 1 ? target : EditPlace{above.packet, above.line + 1});
}

static bool isPicture(const QString& file)
{
    const QString pattern = u"*."_s + QFileInfo(file).suffix().toLower();
    return kPicturePattern.toString().split(u';').contains(pattern);
}

/// A picture among a packet's lines becomes its picture; packets, groups and folders become packets
/// there, clips lines of the packet there.
void EditingMode::dropFiles(const QStringList& files, int before)
{
    const EditPlace above = before >= 2 ? placeOf(before - 1) : EditPlace{1, 0};
    if (files.size() == 1 && isPicture(files.front()) && m_editing.hasTitles()) {
        return setPicture(above.packet, files.front());
    }
    PlaylistState dropped;
    // It takes the last one first.
    trapped("files dropped on an edited list", [&] {
        applyDrop(dropped, {files.rbegin(), files.rend()}, m_ports.module.TypePattern);
    });
    QStringList paths;
    QStringList texts;
    std::vector<PlaylistEntry> packets;
    for (PlaylistEntry& packet : dropped.Playlist) {
        if (packet.Origin != nullptr) {
            packets.push_back(std::move(packet));
            continue;
        }
        for (const ClipEntry& clip : packet.Clips) {
            paths.append(clip.Path);
            texts.append(clipNameOfPath(clip.Path));
        }
    }
    const EditPlace place = {above.packet, above.line + 1};
    if (!paths.isEmpty() && !m_editing.insertClips(place, paths, texts)) {
        PlaylistEntry loose; // among brakes: a packet of their own behind them
        loose.Origin = std::make_shared<PacketOrigin>(); // the same when it comes back by redo
        loose.Title = QStringView(kPacketTitle).toString();
        for (qsizetype i = 0; i < paths.size(); ++i) {
            loose.Clips.push_back({.Time = {}, .Text = texts[i], .Path = paths[i]});
        }
        loose.ClipCount = Int16(static_cast<qint64>(loose.Clips.size()));
        packets.push_back(std::move(loose));
    }
    m_editing.insertPackets(above.packet + 1, packets);
}

/// The lines without a mark, as they are after the step. Their places are counted: to look each one
/// up would take too long in the longest lists.
std::vector<EditPlace> EditingMode::uncheckedAfter(const EditStep& step) const
{
    std::vector<EditPlace> unchecked;
    const std::vector<TreeLine>& lines = m_ports.list.lines();
    EditPlace place;
    for (std::size_t line = 1; line < lines.size(); ++line) {
        const int packet = lines[line].packet.value();
        place = {packet, packet == place.packet ? place.line + 1 : 0};
        if (!m_ports.list.isLineChecked(static_cast<int>(line))) {
            if (const auto after = placeAfter(step, place)) {
                unchecked.push_back(*after);
            }
        }
    }
    return unchecked;
}

/// Marks of lines and the selection stay with their lines.
void EditingMode::showStep(const EditStep& step)
{
    const std::vector<EditPlace> before = selected();
    const std::vector<EditPlace> unchecked = uncheckedAfter(step);
    m_ports.engine.lesson().edited(step);
    std::vector<TreeLine> tree = treeLines(m_ports.module.playlist);
    std::vector<bool> checked(tree.size(), true);
    for (const EditPlace& place : unchecked) {
        const int line = headerLine(tree, Int16(place.packet)) + place.line;
        checked[static_cast<std::size_t>(line)] = false;
    }
    m_ports.list.showEdited(std::move(tree), std::move(checked));
    selectAfter(step, before);
    m_revision = m_ports.module.playlist.revision;
    m_left.reset();
    m_ports.notice.clear(); // what it asks about is past
    keepDraftSoon();
}

void EditingMode::selectAfter(const EditStep& step, const std::vector<EditPlace>& before)
{
    PlaylistList& list = m_ports.list;
    int line = step.after.packet >= 1 ? lineOf(step.after) : -1;
    const int last = static_cast<int>(list.lines().size()) - 1;
    if (line < 1 && !before.empty()) { // removed: the line that is in its place
        line = lineOf({before.front().packet, before.front().line});
    }
    list.setCursorLine(std::clamp(line, std::min(1, last), last));
    if (step.name != EditName::Move || before.size() < 2) {
        return;
    }
    for (const EditPlace& place : before) {
        if (const auto moved = placeAfter(step, place)) {
            const QModelIndex index = list.model()->index(lineOf(*moved), 0);
            list.selectionModel()->select(index, QItemSelectionModel::Select);
        }
    }
}

} // namespace orvanta
