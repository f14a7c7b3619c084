#include "window/skin.h"
#include "window/start_page.h"

#include <QPainter>

#include <algorithm>

namespace orvanta {

using namespace Qt::StringLiterals;

// Logical pixels.
constexpr int kLessonHeight = 42;
constexpr int kForgetHeight = 32;
constexpr int kTileLeft = 8;
constexpr QSize kTile(46, 30);
constexpr int kTextsLeft = kTileLeft + 46 + 12;
constexpr int kRightEdge = 10;
constexpr int kBarWidth = 100;
constexpr int kBarHeight = 3;
constexpr int kTextGap = 12;                      // between the texts and the place
constexpr QColor kTrackCurrent{0x1c, 0x4a, 0x45}; // the bar's groove on the current row

StartPageDelegate::StartPageDelegate(const StartPageModel* model, QObject* parent)
    : QStyledItemDelegate(parent),
      m_model(model)
{}

QSize StartPageDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    const bool isForget = m_model->isForgetRow(index.row());
    return {option.rect.width(), isForget ? kForgetHeight : kLessonHeight};
}

void StartPageDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    const int row = index.row();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(*painter, option);
    if (m_model->isForgetRow(row)) {
        paintForget(*painter, option.rect, lookOf(option, true));
    } else if (m_model->lesson(row) != nullptr) {
        paintLesson(*painter, option.rect, row, lookOf(option, m_model->isThere(row)));
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
    painter.drawText(place, static_cast<int>(at | Qt::AlignVCenter) | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
}

void StartPageDelegate::paintLesson(QPainter& painter, const QRect& row, int number,
                                    const Look& look) const
{
    const RecentLesson& lesson = *m_model->lesson(number);
    const QString place = m_model->placeAt(number);
    paintSign(painter, row, look);
    const QFont small = skin::interfaceFont(11);
    const int placeWidth = std::min(
        std::max(QFontMetrics(small).horizontalAdvance(place) + 1, kBarWidth), row.width() / 2);
    const QRect texts = row.adjusted(kTextsLeft, 0, -kRightEdge - placeWidth - kTextGap, 0);
    const QRect upper(texts.left(), row.top() + 4, texts.width(), 18);
    const QRect right(row.right() - kRightEdge - placeWidth + 1, upper.top(), placeWidth, 18);

    painter.setFont(skin::interfaceFont(13));
    painter.setPen(look.title);
    drawLine(painter, upper, lesson.title, Qt::AlignLeft);
    painter.setFont(small);
    painter.setPen(look.isThere ? look.second : look.warning);
    drawLine(painter, upper.translated(0, 17), m_model->folderAt(number), Qt::AlignLeft);
    painter.setPen(look.second);
    drawLine(painter, right, place, Qt::AlignRight);
    if (look.isThere) {
        paintBar(painter, row, lesson, look.current);
    }
}

void StartPageDelegate::paintForget(QPainter& painter, const QRect& row, const Look& look) const
{
    painter.setFont(skin::interfaceFont(11));
    painter.setPen(look.second);
    drawLine(painter, row.adjusted(kTextsLeft, 0, -kRightEdge, 0), m_model->text(u"forget"),
             Qt::AlignLeft);
}

} // namespace orvanta
