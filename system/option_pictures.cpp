#include "system/option_pictures.h"

#include "platform/file_types/drawing.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

#include <utility>

// Resources of a static library are linked in only when somebody asks; outside any namespace.
static void initPictures()
{
    Q_INIT_RESOURCE(options);
}

namespace orvanta {

using namespace Qt::StringLiterals;

namespace {

/// Draws an SVG whose colours "currentColor" and "accent" are taken from the palette.
class PictureEngine : public QIconEngine
{
public:
    explicit PictureEngine(QByteArray drawing)
        : m_drawing(std::move(drawing))
    {}

    [[nodiscard]] QIconEngine* clone() const override { return new PictureEngine(*this); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QPalette palette = QApplication::palette();
        const QByteArray text = palette.color(group, QPalette::ButtonText).name().toUtf8();
        const QByteArray accent = '"' + accentOn(palette, group).name().toUtf8() + '"';
        paintDrawing(
            painter, rect,
            QByteArray(m_drawing).replace("currentColor", text).replace("\"accent\"", accent));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }

private:
    /// The highlight, unless it can hardly be told from the button below it.
    static QColor accentOn(const QPalette& palette, QPalette::ColorGroup group)
    {
        constexpr int kLeastDifference = 40; // of lightness, out of 255
        const QColor accent = palette.color(group, QPalette::Highlight);
        const QColor ground = palette.color(group, QPalette::Button);
        const bool differs = qAbs(accent.lightness() - ground.lightness()) >= kLeastDifference;
        return differs ? accent : palette.color(group, QPalette::ButtonText);
    }

    QByteArray m_drawing;
};

} // namespace

QIcon optionPicture(const QString& name)
{
    initPictures();
    QFile file(u":/orvanta/options/%1.svg"_s.arg(name));
    return QIcon(new PictureEngine(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray()));
}

} // namespace orvanta
