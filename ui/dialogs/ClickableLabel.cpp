#include "ClickableLabel.h"

#include <QMouseEvent>

// The release comes to the widget that took the press, so accepting it here keeps the click
// from reaching the window behind.
void ClickableLabel::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        emit clicked();
}
