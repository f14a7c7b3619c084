// A button of the bar over the picture.
#pragma once

#include <QAbstractButton>

namespace orvanta {

/// The drawings of the bar's buttons: strokes on a square of 16.
namespace bar_drawings {
inline constexpr char kPrevious[] =
    R"(<path d="M4 3v10"/><path d="M13 3L6.5 8l6.5 5z" fill="%1"/>)";
inline constexpr char kNext[] = R"(<path d="M12 3v10"/><path d="M3 3l6.5 5L3 13z" fill="%1"/>)";
inline constexpr char kPlay[] = R"(<path d="M5 3l8 5-8 5z" fill="%1"/>)";
inline constexpr char kPause[] = R"(<path d="M5.5 3.5v9M10.5 3.5v9"/>)";
inline constexpr char kRepeat[] =
    R"(<path d="M3 8a5 5 0 0 1 8.5-3.5L13 6M13 8a5 5 0 0 1-8.5 3.5L3 10"/>)"
    R"(<path d="M13 3v3h-3M3 13v-3h3"/>)";
inline constexpr char kAgain[] = R"(<path d="M4.5 5.5A5 5 0 1 1 3 9"/><path d="M4 2.5v3.2h3.2"/>)";
inline constexpr char kText[] = R"(<path d="M3 4h10M8 4v9M6 13h4"/>)";
inline constexpr char kTracks[] =
    R"(<rect x="2" y="3.5" width="12" height="9" rx="1.5"/><path d="M4.5 7h3M10 7h1.5M4.5 10h5"/>)";
inline constexpr char kFullScreen[] =
    R"(<path d="M2.5 6V2.5H6M10 2.5h3.5V6M13.5 10v3.5H10M6 13.5H2.5V10"/>)";
} // namespace bar_drawings

/// Never takes the focus: the keys stay the window's.
class BarButton : public QAbstractButton
{
    Q_OBJECT

public:
    enum Rank
    {
        Ordinary,
        Principal, // larger, in the accent's colour
    };

    BarButton(const char* drawing, Rank rank, QWidget* parent);

    void setDrawing(const char* drawing);
    /// The tool tip, which names the button for assistive technology too, and the key behind it.
    void setTip(const QString& tip, const QString& key);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] QPixmap painted() const;

    const char* m_drawing;
    Rank m_rank;
};

} // namespace orvanta
