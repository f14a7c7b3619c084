// From a lesson to files for other programs.
#pragma once

#include "companions/exchange/export_format.h"
#include "companions/exchange/importing.h"

#include <QStringList>

namespace orvanta {

struct ExportOrder
{
    QString lesson; // a packet or group
    QString target;
    ExportFormat format = ExportFormat::M3u8;
};

/// One file that is to be written.
struct ExportPart
{
    QString target; // whole
    std::size_t packet = 0;
};

struct ExportPlan
{
    Lesson lesson;
    std::vector<ExportPart> parts; // in order; a list has one, for all packets
    std::vector<FileRemark> leftOut;
    std::vector<FileRemark> failures; // with one of them there are no parts
};

/// Reads the lesson and says what would be written. Never one of the lesson's own files.
[[nodiscard]] ExportPlan planExport(const ExportOrder& order);

/// The bytes of a part; empty for a copy of a clip.
[[nodiscard]] QByteArray exportedBytes(const ExportPlan& plan, const ExportPart& part,
                                       ExportFormat format);
/// Writes them whole or not at all. False when that is not possible.
[[nodiscard]] bool writeWholeFile(const QString& target, const QByteArray& bytes);

} // namespace orvanta
