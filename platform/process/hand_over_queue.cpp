#include "platform/process/hand_over_queue.h"

#include "core/ini.h"
#include "core/log.h"
#include "core/paths.h"
#include "core/spoilt_count.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

namespace orvanta {

using namespace Qt::StringLiterals;

static const QString kQueue = u"ftl"_s;
static const QString kBusyFlag = u"wr"_s;
static const QString kCount = u"num"_s;

constexpr unsigned long kReadPauseMs = 15;
constexpr qint64 kPatienceMs = 5000;
/// The flag "wr" guards the queue for whoever finds its lock kept by a foreign program.
constexpr std::chrono::seconds kLockPatience(1);

static Int16 queueLength(const QString& text, const QString& settingsFile)
{
    return lengthAt({settingsFile, kQueue, kCount}, text);
}

/// Reading a value cuts its outer blanks, unless a pair of quotes protects them.
static QString withBlanksProtected(const QString& line)
{
    return line == line.trimmed() ? line : u'"' + line + u'"';
}

static std::vector<IniChange> changesForAppending(const QStringList& lines, Int16 length)
{
    std::vector<IniChange> changes;
    for (const QString& line : lines) {
        length += 1;
        changes.push_back({kQueue, QString::number(length.value()), withBlanksProtected(line)});
    }
    changes.push_back({kQueue, kCount, QString::number(length.value())});
    changes.push_back({kQueue, kBusyFlag, u"0"_s});
    return changes;
}

static void sayThatWeWait(const QString& settingsFile)
{
    const QByteArray file = QFile::encodeName(settingsFile);
    std::fprintf(stderr, "orvanta: waiting until \"wr\" in section [ftl] of %s is \"0\"\n",
                 file.constData());
}

HandOverQueue::HandOverQueue(QString settingsFile)
    : m_settingsFile(std::move(settingsFile))
{}

QString HandOverQueue::lockFile() const
{
    return QFileInfo(m_settingsFile).absolutePath() + u"/queue.lock"_s;
}

bool HandOverQueue::isFree() const
{
    return ReadIni(kQueue, kBusyFlag, m_settingsFile) == u"0";
}

QString HandOverQueue::countText() const
{
    return ReadIni(kQueue, kCount, m_settingsFile, u"0"_s);
}

bool HandOverQueue::hasEntries() const
{
    return countText() != u"0";
}

bool HandOverQueue::append(const QStringList& lines)
{
    Appending outcome = lines.isEmpty() ? Appending::Done : Appending::Busy;
    while (outcome == Appending::Busy) {
        waitUntilFree();
        outcome = tryAppend(lines);
    }
    return outcome == Appending::Done;
}

void HandOverQueue::waitUntilFree() const
{
    QElapsedTimer waiting;
    waiting.start();
    bool said = false;
    while (!isFree()) {
        freeAfterKilledDrain();
        if (waiting.hasExpired(kPatienceMs)) {
            if (!said) {
                sayThatWeWait(m_settingsFile);
                said = true;
            }
            if (freeWhenNobodyHolds()) {
                return;
            }
        }
        QThread::msleep(kReadPauseMs);
    }
}

/// A drain marks the lock file while "wr" is "1". The mark without a holder of the lock means that
/// the draining process was killed; "wr" set by hand carries no mark and is waited for.
void HandOverQueue::freeAfterKilledDrain() const
{
    FileLock lock(lockFile());
    if (lock.tryLock() == FileLock::Outcome::Held && lock.isMarked()) {
        WriteIni(kQueue, kBusyFlag, u"0"_s, m_settingsFile);
        lock.setMark(false);
    }
}

/// "wr" that is absent, or left behind by who took no lock, would be waited for without end. False
/// while a living process holds the queue.
bool HandOverQueue::freeWhenNobodyHolds() const
{
    FileLock lock(lockFile());
    if (lock.tryLock() == FileLock::Outcome::Busy) {
        return false;
    }
    if (!isFree()) {
        qCInfo(logErrors, "nobody holds the hand-over queue: \"wr\" is \"0\" again");
        WriteIni(kQueue, kBusyFlag, u"0"_s, m_settingsFile);
        lock.setMark(false);
    }
    return true;
}

/// One atomic replacement, so that a killed launch never leaves "wr" = "1" behind.
HandOverQueue::Appending HandOverQueue::tryAppend(const QStringList& lines) const
{
    FileLock lock(lockFile());
    lock.lockWithin(kLockPatience);
    bool free = true;
    const bool written = changeIniAtOnce(m_settingsFile, [&](const auto& read) {
        free = read(kQueue, kBusyFlag) == u"0";
        return free ? changesForAppending(lines, queueLength(read(kQueue, kCount), m_settingsFile))
                    : std::vector<IniChange>();
    });
    if (!written) {
        return Appending::Refused;
    }
    return free ? Appending::Done : Appending::Busy;
}

HandOverQueue::Drain::Drain(const HandOverQueue& queue)
    : m_queue(queue),
      m_lock(queue.lockFile())
{
    m_lock.lockWithin(kLockPatience);
    m_lock.setMark(true);
    WriteIni(kQueue, kBusyFlag, u"1"_s, m_queue.m_settingsFile);
}

HandOverQueue::Drain::~Drain()
{
    m_queue.m_wasReset = changeIniAtOnce(m_queue.m_settingsFile, [](const auto&) {
        return std::vector<IniChange>{{kQueue, kCount, u"0"_s}, {kQueue, kBusyFlag, u"0"_s}};
    });
    if (!m_queue.m_wasReset) {
        qCInfo(logErrors, "the hand-over queue cannot be reset: settings are not writable");
    }
    m_lock.setMark(false);
}

QStringList HandOverQueue::Drain::lines() const
{
    const QString& file = m_queue.m_settingsFile;
    const Int16 length = queueLength(ReadIni(kQueue, kCount, file), file);
    QStringList lines;
    for (int i = 1; i <= length.value(); ++i) {
        lines.append(readIniRaw(kQueue, QString::number(i), file));
    }
    lines.removeAll(QString());
    return lines;
}

std::optional<QString> folderOfLine(const QString& line)
{
    if (QFileInfo(line).isDir()) {
        return line;
    }
    if (!line.startsWith(u"/f", Qt::CaseInsensitive) || QFileInfo::exists(line)) {
        return std::nullopt;
    }
    QString folder = line.mid(2);
    if (folder.size() >= 2 && folder.startsWith(u'"') && folder.endsWith(u'"')) {
        folder = folder.mid(1, folder.size() - 2);
    }
    const bool named = isAbsolutePathText(folder) || QFileInfo(folder).isDir();
    return named ? std::optional(folder) : std::nullopt;
}

} // namespace orvanta
