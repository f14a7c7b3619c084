// How the player library is configured: it plays the one file it is given and touches nothing else.
#pragma once

#include <QByteArray>
#include <QString>

#include <utility>
#include <vector>

namespace orvanta {

class MpvHandle;

using MpvOptionList = std::vector<std::pair<QByteArray, QByteArray>>;

/// Sets every option of the player before it starts. extra: further options, for measurements.
/// Returns whether the library took all of them; the ones refused are in the log.
bool applyMpvOptions(MpvHandle& mpv, const MpvOptionList& extra = {});

/// How pictures are decoded: by a graphics processor whose device lies in this folder, in the ways
/// that are known to be safe, or by the processor alone.
[[nodiscard]] QByteArray hardwareDecoding(const QString& devices = QStringLiteral("/dev"));

/// By which libraries a graphics processor's decoder hands its pictures to OpenGL: only by those
/// that a device in this folder may have, as the library would look for all and one of them says on
/// standard error that it is missing.
[[nodiscard]] QByteArray decodedPicturesWay(const QString& devices = QStringLiteral("/dev"));

/// The library's volume, percent on its cubic scale, for hundredths of a decibel (at most 0).
[[nodiscard]] double mpvVolume(int hundredthsOfDecibel);

/// Whether a container name means a bare stream in which no seek gets anywhere.
[[nodiscard]] bool isUnseekable(const QByteArray& fileFormat);

/// Seconds by which an exact seek starts earlier than its target, so that it does not miss it: in
/// streams without an index the library lands behind it.
[[nodiscard]] double seekHeadStart(const QByteArray& fileFormat);

} // namespace orvanta
