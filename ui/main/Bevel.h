#pragma once

class QPainter;
class QRect;

// Paints the two-pixel bevel of the cell pictures along the edges of `rect`: light at the top
// and left when raised, dark there when sunken.
void PaintBevel(QPainter &painter, const QRect &rect, bool sunken);
