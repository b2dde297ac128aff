#include "Artwork.h"
#include "PictureSet.h"

#include <QtTest>

class tst_assets : public QObject
{
    Q_OBJECT

private slots:
    void everyPictureHasItsSizeAndEverySetItsCount()
    {
        const std::tuple<const PictureSet &, int, QSize> sets[] = {
            {PictureSet::IL(), 15, {16, 16}},
            {PictureSet::ILD(), 10, {17, 25}},
            {PictureSet::ILS(), 4, {21, 21}}};
        for (const auto &[set, count, size] : sets) {
            QCOMPARE(std::pair(set.Count(), set.Size()), std::pair(count, size));
            for (int index = 1; index <= count; ++index)
                QCOMPARE(set.Picture(index).size(), size);
            QVERIFY(set.Image(1) != set.Image(count)); // not one file loaded over and over
        }
        const QList<QSize> artwork{WindowIconPicture().size(), ItalianFlagPicture().size(),
                                   UnitedKingdomFlagPicture().size(), SpeechBubblePicture().size(),
                                   PortraitPicture().size()};
        QCOMPARE(artwork, (QList<QSize>{{16, 16}, {50, 30}, {54, 36}, {200, 140}, {200, 160}}));
    }

    // Closed cells raised and open ones sunken; digits on their dark blue ground; faces round.
    void bevelsGroundsAndRoundFacesSitWhereThePicturesNeedThem()
    {
        const QRgb light = 0xFFEBEBEB, lighter = 0xFFDEDEDE, dark = 0xFFB8B8B8, darker = 0xFFC5C5C5;
        // Outer then inner ring of the top and left edges, then of the bottom and right edges.
        const QList<QRgb> raised{light, light, lighter, lighter, dark, dark, darker, darker};
        const QList<QRgb> sunken{dark, dark, darker, darker, light, light, lighter, lighter};
        for (int index = 1; index <= 15; ++index) {
            const QImage c = PictureSet::IL().Image(index);
            const QList<QRgb> bevel{c.pixel(4, 0),   c.pixel(0, 11),  c.pixel(4, 1),
                                    c.pixel(1, 11),  c.pixel(11, 15), c.pixel(15, 4),
                                    c.pixel(11, 14), c.pixel(14, 4)};
            QVERIFY2(bevel == (index >= 13 ? raised : sunken), qPrintable(QString::number(index)));
        }
        for (int index = 1; index <= 10; ++index)
            for (const QPoint edge : {QPoint(0, 0), QPoint(1, 12), QPoint(15, 24), QPoint(16, 3)})
                QCOMPARE(PictureSet::ILD().Image(index).pixel(edge), 0xFF00007C);
        for (int index = 1; index <= 4; ++index) {
            const QImage face = PictureSet::ILS().Image(index);
            for (const QPoint corner : {QPoint(0, 0), QPoint(20, 0), QPoint(0, 20), QPoint(20, 20)})
                QCOMPARE(qAlpha(face.pixel(corner)), 0);
            QCOMPARE(qAlpha(face.pixel(10, 10)), 255);
        }
    }
};

QTEST_MAIN(tst_assets)
#include "tst_assets.moc"
