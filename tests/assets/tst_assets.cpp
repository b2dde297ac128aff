#include "Artwork.h"
#include "PictureSet.h"
#include "WaveResource.h"

#include <QtEndian>
#include <QtTest>

#include <SDL.h>

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

    // Rate, samples and the format chunk's size; 103 leaves its pad byte out of the RIFF
    // length and 105 has two bytes beyond its RIFF chunk. The bytes are read the way the game
    // reads them, with SDL's wave loader.
    void wavesKeepTheirBytesAndSdlReadsThem()
    {
        const int waves[][6] = {{101, 744, 22050, 698, 18, 736},
                                {102, 7708, 8000, 7605, 16, 7700},
                                {103, 9176, 8000, 9131, 16, 9167},
                                {104, 6396, 8000, 6352, 16, 6388},
                                {105, 100, 22050, 53, 16, 90}};
        for (const auto &[id, fileSize, rate, samples, fmtSize, riffLength] : waves) {
            const QByteArray bytes = WaveResource(id);
            QCOMPARE(bytes.left(4) + bytes.mid(8, 8) + bytes.mid(20 + fmtSize, 4),
                     "RIFFWAVEfmt data");
            const auto word = [&](qsizetype at) {
                return qFromLittleEndian<quint32>(bytes.data() + at);
            };
            QCOMPARE(QList<quint32>({quint32(bytes.size()), word(4), word(16), word(24 + fmtSize)}),
                     QList<quint32>({quint32(fileSize), quint32(riffLength), quint32(fmtSize),
                                     quint32(samples)}));
            SDL_AudioSpec format{};
            Uint8 *buffer = nullptr;
            Uint32 length = 0;
            QVERIFY2(SDL_LoadWAV_RW(SDL_RWFromConstMem(bytes.data(), int(bytes.size())), 1, &format,
                                    &buffer, &length),
                     SDL_GetError());
            SDL_FreeWAV(buffer);
            QCOMPARE(std::tuple(format.freq, format.format, format.channels, length),
                     std::tuple(rate, SDL_AudioFormat(AUDIO_U8), Uint8(1), Uint32(samples)));
        }
        // After the odd sample count and its pad byte.
        QCOMPARE(WaveResource(102).mid(44 + 7605 + 1, 4), "LIST");
    }
};

QTEST_MAIN(tst_assets)
#include "tst_assets.moc"
