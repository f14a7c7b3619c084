#include "playback/bookmark_keeper.h"

#include "core/error_boundary.h"

namespace orvanta {

void BookmarkKeeper::serve()
{
    if (m_context.operations.TakeBookmarkChanged()) {
        keep();
    }
}

void BookmarkKeeper::keep()
{
    const QString position = m_context.player().position;
    resumeNext("saved position",
               [&] { m_context.module.settings().setPosition(m_context.playingText(), position); });
    m_context.view->showBookmarkSign();
    m_context.operations.SetBookmark(position);
}

void BookmarkKeeper::leaveLine()
{
    m_context.operations.PollBookmark();
    serve();
}

} // namespace orvanta
