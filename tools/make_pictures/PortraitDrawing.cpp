#include "Drawings.h"
#include "PixelArt.h"

#include <QPainter>
#include <QPainterPath>

namespace {

const QColor Outline(0x3A, 0x2A, 0x1E);
const QColor Skin(0xF6, 0xC9, 0xA0);
const QColor SkinShade(0xE3, 0xA9, 0x80);
const QColor NoseColour(0xF0, 0x98, 0x78);
const QColor Hair(0x7A, 0x4A, 0x24);
const QColor Sweater(0x3B, 0x6F, 0xB6);
const QColor SweaterShade(0x2C, 0x55, 0x8E);

void Shape(QPainter &painter, const QPainterPath &path, const QColor &fill, bool outlined = true)
{
    painter.setBrush(fill);
    painter.setPen(outlined ? QPen(Outline, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin)
                            : QPen(Qt::NoPen));
    painter.drawPath(path);
}

QPainterPath Ellipse(qreal x, qreal y, qreal width, qreal height)
{
    QPainterPath path;
    path.addEllipse(QRectF(x, y, width, height));
    return path;
}

void DrawBody(QPainter &painter)
{
    // The sweater runs off the bottom edge, so its outline never shows there.
    QPainterPath sweater;
    sweater.moveTo(34, 164);
    sweater.cubicTo(36, 130, 60, 114, 92, 112);
    sweater.cubicTo(128, 110, 168, 122, 184, 164);
    sweater.closeSubpath();
    Shape(painter, sweater, Sweater);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(SweaterShade, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(140, 132), QPointF(150, 160));
    painter.drawLine(QPointF(56, 136), QPointF(50, 160));

    QPainterPath neck;
    neck.addRect(QRectF(70, 90, 30, 28));
    Shape(painter, neck, SkinShade);
    QPainterPath collar;
    collar.moveTo(62, 116);
    collar.cubicTo(70, 108, 100, 106, 110, 116);
    collar.cubicTo(100, 128, 72, 128, 62, 116);
    Shape(painter, collar, Qt::white);
    QPainterPath throat;
    throat.moveTo(70, 114);
    throat.cubicTo(78, 110, 94, 110, 102, 114);
    throat.cubicTo(94, 120, 78, 120, 70, 114);
    Shape(painter, throat, SkinShade, false);
}

void DrawHead(QPainter &painter)
{
    // Hair behind the head, then the head turned a little to the left, then the ear.
    Shape(painter, Ellipse(48, 6, 78, 80), Hair);
    Shape(painter, Ellipse(42, 14, 72, 86), Skin);
    Shape(painter, Ellipse(100, 48, 16, 24), Skin);
    QPainterPath earFold;
    earFold.moveTo(106, 54);
    earFold.cubicTo(112, 56, 112, 64, 106, 66);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(SkinShade, 2));
    painter.drawPath(earFold);

    // Hair over the top of the head and down the back, leaving the forehead free.
    QPainterPath hair;
    hair.moveTo(45, 32);
    hair.cubicTo(46, 12, 76, 2, 104, 8);
    hair.cubicTo(124, 14, 130, 40, 124, 70);
    hair.lineTo(116, 72);
    hair.cubicTo(116, 52, 110, 34, 98, 26);
    hair.cubicTo(88, 30, 80, 20, 70, 24);
    hair.cubicTo(60, 28, 56, 20, 50, 24);
    hair.closeSubpath();
    Shape(painter, hair, Hair);
}

void DrawFace(QPainter &painter)
{
    // Eyes looking left, towards the bubble; the far eye is the smaller one. Each pupil
    // carries a glint.
    Shape(painter, Ellipse(48, 36, 10, 13), Qt::white);
    Shape(painter, Ellipse(63, 34, 14, 15), Qt::white);
    Shape(painter, Ellipse(49, 40, 4, 6), Qt::black, false);
    Shape(painter, Ellipse(65, 39, 6, 7), Qt::black, false);
    painter.fillRect(QRect(50, 41, 1, 1), Qt::white);
    painter.fillRect(QRect(66, 40, 2, 2), Qt::white);

    // Raised, rounded brows: a cheerful look.
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Outline, 2, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(46, 29, 12, 6), 20 * 16, 140 * 16);
    painter.drawArc(QRectF(62, 27, 17, 6), 20 * 16, 140 * 16);

    Shape(painter, Ellipse(66, 60, 16, 10), QColor(0xF4, 0xA6, 0x98), false);

    // A wide friendly smile with a row of teeth.
    QPainterPath mouth;
    mouth.moveTo(42, 75);
    mouth.cubicTo(48, 79, 62, 78, 72, 72);
    mouth.cubicTo(68, 86, 50, 90, 42, 75);
    Shape(painter, mouth, QColor(0x9E, 0x2B, 0x25));
    QPainterPath teeth;
    teeth.moveTo(45, 77);
    teeth.cubicTo(52, 80, 62, 79, 69, 75);
    teeth.lineTo(68, 78);
    teeth.cubicTo(60, 82, 52, 82, 46, 79);
    teeth.closeSubpath();
    Shape(painter, teeth, Qt::white, false);

    // The big round nose, right over the spot that reveals the hint.
    Shape(painter, Ellipse(29, 50, 20, 17), NoseColour);
    Shape(painter, Ellipse(33, 53, 5, 3), QColor(0xFB, 0xD8, 0xC8), false);
}

} // namespace

QImage DrawPortrait()
{
    QImage portrait = Blank(QSize(200, 160));
    QPainter painter(&portrait);
    painter.setRenderHint(QPainter::Antialiasing, false);
    DrawBody(painter);
    DrawHead(painter);
    DrawFace(painter);
    return portrait;
}
