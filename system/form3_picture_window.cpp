#include "system/form3_picture_window.h"

#include "playback/control_rows.h"
#include "system/drawn_picture.h"

#include <QShortcut>
#include <QVBoxLayout>

namespace orvanta {

// Twips: how much larger than its picture the window is, both ways.
constexpr int kMargin = 100;
constexpr int kTwipsPerPixel = 15;

static int withMargin(int pixels)
{
    return (pixels * kTwipsPerPixel + kMargin + kTwipsPerPixel / 2) / kTwipsPerPixel;
}

Form3::Form3(const QString& title, QWidget* parent)
    : QWidget(parent, Qt::Window),
      Image1(new DrawnPicture(this))
{
    nameControls({{this, u"Form3"}, {Image1, u"Image1"}});
    setTitle(title);
    auto* only = new QVBoxLayout(this);
    only->setContentsMargins(0, 0, 0, 0);
    only->addWidget(Image1, 0, Qt::AlignCenter);
    connect(Image1, &DrawnPicture::clicked, this, &Form3::Form3_Image1_Click);
    connect(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this,
            &QWidget::close);
}

void Form3::setTitle(const QString& title)
{
    Image1->setAccessibleName(title);
    setWindowTitle(title);
}

void Form3::showPicture(const QString& drawing)
{
    Image1->setDrawing(drawing);
    const QSize size = Image1->ownSize();
    Image1->setFixedSize(size);
    setFixedSize(withMargin(size.width()), withMargin(size.height()));
    show();
    raise();
    activateWindow();
    Image1->setFocus();
}

void Form3::Form3_Image1_Click()
{
    close();
}

} // namespace orvanta
