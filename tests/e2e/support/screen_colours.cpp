#include "tests/e2e/support/screen_colours.h"

namespace orvanta::e2e {

Colours coloursOf(const QImage& screen)
{
    Colours colours;
    for (int y = 0; y < screen.height(); ++y) {
        for (int x = 0; x < screen.width(); ++x) {
            const QRgb pixel = screen.pixel(x, y);
            const bool isDarkBeside = qGreen(pixel) < 40 && qBlue(pixel) < 40;
            if (isDarkBeside && qRed(pixel) > 200) {
                ++colours.red;
            } else if (isDarkBeside && qRed(pixel) < 40) {
                ++colours.black;
            } else {
                ++colours.others;
            }
        }
    }
    return colours;
}

} // namespace orvanta::e2e
