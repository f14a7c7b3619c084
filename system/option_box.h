// A check box whose caption may take several lines.
#pragma once

#include <QCheckBox>

namespace orvanta {

/// The whole caption is there at any width. Looks and behaves like the desktop's check boxes.
class OptionBox : public QCheckBox
{
    Q_OBJECT

public:
    using QCheckBox::QCheckBox;

    /// As high as the caption is at the width that captions get at least.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// Where the caption stands, in the box's own coordinates.
    [[nodiscard]] QRect captionPlace() const;

protected:
    [[nodiscard]] bool hitButton(const QPoint& place) const override
    {
        return rect().contains(place);
    }
    void paintEvent(QPaintEvent* event) override;

private:
    [[nodiscard]] int captionStart() const;
    [[nodiscard]] QRect captionAt(int width) const;
};

} // namespace orvanta
