// What lies over the video window's picture: the lesson's text and the signs.
#include "platform/media/picture_source.h"
#include "playback/clock_text.h"
#include "playback/form13_video_window.h"
#include "playback/overlay_bar.h"
#include "playback/overlay_picture.h"
#include "playback/picture_look.h"
#include "playback/picture_text.h"
#include "playback/sign_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvanta {

constexpr double kMovedByHand = 0.5; // seconds; less the clip may have run meanwhile
constexpr double kTextWidth = 0.9;   // of the window's width
constexpr int kBottomPart = 30;      // below the text this part of the picture's height stays free
constexpr double kTextBand = 0.24;   // of the window's height, below a still picture
constexpr double kLargeTextBand = 0.4; // three lines of the large text
constexpr int kIntoBar = 4;            // pixels: the bar begins with nearly nothing
constexpr QSize kTextGround(640, 360); // pixels

void Form13::setLine(const LessonLine& line)
{
    m_line = line;
    m_textLevel = m_services.textLevel();
    showLessonText();
    if (isBarShown()) {
        refreshBar();
    }
}

/// Off, text, large text, off.
void Form13::nextTextLevel()
{
    const auto next = static_cast<TextLevel>((static_cast<int>(m_services.textLevel()) + 1) % 3);
    m_services.setTextLevel(next);
    m_textLevel = next;
    if (m_control.isReady() && m_controlSize == kSizeWithoutPicture) {
        showStillPicture();
    }
    layOutControls();
    constexpr std::array kSigns = {u"Sign.textOff", u"Sign.text", u"Sign.textLarge"};
    showSign(text(kSigns.at(std::size_t(next))));
}

/// Sound alone has the text on a ground, below the still picture where there is one.
bool Form13::hasTextGround() const
{
    return m_textLevel != TextLevel::Off && m_controlSize == kSizeWithoutPicture;
}

double Form13::textBand() const
{
    return m_textLevel == TextLevel::Large ? kLargeTextBand : kTextBand;
}

/// Pixels; with room for the still picture above the text.
QSize Form13::sizeOfTextGround() const
{
    const int height = static_cast<int>(m_still.height() / (1 - textBand()));
    return kTextGround.expandedTo({m_still.width(), height});
}

/// The part of the window that the still picture has.
QRect Form13::placeOfStill() const
{
    const int height = this->height();
    return {0, 0, width(), hasTextGround() ? static_cast<int>(height * (1 - textBand())) : height};
}

void Form13::paintGround()
{
    const QColor ground = hasTextGround() ? look::kCalm : QColor(Qt::black);
    if (palette().color(QPalette::Window) != ground) {
        QPalette changed = palette();
        changed.setColor(QPalette::Window, ground);
        setPalette(changed);
    }
}

/// Logical pixels, of the picture as it lies in the window.
int Form13::shownHeight() const
{
    const bool fillsWindow = hasTextGround() || m_contents.isEmpty();
    return fillsWindow ? height() : m_contents.scaled(size(), Qt::KeepAspectRatio).height();
}

void Form13::showLessonText()
{
    if (m_textLevel == TextLevel::Off) {
        LessonText->vanish();
        return keepSubtitlesClear();
    }
    LessonText->showPicture(
        pictureOfText(m_line.text, {.fontSize = pictureTextSize(m_textLevel, shownHeight()),
                                    .width = static_cast<int>(width() * kTextWidth),
                                    .devicePixelRatio = devicePixelRatioF()}));
    placeLessonText();
}

/// At the lower edge; on a ground of its own in the middle of what is free.
void Form13::placeLessonText()
{
    const int left = (width() - LessonText->width()) / 2;
    int top = height() - shownHeight() / kBottomPart - LessonText->height();
    if (hasTextGround()) {
        const int above = m_still.isNull() ? 0 : placeOfStill().height();
        top = above + (height() - above - LessonText->height()) / 2;
    }
    if (isBarShown()) {
        top = std::min(top, Bar->y() - LessonText->height() + kIntoBar);
    }
    LessonText->move(left, top);
    keepSubtitlesClear();
}

/// They are part of the picture, and stand above what lies over it.
void Form13::keepSubtitlesClear()
{
    int lowest = isBarShown() ? Bar->y() : height();
    if (LessonText->isShown() && !hasTextGround()) {
        lowest = std::min(lowest, LessonText->y());
    }
    m_control.raiseSubtitles(height() > 0 ? 1 - double(lowest) / height() : 0);
}

QString Form13::text(QStringView name) const
{
    return interfaceText(u"Form13", name, m_services.language());
}

void Form13::showSign(const QString& text, const QString& lead)
{
    if (!isVisible() || m_left == kOutOfSight) {
        return;
    }
    const int fontSize = signTextSize(height());
    const int edge = fontSize * 3 / 2;
    Sign->showPicture(pictureOfSign(lead, text,
                                    {.fontSize = fontSize,
                                     .width = width() - 2 * edge,
                                     .devicePixelRatio = devicePixelRatioF()}));
    Sign->move(edge, edge);
    Sign->raise();
    m_signTime.start();
}

void Form13::showVolume()
{
    showSign(text(u"Sign.volume").arg(m_mirror.VideoVolume.value()));
}

void Form13::showBookmark()
{
    showSign(text(u"Sign.bookmark").arg(clockText(m_control.CurrentPosition())));
}

void Form13::doByHand(const std::function<void()>& action)
{
    const int state = m_control.CurrentState();
    const Int16 volume = m_mirror.VideoVolume;
    const LessonLine line = m_line;
    const double position = m_control.CurrentPosition();
    const TextLevel texts = m_textLevel;
    const Practice practice = m_services.practice();
    const bool filled = m_fullScreen;
    action();
    m_keys.serveRequest();
    showChanges(state, volume, line);
    const bool hasMoved = std::abs(m_control.CurrentPosition() - position) >= kMovedByHand;
    const bool looksOtherwise =
        texts != m_textLevel || practice != m_services.practice() || filled != m_fullScreen;
    if (hasMoved || looksOtherwise || state != m_control.CurrentState() ||
        volume != m_mirror.VideoVolume || line != m_line) {
        showBar();
    }
}

void Form13::showLineSign()
{
    if (m_line.number > 0) {
        showSign(
            m_line.text,
            text(u"Sign.line").arg(QString::number(m_line.number), QString::number(m_line.count)));
    }
}

// A line that comes brings its own start with it: that the player stood or ran before says nothing.
void Form13::showChanges(int stateBefore, Int16 volumeBefore, const LessonLine& lineBefore)
{
    const int state = m_control.CurrentState();
    if (m_line != lineBefore) {
        showLineSign();
    } else if (m_mirror.VideoVolume != volumeBefore) {
        showVolume();
    } else if (state != stateBefore && state == MediaControl::Running) {
        showSign(text(u"Sign.play"));
    } else if (state != stateBefore && state == MediaControl::Paused) {
        showSign(text(u"Sign.pause"));
    } else if (state != stateBefore && state == MediaControl::Stopped) {
        showSign(text(u"Sign.stop"));
    }
}

QImage Form13::currentFrame() const
{
    const PictureSource* source = m_services.control.picture();
    if (source == nullptr || !source->hasPicture() || m_contents.isEmpty()) {
        return {};
    }
    const QImage frame = source->frame();
    QRect clip(QPoint(), m_contents.scaled(frame.size(), Qt::KeepAspectRatio));
    clip.moveCenter(frame.rect().center());
    return frame.copy(clip.intersected(frame.rect()));
}

} // namespace orvanta
