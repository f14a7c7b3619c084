#include "window/playlist_list.h"
#include "window/skin.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace orvanta {

namespace {

// Pixels from the line's left end. The prefixes' characters stand at the two stems.
constexpr int kBoxLeft = 6;
constexpr int kBoxSide = 9;
constexpr int kRootTextLeft = 22;
constexpr double kSignLeft = 17; // between the box and the first stem
constexpr double kSignWidth = 6;
constexpr double kSignHeight = 8;
constexpr double kFirstStem = 24.5;
constexpr double kSecondStem = 37.5;
constexpr double kBranch = 6;
constexpr int kHeaderTextLeft = 34;
constexpr int kClipTextLeft = 47;
constexpr int kTextRightMargin = 4;

// While the list is edited.
constexpr int kEditedRowHeight = 21; // room for a line to type in
constexpr int kTimeWidth = 76;       // "10:00:00.00", "+ картинка"

} // namespace

PlaylistDelegate::PlaylistDelegate(const PlaylistModel* model, QObject* parent)
    : QStyledItemDelegate(parent),
      m_model(model)
{}

QSize PlaylistDelegate::sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const
{
    return {kClipTextLeft, rowHeight()};
}

/// Whole pixels: the tool tip reckons with rows of exactly one height.
void PlaylistDelegate::setZoom(double zoom)
{
    m_zoom = std::round(skin::kRowHeight * zoom) / skin::kRowHeight;
}

int PlaylistDelegate::rowHeight() const
{
    const int height = m_model->isEdited() ? kEditedRowHeight : skin::kRowHeight;
    return static_cast<int>(std::lround(height * m_zoom));
}

QRect PlaylistDelegate::textArea(const QRect& line, int row) const
{
    const int left = row == 0 ? kRootTextLeft : isHeader(row) ? kHeaderTextLeft : kClipTextLeft;
    const QRect times = timeArea(line);
    return {line.left() + static_cast<int>(std::lround(left * m_zoom)), line.top(),
            times.left() - line.left() - static_cast<int>(std::lround(left * m_zoom)),
            line.height()};
}

QRect PlaylistDelegate::timeArea(const QRect& line) const
{
    const int width = static_cast<int>(std::lround(kTimeWidth * m_zoom));
    return {line.right() - width, line.top(), width, line.height()};
}

QRect PlaylistDelegate::boxArea(const QRect& line) const
{
    const int width = static_cast<int>(std::lround((kBoxLeft + kBoxSide + 4) * m_zoom));
    return {line.left(), line.top(), width, line.height()};
}

void PlaylistDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    const int row = index.row();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintRow(*painter, option);
    // From here on in pixels of a row that is 13 high.
    painter->translate(option.rect.topLeft());
    painter->scale(m_zoom, m_zoom);
    const QRect line(0, 0, static_cast<int>(option.rect.width() / m_zoom),
                     static_cast<int>(std::lround(rowHeight() / m_zoom)));
    if (m_model->hasBox(row)) {
        paintBox(*painter, line, m_model->isChecked(row));
    }
    const PlayingSign sign = m_model->signOf(row);
    paintSign(*painter, line, sign);
    if (sign == PlayingSign::None && !m_model->whyMissing(row).isEmpty()) {
        paintMissing(*painter, line);
    }
    const bool current = (option.state & QStyle::State_Selected) != 0;
    painter->setPen(QPen(current ? skin::kAccent : skin::kTreeLine, 1));
    const int textLeft = paintTree(*painter, line, row);
    const QString& text = m_model->lines()[static_cast<std::size_t>(row)].text;
    painter->setFont(option.font);
    const int noteWidth = paintNote(*painter, line, row, current);
    const QRect place = line.adjusted(textLeft, 0, -kTextRightMargin - noteWidth, 0);
    painter->setPen(current ? QColor(skin::kText) : textColour(row));
    painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(text, Qt::ElideRight, place.width()));
    painter->restore();
}

// Returns how much of the line's right end it takes.
int PlaylistDelegate::paintNote(QPainter& painter, const QRect& line, int row, bool current) const
{
    const LineNote note = m_model->noteOf(row);
    if (note.time.isEmpty()) {
        return 0;
    }
    if (note.isEnd) {
        paintEndMark(painter, line);
    }
    painter.setPen(current ? skin::kText : skin::kTextMuted);
    const QRect place = line.adjusted(line.width() - kTimeWidth, 0, -kTextRightMargin, 0);
    const QFontMetrics metrics(painter.font());
    painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
                     metrics.elidedText(note.time, Qt::ElideMiddle, place.width()));
    return kTimeWidth;
}

