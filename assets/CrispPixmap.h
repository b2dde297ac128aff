#pragma once

#include <QPixmap>
#include <QSize>

// The picture stretched to `size` (in device-independent pixels) for a screen of the given
// device pixel ratio, by repeating pixels rather than blending them, so that pixel art stays
// sharp. Widgets that would smooth a picture themselves (labels, icons) are given this one.
QPixmap CrispPixmap(const QPixmap &picture, QSize size, qreal devicePixelRatio);
