#include "editors/brake_list.h"

#include "core/numbers.h"

namespace orvanta {

QString brakeEntry(double seconds, const QString& text)
{
    return formatPicture(seconds, kBrakePicture) + entryMarker() + text;
}

void addBrake(EntryList& list, double seconds, const QString& text)
{
    list.entries.append(brakeEntry(seconds, text));
}

void rebuildBrake(EntryList& list, double seconds, const QString& text)
{
    if (list.hasSelection()) {
        list.entries[list.selected] = brakeEntry(seconds, text);
    }
}

static std::optional<double> timeOfBrake(const QString& entry)
{
    const qsizetype marker = entry.indexOf(entryMarker());
    try {
        return decimalValue(entry.left(marker));
    } catch (const RuntimeError&) {
        return std::nullopt;
    }
}

std::vector<std::optional<double>> brakeTimes(const QStringList& entries)
{
    std::vector<std::optional<double>> times;
    times.reserve(static_cast<std::size_t>(entries.size()));
    for (const QString& entry : entries) {
        times.push_back(timeOfBrake(entry));
    }
    return times;
}

int brakePassed(const std::vector<std::optional<double>>& times, double positionSeconds)
{
    int passed = -1;
    std::optional<double> latest;
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (times[i] && *times[i] <= positionSeconds && (!latest || *times[i] >= *latest)) {
            latest = times[i];
            passed = static_cast<int>(i);
        }
    }
    return passed;
}

} // namespace orvanta
