#include "Drawings.h"
#include "PixelArt.h"

#include <cmath>

QImage DrawItalianFlag()
{
    QImage flag = Blank(QSize(50, 30), Qt::white);
    for (int y = 0; y < 30; ++y) {
        for (int x = 0; x < 17; ++x) {
            flag.setPixelColor(x, y, QColor(0x00, 0x8C, 0x00));
            flag.setPixelColor(49 - x, y, QColor(0xF7, 0x00, 0x00));
        }
    }
    return flag;
}

// The union flag drawn pixel by pixel, sampled at each pixel's centre, with the usual
// proportions scaled to the 36-pixel height: a white saltire a fifth of the height wide carrying
// a red one offset towards the anticlockwise side of each arm, and a white cross a third of the
// height wide carrying a red cross a fifth of the height wide.
QImage DrawUnionFlag()
{
    const int width = 54;
    const int height = 36;
    const QColor blue(0x01, 0x21, 0x69);
    const QColor red(0xC8, 0x10, 0x2E);
    const double unit = height / 30.0;
    const double diagonal = std::hypot(width, height);
    QImage flag = Blank(QSize(width, height), blue);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double px = x + 0.5 - width / 2.0;
            const double py = y + 0.5 - height / 2.0;
            // Distance from the diagonal arm of this quarter, measured towards the side that
            // lies anticlockwise of the arm as seen on screen; the red stripe lies on that side.
            const double sx = px < 0 ? -1.0 : 1.0;
            const double sy = py < 0 ? -1.0 : 1.0;
            const double across = (px * height * sy - py * width * sx) / diagonal;
            QColor colour = blue;
            if (std::abs(across) <= 3 * unit) {
                colour = across >= 0 && across <= 2 * unit ? red : Qt::white;
            }
            if (std::abs(px) <= 5 * unit || std::abs(py) <= 5 * unit) {
                colour = Qt::white;
            }
            if (std::abs(px) <= 3 * unit || std::abs(py) <= 3 * unit) {
                colour = red;
            }
            flag.setPixelColor(x, y, colour);
        }
    }
    return flag;
}
