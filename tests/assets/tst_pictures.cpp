#include "Artwork.h"
#include "PictureSet.h"

#include <QDir>
#include <QSet>
#include <QtTest>

namespace {

const QRgb OuterLight = 0xFFEBEBEB;
const QRgb InnerLight = 0xFFDEDEDE;
const QRgb OuterDark = 0xFFB8B8B8;
const QRgb InnerDark = 0xFFC5C5C5;
const QRgb CellFace = 0xFFD2D2D2;
const QRgb DigitDark = 0xFF00007C;
const QRgb DigitLit = 0xFF00FFFF;
const QRgb Red = 0xFFFF0000;

QSet<QRgb> Colours(const QImage &image, const QRect &area)
{
    QSet<QRgb> colours;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            colours.insert(image.pixel(x, y));
        }
    }
    return colours;
}

QRect CellInside()
{
    return {2, 2, 12, 12};
}

} // namespace

class tst_pictures : public QObject
{
    Q_OBJECT

private slots:
    void everyPictureIsEmbeddedInTheExecutable()
    {
        QCOMPARE(QDir(":/pictures").entryList(QDir::Files).size(), 15 + 10 + 4 + 5);
    }

    void setsHaveTheirCountAndSize_data()
    {
        QTest::addColumn<const PictureSet *>("set");
        QTest::addColumn<int>("count");
        QTest::addColumn<QSize>("size");
        QTest::newRow("cells") << &PictureSet::IL() << 15 << QSize(16, 16);
        QTest::newRow("digits") << &PictureSet::ILD() << 10 << QSize(17, 25);
        QTest::newRow("faces") << &PictureSet::ILS() << 4 << QSize(21, 21);
    }

    void setsHaveTheirCountAndSize()
    {
        QFETCH(const PictureSet *, set);
        QFETCH(int, count);
        QFETCH(QSize, size);
        QCOMPARE(set->Count(), count);
        QCOMPARE(set->Size(), size);
        QSet<QByteArray> distinct;
        for (int index = 1; index <= count; ++index) {
            QCOMPARE(set->Image(index).size(), size);
            QCOMPARE(set->Picture(index).size(), size);
            const QImage image = set->Image(index);
            distinct.insert(
                QByteArray(reinterpret_cast<const char *>(image.constBits()), image.sizeInBytes()));
        }
        QCOMPARE(distinct.size(), count);
    }

    void artworkHasItsSize()
    {
        QCOMPARE(WindowIconPicture().size(), QSize(16, 16));
        QCOMPARE(ItalianFlagPicture().size(), QSize(50, 30));
        QCOMPARE(UnitedKingdomFlagPicture().size(), QSize(54, 36));
        QCOMPARE(SpeechBubblePicture().size(), QSize(200, 140));
        QCOMPARE(PortraitPicture().size(), QSize(200, 160));
    }

    void closedCellsAreRaisedAndOpenCellsSunken()
    {
        for (int index = 1; index <= 15; ++index) {
            const QImage cell = PictureSet::IL().Image(index);
            const bool raised = index >= 13;
            const QRgb outerTopLeft = raised ? OuterLight : OuterDark;
            const QRgb innerTopLeft = raised ? InnerLight : InnerDark;
            const QRgb outerBottomRight = raised ? OuterDark : OuterLight;
            const QRgb innerBottomRight = raised ? InnerDark : InnerLight;
            for (int i = 2; i <= 13; ++i) {
                // The exploded bomb puts sparks on the middle of every edge.
                const bool spark = index == 11 && i == 8;
                QVERIFY2(spark || cell.pixel(i, 0) == outerTopLeft,
                         qPrintable(QString::number(index)));
                QVERIFY(spark || cell.pixel(0, i) == outerTopLeft);
                QVERIFY(spark || cell.pixel(i, 15) == outerBottomRight);
                QVERIFY(spark || cell.pixel(15, i) == outerBottomRight);
                QCOMPARE(cell.pixel(i, 1), innerTopLeft);
                QCOMPARE(cell.pixel(1, i), innerTopLeft);
                QCOMPARE(cell.pixel(i, 14), innerBottomRight);
                QCOMPARE(cell.pixel(14, i), innerBottomRight);
            }
        }
    }

    void blankCellsShowOnlyTheFaceInsideTheBevel()
    {
        QCOMPARE(Colours(PictureSet::IL().Image(1), CellInside()), QSet<QRgb>{CellFace});
        QCOMPARE(Colours(PictureSet::IL().Image(13), CellInside()), QSet<QRgb>{CellFace});
    }

