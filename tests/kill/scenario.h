// Work that writes, and what may be there when it is killed.
#pragma once

#include "tests/kill/killed.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

namespace orvanta::kill {

/// What is there is looked at by the program's own readers or byte by byte.
struct Scenario
{
    const char* name;
    std::function<void()> prepare;         // what is there before
    std::vector<Work> steps;               // each leaves a state of its own, whole
    std::function<QByteArray()> observe;   // such a state
    std::function<QByteArray()> leftovers; // what no later work takes away; empty: nothing
    Work afterwards = {}; // what must still work after a kill; empty: the steps again
    std::function<QByteArray()> settled = {}; // the state that it ends in; empty: as observed
};

/// All of them, in this empty folder.
[[nodiscard]] std::vector<Scenario> scenarios(const QString& folder);

} // namespace orvanta::kill
