#include "core/earlier_versions.h"

#include "core/log.h"
#include "core/run_time_error.h"
#include "core/sibling_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <optional>

namespace orvanta {

using namespace Qt::StringLiterals;

constexpr qsizetype kMostVersions = 10;
constexpr qsizetype kHashDigits = 12;
constexpr qsizetype kMostNameCharacters = 60; // with the hash far below what a file system takes

static QString& versionsFolder()
{
    static QString folder;
    return folder;
}

void setVersionsFolder(const QString& folder)
{
    versionsFolder() = folder;
}

/// Named after the document, for people who look for it; the hash of the path tells two of the same
/// name apart.
static QString folderOf(const QByteArray& document)
{
    const QString name =
        QFileInfo(QFile::decodeName(document)).fileName().left(kMostNameCharacters);
    const QByteArray hash = QCryptographicHash::hash(document, QCryptographicHash::Sha256).toHex();
    return versionsFolder() + u'/' + name + u'-' + QString::fromLatin1(hash.left(kHashDigits));
}

/// The newest first: names are times.
static QStringList versionNames(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files, QDir::Name | QDir::Reversed);
}

static std::optional<QByteArray> contentOf(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    return file.readAll();
}

static bool writeWhole(const QByteArray& target, const QByteArray& content)
{
    std::optional<SiblingFile> sibling = SiblingFile::create(target);
    if (!sibling) {
        return false;
    }
    if (!sibling->writeAt(0, content) || !sibling->sync() || !sibling->replaceTarget()) {
        sibling->remove();
        return false;
    }
    sibling->syncFolder();
    return true;
}

static QString nameForNow(const QString& folder, const QString& suffix)
{
    QDateTime now = QDateTime::currentDateTime();
    QString path;
    do { // two within one millisecond
        path = folder + u'/' + now.toString(u"yyyy-MM-dd HH.mm.ss.zzz"_s) + u'.' + suffix;
        now = now.addMSecs(1);
    } while (QFileInfo::exists(path));
    return path;
}

static bool makeFolder(const QString& folder)
{
    if (!QDir().mkpath(folder)) {
        return false;
    }
    constexpr QFile::Permissions kOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QFile::setPermissions(folder, kOwner);
    return true;
}

bool keepEarlierVersion(const QByteArray& document)
{
    const QString path = QFile::decodeName(document);
    const std::optional<QByteArray> content = contentOf(path);
    if (versionsFolder().isEmpty() || !content) {
        return false;
    }
    const QString folder = folderOf(document);
    QStringList names = versionNames(folder);
    if (!names.isEmpty() && contentOf(folder + u'/' + names.first()) == content) {
        return true;
    }
    const QString version = nameForNow(folder, QFileInfo(path).suffix());
    if (!makeFolder(folder) || !writeWhole(QFile::encodeName(version), *content)) {
        qCInfo(logErrors, "cannot keep the earlier version of %s", document.constData());
        return false;
    }
    names = versionNames(folder);
    while (names.size() > kMostVersions) {
        QFile::remove(folder + u'/' + names.takeLast());
    }
    return true;
}

std::vector<EarlierVersion> earlierVersions(const QString& document)
{
    std::vector<EarlierVersion> versions;
    const QString folder = folderOf(realPath(QFile::encodeName(document)));
    for (const QString& name : versionNames(folder)) {
        const QFileInfo info(folder + u'/' + name);
        const QDateTime kept =
            QDateTime::fromString(info.completeBaseName(), u"yyyy-MM-dd HH.mm.ss.zzz"_s);
        if (kept.isValid()) {
            versions.push_back({info.filePath(), kept, info.size()});
        }
    }
    return versions;
}

void restoreEarlierVersion(const EarlierVersion& version, const QString& document)
{
    const QByteArray target = realPath(QFile::encodeName(document));
    const std::optional<QByteArray> content = contentOf(version.file);
    if (!content) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
    keepEarlierVersion(target);
    if (!writeWhole(target, *content)) {
        throw RuntimeError(ErrorNumber::PathFileAccessError);
    }
}

} // namespace orvanta
