#include "companions/cdcreate/box_place.h"

#include "companions/cdcreate/file_copy.h"
#include "core/log.h"
#include "core/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr mode_t kFolderMode = 0755;
static const QString kPartMark = u".box-part-"_s;

static Descriptor openFolder(const QString& folder)
{
    return Descriptor::open(QFile::encodeName(folder), O_RDONLY | O_DIRECTORY | O_NOFOLLOW);
}

/// Locked, and still the folder of that name: a remover may have been quicker.
static bool holdsLock(const Descriptor& folder, const QString& path)
{
    const bool isLocked = folder.isOpen() && folder.lock(LOCK_EX | LOCK_NB);
    const auto there = isLocked ? statusOf(QFile::encodeName(path)) : std::nullopt;
    const auto held = isLocked ? folder.status() : std::nullopt;
    return there && held && isSameFile(*there, *held);
}

BoxPlace::BoxPlace(const QString& target)
    : m_target(target)
{
    removeLeftOvers();
    create();
}

BoxPlace::~BoxPlace()
{
    if (!m_folder.isEmpty() && !QDir(m_folder).removeRecursively()) {
        qCInfo(logErrors, "cannot remove %ls", qUtf16Printable(m_folder));
    }
}

/// A living owner holds the lock. Where the file system knows no locks nothing is removed.
void BoxPlace::removeLeftOvers() const
{
    static const QRegularExpression mark(u"^\\..*\\.box-part-[A-Za-z0-9]{6}$"_s);
    const QDir folder = QFileInfo(m_target).dir();
    const auto kinds = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot | QDir::NoSymLinks;
    for (const QString& name : folder.entryList({u".*"_s + kPartMark + u'*'}, kinds)) {
        const QString path = folder.filePath(name);
        if (mark.match(name).hasMatch() && holdsLock(openFolder(path), path)) {
            qCInfo(logErrors, "removing what is left of a box: %ls", qUtf16Printable(path));
            QDir(path).removeRecursively();
        }
    }
}

void BoxPlace::create()
{
    constexpr int kAttempts = 100;
    constexpr qsizetype kLongestPart = 40; // characters: the whole name must fit into 255 bytes
    const QFileInfo target(m_target);
    const QByteArray pattern = QFile::encodeName(
        target.path() + u"/."_s + target.fileName().left(kLongestPart) + kPartMark + u"XXXXXX"_s);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        QByteArray path = pattern;
        if (::mkdtemp(path.data()) == nullptr) {
            throw targetFailure(m_target);
        }
        m_folder = QFile::decodeName(path);
        m_lock = openFolder(m_folder);
        if (holdsLock(m_lock, m_folder) || (m_lock.isOpen() && errno != EWOULDBLOCK)) {
            return;
        }
    }
    throw targetFailure(m_target);
}

void BoxPlace::sync() const
{
    if (::syncfs(m_lock.number()) != 0) {
        throw targetFailure(m_target);
    }
}

static bool isOfBox(const QFileInfo& entry)
{
    static const QStringList names = {u"media"_s, u"pictures"_s, u"READ ME.txt"_s, u"index.html"_s};
    const QString kind = kindOfPath(entry.fileName());
    return names.contains(entry.fileName()) || kind == u"VXL" || kind == u"VXG";
}

static bool isEmptyOrBox(const QString& folder, bool isBoxFine)
{
    const auto kinds = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    const QFileInfoList entries = QDir(folder).entryInfoList(kinds);
    const bool hasReadMe = QFileInfo::exists(folder + u"/READ ME.txt"_s);
    return entries.isEmpty() ||
           (isBoxFine && hasReadMe && std::all_of(entries.begin(), entries.end(), isOfBox));
}

bool mayReplace(const QString& target, bool isFolder, bool replaces)
{
    const QFileInfo there(target);
    if (!there.exists() && !there.isSymLink()) {
        return true;
    }
    if (there.isSymLink()) {
        return false;
    }
    return isFolder ? there.isDir() && isEmptyOrBox(target, replaces) : replaces && there.isFile();
}

/// An earlier box changes places with the new one and goes with the hidden folder.
static bool exchange(const QByteArray& box, const QByteArray& target)
{
    if (::renameat2(AT_FDCWD, box.constData(), AT_FDCWD, target.constData(), RENAME_EXCHANGE) ==
        0) {
        return true;
    }
    const QByteArray aside = box + ".earlier";
    if (::rename(target.constData(), aside.constData()) != 0) {
        return false;
    }
    const bool isThere = ::rename(box.constData(), target.constData()) == 0;
    return isThere || (::rename(aside.constData(), target.constData()), false);
}

/// Not every file system knows how to leave alone what is there: looking first has to do then.
static bool renameToNothing(const QByteArray& box, const QByteArray& target)
{
    if (::renameat2(AT_FDCWD, box.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) ==
        0) {
        return true;
    }
    if (errno != EINVAL || statusOf(target)) {
        return false;
    }
    return ::rename(box.constData(), target.constData()) == 0;
}

void BoxPlace::putInPlace(bool replaces)
{
    const QByteArray from = QFile::encodeName(box());
    const QByteArray to = QFile::encodeName(m_target);
    const QFileInfo made(box());
    if (!mayReplace(m_target, made.isDir(), replaces)) {
        throw BoxFailure(BoxProblem::Exists, m_target);
    }
    const bool isThere = QFileInfo::exists(m_target);
    const bool isEmptyFolder = isThere && made.isDir() && isEmptyOrBox(m_target, false);
    const bool isDone = !isThere ? renameToNothing(from, to)
                        : isEmptyFolder || made.isFile()
                            ? ::rename(from.constData(), to.constData()) == 0
                            : exchange(from, to);
    if (!isDone) {
        throw targetFailure(m_target);
    }
    const Descriptor folder = openFolder(QFileInfo(m_target).path());
    if (folder.isOpen()) {
        ::fsync(folder.number());
    }
}

} // namespace orvanta