    void numeralsAreTenRowsHighInTheirColour()
    {
        const QRgb colours[] = {0xFF0000FF, 0xFF4A9F17, 0xFFFF0000, 0xFFC600C6,
                                0xFF008080, 0xFFFF8000, 0xFF84602F, 0xFF000000};
        for (int count = 1; count <= 8; ++count) {
            const QImage cell = PictureSet::IL().Image(count + 1);
            QCOMPARE(Colours(cell, CellInside()), (QSet<QRgb>{CellFace, colours[count - 1]}));
            int top = 16;
            int bottom = -1;
            for (int y = 2; y <= 13; ++y) {
                for (int x = 2; x <= 13; ++x) {
                    if (cell.pixel(x, y) != CellFace) {
                        top = std::min(top, y);
                        bottom = std::max(bottom, y);
                    }
                }
            }
            QCOMPARE(bottom - top + 1, 10);
        }
    }

    void bombsCarryTheirColours()
    {
        const QSet<QRgb> blueBomb = Colours(PictureSet::IL().Image(10), CellInside());
        QVERIFY(blueBomb.contains(0xFF000000) && blueBomb.contains(0xFF4034C9) &&
                blueBomb.contains(0xFF0000FF) && blueBomb.contains(0xFF69ADE4));
        const QSet<QRgb> exploded = Colours(PictureSet::IL().Image(11), CellInside());
        QVERIFY(exploded.contains(0xFF000000) && exploded.contains(Red) &&
                exploded.contains(0xFFFF8040) && exploded.contains(0xFFFFFF00));
        QVERIFY(!exploded.contains(0xFF0000FF));
    }

    void explodedBombThrowsSparksToCornersEdgesAndBevel()
    {
        const QImage cell = PictureSet::IL().Image(11);
        for (const QPoint spark : {QPoint(0, 0), QPoint(15, 0), QPoint(0, 15), QPoint(15, 15),
                                   QPoint(1, 1), QPoint(14, 1), QPoint(1, 14), QPoint(14, 14)}) {
            QCOMPARE(cell.pixel(spark), Red);
        }
        QCOMPARE(cell.pixel(8, 0), Red);
        QCOMPARE(cell.pixel(8, 15), Red);
        QCOMPARE(cell.pixel(0, 8), Red);
        QCOMPARE(cell.pixel(15, 8), Red);
    }

    void wrongFlagCrossesOutTheBlueBomb()
    {
        const QImage bomb = PictureSet::IL().Image(10);
        const QImage crossed = PictureSet::IL().Image(12);
        for (int y = 0; y < 16; ++y) {
            for (int x = 0; x < 16; ++x) {
                const bool onCross = (x == y || x == 15 - y) && x >= 1 && x <= 14;
                QCOMPARE(crossed.pixel(x, y), onCross ? Red : bomb.pixel(x, y));
            }
        }
    }

    void flagAndQuestionMarkUseTheirColours()
    {
        const QSet<QRgb> flag = Colours(PictureSet::IL().Image(14), CellInside());
        QCOMPARE(flag, (QSet<QRgb>{CellFace, 0xFF000000, Red, 0xFFFF8000}));
        const QSet<QRgb> question = Colours(PictureSet::IL().Image(15), CellInside());
        QCOMPARE(question, (QSet<QRgb>{CellFace, 0xFF0000FF}));
    }

    void digitsKeepTheirOuterColumnsDark()
    {
        for (int index = 1; index <= 10; ++index) {
            const QImage digit = PictureSet::ILD().Image(index);
            QCOMPARE(Colours(digit, digit.rect()), (QSet<QRgb>{DigitDark, DigitLit}));
            for (int column : {0, 1, 15, 16}) {
                QCOMPARE(Colours(digit, QRect(column, 0, 1, 25)), QSet<QRgb>{DigitDark});
            }
            for (int row : {0, 23, 24}) {
                QCOMPARE(Colours(digit, QRect(0, row, 17, 1)), QSet<QRgb>{DigitDark});
            }
        }
    }

    void digitPictureOneMoreThanTheDigitLightsItsSegments()
    {
        // Sample points in the middle of segments a (top) to g (middle), clockwise from the top.
        const QPoint middles[7] = {{8, 1}, {14, 6}, {14, 17}, {8, 22}, {2, 17}, {2, 6}, {8, 11}};
        const char *const lit[10] = {"abcdef", "bc",     "abdeg", "abcdg",   "bcfg",
                                     "acdfg",  "acdefg", "abc",   "abcdefg", "abcdfg"};
        for (int digit = 0; digit <= 9; ++digit) {
            const QImage picture = PictureSet::ILD().Image(digit + 1);
            for (int segment = 0; segment < 7; ++segment) {
                const bool expected = std::strchr(lit[digit], 'a' + segment) != nullptr;
                QCOMPARE(picture.pixel(middles[segment]) == DigitLit, expected);
            }
        }
    }

