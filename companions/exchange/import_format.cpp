#include "companions/exchange/import_format.h"

#include "companions/exchange/labels.h"
#include "companions/exchange/text_lines.h"
#include "core/foreign_text.h"
#include "core/paths.h"
#include "platform/media/subtitle_file.h"

#include <QFileInfo>

#include <array>
#include <optional>
#include <utility>

namespace orvanta {

using namespace Qt::StringLiterals;

static std::optional<ImportFormat> formatOfXml(QStringView text)
{
    if (!text.startsWith(u'<')) {
        return std::nullopt;
    }
    return text.contains(u"<Chapters")   ? std::optional(ImportFormat::MatroskaChapters)
           : text.contains(u"<playlist") ? std::optional(ImportFormat::Xspf)
                                         : std::nullopt;
}

/// What begins so is nothing else, whatever its name.
static std::optional<ImportFormat> formatOfBeginning(QStringView text)
{
    constexpr std::array kBeginnings = {
        std::pair{u"WEBVTT", ImportFormat::WebVtt},
        std::pair{u"#EXTM3U", ImportFormat::M3u},
        std::pair{u";FFMETADATA", ImportFormat::FfMetadata},
        std::pair{u"[playlist]", ImportFormat::Pls},
    };
    for (const auto& [beginning, format] : kBeginnings) {
        if (beginsWith(text, QStringView(beginning))) {
            return format;
        }
    }
    return formatOfXml(text);
}

static std::optional<ImportFormat> formatOfEnding(const QString& name)
{
    constexpr std::array kEndings = {
        std::pair{u"m3u", ImportFormat::M3u},
        std::pair{u"m3u8", ImportFormat::M3u},
        std::pair{u"pls", ImportFormat::Pls},
        std::pair{u"xspf", ImportFormat::Xspf},
        std::pair{u"cue", ImportFormat::Cue},
        std::pair{u"vtt", ImportFormat::WebVtt},
        std::pair{u"srt", ImportFormat::Subtitles},
        std::pair{u"ass", ImportFormat::Subtitles},
        std::pair{u"ssa", ImportFormat::Subtitles},
        std::pair{u"xml", ImportFormat::MatroskaChapters},
        std::pair{u"ffmeta", ImportFormat::FfMetadata},
    };
    const QString ending = QFileInfo(name).suffix().toLower();
    for (const auto& [known, format] : kEndings) {
        if (ending == QStringView(known)) {
            return format;
        }
    }
    return std::nullopt;
}

/// A text without a form of its own: labels have tabulators, all else is a list of times.
static ImportFormat formatOfPlainText(QStringView text)
{
    return readLabels(text.left(text.lastIndexOf(u'\n'))).failure && readLabels(text).failure
               ? ImportFormat::TimeList
               : ImportFormat::Labels;
}

ImportFormat importFormatOf(const QString& name, const QByteArray& bytes)
{
    const QString text = foreignText(bytes, nullptr);
    const QString begins = text.trimmed();
    if (const auto format = formatOfBeginning(begins)) {
        return *format;
    }
    if (const auto format = formatOfEnding(name)) {
        return *format;
    }
    if (looksLikeSubtitles(text.toUtf8())) {
        return ImportFormat::Subtitles;
    }
    const bool isText = QFileInfo(name).suffix().toLower() == u"txt" || !bytes.contains('\0');
    return isText ? formatOfPlainText(text) : ImportFormat::Media;
}

} // namespace orvanta
