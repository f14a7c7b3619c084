// The files of a group and its packets as they lie on disk, for the tests that read them.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace orvanta::test {

/// One "key=value" line of a packet or group file.
struct Value
{
    QString section;
    QString key;
    QString text;
};

/// The values of a packet or group file, in order.
[[nodiscard]] QList<Value> valuesOf(const QString& file);
/// The texts that stand under one key, in order.
[[nodiscard]] QStringList textsUnder(const QString& key, const QList<Value>& values);

/// The paths that a packet or group file names (clips, brake clip, packets, pictures), as written.
[[nodiscard]] QStringList namedPaths(const QString& file);

/// Those of them that are not relative with "/" between the parts, or do not exist beside it.
[[nodiscard]] QStringList unusablePaths(const QString& file);

} // namespace orvanta::test
