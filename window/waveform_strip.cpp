#include "window/waveform_strip.h"

#include "playback/clock_text.h"
#include "window/skin.h"
#include "window/waveform_accessible.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

// Logical pixels.
constexpr int kSoundMargin = 4; // above and below the loudest
constexpr double kStripRadius = 8;
constexpr double kPlaceWidth = 2;

WaveformStrip::WaveformStrip(TextLanguage language, QWidget* parent)
    : QWidget(parent),
      m_language(language),
      m_ahead(skin::kTreeLine),
      m_played(skin::kAccent)
{
    announceWaveforms();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setLayoutDirection(Qt::LeftToRight); // time runs so in every language
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(interfaceText(u"Waveform", u"name", language));
}

QSize WaveformStrip::sizeHint() const
{
    return {400, 72};
}

QSize WaveformStrip::minimumSizeHint() const
{
    return {160, 48};
}

void WaveformStrip::setLength(double seconds)
{
    if (seconds != m_scale.length()) {
        giveUpDrag();
        m_scale.setLength(seconds);
        update();
    }
}

void WaveformStrip::setPeaks(const Peaks& peaks)
{
    m_peaks = peaks;
    m_ahead.forget();
    m_played.forget();
    update();
}

void WaveformStrip::setBrakes(std::vector<WaveformBrake> brakes)
{
    if (m_drag && brakes.size() != m_brakes.size()) {
        giveUpDrag();
    }
    if (m_drag) { // its owner does not know yet where the hand has it
        brakes[static_cast<std::size_t>(m_drag->index)] = draggedBrake();
    }
    if (brakes != m_brakes) {
        m_brakes = std::move(brakes);
        update();
    }
}

void WaveformStrip::setSelected(int index)
{
    if (index != m_selected) {
        m_selected = index;
        update();
    }
}

void WaveformStrip::setSilences(std::vector<SilentSpan> silences)
{
    if (silences != m_silences) {
        m_silences = std::move(silences);
        update();
    }
}

void WaveformStrip::setPlace(double seconds)
{
    const double before = m_place;
    m_place = std::isfinite(seconds) ? std::clamp(seconds, 0.0, m_scale.length()) : 0.0;
    if (m_place == before) {
        return;
    }
    if (m_scale.shows(before) && !m_scale.shows(m_place) && !m_drag) {
        m_scale.turnTo(m_place);
        update();
    } else {
        updateBetween(before, m_place);
    }
    if (QAccessible::isActive() && std::floor(before) != std::floor(m_place)) {
        QAccessibleValueChangeEvent event(this, m_place);
        QAccessible::updateAccessibility(&event);
    }
}

/// What lies between two moments, and the lines at both.
void WaveformStrip::updateBetween(double from, double to)
{
    const double a = m_scale.placeOf(from);
    const double b = m_scale.placeOf(to);
    const double left = std::clamp(std::min(a, b), 0.0, double(width())) - kPlaceWidth;
    const double right = std::clamp(std::max(a, b), 0.0, double(width())) + kPlaceWidth;
    update(QRectF(left, 0, right - left, height()).toAlignedRect());
}

void WaveformStrip::askPlace(double seconds)
{
    const double asked = std::clamp(seconds, 0.0, m_scale.length());
    setPlace(asked); // the next step begins here, wherever the player is by then
    Q_EMIT placeAsked(asked);
}

std::vector<WaveformFlag> WaveformStrip::flags() const
{
    return flagsOf(m_brakes, m_scale, m_drag ? m_drag->index : m_selected, width());
}

QString WaveformStrip::spokenValue() const
{
    const auto marks = std::count_if(m_brakes.begin(), m_brakes.end(),
                                     [](const WaveformBrake& brake) { return !brake.isEnd; });
    return interfaceText(u"Waveform", marks == 1 ? u"value.one" : u"value", m_language)
        .arg(clockText(m_place), clockText(m_scale.length()))
        .arg(marks);
}

void WaveformStrip::paintGround(QPainter& painter) const
{
    painter.setPen(hasFocus() ? skin::kAccentDeep : skin::kLine);
    painter.setBrush(skin::kSunken);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kStripRadius,
                            kStripRadius);
    for (const SilentSpan& silence : m_silences) {
        const double from = std::clamp(m_scale.placeOf(silence.from), 1.0, width() - 1.0);
        const double to = std::clamp(m_scale.placeOf(silence.to), 1.0, width() - 1.0);
        painter.fillRect(QRectF(from, 1, to - from, height() - 2), skin::kAccentFaint);
    }
}

void WaveformStrip::paintSound(QPainter& painter)
{
    const QSize size(width(), height() - 2 * kSoundMargin);
    const qreal ratio = devicePixelRatioF();
    const double played = m_scale.placeOf(m_place);
    const QRectF whole(0, kSoundMargin, size.width(), size.height());
    const auto draw = [&](const QRectF& part, WaveformPicture& picture) {
        painter.save();
        painter.setClipRect(part, Qt::IntersectClip);
        painter.drawPixmap(whole.topLeft(), picture.of(m_peaks, m_scale, size, ratio));
        painter.restore();
    };
    const double middle = std::clamp(std::round(played), 0.0, whole.right());
    draw(QRectF(whole.topLeft(), QPointF(middle, whole.bottom())), m_played);
    draw(QRectF(QPointF(middle, whole.top()), whole.bottomRight()), m_ahead);
}

void WaveformStrip::paintPlace(QPainter& painter) const
{
    if (m_scale.length() > 0 && m_scale.shows(m_place)) {
        const double x = std::round(m_scale.placeOf(m_place));
        painter.fillRect(QRectF(x - kPlaceWidth / 2, 2, kPlaceWidth, height() - 4), skin::kAccent);
    }
}

/// Beside the hand's line, or on its other side where there is no room.
void WaveformStrip::paintDraggedTime(QPainter& painter) const
{
    constexpr double kBubbleHeight = 18;
    const double seconds = draggedBrake().seconds;
    const QString text = clockTextWithHundredths(seconds);
    painter.setFont(skin::digitsFont(11));
    const double wide = std::ceil(QFontMetricsF(painter.font()).horizontalAdvance(text)) + 12;
    const double x = m_scale.placeOf(seconds);
    const double left = x + 6 + wide < width() ? x + 6 : x - 6 - wide;
    const QRectF bubble(std::round(left) + 0.5, height() - kBubbleHeight - 5.5, wide,
                        kBubbleHeight);
    painter.setPen(skin::kEdge);
    painter.setBrush(skin::kRaised);
    painter.drawRoundedRect(bubble, 4, 4);
    painter.setPen(skin::kText);
    painter.drawText(bubble, Qt::AlignCenter, text);
}

void WaveformStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintGround(painter);
    paintSound(painter);
    paintPlace(painter);
    paintFlags(painter, flags(), m_brakes, m_drag ? m_drag->index : m_selected, height());
    if (isDragging()) {
        paintDraggedTime(painter);
    }
}

} // namespace orvanta
