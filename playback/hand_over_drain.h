// Serving the hand-over queue: files that later starts of the program passed on.
#pragma once

#include "playback/clip_starter.h"

#include <QStringList>

namespace orvanta {

class HandOverQueue;

class HandOverDrain
{
public:
    HandOverDrain(EngineContext& context, TransportButtons& transport, PositionSlider& slider,
                  ClipStarter& starter);

    /// Opens what is queued, if anything. Raises 13 or 9 when the queue's count is no count.
    void serve();
    /// Opens these in place of what is open, as queued lines are opened. Does not start anything.
    /// False where they are more than can be open, or nothing is there in place of what is open:
    /// that stays.
    bool replacePlaylist(const QStringList& lines);

private:
    [[nodiscard]] QStringList takeQueued(HandOverQueue& queue);
    void showProgram();
    bool open(const QStringList& lines);
    [[nodiscard]] bool isNothing() const;
    void sayUnplayable(const QStringList& lines);
    void appendAll(const QStringList& lines, const QString& folder);
    void appendWithinRoom(const QString& path);
    void append(const QString& path);
    void appendFolder(const QString& folder);
    void appendLooseClip(const QString& file);
    void playOrRest();
    void rest();

    EngineContext& m_context;
    TransportButtons& m_transport;
    PositionSlider& m_slider;
    ClipStarter& m_starter;
    QString m_stuckCount; // "num" of lines that were opened and could not be taken out
    bool m_isTooMuch = false;
    bool m_isSpoilt = false; // one line at least could not be opened
    bool m_isThere = false;  // one line at least names a file or a folder that is there
    Int16 m_loosePacket;     // the packet that the loose clips of one drain share; 0: none yet
};

} // namespace orvanta
