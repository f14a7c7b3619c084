#include "window/skin.h"
#include "window/start_page.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orvanta {

using namespace Qt::StringLiterals;

// Logical pixels of a row that is not zoomed.
constexpr int kLessonHeight = 42;
constexpr int kForgetHeight = 32;
constexpr int kTileLeft = 8;
constexpr QSize kTile(46, 30);
constexpr int kTextsLeft = kTileLeft + 46 + 12;
constexpr int kRightEdge = 10;
constexpr int kNarrow = 300; // a narrower row has no room for sign and bar
constexpr int kBarWidth = 100;
constexpr int kBarHeight = 3;
constexpr int kLeastText = 30;
constexpr int kTextGap = 12;                      // between the texts and the place
constexpr QColor kTrackCurrent{0x1c, 0x4a, 0x45}; // the bar's groove on the current row

StartPageDelegate::StartPageDelegate(const StartPageModel* model, QObject* parent)
    : QStyledItemDelegate(parent),
      m_model(model)
{}

QSize StartPageDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    const int height = m_model->isForgetRow(index.row()) ? kForgetHeight : kLessonHeight;
    return {option.rect.width(), static_cast<int>(std::lround(height * m_zoom))};
}

void StartPageDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const int row = index.row();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(*painter, option);
    // From here on in pixels of a row that is not zoomed.
    painter->translate(option.rect.topLeft());
    painter->scale(m_zoom, m_zoom);
    const QRect place(0, 0, static_cast<int>(option.rect.width() / m_zoom),
                      static_cast<int>(std::lround(option.rect.height() / m_zoom)));
    if (m_model->isForgetRow(row)) {
        paintForget(*painter, place, lookOf(option, true));
    } else if (m_model->lesson(row) != nullptr) {
        paintLesson(*painter, place, row, lookOf(option, m_model->isThere(row)));
    }
    painter->restore();
}

/// On the current row everything is as bright as its title: the ground is no longer dark.
StartPageDelegate::Look StartPageDelegate::lookOf(const QStyleOptionViewItem& option, bool isThere)
{
    if ((option.state & QStyle::State_Selected) != 0) {
        return {skin::kText, skin::kText, skin::kText, true, isThere};
    }
    return {isThere ? skin::kText : skin::kTextMuted, skin::kTextMuted, skin::kGone, false,
            isThere};
}

void StartPageDelegate::paintGround(QPainter& painter, const QStyleOptionViewItem& option)
{
    const bool current = (option.state & QStyle::State_Selected) != 0;
    if (current || (option.state & QStyle::State_MouseOver) != 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(current ? skin::kAccentDeep : skin::kRaised);
        painter.drawRoundedRect(option.rect.adjusted(1, 1, -1, -1), 4, 4);
    }
}

void StartPageDelegate::paintSign(QPainter& painter, const QRect& row, const Look& look)
{
    const QRectF tile(row.left() + kTileLeft, row.top() + (row.height() - kTile.height()) / 2.0,
                      kTile.width(), kTile.height());
    painter.setPen(Qt::NoPen);
    painter.setBrush(look.current ? kTrackCurrent : skin::kRaisedHover);
    painter.drawRoundedRect(tile, 3, 3);
    const QPointF middle = tile.center();
    const QPointF triangle[] = {middle + QPointF(-4, -5.5), middle + QPointF(5.5, 0),
                                middle + QPointF(-4, 5.5)};
    painter.setBrush(look.isThere ? skin::kAccentHover : skin::kTextMuted);
    painter.drawPolygon(triangle, 3);
}

void StartPageDelegate::paintBar(QPainter& painter, const QRect& row, const RecentLesson& lesson,
                                 bool current)
{
    const double part = lesson.lines > 0 ? double(lesson.line) / lesson.lines : 0;
    const QRectF groove(row.right() - kRightEdge - kBarWidth + 1, row.bottom() - 12, kBarWidth,
                        kBarHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(current ? kTrackCurrent : skin::kLine);
    painter.drawRoundedRect(groove, 1.5, 1.5);
    const QRectF done(groove.topLeft(), QSizeF(groove.width() * part, groove.height()));
    painter.setBrush(skin::kAccentHover);
    painter.drawRoundedRect(done, 1.5, 1.5);
}

static void drawLine(QPainter& painter, const QRect& place, const QString& text, Qt::Alignment at)
{
    if (place.width() < kLeastText &&
        place.width() < painter.fontMetrics().horizontalAdvance(text)) {
        return; // an ellipsis alone tells nothing
    }
    painter.drawText(place, static_cast<int>(at | Qt::AlignVCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

static bool isNarrow(const QRect& row)
{
    return row.width() < kNarrow;
}

static int textsLeft(const QRect& row)
{
    return isNarrow(row) ? kTileLeft : kTextsLeft;
}

/// Title above folder; at the right the place, in a narrow row beside the folder alone.
StartPageDelegate::Places StartPageDelegate::placesIn(const QRect& row, int placeWidth)
{
    const bool narrow = isNarrow(row);
    const int whole = row.width() - textsLeft(row) - kRightEdge;
    const int taken = std::min(placeWidth, narrow ? whole : row.width() / 2);
    const int left = whole - taken - kTextGap;
    const QRect title(textsLeft(row), row.top() + 4, narrow ? whole : left, 18);
    const QRect below = title.translated(0, 17);
    const QRect folder(below.topLeft(), QSize(std::max(left, 0), below.height()));
    const int y = narrow ? below.top() : title.top();
    return {title, folder, QRect(row.right() - kRightEdge - taken + 1, y, taken, 18)};
}

void StartPageDelegate::paintLesson(QPainter& painter, const QRect& row, int number,
                                    const Look& look) const
{
    const RecentLesson& lesson = *m_model->lesson(number);
    const QString place = m_model->placeAt(number);
    const QFont small = skin::interfaceFont(11);
    const int wanted = QFontMetrics(small).horizontalAdvance(place) + 1;
    const bool narrow = isNarrow(row);
    const Places places = placesIn(row, narrow ? wanted : std::max(wanted, kBarWidth));

    painter.setFont(skin::interfaceFont(13));
    painter.setPen(look.title);
    drawLine(painter, places.title, lesson.title, Qt::AlignLeft);
    painter.setFont(small);
    painter.setPen(look.isThere ? look.second : look.warning);
    drawLine(painter, places.folder, m_model->folderAt(number), Qt::AlignLeft);
    painter.setPen(look.second);
    drawLine(painter, places.place, place, Qt::AlignRight);
    if (!narrow) {
        paintSign(painter, row, look);
    }
    if (!narrow && look.isThere) {
        paintBar(painter, row, lesson, look.current);
    }
}

void StartPageDelegate::paintForget(QPainter& painter, const QRect& row, const Look& look) const
{
    painter.setFont(skin::interfaceFont(11));
    painter.setPen(look.second);
    drawLine(painter, row.adjusted(textsLeft(row), 0, -kRightEdge, 0), m_model->text(u"forget"),
             Qt::AlignLeft);
}

} // namespace orvanta
