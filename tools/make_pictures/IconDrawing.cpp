#include "Drawings.h"
#include "PixelArt.h"

#include <cmath>
#include <numbers>

QImage DrawIcon()
{
    QImage icon = Blank(QSize(16, 16), Qt::black);
    // One-pixel grey bevel inside the black frame, light at the top and left.
    for (int i = 1; i <= 14; ++i) {
        const QColor light(0xEB, 0xEB, 0xEB);
        const QColor dark(0x80, 0x80, 0x80);
        icon.setPixelColor(i, 1, i < 14 ? light : dark);
        icon.setPixelColor(1, i, i < 14 ? light : dark);
        icon.setPixelColor(i, 14, dark);
        icon.setPixelColor(14, i, dark);
    }
    // The blast: rings of brown, red, orange and yellow inside an eight-pointed star outline
    // on the pale yellow square.
    const QColor rings[] = {QColor(0xFF, 0xFF, 0x00), QColor(0xFF, 0x80, 0x40),
                            QColor(0xFF, 0x00, 0x00), QColor(0x80, 0x40, 0x40)};
    for (int y = 2; y <= 13; ++y) {
        for (int x = 2; x <= 13; ++x) {
            const double dx = x - 7.5;
            const double dy = y - 7.5;
            const double angle = std::atan2(dy, dx);
            const double reach = 4.6 + 1.4 * std::cos(8 * angle + std::numbers::pi / 8);
            const double distance = std::hypot(dx, dy) / reach;
            QColor colour(0xFF, 0xFF, 0xB9);
            if (distance <= 1.0) {
                colour = rings[std::min(3, static_cast<int>(distance * 4.0))];
            }
            icon.setPixelColor(x, y, colour);
        }
    }
    return icon;
}
