// Editing of what is open: every change is one step with a name, undone and redone without a limit.
#pragma once

#include "model/editing/edit_step.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace orvanta {

/// A brake to be: its time in seconds and its text.
struct NewMark
{
    double seconds = 0;
    QString text;
};

/// What a mark needs to know beside itself.
struct MarkSetting
{
    EditPlace line;      // the clip or brake that plays
    double duration = 0; // of the clip, seconds
    QString endText;     // of the end mark that comes with the first one
};

/// Interface thread only. Texts become as a document gives them back. Each change says whether
/// there was one; what cannot be, changes nothing. Raises 6 where a list would get too long.
class LessonEditing : public QObject
{
    Q_OBJECT

public:
    explicit LessonEditing(PlaylistState& playlist, QObject* parent = nullptr);

    /// Something else is open, or it has been saved elsewhere: there is nothing to undo.
    void begin();

    /// Sets a brake in the order of time. A packet of one clip becomes a packet of brakes; in a
    /// list of clips one comes after the packet. The first mark brings an end mark at the clip's
    /// end. Where there is one of that time already, there is no other. The mark's line; none
    /// where nothing can be marked.
    [[nodiscard]] std::optional<EditPlace> mark(const MarkSetting& setting, const NewMark& mark);
    /// Several as one step. How many were new.
    int addMarks(const MarkSetting& setting, const std::vector<NewMark>& marks);

    /// The text of a line; of a packet's own line in a group its title.
    bool setText(EditPlace place, const QString& text);
    /// The time of a brake, which stays in the order of time. Where it is then; none: no change.
    std::optional<EditPlace> setTime(EditPlace place, double seconds);
    /// A packet's picture in a group; empty: none.
    bool setPicture(int packet, const QString& path);

    /// Lines, and packets with all of theirs. The last packet stays.
    bool remove(std::vector<EditPlace> places);
    /// By one: -1 up, 1 down. Packets by one packet; brakes keep the order of time.
    bool moveBy(std::vector<EditPlace> places, int direction);
    /// Clips, or packets, to where "before" is: line n + 1 of a packet with n clips is its end,
    /// and packet n + 1 behind all packets. Brakes stay where they are.
    bool moveTo(std::vector<EditPlace> places, EditPlace before);
    /// Clips of these files. The texts are as many as the paths.
    bool insertClips(EditPlace before, const QStringList& paths, const QStringList& texts);

    /// Packets at a place, before packet number "before" (one more than there are: at the end).
    bool insertPackets(int before, const std::vector<PlaylistEntry>& packets);
    bool replacePacket(EditName name, int number, PlaylistEntry packet);
    /// Other packets in place of all. There must be one.
    bool replaceAll(EditName name, const std::vector<PlaylistEntry>& packets);

    [[nodiscard]] bool canUndo() const { return !m_done.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_undone.empty(); }
    /// Of what undo and redo would do. Only where they can.
    [[nodiscard]] EditName undoName() const { return m_done.back().name; }
    [[nodiscard]] EditName redoName() const { return m_undone.back().name; }
    void undo();
    void redo();

    /// Whether what is open differs from what is saved, by its steps.
    [[nodiscard]] bool isChanged() const;
    void noteSaved();
    /// What is open came from a draft: it differs from what is saved, whatever is undone.
    void noteDraftTaken();

    [[nodiscard]] PlaylistState& playlist() { return m_playlist; }
    [[nodiscard]] const PlaylistState& playlist() const { return m_playlist; }

    /// Whether packets have titles and pictures of their own: in a group, or with several of them.
    [[nodiscard]] bool hasTitles() const;

Q_SIGNALS:
    /// A step was done, undone or redone: what is open is as after it.
    void edited(const orvanta::EditStep& step);
    /// What can be undone, or whether it is saved, has changed.
    void stateChanged();

private:
    bool take(EditStep step);
    void go(std::vector<EditStep>& from, std::vector<EditStep>& to);
    [[nodiscard]] const PlaylistEntry& packet(int number) const;
    [[nodiscard]] bool isLine(EditPlace place) const;
    [[nodiscard]] bool isPacket(EditPlace place) const;
    [[nodiscard]] std::optional<EditStep> marksStep(const MarkSetting& setting,
                                                    const std::vector<NewMark>& marks) const;

    PlaylistState& m_playlist;
    std::vector<EditStep> m_done;
    std::vector<EditStep> m_undone;
    std::optional<std::size_t> m_saved = 0; // so many steps are in what is saved
};

} // namespace orvanta
