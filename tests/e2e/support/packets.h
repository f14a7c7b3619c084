// Packet and group files for tests, written as an editor of text would write them.
#pragma once

#include <QList>
#include <QString>

namespace orvanta::e2e {

struct ClipLine
{
    QString path;
    QString text;
};

struct BrakeLine
{
    double seconds = 0;
    QString text;
};

struct MemberLine
{
    QString path;
    QString text;
};

/// Each returns the path of the written file.
QString writeClips(const QString& file, const QList<ClipLine>& clips);
QString writeBrakes(const QString& file, const QString& mediaFile, const QList<BrakeLine>& brakes);
QString writeGroup(const QString& file, const QList<MemberLine>& members);
QString writeBytes(const QString& file, const QByteArray& content);

} // namespace orvanta::e2e
