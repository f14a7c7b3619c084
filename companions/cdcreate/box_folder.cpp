// A box as a folder.

#include "companions/cdcreate/box_forms.h"
#include "companions/cdcreate/file_copy.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <condition_variable>
#include <deque>
#include <exception>
#include <fcntl.h>
#include <mutex>
#include <sys/stat.h>
#include <thread>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr mode_t kReadableByAll = 0755;

namespace {

/// Compares copies while further ones are made.
class CopyCheck
{
public:
    CopyCheck(QString folder, bool fromDisk, const BoxWork& work)
        : m_folder(std::move(folder)),
          m_fromDisk(fromDisk),
          m_work(work),
          m_thread([this] { run(); })
    {}
    ~CopyCheck()
    {
        close(true);
        m_thread.join();
    }
    CopyCheck(const CopyCheck&) = delete;
    CopyCheck& operator=(const CopyCheck&) = delete;

    void take(const BoxFile& file)
    {
        const std::lock_guard lock(m_mutex);
        m_files.push_back(&file);
        m_changed.notify_all();
    }
    /// Waits until all is compared. Raises what was found.
    void finish(BoxWork& work)
    {
        constexpr std::chrono::milliseconds kPause(100);
        close(false);
        std::unique_lock lock(m_mutex);
        while (!m_isOver) {
            m_changed.wait_for(lock, kPause);
            work.reach(m_done);
        }
        if (m_failure) {
            std::rethrow_exception(m_failure);
        }
    }

private:
    void close(bool isGivenUp)
    {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
        m_isGivenUp = m_isGivenUp || isGivenUp;
        m_changed.notify_all();
    }
    [[nodiscard]] const BoxFile* next()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isClosed || !m_files.empty(); });
        if (m_files.empty() || m_isGivenUp) {
            return nullptr;
        }
        const BoxFile* const file = m_files.front();
        m_files.pop_front();
        return file;
    }
    void compare(const BoxFile& file)
    {
        compareFiles(file, m_folder + u'/' + file.name, m_fromDisk, [this](qint64 bytes) {
            m_done += bytes;
            m_work.goOn();
            if (m_isGivenUp) {
                throw BoxFailure(BoxProblem::Stopped);
            }
        });
    }
    void run()
    {
        try {
            while (const BoxFile* const file = next()) {
                compare(*file);
            }
        } catch (const BoxFailure&) {
            m_failure = std::current_exception();
        }
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
        m_changed.notify_all();
    }

    QString m_folder;
    bool m_fromDisk;
    const BoxWork& m_work;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<const BoxFile*> m_files;
    std::atomic<qint64> m_done = 0;
    bool m_isClosed = false;
    std::atomic<bool> m_isGivenUp = false;
    bool m_isOver = false;
    std::exception_ptr m_failure;
    std::thread m_thread; // last: it uses the others
};

} // namespace

static void makeFolder(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    if (::mkdir(path.constData(), kReadableByAll) != 0 && errno != EEXIST) {
        throw targetFailure(folder);
    }
}

bool isOnOneDisk(const BoxContents& contents, const QString& path)
{
    const auto there = statusOf(QFile::encodeName(path));
    return std::all_of(contents.files.begin(), contents.files.end(), [&](const BoxFile& file) {
        const auto source = statusOf(QFile::encodeName(file.source));
        return there && source && source->st_dev == there->st_dev;
    });
}

static void makeFolders(const BoxContents& contents, const QString& box)
{
    makeFolder(box);
    for (const BoxFile& file : contents.files) {
        makeFolder(QFileInfo(box + u'/' + file.name).path());
    }
}

static void writeDocuments(const BoxContents& contents, const QString& box)
{
    for (const BoxDocument& document : contents.documents) {
        const QString path = box + u'/' + document.name;
        writeFile(document.content, path);
        QFile written(path);
        if (!written.open(QIODevice::ReadOnly) || written.readAll() != document.content) {
            throw BoxFailure(BoxProblem::Different, path);
        }
    }
}

void writeFolder(const BoxContents& contents, const BoxPlace& place, BoxWork& work)
{
    const QString box = place.box();
    makeFolders(contents, box);
    writeDocuments(contents, box);
    const bool isOneDisk = isOnOneDisk(contents, box);
    const CopyPace pace = isOneDisk ? CopyPace::AsRemembered : CopyPace::AsWritten;
    CopyCheck check(box, !isOneDisk, work);
    std::vector<const BoxFile*> left; // they are read from the other disk once they are on it
    qint64 bytes = 0;
    work.begin(BoxStep::Writing, contents.fileBytes());
    for (const BoxFile& file : contents.files) {
        if (copyFile(file, box + u'/' + file.name, pace, work) == CopyKind::Copied) {
            bytes += file.size;
            isOneDisk ? check.take(file) : left.push_back(&file);
        }
    }
    place.sync();
    work.begin(BoxStep::Checking, bytes);
    for (const BoxFile* const file : left) {
        check.take(*file);
    }
    check.finish(work);
}

} // namespace orvanta
