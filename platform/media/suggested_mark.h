// A moment of a clip at which a brake could stand.
#pragma once

#include <QString>

namespace orvanta {

struct SuggestedMark
{
    double seconds = 0; // by the player's clock
    QString text;       // may be empty

    friend bool operator==(const SuggestedMark&, const SuggestedMark&) = default;
};

} // namespace orvanta
