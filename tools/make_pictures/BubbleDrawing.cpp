#include "Drawings.h"
#include "PixelArt.h"

#include <QPainter>
#include <QPainterPath>

// A cream speech bubble: a rounded box roomy enough for four short lines of text, with its
// tail leaving the top right corner towards the speaker's mouth. The tail ends below the top
// rows on the right, where the speaker's nose sits just behind the bubble.
QImage DrawBubble()
{
    QImage bubble = Blank(QSize(200, 140));
    QPainterPath box;
    box.addRoundedRect(QRectF(2, 4, 182, 133), 30, 30);
    QPainterPath tail;
    tail.moveTo(148, 8);
    tail.quadTo(178, 14, 198, 16);
    tail.quadTo(186, 24, 181, 46);
    tail.closeSubpath();
    const QPainterPath outline = box.united(tail).simplified();

    QPainter painter(&bubble);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(QColor(0xF7, 0xEF, 0xCE));
    painter.setPen(QPen(QColor(0x3A, 0x2A, 0x1E), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(outline);
    return bubble;
}
