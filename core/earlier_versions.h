// What documents were before they were replaced: the last ten versions of each, as ordinary files.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <vector>

namespace orvanta {

/// Where versions are kept, in one folder for each document. Empty, as at first: none are.
void setVersionsFolder(const QString& folder);

/// Keeps what is at the document's path, unless it is the version kept last. The oldest one of more
/// than ten goes. Failures are logged, never raised: a document must not stay unsaved for them.
/// Returns whether it is kept.
bool keepEarlierVersion(const QByteArray& document);

struct EarlierVersion
{
    QString file;
    QDateTime kept;  // when it was replaced, local time
    qint64 size = 0; // bytes
};

/// The versions of a document, the newest first.
[[nodiscard]] std::vector<EarlierVersion> earlierVersions(const QString& document);

/// Puts a version's bytes back into the document's place; what is there now becomes a version
/// itself. Raises 75.
void restoreEarlierVersion(const EarlierVersion& version, const QString& document);

} // namespace orvanta
