// The kinds of files in which lessons go out.
#pragma once

#include <QString>

#include <optional>
#include <span>

namespace orvanta {

enum class ExportFormat
{
    M3u8,
    Xspf,
    WebVtt,
    FfMetadata,
    MatroskaChapters,
    ClipWithChapters, // a copy of the packet's clip
};

struct ExportFormatRow
{
    ExportFormat format;
    const char16_t* name;   // at the command line
    const char16_t* ending; // of its files; a copy of a clip has the clip's own
    const char16_t* text;   // the row of "Export" in the table of texts
    bool isList;            // holds all packets; the others hold the marks of one each
};

/// In the order in which they are offered.
[[nodiscard]] std::span<const ExportFormatRow> exportFormats();
[[nodiscard]] const ExportFormatRow& exportFormatRow(ExportFormat format);
[[nodiscard]] std::optional<ExportFormat> exportFormatNamed(const QString& name);
/// By the ending of the file; every unknown one is a clip's.
[[nodiscard]] ExportFormat exportFormatOf(const QString& file);

} // namespace orvanta
