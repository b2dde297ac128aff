#pragma once

#include <QImage>
#include <QList>
#include <QPixmap>
#include <QSize>
#include <QString>

// An ordered, read-only list of pictures of one size, addressed from 1 to Count().
// The three sets of the main window are built once, on first use, from the embedded pictures.
class PictureSet
{
public:
    // The 15 field cells, 16 x 16: 1 open and empty, 2..9 open with 1..8 bombs around,
    // 10 bomb, 11 exploded bomb, 12 wrong flag, 13 closed, 14 flagged, 15 question mark.
    static const PictureSet &IL();
    // The 10 counter digits, 17 x 25: digit d is picture d + 1.
    static const PictureSet &ILD();
    // The 4 faces, 21 x 21, transparent outside the disc: 1 won, 2 lost, 3 astonished,
    // 4 normal (dark glasses).
    static const PictureSet &ILS();

    // Picture number index, 1 <= index <= Count(); any other index is a caller's error.
    // Needs a running QGuiApplication, as every QPixmap does.
    QPixmap Picture(int index) const;
    // The same picture as an ARGB32 image; usable without a GUI application.
    QImage Image(int index) const;
    int Count() const;
    QSize Size() const;

private:
    // Loads ":/pictures/<stem>NN.xpm" for NN = first .. first + count - 1 (two digits).
    PictureSet(const QString &stem, int first, int count, QSize size);

    QList<QImage> images;
    QSize pictureSize;
};
