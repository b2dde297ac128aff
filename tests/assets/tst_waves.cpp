#include "WaveResource.h"

#include <QtEndian>
#include <QtTest>

#include <SDL.h>

namespace {

struct WaveFacts
{
    int id;
    int rate;
    int samples;
    int fileSize;
    int formatSize;
};

const WaveFacts Waves[] = {
    {101, 22050, 698, 744, 18},  {102, 8000, 7605, 7708, 16}, {103, 8000, 9131, 9176, 16},
    {104, 8000, 6352, 6396, 16}, {105, 22050, 53, 100, 16},
};

quint32 Word32(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint32>(bytes.constData() + at);
}

quint16 Word16(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<quint16>(bytes.constData() + at);
}

void PutWord32(QByteArray &bytes, qsizetype at, quint32 value)
{
    qToLittleEndian(value, bytes.data() + at);
}

// Decodes bytes with SDL's wave loader; on success the samples, else an empty optional.
std::optional<QByteArray> SdlDecode(const QByteArray &bytes, SDL_AudioSpec *spec)
{
    Uint8 *buffer = nullptr;
    Uint32 length = 0;
    SDL_RWops *source = SDL_RWFromConstMem(bytes.constData(), static_cast<int>(bytes.size()));
    if (SDL_LoadWAV_RW(source, 1, spec, &buffer, &length) == nullptr) {
        return std::nullopt;
    }
    QByteArray samples(reinterpret_cast<const char *>(buffer), length);
    SDL_FreeWAV(buffer);
    return samples;
}

} // namespace

class tst_waves : public QObject
{
    Q_OBJECT

private slots:
    void onlyTheFiveSoundsExist()
    {
        for (int id : {-1, 0, 100, 106, 201}) {
            QVERIFY(WaveResource(id).isEmpty());
        }
        for (const WaveFacts &wave : Waves) {
            QVERIFY(!WaveResource(wave.id).isEmpty());
        }
    }

