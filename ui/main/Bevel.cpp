#include "Bevel.h"

#include "Palette.h"

#include <QPainter>

void PaintBevel(QPainter &painter, const QRect &rect, bool sunken)
{
    const QColor light[] = {Palette::LightOuter, Palette::LightInner};
    const QColor dark[] = {Palette::DarkOuter, Palette::DarkInner};
    const QColor *topLeft = sunken ? dark : light;
    const QColor *bottomRight = sunken ? light : dark;
    for (int ring = 0; ring < 2; ++ring) {
        const QRect r = rect.adjusted(ring, ring, -ring, -ring);
        painter.fillRect(r.left(), r.bottom(), r.width(), 1, bottomRight[ring]);
        painter.fillRect(r.right(), r.top(), 1, r.height(), bottomRight[ring]);
        painter.fillRect(r.left(), r.top(), r.width() - 1, 1, topLeft[ring]);
        painter.fillRect(r.left(), r.top(), 1, r.height() - 1, topLeft[ring]);
    }
}
