#include "platform/file_types/metafile.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdlib>
#include <libwmf/api.h>
#include <libwmf/svg.h>
#include <memory>

namespace orvanta {

constexpr double kDotsPerInch = 96.0;
constexpr int kLongestSide = 4096;               // pixels
constexpr qint64 kLargestFile = qint64{2} << 20; // drawn in a second; larger ones take minutes

namespace {

struct PlayerCloser
{
    void operator()(wmfAPI* player) const { wmf_api_destroy(player); }
};
using Player = std::unique_ptr<wmfAPI, PlayerCloser>;

} // namespace

static Player createPlayer()
{
    wmfAPI_Options options = {};
    options.function = wmf_svg_function;
    wmfAPI* player = nullptr;
    const wmf_error_t error = wmf_api_create(
        &player, WMF_OPT_FUNCTION | WMF_OPT_IGNORE_NONFATAL | WMF_OPT_NO_ERROR, &options);
    Player owned(player);
    return error == wmf_E_None ? std::move(owned) : Player();
}

/// Opens the picture and measures it. False when it cannot be read.
static bool open(wmfAPI* player, QByteArray& bytes, wmfD_Rect& frame)
{
    auto* begin = reinterpret_cast<unsigned char*>(bytes.data()); // the library's own byte type
    return wmf_mem_open(player, begin, bytes.size()) == wmf_E_None &&
           wmf_scan(player, 0, &frame) == wmf_E_None;
}

namespace {

/// What the library writes into memory through a stdio stream.
class Output
{
public:
    Output() { m_stream = open_memstream(&m_memory, &m_size); }
    ~Output()
    {
        close();
        std::free(m_memory);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    [[nodiscard]] FILE* stream() const { return m_stream; }
    [[nodiscard]] QByteArray take()
    {
        close();
        return {m_memory, static_cast<qsizetype>(m_size)};
    }

private:
    void close()
    {
        if (m_stream != nullptr) {
            std::fclose(m_stream);
            m_stream = nullptr;
        }
    }

    char* m_memory = nullptr;
    std::size_t m_size = 0;
    FILE* m_stream = nullptr;
};

} // namespace

static QByteArray drawAsSvg(wmfAPI* player, wmfD_Rect frame)
{
    Output output;
    wmf_svg_t* device = WMF_SVG_GetData(player);
    device->out = wmf_stream_create(player, output.stream());
    device->bbox = frame;
    device->flags |= WMF_SVG_INLINE_IMAGES;
    wmf_display_size(player, &device->width, &device->height, kDotsPerInch, kDotsPerInch);
    const bool drawn = wmf_play(player, 0, &frame) == wmf_E_None;
    return drawn ? output.take() : QByteArray();
}

static QByteArray svgOfMetafile(QByteArray bytes)
{
    const Player player = createPlayer();
    wmfD_Rect frame = {};
    if (!player || !open(player.get(), bytes, frame)) {
        return {};
    }
    return drawAsSvg(player.get(), frame);
}

static QSize withinReason(QSize size)
{
    const QSize largest(kLongestSide, kLongestSide);
    const bool fits = size.width() <= kLongestSide && size.height() <= kLongestSide;
    return fits ? size : size.scaled(largest, Qt::KeepAspectRatio);
}

bool looksLikeMetafile(const QByteArray& beginning)
{
    return beginning.startsWith("\xd7\xcd\xc6\x9a") ||
           beginning.startsWith(QByteArray("\x01\x00\x09\x00", 4));
}

QImage readMetafile(const QByteArray& bytes)
{
    if (!looksLikeMetafile(bytes) || bytes.size() > kLargestFile) {
        return {};
    }
    QSvgRenderer renderer(svgOfMetafile(bytes));
    const QSize size = withinReason(renderer.defaultSize());
    if (!renderer.isValid() || size.isEmpty()) {
        return {};
    }
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    renderer.render(&painter);
    return picture;
}

QImage readMetafileOf(const QString& name)
{
    constexpr qint64 kEnoughToTell = 4;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kLargestFile ||
        !looksLikeMetafile(file.peek(kEnoughToTell))) {
        return {};
    }
    return readMetafile(file.readAll());
}

} // namespace orvanta