    void headersDescribeMonoUnsignedBytes()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray bytes = WaveResource(wave.id);
            QCOMPARE(bytes.size(), wave.fileSize);
            QCOMPARE(bytes.left(4), QByteArray("RIFF"));
            QCOMPARE(bytes.mid(8, 8), QByteArray("WAVEfmt "));
            QCOMPARE(Word32(bytes, 16), quint32(wave.formatSize));
            QCOMPARE(Word16(bytes, 20), quint16(1)); // PCM
            QCOMPARE(Word16(bytes, 22), quint16(1)); // mono
            QCOMPARE(Word32(bytes, 24), quint32(wave.rate));
            QCOMPARE(Word32(bytes, 28), quint32(wave.rate)); // bytes a second
            QCOMPARE(Word16(bytes, 32), quint16(1));         // bytes a frame
            QCOMPARE(Word16(bytes, 34), quint16(8));
            const qsizetype data = 20 + wave.formatSize;
            QCOMPARE(bytes.mid(data, 4), QByteArray("data"));
            QCOMPARE(Word32(bytes, data + 4), quint32(wave.samples));
        }
    }

    void filesKeepTheirOddities()
    {
        const QByteArray click = WaveResource(101);
        QCOMPARE(Word16(click, 36), quint16(0)); // empty format extension
        QCOMPARE(Word32(click, 4), quint32(click.size() - 8));

        const QByteArray loss = WaveResource(102);
        const qsizetype list = 44 + 7605 + 1; // after the odd sample data and its pad byte
        QCOMPARE(loss.mid(list, 4), QByteArray("LIST"));
        QCOMPARE(loss.mid(list + 8, 4), QByteArray("INFO"));
        QCOMPARE(list + 8 + Word32(loss, list + 4), loss.size());
        QCOMPARE(Word32(loss, 4), quint32(loss.size() - 8));

        const QByteArray win = WaveResource(103);
        QCOMPARE(Word32(win, 4), quint32(win.size() - 8 - 1)); // pad byte left uncounted
        QCOMPARE(44 + 9131 + 1, win.size());

        QCOMPARE(Word32(WaveResource(104), 4), quint32(6396 - 8));

        const QByteArray tick = WaveResource(105);
        QCOMPARE(Word32(tick, 4) + 8 + 2, quint32(tick.size())); // two bytes beyond the chunk
    }

    void soundsAreAudibleAndStartAndEndInSilence()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray samples =
                WaveResource(wave.id).mid(28 + wave.formatSize, wave.samples);
            int peak = 0;
            for (char sample : samples) {
                peak = std::max(peak, std::abs(static_cast<unsigned char>(sample) - 128));
            }
            QVERIFY2(peak >= 48, qPrintable(QString::number(wave.id)));
            QVERIFY(std::abs(static_cast<unsigned char>(samples.front()) - 128) <= 4);
            QVERIFY(std::abs(static_cast<unsigned char>(samples.back()) - 128) <= 4);
        }
    }

    void sdlDecodesEveryEmbeddedSound()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray bytes = WaveResource(wave.id);
            SDL_AudioSpec spec{};
            const std::optional<QByteArray> samples = SdlDecode(bytes, &spec);
            QVERIFY2(samples.has_value(), SDL_GetError());
            QCOMPARE(spec.freq, wave.rate);
            QCOMPARE(spec.format, AUDIO_U8);
            QCOMPARE(spec.channels, Uint8(1));
            QCOMPARE(samples->size(), wave.samples);
            QCOMPARE(*samples, bytes.mid(28 + wave.formatSize, wave.samples));
        }
    }

    void truncatedSoundsNeverCrashTheLoader()
    {
        for (const WaveFacts &wave : Waves) {
            const QByteArray whole = WaveResource(wave.id);
            const qsizetype dataStart = 28 + wave.formatSize;
            for (qsizetype length = 0; length < whole.size(); ++length) {
                SDL_AudioSpec spec{};
                const std::optional<QByteArray> samples = SdlDecode(whole.left(length), &spec);
                // Without a complete header nothing plays; a cut inside the samples may at most
                // give fewer of them.
                QVERIFY(!samples || length >= dataStart);
                QVERIFY(!samples || samples->size() <= wave.samples);
            }
        }
    }

    void corruptChunkSizesAreRefusedOrBounded_data()
    {
        QTest::addColumn<int>("at");
        QTest::addColumn<quint32>("value");
        QTest::addColumn<bool>("refused");
        QTest::newRow("riff length huge") << 4 << quint32(0xFFFFFFFF) << false;
        QTest::newRow("riff length zero") << 4 << quint32(0) << false;
        QTest::newRow("format chunk huge") << 16 << quint32(0xFFFFFFF0) << true;
        QTest::newRow("format chunk too short") << 16 << quint32(2) << true;
        QTest::newRow("no channels") << 20 << quint32(0x00000001) << true;
        QTest::newRow("zero rate") << 24 << quint32(0) << true;
        QTest::newRow("data chunk huge") << 40 << quint32(0xFFFFFFF0) << false;
    }

    void corruptChunkSizesAreRefusedOrBounded()
    {
        QFETCH(int, at);
        QFETCH(quint32, value);
        QFETCH(bool, refused);
        for (const WaveFacts &wave : Waves) {
            QByteArray bytes = WaveResource(wave.id);
            PutWord32(bytes, at + (at == 40 ? wave.formatSize - 16 : 0), value);
            SDL_AudioSpec spec{};
            const std::optional<QByteArray> samples = SdlDecode(bytes, &spec);
            if (refused) {
                QVERIFY(!samples);
            }
            // Whatever is accepted never reaches past the end of the bytes.
            QVERIFY(!samples || samples->size() <= bytes.size() - (28 + wave.formatSize));
        }
    }
};

QTEST_MAIN(tst_waves)
#include "tst_waves.moc"
