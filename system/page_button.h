// The buttons that choose a page of the options.
#pragma once

#include <QToolButton>

namespace orvanta {

/// For assistive technology it is what it works as: the tab of a page, chosen while that is shown.
class PageButton : public QToolButton
{
    Q_OBJECT

public:
    explicit PageButton(QWidget* parent);
};

} // namespace orvanta
