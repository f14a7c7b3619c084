// Drives that burn discs.
#pragma once

#include "companions/cdcreate/box_work.h"

#include <QByteArray>
#include <QString>

#include <vector>

namespace orvanta {

struct DiscDrive
{
    QString device; // "/dev/sr0"
    QString name;   // of maker and model, for the eye
};

/// Whether the machine may have drives at all: asking the image program about them takes seconds.
[[nodiscard]] bool mayHaveDrives();
/// The arguments with which the image program lists its drives, and what its answer says.
[[nodiscard]] QStringList driveArguments();
[[nodiscard]] std::vector<DiscDrive> drivesIn(const QString& answer);

/// Burns the image onto the disc in the drive, and makes an earlier content of a rewritable one
/// room. size: of the image, bytes. Raises NoDrive with what the program says, NoProgram, Stopped.
void burnImage(const QString& image, qint64 size, const QString& drive, BoxWork& work);

/// The file that reads what is in the drive. A drive may be written "stdio:/a/file", too: a file
/// that behaves like a disc.
[[nodiscard]] QString fileOfDrive(const QString& drive);

} // namespace orvanta
