// The clip entries of the packet editor: path + "{}" + text.
#pragma once

#include "editors/entry_list.h"

namespace orvanta {

[[nodiscard]] QString clipEntry(const QString& path, const QString& text);

/// Adds a file of a folder as a new clip, its text the name without its extension.
void addClip(EntryList& list, const QString& folder, const QString& name);

/// Empties the list, then adds the clips of a packet file. Raises 13, 9 or 6; those read before
/// stay.
void loadClips(EntryList& list, const QString& packet);

} // namespace orvanta
