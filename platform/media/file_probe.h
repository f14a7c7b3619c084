// Whether a file answers at all, before the player library is given it.
#pragma once

#include "platform/media/background_job.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

namespace orvanta {

/// The library reads on a thread that it waits for: a file whose disk never answers (a share of a
/// machine that is gone) would keep it, and every later clip, for ever. So its first byte is read
/// here before.
class FileProbe : public QObject
{
public:
    enum Answer
    {
        NoFile, // none, or not a regular one
        Ready,  // what else is wrong with it, the library says
        Silent, // no answer within ten seconds
    };

    FileProbe();

    /// Looks at the file and gives up the one before. Calls answered before this returns when the
    /// disk answers at once, as nearly all do; else from the event loop.
    void look(const QString& path, const std::function<void(Answer)>& answered);
    /// Nothing is answered any more.
    void stop();

private:
    BackgroundJob m_job;
    QTimer m_limit;
};

} // namespace orvanta
