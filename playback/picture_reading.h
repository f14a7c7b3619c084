// Reading a document's picture without keeping the windows waiting.
#pragma once

#include "platform/media/background_job.h"

#include <QImage>
#include <QObject>
#include <QSize>
#include <QTimer>

#include <functional>

namespace orvanta {

/// One picture at a time, in the background. Nearly all are there at once; one that takes longer
/// than people notice comes later, and one that takes longer than anybody waits never.
class PictureReading : public QObject
{
public:
    explicit PictureReading(QObject* parent = nullptr);

    /// Reads the file (see readDocumentPicture) and gives up what was being read. Calls show with
    /// the picture, null for none: before this returns where it is there at once, else from the
    /// event loop.
    void read(const QString& file, QSize within, const std::function<void(const QImage&)>& show);
    /// Nothing more is shown.
    void stop();

private:
    BackgroundJob m_job;
    QTimer m_limit;
};

} // namespace orvanta
