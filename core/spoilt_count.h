// A count in the settings that is none.
#pragma once

#include "core/int16.h"
#include "core/run_time_error.h"

#include <QString>

namespace orvanta {

/// The error of a count that cannot be used, with the place that a person can mend.
class SpoiltCount : public RuntimeError
{
public:
    struct Place
    {
        QString file;
        QString section;
        QString key;
    };

    SpoiltCount(ErrorNumber number, Place place, QString value);

    [[nodiscard]] const Place& place() const { return m_place; }
    /// As it stands there; empty when there is none.
    [[nodiscard]] const QString& value() const { return m_value; }

private:
    Place m_place;
    QString m_value;
};

/// As countValue; raises the same errors, with the place.
[[nodiscard]] Int16 countAt(const SpoiltCount::Place& place, const QString& text);
/// The same, and raises 9 when it is negative.
[[nodiscard]] Int16 lengthAt(const SpoiltCount::Place& place, const QString& text);

} // namespace orvanta
