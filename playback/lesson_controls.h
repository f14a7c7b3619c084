// The lesson that is open, as it is left and gone on with.
#pragma once

#include "model/recent_lessons.h"
#include "playback/clip_starter.h"
#include "playback/current_line.h"
#include "playback/edit_follower.h"

#include <QObject>

#include <functional>
#include <optional>
#include <vector>

namespace orvanta {

/// Interface thread only.
class LessonControls : public QObject
{
    Q_OBJECT

public:
    /// enter: runs an action as an entry into the engine. takePlaylist: what is open was replaced.
    LessonControls(EngineContext& context, ClipStarter& starter,
                   std::function<void(const std::function<void()>&)> enter,
                   std::function<void()> takePlaylist);

    /// The current line, for whoever shows it over the picture. None while something plays on that
    /// was open before: the picture is not of it.
    [[nodiscard]] LessonLine line() const;
    /// The brakes of the clip that plays; none as above.
    [[nodiscard]] std::vector<LessonMark> marks() const;
    /// The current line and the place in it. None before the first line, nor while something
    /// plays on that was open before.
    [[nodiscard]] std::optional<LessonPlace> place() const;

    /// To be called before the playlist is replaced: who keeps the place looks a last time.
    void leave();
    /// What waited was superseded.
    void superseded() { Q_EMIT left(); }

    /// What an opening does after its loader, as PlaybackEngine::playlistReplaced, but beginning
    /// at a place. With "as" off, that place is where Play begins.
    void playlistContinued(const LessonPlace& place);

    /// What is open was edited by this step: what plays plays on, in its line as it is now.
    void edited(const EditStep& step);

Q_SIGNALS:
    /// What is open is about to be replaced, or to grow; left() follows.
    void replacing();
    /// The place is about to become another.
    void left();
    /// It was played to its end.
    void over();
    /// A launch asks for the lesson that was on last.
    void continueAsked();

private:
    void rest(Cursor line);

    EngineContext& m_context;
    ClipStarter& m_starter;
    EditFollower m_follower;
    std::function<void(const std::function<void()>&)> m_enter;
    std::function<void()> m_takePlaylist;
};

} // namespace orvanta
