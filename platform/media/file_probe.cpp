#include "platform/media/file_probe.h"

#include "platform/media/first_answer.h"

#include <QFile>

#include <chrono>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

/// So long nobody notices that a window stands still.
constexpr std::chrono::milliseconds kAtOnce(50);
constexpr std::chrono::seconds kPatience(10);

/// Only files are opened. The library would take addresses, devices and pipes just as gladly.
static bool isRegularFile(const QByteArray& path)
{
    struct stat status = {};
    return path.startsWith('/') && ::stat(path.constData(), &status) == 0 &&
           S_ISREG(status.st_mode);
}

static FileProbe::Answer lookAt(const QByteArray& path)
{
    if (!isRegularFile(path)) {
        return FileProbe::NoFile;
    }
    const int file = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (file >= 0) {
        char first = 0;
        (void)!::read(file, &first, 1); // that it comes back is all that is asked
        ::close(file);
    }
    return FileProbe::Ready;
}

FileProbe::FileProbe()
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(kPatience);
}

void FileProbe::look(const QString& path, const std::function<void(Answer)>& answered)
{
    stop();
    const auto atOnce = std::make_shared<FirstAnswer<Answer>>();
    const auto later = [this, answered](Answer answer) {
        stop();
        answered(answer);
    };
    m_job.start(
        *this,
        [path = QFile::encodeName(path), atOnce, later](JobLink& link) {
            const Answer answer = lookAt(path);
            atOnce->put(answer);
            link.deliver([later, answer] { later(answer); });
        },
        BackgroundJob::Pace::Usual);
    if (const auto answer = atOnce->waitFor(kAtOnce)) {
        m_job.stop();
        return answered(*answer);
    }
    m_limit.callOnTimeout(this, [later] { later(Silent); });
    m_limit.start();
}

void FileProbe::stop()
{
    m_job.stop();
    m_limit.stop();
    m_limit.disconnect(this);
}

} // namespace orvanta
