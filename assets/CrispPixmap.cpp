#include "CrispPixmap.h"

QPixmap CrispPixmap(const QPixmap &picture, QSize size, qreal devicePixelRatio)
{
    QPixmap crisp =
        picture.scaled(size * devicePixelRatio, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    crisp.setDevicePixelRatio(devicePixelRatio);
    return crisp;
}
