#include "GameHarness.h"
#include "Palette.h"
#include "PictureSet.h"
#include "SmileButton.h"
#include "frmAbout.h"

#include <QTest>

namespace {

constexpr int Scale = 2;

// Before the application starts: a screen that doubles.
[[maybe_unused]] const bool Scaled = qputenv("QT_SCALE_FACTOR", QByteArray::number(Scale));

// Whether `shot` shows `source` at `at` (in source pixels times `scale`), each opaque source
// pixel a `scale` x `scale` square of exactly its colour.
bool ShowsAsSquares(const QImage &shot, const QImage &source, QPoint at, int scale = Scale)
{
    for (int y = 0; y < source.height() * scale; ++y) {
        for (int x = 0; x < source.width() * scale; ++x) {
            const QRgb colour = source.pixel(x / scale, y / scale);
            if (qAlpha(colour) == 255 &&
                shot.pixel(at.x() * scale + x, at.y() * scale + y) != colour)
                return false;
        }
    }
    return true;
}

} // namespace

// Pixel art that stays exact when enlarged on a screen that scales by a whole number: each source
// pixel an exact square of its colour, never a blend. (The art itself, and the desktop's theme
// icons, are checked against their pictures in docs/ by tests/pictures.)
class CrispTest : public QObject
{
    Q_OBJECT

private slots:
    void enlargedPicturesAreExactSquares()
    {
        GameHarness game;
        game.window.SetPic(1, 4);
        frmAbout about(&game.window);
        // A control and the picture it shows where.
        const std::tuple<const char *, QImage, QPoint> shown[] = {
            {"field", PictureSet::IL().Image(4), {2, 2}},
            {"field", PictureSet::IL().Image(13), {18, 2}},
            {"pT", PictureSet::ILD().Image(1), {32, 0}},
            {"btnSmile", PictureSet::ILS().Image(4), {3, 2}},
            {"Image1", QImage(":/pictures/portrait.xpm"), {0, 0}}};
        for (const auto &[name, picture, at] : shown) // the dialog is the window's child
            QVERIFY2(ShowsAsSquares(game.window.findChild<QWidget *>(name)->grab().toImage(),
                                    picture, at),
                     name);
        // The smiley brings its own grey ground, whatever stands behind it: here nothing.
        QCOMPARE(SmileButton().grab().toImage().pixelColor(3 * Scale, 2 * Scale), Palette::Face);
    }
};

QTEST_MAIN(CrispTest)
#include "tst_crisp.moc"
