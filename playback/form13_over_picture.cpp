// What lies over the video window's picture: the lesson's text.
#include "playback/form13_video_window.h"
#include "playback/overlay_picture.h"
#include "playback/picture_look.h"
#include "playback/picture_text.h"

#include <algorithm>

namespace orvanta {

constexpr double kTextWidth = 0.9; // of the window's width
constexpr int kBottomPart = 30;    // below the text this part of the picture's height stays free
constexpr double kTextBand = 0.24; // of the window's height, below a still picture
constexpr double kLargeTextBand = 0.4; // three lines of the large text
constexpr QSize kTextGround(640, 360); // pixels

void Form13::setLine(const LessonLine& line)
{
    m_line = line;
    m_textLevel = m_services.textLevel();
    showLessonText();
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
        return LessonText->vanish();
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
    LessonText->move(left, top);
}

} // namespace orvanta
