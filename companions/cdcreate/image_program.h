// xorriso: the program that writes images and burns them.
#pragma once

#include "companions/cdcreate/box_work.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace orvanta {

/// Its whole path; empty when it is not installed.
[[nodiscard]] QString imageProgram();

/// How many bytes are written by now. said: what the program has said since it was asked last.
using BytesDone = std::function<qint64(const QString& said)>;

/// Runs it to its end; it ends with this process, whatever ends that. Raises NoProgram,
/// ProgramFailed with its last words, NoRoom, Stopped.
void runImageProgram(const QStringList& arguments, BoxWork& work, const BytesDone& bytesDone);

} // namespace orvanta
