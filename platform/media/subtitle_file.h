// A subtitle file beside a clip, read so that the player library needs to open nothing of it.
#pragma once

#include "core/descriptor.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace orvanta {

/// The largest subtitle file that is read, bytes.
inline constexpr qint64 kMostSubtitleBytes = qint64{8} << 20;

/// Whether a path is a regular file, or a link to one, of at most that size. Opens nothing.
[[nodiscard]] bool isSubtitleFile(const QString& path);

/// Whether a text begins as SubRip, WebVTT or ASS do. In UTF-8, with or without its mark.
[[nodiscard]] bool looksLikeSubtitles(const QByteArray& text);

/// A private copy in memory that nobody can change; what is written in UTF-16 is in UTF-8 there.
/// Not open, and a line in the log, for anything that is no such file or does not look like one.
[[nodiscard]] Descriptor copyOfSubtitles(const QString& path);

} // namespace orvanta
