#include "Artwork.h"
#include "PictureSet.h"
#include "WaveResource.h"

#include <QBuffer>
#include <QResource>
#include <QtEndian>
#include <QtTest>

#include <SDL.h>

namespace {

// 103 leaves its pad byte out of the RIFF length; 105 has two bytes beyond its RIFF chunk.
struct WaveFacts
{
    int id, fileSize, rate, samples, fmtSize, riffLength;
};
const WaveFacts Waves[] = {
    {101, 744, 22050, 698, 18, 736},   {102, 7708, 8000, 7605, 16, 7700},
    {103, 9176, 8000, 9131, 16, 9167}, {104, 6396, 8000, 6352, 16, 6388},
    {105, 100, 22050, 53, 16, 90},
};

quint32 Word(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

// Decodes bytes with SDL's wave loader: the samples, or nothing when it refuses them.
std::optional<QByteArray> SdlDecode(const QByteArray &bytes, SDL_AudioSpec *format = nullptr)
{
    SDL_AudioSpec unused{};
    Uint8 *buffer = nullptr;
    Uint32 length = 0;
    SDL_RWops *source = SDL_RWFromConstMem(bytes.constData(), static_cast<int>(bytes.size()));
    if (SDL_LoadWAV_RW(source, 1, format ? format : &unused, &buffer, &length) == nullptr)
        return std::nullopt;
    QByteArray samples(reinterpret_cast<const char *>(buffer), static_cast<qsizetype>(length));
    SDL_FreeWAV(buffer);
    return samples;
}

// Every cut of `whole` shorter than `complete` bytes must be refused; a longer cut may load, but
// only as the whole picture, and `whole` itself must load. Either way the loader must survive.
void VerifyCutsRefused(const QByteArray &whole, const char *format, qsizetype complete, QSize size)
{
    for (qsizetype cut = 0; cut <= whole.size(); ++cut) {
        const QImage image = QImage::fromData(whole.left(cut), format);
        QVERIFY2(!image.isNull() ? cut >= complete && image.size() == size : cut < whole.size(),
                 qPrintable(QStringLiteral("%1 cut at %2").arg(format).arg(cut)));
    }
}

} // namespace

class tst_assets : public QObject
{
    Q_OBJECT

private slots:
    void everyPictureHasItsSizeAndEverySetItsCount()
    {
        const auto verifySet = [](const PictureSet &set, int count, QSize size) {
            QCOMPARE(std::pair(set.Count(), set.Size()), std::pair(count, size));
            for (int index = 1; index <= count; ++index) {
                QCOMPARE(set.Image(index).size(), size);
                QCOMPARE(set.Picture(index).size(), size);
            }
            QVERIFY(set.Image(1) != set.Image(count)); // not one file loaded over and over
        };
        verifySet(PictureSet::IL(), 15, QSize(16, 16));
        verifySet(PictureSet::ILD(), 10, QSize(17, 25));
        verifySet(PictureSet::ILS(), 4, QSize(21, 21));
        const QList<QSize> artwork{WindowIconPicture().size(), ItalianFlagPicture().size(),
                                   UnitedKingdomFlagPicture().size(), SpeechBubblePicture().size(),
                                   PortraitPicture().size()};
        QCOMPARE(artwork, (QList<QSize>{{16, 16}, {50, 30}, {54, 36}, {200, 140}, {200, 160}}));
    }

    void closedCellsAreRaisedAndOpenCellsSunken()
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
    }

    void edgesAndTransparencySitWhereThePicturesNeedThem()
    {
        for (int index = 1; index <= 10; ++index)
            for (int column : {0, 1, 15, 16})
                for (int y = 0; y < 25; ++y)
                    QCOMPARE(PictureSet::ILD().Image(index).pixel(column, y), 0xFF00007C);
        for (int index = 1; index <= 4; ++index) {
            const QImage face = PictureSet::ILS().Image(index);
            for (const QPoint corner : {QPoint(0, 0), QPoint(20, 0), QPoint(0, 20), QPoint(20, 20)})
                QCOMPARE(qAlpha(face.pixel(corner)), 0);
            QCOMPARE(qAlpha(face.pixel(10, 10)), 255);
        }
        const QImage portrait = PortraitPicture().toImage();
        int opaqueNose = 0;
        for (int y = 48; y < 48 + 22; ++y)
            for (int x = 28; x < 28 + 22; ++x)
                opaqueNose += qAlpha(portrait.pixel(x, y)) == 255 ? 1 : 0;
        QVERIFY2(opaqueNose >= 22 * 22 / 2, qPrintable(QString::number(opaqueNose)));
        const QImage bubble = SpeechBubblePicture().toImage();
        for (const QPoint corner : {QPoint(0, 0), QPoint(0, 139), QPoint(199, 139)})
            QCOMPARE(qAlpha(bubble.pixel(corner)), 0);
        QCOMPARE(qAlpha(bubble.pixel(100, 70)), 255);
    }

