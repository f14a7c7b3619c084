// Where a clip's brakes could stand by what the clip says itself: chapters and subtitles. Those by
// its silences are plain functions over its peaks (silences.h).
#pragma once

#include "platform/media/background_job.h"
#include "platform/media/clip_texts.h"

#include <QObject>
#include <QString>

namespace orvanta {

/// Reads one clip at a time on a thread of its own. Interface thread only, where nothing waits.
class MarkSuggestions : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Reads the absolute path of a regular file, and the files of subtitles beside it; done
    /// follows. What was asked for before is forgotten.
    void read(const QString& path);
    void cancel();
    [[nodiscard]] bool isReading() const { return m_reading; }

Q_SIGNALS:
    /// Nothing in it for a clip that says nothing, or cannot be read.
    void done(const orvanta::ClipTexts& texts);

private:
    bool m_reading = false;
    BackgroundJob m_job;
};

} // namespace orvanta
