#include "platform/media/media_library.h"

#include "core/error_boundary.h"
#include "platform/media/mpv_handle.h"
#include "platform/media/mpv_player.h"

#include <utility>

namespace orvanta {

std::unique_ptr<MediaControl> makeMediaControl(const MpvOptionList& extraOptions,
                                               std::optional<RendererChoice> choice)
{
    return std::make_unique<MpvPlayer>(extraOptions, std::move(choice));
}

void checkMediaLibrary()
{
    const MpvHandle handle;
}

static QString textOf(const MpvHandle& mpv, const char* property)
{
    char* text = mpv_get_property_string(mpv.get(), property);
    QString copy = QString::fromUtf8(text);
    mpv_free(text);
    return copy;
}

// Builds of a distribution add their own suffix ("5.1.6-0+deb12u1").
static QString withoutSuffix(const QString& version)
{
    return version.section(u'-', 0, 0);
}

MediaLibraryVersions mediaLibraryVersions()
{
    MediaLibraryVersions versions;
    resumeNext("versions of the player library", [&] {
        MpvHandle mpv;
        for (const char* off : {"config", "terminal", "load-scripts", "ytdl"}) {
            mpv.setOption(off, "no");
        }
        mpv.initialize();
        versions.player = withoutSuffix(textOf(mpv, "mpv-version"));
        versions.codecs = withoutSuffix(textOf(mpv, "ffmpeg-version"));
    });
    return versions;
}

} // namespace orvanta
