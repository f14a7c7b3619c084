#include "platform/screen/window_basics.h"
#include "window/clip_line.h"
#include "window/edit_notice.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"
#include "window/picture_sign.h"
#include "window/playlist_list.h"
#include "window/silence_row.h"
#include "window/skin.h"
#include "window/skin_button.h"
#include "window/skin_slider.h"
#include "window/start_page.h"
#include "window/waveform_strip.h"
#include "window/window_frame.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

// Beside the window opens the one with the picture, seldom wider than this.
constexpr int kUsualPictureWidth = 640;

// Together with a picture at its right the window stands in the middle of the screen.
static QPoint firstPlace(QSize window, const QRect& room)
{
    const int both = window.width() + skin::kGrid + kUsualPictureWidth;
    return room.topLeft() + QPoint(std::max(0, (room.width() - both) / 2),
                                   std::max(0, (room.height() - window.height()) / 2));
}

static QBoxLayout* row(int spacing)
{
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(spacing);
    return layout;
}

// A picture beside a slider: it says what the slider is for.
static QWidget* sign(const QString& picture, QWidget* parent)
{
    static constexpr int kSide = 16;
    return new PictureSign(
        [picture](qreal ratio) { return skin::picture(picture, skin::kTextMuted, kSide, ratio); },
        {kSide, kSide}, parent);
}

static QWidget* badge(QWidget* parent)
{
    static constexpr QSize kSize(20, 20);
    return new PictureSign([](qreal ratio) { return skin::artwork(u"orvanta"_s, kSize, ratio); },
                           kSize, parent);
}

static QLabel* title(QWidget* parent)
{
    auto* label = new QLabel(parent);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, skin::kText);
    label->setPalette(palette);
    return label;
}

static QWidget* divider(QWidget* parent)
{
    auto* line = new QWidget(parent);
    line->setFixedSize(1, 20);
    line->setAutoFillBackground(true);
    QPalette palette = line->palette();
    palette.setColor(QPalette::Window, skin::kLine);
    line->setPalette(palette);
    return line;
}

void Form2::layOut()
{
    auto* edge = new QVBoxLayout(this);
    edge->setContentsMargins(WindowFrame::kEdge, WindowFrame::kEdge, WindowFrame::kEdge,
                             WindowFrame::kEdge);
    edge->addWidget(m_surface);

    constexpr int kSide = skin::kMargin - WindowFrame::kEdge;
    m_stripRoom = new QWidget(m_surface); // the strip, a step below the list
    auto* strip = new QVBoxLayout(m_stripRoom);
    strip->setContentsMargins(0, skin::kGrid, 0, 0);
    strip->addWidget(Strip);
    m_stripRoom->hide();
    auto* rows = new QVBoxLayout(m_surface);
    rows->setContentsMargins(kSide, 2, kSide, kSide);
    rows->setSpacing(0);
    rows->addLayout(titleRow());
    rows->addSpacing(skin::kGrid);
    m_commands = new QWidget(m_surface);
    m_commands->setLayout(commandRow());
    rows->addWidget(m_commands);
    rows->addWidget(Editing);
    rows->addSpacing(skin::kGrid + skin::kGrid / 2);
    rows->addWidget(Text2);
    rows->addSpacing(skin::kGrid + skin::kGrid / 2);
    rows->addWidget(Notice);
    rows->addWidget(List1, 1);
    rows->addWidget(StartPage, 1);
    rows->addWidget(Silence);
    rows->addWidget(m_stripRoom);
    rows->addSpacing(skin::kGrid);
    rows->addLayout(positionRow());
    rows->addSpacing(skin::kGrid + skin::kGrid / 2);
    rows->addLayout(transportRow());
    applyZoom();
    StartPage->setMinimumHeight(List1->minimumHeight());
    orderTabs(controls());
    List1->setFocus();
    const QSize kept = platformSettings().windowSize();
    resize(firstSizeOn(*screen(), kept.isValid() ? kept : QSize(520, 440))
               .expandedTo(minimumSizeHint()));
    m_keptSize = size();
    move(firstPlace(size(), screen()->availableGeometry()));
}

QBoxLayout* Form2::titleRow()
{
    m_caption = title(m_surface);
    connect(this, &QWidget::windowTitleChanged, m_caption, &QLabel::setText);
    QBoxLayout* layout = row(skin::kGrid / 2);
    layout->addWidget(badge(m_surface));
    layout->addSpacing(skin::kGrid / 2);
    layout->addWidget(m_caption);
    layout->addSpacing(skin::kGrid);
    layout->addWidget(m_document, 1);
    layout->addWidget(Image12);
    layout->addWidget(Image13);
    return layout;
}

QBoxLayout* Form2::commandRow()
{
    QBoxLayout* layout = row(skin::kGrid);
    layout->addWidget(Image8);
    layout->addWidget(Image14);
    layout->addSpacing(skin::kGrid / 2);
    layout->addWidget(divider(m_surface));
    layout->addSpacing(skin::kGrid / 2);
    layout->addWidget(Image9);
    layout->addWidget(Image10);
    layout->addWidget(Image11);
    layout->addStretch(1);
    Text1->setMinimumWidth(120);
    Text1->setMaximumWidth(320);
    layout->addWidget(Text1, 3);
    layout->addWidget(Image2);
    return layout;
}

QBoxLayout* Form2::positionRow()
{
    QBoxLayout* layout = row(skin::kGrid);
    layout->addWidget(Label1);
    layout->addWidget(Slider1, 1);
    layout->addWidget(Label2);
    return layout;
}

QBoxLayout* Form2::transportRow()
{
    QBoxLayout* layout = row(skin::kGrid);
    layout->addWidget(Image4);
    layout->addWidget(Image3);
    layout->addWidget(Image5);
    layout->addSpacing(skin::kGrid);
    layout->addWidget(PracticeButton);
    layout->addWidget(EditButton);
    layout->addStretch(1);
    layout->addSpacing(skin::kGrid);
    layout->addWidget(sign(u"volume"_s, m_surface));
    layout->addWidget(Slider2, 1);
    layout->addSpacing(skin::kGrid);
    layout->addWidget(sign(u"balance"_s, m_surface));
    layout->addWidget(Slider3, 1);
    for (SkinSlider* slider : {Slider2, Slider3}) {
        slider->setMaximumWidth(160);
    }
    return layout;
}

} // namespace orvanta