/// A bar where lines that play have their sign.
void PlaylistDelegate::paintEndMark(QPainter& painter, const QRect& line)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin::kGone);
    painter.drawRect(
        QRectF(kSignLeft + 1, line.center().y() - kSignHeight / 2 + 0.5, 2.5, kSignHeight));
}

void PlaylistDelegate::paintRow(QPainter& painter, const QStyleOptionViewItem& option) const
{
    const bool current = (option.state & QStyle::State_Selected) != 0;
    const bool hovered = (option.state & QStyle::State_MouseOver) != 0;
    if (current || hovered) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(current ? skin::kAccentDeep : skin::kRaised);
        painter.drawRoundedRect(option.rect, 3, 3);
    }
}

// A triangle while it plays, two bars while it is paused.
void PlaylistDelegate::paintSign(QPainter& painter, const QRect& line, PlayingSign sign) const
{
    if (sign == PlayingSign::None) {
        return;
    }
    const QRectF place(line.left() + kSignLeft, line.top() + (line.height() - kSignHeight) / 2,
                       kSignWidth, kSignHeight);
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin::kAccentHover); // the accent on the current line's darker accent, too
    if (sign == PlayingSign::Playing) {
        const QPointF triangle[] = {place.topLeft(), QPointF(place.right(), place.center().y()),
                                    place.bottomLeft()};
        painter.drawPolygon(triangle, 3);
    } else {
        painter.drawRect(QRectF(place.topLeft(), QSizeF(2, kSignHeight)));
        painter.drawRect(QRectF(place.topRight() - QPointF(2, 0), QSizeF(2, kSignHeight)));
    }
}

/// A cross where lines that play have their sign.
void PlaylistDelegate::paintMissing(QPainter& painter, const QRect& line)
{
    constexpr double kSide = 5;
    const QRectF place(line.left() + kSignLeft + 1, line.top() + (line.height() - kSide) / 2, kSide,
                       kSide);
    painter.setPen(QPen(skin::kGone, 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(place.topLeft(), place.bottomRight());
    painter.drawLine(place.topRight(), place.bottomLeft());
}

void PlaylistDelegate::paintBox(QPainter& painter, const QRect& line, bool checked) const
{
    const QRectF box(line.left() + kBoxLeft, line.top() + (line.height() - kBoxSide) / 2.0,
                     kBoxSide, kBoxSide);
    if (!checked) {
        painter.setPen(QPen(skin::kTextMuted, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
        return;
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(skin::kAccent);
    painter.drawRoundedRect(box, 2, 2);
    const QPointF tick[] = {box.topLeft() + QPointF(2, 4.6), box.topLeft() + QPointF(3.8, 6.4),
                            box.topLeft() + QPointF(7, 2.8)};
    painter.setPen(QPen(skin::kSurface, 1.3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(tick, 3);
}

bool PlaylistDelegate::isHeader(int row) const
{
    return isHeaderLine(m_model->lines()[static_cast<std::size_t>(row)]);
}

// Draws "|-- ", "|  |- " or "   |- " and returns where the text begins. A stem ends in the middle
// of the last line that hangs on it.
int PlaylistDelegate::paintTree(QPainter& painter, const QRect& line, int row) const
{
    if (row == 0) {
        return kRootTextLeft;
    }
    const std::vector<TreeLine>& lines = m_model->lines();
    const auto place = static_cast<std::size_t>(row);
    const bool header = isHeader(row);
    const bool lastPacket = lines[place].packet == lines.back().packet;
    const bool lastClip = place + 1 == lines.size() || isHeader(row + 1);
    const double top = line.top();
    const double bottom = line.bottom() + 1;
    const double middle = line.center().y() + 0.5;
    const auto stem = [&](double x, bool ends) {
        painter.drawLine(QPointF(line.left() + x, top),
                         QPointF(line.left() + x, ends ? middle : bottom));
    };
    if (header || !lastPacket) {
        stem(kFirstStem, header && lastPacket);
    }
    const double branchFrom = line.left() + (header ? kFirstStem : kSecondStem);
    painter.drawLine(QPointF(branchFrom, middle), QPointF(branchFrom + kBranch, middle));
    if (!header) {
        stem(kSecondStem, lastClip);
    }
    return header ? kHeaderTextLeft : kClipTextLeft;
}

QColor PlaylistDelegate::textColour(int row) const
{
    // The root has no mark, so it is quiet too.
    if (!m_model->isChecked(row) || !m_model->whyMissing(row).isEmpty()) {
        return skin::kTextMuted;
    }
    return isHeader(row) ? skin::kText : skin::kTextSoft;
}

} // namespace orvanta
