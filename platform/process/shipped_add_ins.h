// The add-ins that come with the program, for settings that are older than they are.
#pragma once

#include <QString>

namespace orvanta {

/// Settings that an earlier version has made, without any add-in, get those of the default
/// settings, once: the key "shipped" of [add-ins] says that this is done, so that what a user
/// removes stays away. A list of add-ins that somebody has touched stays as it is. Settings that
/// the program has not made itself are left alone.
void bringShippedAddIns(const QString& iniPath);

} // namespace orvanta
