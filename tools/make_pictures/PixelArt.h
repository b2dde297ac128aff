#pragma once

#include <QColor>
#include <QHash>
#include <QImage>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

// Small helpers for drawing pixel art into ARGB32 images and writing it as XPM text.

using Palette = QHash<QChar, QColor>;

// An image of the given size filled with one colour (transparent by default).
QImage Blank(QSize size, QColor fill = Qt::transparent);

// Copies text art into image with its top left corner at origin: each character is looked up in
// palette; characters not in the palette leave the pixel as it is.
void Stamp(QImage &image, QPoint origin, const QStringList &rows, const Palette &palette);

// Writes image as XPM, one character a pixel, fully transparent pixels as "None".
// Returns false when the file cannot be written.
bool WriteXpm(const QImage &image, const QString &name, const QString &path);
