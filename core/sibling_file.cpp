#include "core/sibling_file.h"

#include <QString>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <unistd.h>

namespace orvanta {

constexpr mode_t kSiblingMode = 0666;
constexpr mode_t kPermissionBits = 07777;

/// Long names are cut: the sibling's name must not exceed what a folder can hold.
static QByteArray siblingPath(const QByteArray& target)
{
    constexpr qsizetype kLongestPart = 60; // characters, up to four bytes each
    const qsizetype slash = target.lastIndexOf('/');
    const QByteArray folder = target.left(slash + 1);
    const QString name = QString::fromUtf8(target.mid(slash + 1)).left(kLongestPart);
    return folder + '.' + name.toUtf8() + ".new";
}

/// Takes the lock. False when somebody else has it; where the file system knows no locks nobody
/// has.
static bool isNobodyElses(const Descriptor& file)
{
    return file.lock(LOCK_EX | LOCK_NB) || errno != EWOULDBLOCK;
}

/// Removes what a killed writer left. False when a living writer holds it.
static bool removeLeftOver(const QByteArray& path)
{
    const Descriptor leftOver = Descriptor::open(path, O_RDONLY | O_NOFOLLOW);
    if (!leftOver.isOpen()) {
        return errno == ENOENT;
    }
    if (!isNobodyElses(leftOver)) {
        return false;
    }
    const std::optional<struct stat> there = statusOf(path);
    const std::optional<struct stat> held = leftOver.status();
    const bool isOurs = there && held && isSameFile(*there, *held);
    return !isOurs || unlink(path.constData()) == 0 || errno == ENOENT;
}

SiblingFile::SiblingFile(QByteArray target, QByteArray path, Descriptor file)
    : m_target(std::move(target)),
      m_path(std::move(path)),
      m_file(std::move(file))
{}

std::optional<SiblingFile> SiblingFile::create(const QByteArray& target)
{
    constexpr int kAttempts = 100;
    const QByteArray path = siblingPath(target);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        Descriptor file = Descriptor::open(path, O_RDWR | O_CREAT | O_EXCL, kSiblingMode);
        if (file.isOpen()) {
            SiblingFile sibling(target, path, std::move(file));
            if (isNobodyElses(sibling.m_file) && sibling.isAtItsPath()) {
                return sibling;
            }
        } else if (errno != EEXIST || !removeLeftOver(path)) {
            return std::nullopt;
        }
    }
    return std::nullopt;
}

bool SiblingFile::isAtItsPath() const
{
    const std::optional<struct stat> there = statusOf(m_path);
    const std::optional<struct stat> held = m_file.status();
    return there && held && isSameFile(*there, *held);
}

bool SiblingFile::cutAt(qint64 size) const
{
    return ftruncate(m_file.number(), size) == 0;
}

void SiblingFile::takeOwnership(const struct stat& earlier) const
{
    mode_t mode = earlier.st_mode & kPermissionBits;
    const bool keepsOwner = fchown(m_file.number(), earlier.st_uid, earlier.st_gid) == 0;
    if (!keepsOwner && fchown(m_file.number(), uid_t(-1), earlier.st_gid) != 0) {
        mode &= ~static_cast<mode_t>(S_IRWXG); // the rights were meant for another group
    }
    fchmod(m_file.number(), mode);
}

bool SiblingFile::sync() const
{
    return fsync(m_file.number()) == 0;
}

bool SiblingFile::replaceTarget()
{
    return isAtItsPath() && rename(m_path.constData(), m_target.constData()) == 0;
}

void SiblingFile::syncFolder() const
{
    const QByteArray folder = m_target.left(m_target.lastIndexOf('/') + 1);
    const Descriptor entries =
        Descriptor::open(folder.isEmpty() ? QByteArray(".") : folder, O_RDONLY | O_DIRECTORY);
    if (entries.isOpen()) {
        fsync(entries.number());
    }
}

void SiblingFile::remove()
{
    if (isAtItsPath()) {
        unlink(m_path.constData());
    }
}

QByteArray realPath(const QByteArray& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.constData(), nullptr),
                                                           &std::free);
    return real ? QByteArray(real.get()) : path;
}

} // namespace orvanta
