// Bookmarks: the place in the line that is on, kept under its text.
#pragma once

#include "playback/engine_context.h"

namespace orvanta {

class BookmarkKeeper
{
public:
    explicit BookmarkKeeper(EngineContext& context)
        : m_context(context)
    {}

    /// Keeps what was set in the video window since the player was polled last but one.
    void serve();
    /// Keeps the place in the line that is on, and shows the sign.
    void keep();
    /// The same as serve() for a line that is about to be left: the next tick would be too late.
    void leaveLine();

private:
    EngineContext& m_context;
};

} // namespace orvanta
