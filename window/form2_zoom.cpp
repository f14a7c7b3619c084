// The size of the main window's texts.
#include "window/clip_line.h"
#include "window/edit_notice.h"
#include "window/editing_row.h"
#include "window/form2_main_window.h"
#include "window/playlist_list.h"
#include "window/practice_chips.h"
#include "window/practice_panel.h"
#include "window/silence_row.h"
#include "window/skin.h"
#include "window/start_page.h"
#include "window/text_zoom.h"

#include <QLabel>
#include <QLineEdit>

#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

static int scaled(int pixels, double zoom)
{
    return static_cast<int>(std::lround(pixels * zoom));
}

/// From the settings, and at once.
void Form2::zoomTo(int percent)
{
    resumeNext("size of the texts", [&] { platformSettings().setTextZoom(percent); });
    applyZoom();
}

int Form2::zoom() const
{
    return zoomInRange(platformSettings().textZoom());
}

void Form2::applyZoom()
{
    const double factor = zoomOfDesktop() * zoom() / kNormalZoom;
    const auto font = [&](QWidget* widget, int pixels) {
        widget->setFont(skin::interfaceFont(scaled(pixels, factor)));
    };
    font(Text1, 12);
    font(Text2, 17);
    font(Chips, 11);
    font(Panel, 12);
    font(Editing, 12);
    font(Notice, 12);
    font(Silence, 12);
    m_document->setFont(skin::interfaceFont(scaled(12, factor)));
    m_caption->setFont(skin::interfaceFont(scaled(13, factor), true));
    for (QLabel* label : {Label1, Label2}) {
        label->setFont(skin::digitsFont(scaled(13, factor)));
        label->setMinimumWidth(label->fontMetrics().horizontalAdvance(u"000000,000"_s) + 2);
    }
    Text1->setFixedHeight(scaled(skin::kButtonSide, std::max(factor, 1.0)));
    Text2->setFixedHeight(scaled(skin::kClipHeight, std::max(factor, 1.0)));
    List1->setZoom(factor);
    StartPage->setZoom(factor);
    List1->setMinimumHeight(6 * List1->rowHeight());
    Text2->placeChild();
    Panel->adjustSize();
}

} // namespace orvanta
