// Lessons of real clips, as people and programs of every kind may have left them.
#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

namespace orvanta::test {

struct RandomLesson
{
    QString document; // the group, or the one packet
    int lines = 0;    // clips and brakes of all packets
};

/// Makes one in the folder: packets and groups with paths of every kind, names that other systems
/// do not take, texts in several encodings.
[[nodiscard]] RandomLesson makeRandomLesson(QRandomGenerator& random, const QString& folder);

} // namespace orvanta::test
