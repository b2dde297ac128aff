#include "Drawings.h"
#include "PixelArt.h"

namespace {

// All seven segments, each letter marking its own pixels: a top, b upper right, c lower right,
// d bottom, e lower left, f upper left, g middle. The bars are two pixels thick and their ends
// are cut at 45 degrees, so neighbouring segments meet only at a dark diagonal seam. Lit
// pixels stay inside columns 2..14 and rows 1..22.
const QStringList Segments = {
    ".................", "...aaaaaaaaaaa...", "..f.aaaaaaaaa.b..", "..ff.........bb..",
    "..ff.........bb..", "..ff.........bb..", "..ff.........bb..", "..ff.........bb..",
    "..ff.........bb..", "..ff.........bb..", "..ff.........bb..", "..f.ggggggggg.b..",
    "..e.ggggggggg.c..", "..ee.........cc..", "..ee.........cc..", "..ee.........cc..",
    "..ee.........cc..", "..ee.........cc..", "..ee.........cc..", "..ee.........cc..",
    "..ee.........cc..", "..e.ddddddddd.c..", "...ddddddddddd...", ".................",
    ".................",
};

// The lit segments of each digit 0..9.
const char *const Lit[10] = {"abcdef", "bc",     "abdeg", "abcdg",   "bcfg",
                             "acdfg",  "acdefg", "abc",   "abcdefg", "abcdfg"};

} // namespace

QList<QImage> DrawDigits()
{
    const QColor dark(0x00, 0x00, 0x7C);
    const QColor cyan(0x00, 0xFF, 0xFF);
    QList<QImage> digits;
    for (const char *segments : Lit) {
        QImage digit = Blank(QSize(17, 25), dark);
        Palette palette;
        for (const char *segment = segments; *segment != '\0'; ++segment) {
            palette.insert(QChar(*segment), cyan);
        }
        Stamp(digit, QPoint(0, 0), Segments, palette);
        digits.append(digit);
    }
    return digits;
}
