#include "SmileButton.h"

#include "PictureSet.h"

#include <QPainter>

namespace {

// The bevel colours of the cells, so the button sits in the same light as the field.
const QColor ButtonFace(0xD2, 0xD2, 0xD2);
const QColor LightOuter(0xEB, 0xEB, 0xEB);
const QColor LightInner(0xDE, 0xDE, 0xDE);
const QColor DarkOuter(0x80, 0x80, 0x80);
const QColor DarkInner(0xB8, 0xB8, 0xB8);

// A two-pixel bevel: `topLeft` colours along the top and left edges, `bottomRight` along the
// bottom and right ones, outer ring first.
void PaintBevel(QPainter &painter, QRect rect, const QColor (&topLeft)[2],
                const QColor (&bottomRight)[2])
{
    for (int ring = 0; ring < 2; ++ring) {
        const QRect r = rect.adjusted(ring, ring, -ring, -ring);
        painter.fillRect(r.left(), r.bottom(), r.width(), 1, bottomRight[ring]);
        painter.fillRect(r.right(), r.top(), 1, r.height(), bottomRight[ring]);
        painter.fillRect(r.left(), r.top(), r.width() - 1, 1, topLeft[ring]);
        painter.fillRect(r.left(), r.top(), 1, r.height() - 1, topLeft[ring]);
    }
}

} // namespace

SmileButton::SmileButton(QWidget *parent) : QAbstractButton(parent)
{
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::TabFocus);
}

void SmileButton::SetFace(int newFace)
{
    Q_ASSERT(newFace >= 1 && newFace <= PictureSet::ILS().Count());
    if (face == newFace)
        return;
    face = newFace;
    update();
}

void SmileButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), ButtonFace);
    const bool down = isDown();
    if (down)
        PaintBevel(painter, rect(), {DarkOuter, DarkInner}, {LightOuter, LightInner});
    else
        PaintBevel(painter, rect(), {LightOuter, LightInner}, {DarkOuter, DarkInner});
    const QSize faceSize = PictureSet::ILS().Size();
    // A held button shows its face one pixel lower and to the right, as pressed in.
    const QPoint faceAt((width() - faceSize.width() + 1) / 2 + (down ? 1 : 0),
                        (height() - faceSize.height()) / 2 + (down ? 1 : 0));
    painter.drawPixmap(faceAt, PictureSet::ILS().Picture(face));
}