    void facesAreOpaqueDiscsWithTransparentCorners()
    {
        for (int index = 1; index <= 4; ++index) {
            const QImage face = PictureSet::ILS().Image(index);
            for (const QPoint corner : {QPoint(0, 0), QPoint(20, 0), QPoint(0, 20), QPoint(20, 20),
                                        QPoint(2, 2), QPoint(18, 18)}) {
                QCOMPARE(qAlpha(face.pixel(corner)), 0);
            }
            QCOMPARE(qAlpha(face.pixel(10, 10)), 255);
            // 19 across, outlined in black on each side.
            QCOMPARE(qAlpha(face.pixel(0, 10)), 0);
            QCOMPARE(qAlpha(face.pixel(20, 10)), 0);
            QCOMPARE(face.pixel(1, 10), 0xFF000000);
            QCOMPARE(face.pixel(19, 10), 0xFF000000);
            QCOMPARE(face.pixel(10, 1), 0xFF000000);
            QCOMPARE(face.pixel(10, 19), 0xFF000000);
            QCOMPARE(face.pixel(2, 10), 0xFFFFFF00);
            // The two-dot nose in the middle.
            QCOMPARE(face.pixel(9, 11), 0xFF000000);
            QCOMPARE(face.pixel(10, 11), 0xFFFFFF00);
            QCOMPARE(face.pixel(11, 11), 0xFF000000);
        }
    }

    void portraitNoseLiesUnderTheHotspot()
    {
        const QImage portrait = PortraitPicture().toImage();
        QCOMPARE(qAlpha(portrait.pixel(0, 0)), 0);
        QCOMPARE(qAlpha(portrait.pixel(199, 0)), 0);
        int opaque = 0;
        for (int y = 48; y < 70; ++y) {
            for (int x = 28; x < 50; ++x) {
                opaque += qAlpha(portrait.pixel(x, y)) == 255 ? 1 : 0;
            }
        }
        QVERIFY2(opaque >= 22 * 22 / 2, qPrintable(QString::number(opaque)));
        QCOMPARE(qAlpha(portrait.pixel(39, 59)), 255);
    }

    void speechBubbleIsCreamWithItsTailAtTheTopRight()
    {
        const QImage bubble = SpeechBubblePicture().toImage();
        QCOMPARE(bubble.pixel(100, 70), 0xFFF7EFCE);
        for (const QPoint corner : {QPoint(0, 0), QPoint(0, 139), QPoint(199, 139)}) {
            QCOMPARE(qAlpha(bubble.pixel(corner)), 0);
        }
        // Only the tail reaches the right edge region, and only in the top rows.
        int tailTop = 140;
        int tailBottom = -1;
        for (int y = 0; y < 140; ++y) {
            if (qAlpha(bubble.pixel(195, y)) != 0) {
                tailTop = std::min(tailTop, y);
                tailBottom = std::max(tailBottom, y);
            }
        }
        QVERIFY(tailBottom >= tailTop);
        QVERIFY(tailBottom < 40);
    }

    void flagsShowTheirColours()
    {
        const QImage italian = ItalianFlagPicture().toImage();
        QCOMPARE(italian.pixel(8, 15), 0xFF008C00);
        QCOMPARE(italian.pixel(25, 15), 0xFFFFFFFF);
        QCOMPARE(italian.pixel(41, 15), 0xFFF70000);
        const QImage british = UnitedKingdomFlagPicture().toImage();
        QCOMPARE(Colours(british, british.rect()).size(), 3);
        QCOMPARE(british.pixel(27, 18), british.pixel(27, 1)); // the red cross
        QVERIFY(british.pixel(27, 18) != british.pixel(10, 3));
    }

    void windowIconIsAnExplodingBombOnPaleYellow()
    {
        const QImage icon = WindowIconPicture().toImage();
        const QSet<QRgb> colours = Colours(icon, icon.rect());
        for (QRgb colour : {0xFF804040u, 0xFFFF0000u, 0xFFFF8040u, 0xFFFFFF00u, 0xFFFFFFB9u}) {
            QVERIFY(colours.contains(colour));
        }
        QCOMPARE(Colours(icon, QRect(0, 0, 16, 1)), QSet<QRgb>{0xFF000000});
        QCOMPARE(Colours(icon, QRect(0, 0, 1, 16)), QSet<QRgb>{0xFF000000});
        QCOMPARE(icon.pixel(7, 7), 0xFFFFFF00);
    }
};

QTEST_MAIN(tst_pictures)
#include "tst_pictures.moc"
