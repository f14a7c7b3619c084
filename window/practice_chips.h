// What is practised otherwise than usual, beside the clip's text, and the wait between lines.
#pragma once

#include "model/practice.h"
#include "model/texts.h"
#include "playback/overlay_wait_ring.h"

#include <QWidget>

#include <vector>

class QHBoxLayout;
class QPushButton;

namespace orvanta {

/// One button for each thing; a click takes it away. As wide as it has to be, and may be.
class PracticeChips : public QWidget
{
    Q_OBJECT

public:
    PracticeChips(TextLanguage language, QWidget* parent);

    WaitRing* Ring; // the wait between two lines

    void setValues(const Practice& practice);
    /// Chips that find no room in this width are counted by a last one.
    void fitInto(int width);

Q_SIGNALS:
    /// The last chip, which counts the others, was pressed.
    void morePressed();
    void chosen(const orvanta::Practice& practice);

private:
    QPushButton* makeChip(const QString& text);
    void showMore(int hidden);

    TextLanguage m_language;
    QHBoxLayout* m_row;
    std::vector<QPushButton*> m_chips;
    QPushButton* m_more; // "+2"
    Practice m_values;
};

} // namespace orvanta