    void truncatedPicturesAreRefused()
    {
        const std::pair<const char *, QSize> texts[] = {{"cell11", {16, 16}}, {"face03", {21, 21}}};
        for (const auto &[name, size] : texts) {
            const QByteArray text =
                QResource(QStringLiteral(":/pictures/%1.xpm").arg(QLatin1String(name)))
                    .uncompressedData();
            // Only the end of the last pixel row completes the picture.
            VerifyCutsRefused(text, "XPM", text.lastIndexOf('"'), size);
        }
        QBuffer png;
        QVERIFY(png.open(QIODevice::WriteOnly) && WindowIconPicture().save(&png, "PNG"));
        // Without its closing chunk the picture data may still be complete.
        VerifyCutsRefused(png.data(), "PNG", png.data().indexOf("IEND") - 8, QSize(16, 16));
    }

    void wavesKeepTheirBytesAndSdlReadsThem()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray bytes = WaveResource(wave.id);
            QCOMPARE(bytes.left(4) + bytes.mid(8, 8) + bytes.mid(20 + wave.fmtSize, 4),
                     "RIFFWAVEfmt data");
            QList<quint32> fields{quint32(bytes.size())};
            for (qsizetype at : {4, 16, 20, 24, 32, 24 + wave.fmtSize})
                fields << Word(bytes, at);
            // File size, RIFF length, format size, PCM and mono, rate, one byte a frame of 8 bits,
            // data size.
            QCOMPARE(fields, (QList<quint32>{quint32(wave.fileSize), quint32(wave.riffLength),
                                             quint32(wave.fmtSize), 0x00010001, quint32(wave.rate),
                                             0x00080001, quint32(wave.samples)}));
            SDL_AudioSpec format{};
            const std::optional<QByteArray> samples = SdlDecode(bytes, &format);
            QVERIFY2(samples, SDL_GetError());
            QCOMPARE(std::tuple(format.freq, format.format, format.channels, samples->size()),
                     std::tuple(wave.rate, SDL_AudioFormat(AUDIO_U8), Uint8(1),
                                qsizetype(wave.samples)));
        }
        // After the odd sample count and its pad byte.
        QCOMPARE(WaveResource(102).mid(44 + 7605 + 1, 4), "LIST");
    }

    void damagedWavesAreRefusedOrBounded()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray whole = WaveResource(wave.id);
            const qsizetype dataStart = 28 + wave.fmtSize;
            // Without a complete header nothing plays; a cut inside the samples gives fewer.
            for (qsizetype length = 0; length < whole.size(); ++length) {
                const std::optional<QByteArray> samples = SdlDecode(whole.left(length));
                QVERIFY2(!samples || (length >= dataStart && samples->size() <= wave.samples),
                         qPrintable(QStringLiteral("%1 cut at %2").arg(wave.id).arg(length)));
            }
            // Chunk sizes: format huge, format too short (both refused), data huge (bounded).
            const std::tuple<qsizetype, quint32, bool> corruptions[] = {
                {16, 0xFFFFFFF0, true}, {16, 2, true}, {dataStart - 4, ~0u, false}};
            for (const auto &[at, value, refused] : corruptions) {
                QByteArray bytes = whole;
                qToLittleEndian(value, bytes.data() + at);
                const std::optional<QByteArray> samples = SdlDecode(bytes);
                QVERIFY(!samples || (!refused && samples->size() <= bytes.size() - dataStart));
            }
        }
    }
};

QTEST_MAIN(tst_assets)
#include "tst_assets.moc"
