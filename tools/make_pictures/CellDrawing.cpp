#include "Drawings.h"
#include "PixelArt.h"

namespace {

const QColor Face(0xD2, 0xD2, 0xD2);
const QColor OuterLight(0xEB, 0xEB, 0xEB);
const QColor InnerLight(0xDE, 0xDE, 0xDE);
const QColor OuterDark(0xB8, 0xB8, 0xB8);
const QColor InnerDark(0xC5, 0xC5, 0xC5);
const QColor Red(0xFF, 0x00, 0x00);

// A cell with its two-pixel bevel: raised is lit from the top left, sunken the other way round.
// The top and left sides own the ring up to the last pixel before the far corner.
QImage BevelledCell(bool raised)
{
    QImage cell = Blank(QSize(16, 16), Face);
    for (int ring = 0; ring < 2; ++ring) {
        const int far = 15 - ring;
        const QColor light = ring == 0 ? OuterLight : InnerLight;
        const QColor dark = ring == 0 ? OuterDark : InnerDark;
        for (int i = ring; i <= far; ++i) {
            const bool topLeftSide = i < far;
            const QColor first = topLeftSide == raised ? light : dark;
            const QColor second = raised ? dark : light;
            cell.setPixelColor(i, ring, first); // top
            cell.setPixelColor(ring, i, first); // left
            cell.setPixelColor(i, far, second); // bottom
            cell.setPixelColor(far, i, second); // right
        }
    }
    return cell;
}

// Bold digits 1..8, eight pixels wide and ten high, strokes two pixels wide.
const QStringList Numerals[8] = {
    {"...##...", "..###...", ".####...", "...##...", "...##...", "...##...", "...##...", "...##...",
     "########", "########"},
    {".######.", "########", "##....##", ".....###", "...####.", ".####...", "###.....", "##......",
     "########", "########"},
    {"#######.", "########", "......##", "......##", "..#####.", "..#####.", "......##", "......##",
     "########", "#######."},
    {"....###.", "...####.", "..##.##.", ".##..##.", "##...##.", "########", "########", ".....##.",
     ".....##.", ".....##."},
    {"########", "########", "##......", "##......", "#######.", "########", "......##", "......##",
     "########", "#######."},
    {".######.", "########", "##......", "##......", "#######.", "########", "##....##", "##....##",
     "########", ".######."},
    {"########", "########", "......##", ".....##.", "....##..", "...##...", "...##...", "..##....",
     "..##....", "..##...."},
    {".######.", "########", "##....##", "##....##", ".######.", ".######.", "##....##", "##....##",
     "########", ".######."},
};

const QColor NumeralColours[8] = {QColor(0x00, 0x00, 0xFF), QColor(0x4A, 0x9F, 0x17),
                                  QColor(0xFF, 0x00, 0x00), QColor(0xC6, 0x00, 0xC6),
                                  QColor(0x00, 0x80, 0x80), QColor(0xFF, 0x80, 0x00),
                                  QColor(0x84, 0x60, 0x2F), QColor(0x00, 0x00, 0x00)};

// The bomb inside the 12 x 12 symbol area: outline and points '#', ring 'r', body 'b', centre 'c'.
const QStringList Bomb = {
    ".....##.....", "....####....", "..##rrrr##..", ".#rrbbbbrr#.", ".#rbbbbbbr#.", "##rbbccbbr##",
    "##rbbccbbr##", ".#rbbbbbbr#.", ".#rrbbbbrr#.", "..##rrrr##..", "....####....", ".....##.....",
};

QImage BombCell(const QColor &ring, const QColor &body, const QColor &centre)
{
    QImage cell = BevelledCell(false);
    Stamp(cell, QPoint(2, 2), Bomb, {{'#', Qt::black}, {'r', ring}, {'b', body}, {'c', centre}});
    return cell;
}

QImage ExplodedBombCell()
{
    QImage cell = BombCell(Red, QColor(0xFF, 0x80, 0x40), QColor(0xFF, 0xFF, 0x00));
    // Sparks: the picture's corners, the middle of its edges, the inner corners of the bevel.
    const QPoint sparks[] = {{0, 0}, {15, 0}, {0, 15}, {15, 15}, {8, 0},  {8, 15},
                             {0, 8}, {15, 8}, {1, 1},  {14, 1},  {1, 14}, {14, 14}};
    for (const QPoint &spark : sparks) {
        cell.setPixelColor(spark, Red);
    }
    return cell;
}

QImage CrossedBombCell(QImage bomb)
{
    for (int i = 1; i <= 14; ++i) {
        bomb.setPixelColor(i, i, Red);
        bomb.setPixelColor(15 - i, i, Red);
    }
    return bomb;
}

// Flag: black pole and foot 'k', pennant outline '#', red 'r', orange touches 'o'.
const QStringList Flag = {
    "..#.........", "..###.......", "..#rr##.....", "..#rroo##...", "..#rrrroo##.", "..#rrrr##...",
    "..#rr##.....", "..###.......", "..#.........", "..#.........", ".####.......", "######......",
};

const QStringList Question = {
    ".######.", "########", "##....##", ".....###", "...####.",
    "...##...", "...##...", "........", "...##...", "...##...",
};

} // namespace

QList<QImage> DrawCells()
{
    QList<QImage> cells;
    cells.append(BevelledCell(false));
    for (int n = 0; n < 8; ++n) {
        QImage cell = BevelledCell(false);
        Stamp(cell, QPoint(4, 3), Numerals[n], {{'#', NumeralColours[n]}});
        cells.append(cell);
    }
    const QColor blue(0x00, 0x00, 0xFF);
    const QImage bomb = BombCell(QColor(0x40, 0x34, 0xC9), blue, QColor(0x69, 0xAD, 0xE4));
    cells.append(bomb);
    cells.append(ExplodedBombCell());
    cells.append(CrossedBombCell(bomb));
    cells.append(BevelledCell(true));
    QImage flagged = BevelledCell(true);
    Stamp(flagged, QPoint(2, 2), Flag,
          {{'#', Qt::black}, {'r', Red}, {'o', QColor(0xFF, 0x80, 0x00)}});
    cells.append(flagged);
    QImage queried = BevelledCell(true);
    Stamp(queried, QPoint(4, 3), Question, {{'#', blue}});
    cells.append(queried);
    return cells;
}
