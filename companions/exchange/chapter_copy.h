// A copy of a clip with other chapters, made by the program ffmpeg without recoding.
#pragma once

#include "companions/exchange/lesson.h"
#include "platform/media/clip_facts.h"

#include <QObject>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace orvanta {

/// One copy, once. The clip is only read; the copy appears under its name when it is complete
/// and holds the chapters. Ends what it started when it goes.
class ChapterCopy : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~ChapterCopy() override;

    /// packet: its clip's whole path, and its marks. target: whole, with the ending of a container
    /// that holds chapters. finished follows, whatever happens.
    void start(const LessonPacket& packet, const QString& target);
    void cancel();

Q_SIGNALS:
    /// Of 100, as far as the clip's length is known.
    void progressed(int percent);
    /// Null: it is done. Else a row of "Exchange", and what the program has said.
    void finished(const char16_t* failure, const QString& detail);

private:
    void run();
    [[nodiscard]] bool prepare();
    [[nodiscard]] QStringList arguments() const;
    [[nodiscard]] LessonPacket shiftedPacket() const;
    [[nodiscard]] bool holdsChapters(const ClipFacts& copy) const;
    [[nodiscard]] bool shiftsFor(const ClipFacts& copy);
    void readProgress();
    void end(const char16_t* failure, const QString& detail = {});
    void takeResult(int exitCode, QProcess::ExitStatus status);

    LessonPacket m_packet;
    QString m_target;
    double m_shift = 0;                      // of the copy's own clock, seconds
    std::unique_ptr<QTemporaryDir> m_folder; // in the target's: taking its place is one step
    QString m_copy;
    std::unique_ptr<QProcess> m_process;
    double m_clipSeconds = 0;
};

} // namespace orvanta
