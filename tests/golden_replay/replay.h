// One reference case replayed.
#pragma once

#include <QJsonObject>
#include <QString>

namespace orvanta::replay {

struct Outcome
{
    QString name; // of the case; made from its content when it has none
    bool passed = false;
};

/// Replays reads and writes on a file of its own in the folder.
[[nodiscard]] Outcome replayIni(const QJsonObject& testCase, const QString& folder);

/// Replays one call of a number function.
[[nodiscard]] Outcome replayNumber(const QJsonObject& testCase, const QString& folder);

} // namespace orvanta::replay
