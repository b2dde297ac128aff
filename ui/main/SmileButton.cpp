#include "SmileButton.h"

#include "Bevel.h"
#include "Palette.h"
#include "PictureSet.h"

#include <QPainter>

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
    painter.fillRect(rect(), Palette::Face);
    const bool down = isDown();
    PaintBevel(painter, rect(), down);
    const QSize faceSize = PictureSet::ILS().Size();
    // A held button shows its face one pixel lower and to the right, as pressed in.
    const QPoint faceAt((width() - faceSize.width() + 1) / 2 + (down ? 1 : 0),
                        (height() - faceSize.height()) / 2 + (down ? 1 : 0));
    painter.drawPixmap(faceAt, PictureSet::ILS().Picture(face));
}
