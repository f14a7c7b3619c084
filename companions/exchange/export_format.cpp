#include "companions/exchange/export_format.h"

#include <QFileInfo>

#include <algorithm>
#include <array>

namespace orvanta {

constexpr std::array kExportFormats = {
    ExportFormatRow{ExportFormat::M3u8, u"m3u8", u"m3u8", u"FormatBox.m3u8", true},
    ExportFormatRow{ExportFormat::Xspf, u"xspf", u"xspf", u"FormatBox.xspf", true},
    ExportFormatRow{ExportFormat::WebVtt, u"vtt", u"vtt", u"FormatBox.vtt", false},
    ExportFormatRow{ExportFormat::FfMetadata, u"ffmetadata", u"ffmeta", u"FormatBox.ffmetadata",
                    false},
    ExportFormatRow{ExportFormat::MatroskaChapters, u"matroska", u"xml", u"FormatBox.matroska",
                    false},
    ExportFormatRow{ExportFormat::ClipWithChapters, u"clip", u"", u"FormatBox.clip", false},
};

std::span<const ExportFormatRow> exportFormats()
{
    return kExportFormats;
}

const ExportFormatRow& exportFormatRow(ExportFormat format)
{
    return *std::find_if(kExportFormats.begin(), kExportFormats.end(),
                         [&](const ExportFormatRow& row) { return row.format == format; });
}

std::optional<ExportFormat> exportFormatNamed(const QString& name)
{
    const auto* const row =
        std::find_if(kExportFormats.begin(), kExportFormats.end(),
                     [&](const ExportFormatRow& each) { return name == QStringView(each.name); });
    return row == kExportFormats.end() ? std::nullopt : std::optional(row->format);
}

ExportFormat exportFormatOf(const QString& file)
{
    const QString ending = QFileInfo(file).suffix().toLower();
    const auto* const row = std::find_if(
        kExportFormats.begin(), kExportFormats.end(),
        [&](const ExportFormatRow& each) { return ending == QStringView(each.ending); });
    return ending == u"m3u"              ? ExportFormat::M3u8
           : ending.isEmpty()            ? ExportFormat::ClipWithChapters
           : row == kExportFormats.end() ? ExportFormat::ClipWithChapters
                                         : row->format;
}

} // namespace orvanta
