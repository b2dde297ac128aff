#include "RecordingWaveOutput.h"
#include "SdlWaveOutput.h"

#include <QTest>

#include <memory>

namespace {

void AppendLittleEndian(QByteArray &bytes, quint32 value, int size)
{
    for (int i = 0; i < size; ++i) {
        bytes.append(char((value >> (8 * i)) & 0xff));
    }
}

// A RIFF WAVE image with a 16-byte format chunk followed by the data chunk.
QByteArray Wave(int rate, int bitsPerSample, const QByteArray &samples, int channels = 1,
                int formatTag = 1)
{
    const int blockAlign = channels * bitsPerSample / 8;
    QByteArray wave("RIFF");
    AppendLittleEndian(wave, quint32(36 + samples.size()), 4);
    wave.append("WAVEfmt ");
    AppendLittleEndian(wave, 16, 4);
    AppendLittleEndian(wave, quint32(formatTag), 2);
    AppendLittleEndian(wave, quint32(channels), 2);
    AppendLittleEndian(wave, quint32(rate), 4);
    AppendLittleEndian(wave, quint32(rate * blockAlign), 4);
    AppendLittleEndian(wave, quint32(blockAlign), 2);
    AppendLittleEndian(wave, quint32(bitsPerSample), 2);
    wave.append("data");
    AppendLittleEndian(wave, quint32(samples.size()), 4);
    return wave + samples;
}

// Bytes that are not silence, so no stage may drop them as empty.
QByteArray Samples(int count)
{
    QByteArray samples(count, '\0');
    for (int i = 0; i < count; ++i) {
        samples[i] = char(i % 251);
    }
    return samples;
}

// The test device is the dummy driver's, which grants the requested 22050 Hz mono 16-bit.
int DeviceBytes(int frames, int rate)
{
    return int(qint64(frames) * 22050 / rate) * 2;
}

// Resampling may drop a frame or two at the end.
constexpr int ResamplingSlack = 8;

// While held, the audio thread cannot take anything from the queue, so its size is exact.
class QueueHold
{
public:
    explicit QueueHold(const SdlWaveOutput &output) : device(output.DeviceId())
    {
        SDL_LockAudioDevice(device);
    }
    ~QueueHold() { SDL_UnlockAudioDevice(device); }
    int Queued() const { return int(SDL_GetQueuedAudioSize(device)); }

private:
    SDL_AudioDeviceID device;
};

// 101: 1000 frames that need no resampling; 102: 800 frames at 8000 Hz; 103: 16-bit, 300 frames.
QMap<int, QByteArray> TestWaves()
{
    return {{101, Wave(22050, 8, Samples(1000))},
            {102, Wave(8000, 8, Samples(800))},
            {103, Wave(22050, 16, Samples(600))}};
}

} // namespace

class SoundTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void playQueuesTheSoundInTheDeviceFormat();
    void newSoundCutsOffTheOneStillQueued();
    void soundWithoutDecodedWaveLeavesTheDeviceAlone();
    void damagedWaveIsLeftOut_data();
    void damagedWaveIsLeftOut();
    void waveCutShortPlaysWhatItHolds();
    void everyEmbeddedSoundDecodesToItsLength_data();
    void everyEmbeddedSoundDecodesToItsLength();
    void closingPlayerFreesItsDeviceAndSparesOthers();
    void withoutDriverNothingPlaysAndNothingFails();
    void recordingOutputKeepsEveryIdInOrder();
};

void SoundTest::init()
{
    // A real device path that discards what it plays, so the tests run without a sound card.
    qputenv("SDL_AUDIODRIVER", "dummy");
}

void SoundTest::playQueuesTheSoundInTheDeviceFormat()
{
    SdlWaveOutput output(TestWaves());
    QVERIFY(output.HasDevice());
    QCOMPARE(output.DecodedCount(), 3);
    QCOMPARE(SDL_GetAudioDeviceStatus(output.DeviceId()), SDL_AUDIO_PAUSED);

    QueueHold hold(output);
    output.Play(101);
    QCOMPARE(hold.Queued(), 2000);
    QCOMPARE(SDL_GetAudioDeviceStatus(output.DeviceId()), SDL_AUDIO_PLAYING);
    output.Play(103);
    QCOMPARE(hold.Queued(), 600);
    output.Play(102);
    QCOMPARE_LE(qAbs(hold.Queued() - DeviceBytes(800, 8000)), ResamplingSlack);
}

void SoundTest::newSoundCutsOffTheOneStillQueued()
{
    SdlWaveOutput output(TestWaves());
    QueueHold hold(output);
    output.Play(102);
    output.Play(101);
    QCOMPARE(hold.Queued(), 2000);
    output.Play(103);
    QCOMPARE(hold.Queued(), 600);
    output.Play(101);
    QCOMPARE(hold.Queued(), 2000);
    // A repeated sound starts again from its beginning.
    output.Play(101);
    QCOMPARE(hold.Queued(), 2000);
}

void SoundTest::soundWithoutDecodedWaveLeavesTheDeviceAlone()
{
    SdlWaveOutput output(TestWaves());
    QueueHold hold(output);
    output.Play(104);
    QCOMPARE(hold.Queued(), 0);
    QCOMPARE(SDL_GetAudioDeviceStatus(output.DeviceId()), SDL_AUDIO_PAUSED);
    output.Play(101);
    output.Play(0);
    output.Play(-1);
    QCOMPARE(hold.Queued(), 2000);
}

void SoundTest::damagedWaveIsLeftOut_data()
{
    const QByteArray good = Wave(22050, 8, Samples(1000));
    QTest::addColumn<QByteArray>("wave");
    QTest::newRow("no bytes") << QByteArray();
    QTest::newRow("not a RIFF image") << QByteArray("not a wave at all, just some text");
    QTest::newRow("cut before the format chunk") << good.left(20);
    QTest::newRow("cut inside the format chunk") << good.left(30);
    QTest::newRow("compressed format") << Wave(22050, 8, Samples(100), 1, 0x55);
    QTest::newRow("no channels") << Wave(22050, 8, Samples(100), 0);
    QTest::newRow("no sample rate") << Wave(0, 8, Samples(100));
    QTest::newRow("no bits per sample") << Wave(22050, 0, Samples(100));
    QTest::newRow("empty data chunk") << Wave(22050, 8, QByteArray());
}

void SoundTest::damagedWaveIsLeftOut()
{
    QFETCH(QByteArray, wave);
    SdlWaveOutput output({{101, Wave(22050, 8, Samples(1000))}, {102, wave}});
    QCOMPARE(output.DecodedCount(), 1);

    QueueHold hold(output);
    output.Play(102);
    QCOMPARE(hold.Queued(), 0);
    output.Play(101);
    output.Play(102);
    QCOMPARE(hold.Queued(), 2000);
}

void SoundTest::waveCutShortPlaysWhatItHolds()
{
    const QByteArray whole = Wave(22050, 8, Samples(1000));
    SdlWaveOutput output({{101, whole.left(whole.size() - 400)}});
    QueueHold hold(output);
    output.Play(101);
    QCOMPARE(hold.Queued(), 1200);
}

void SoundTest::everyEmbeddedSoundDecodesToItsLength_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("sampleBytes");
    QTest::addColumn<int>("rate");
    QTest::newRow("101 press on a cell") << 101 << 698 << 22050;
    QTest::newRow("102 game lost") << 102 << 7605 << 8000;
    QTest::newRow("103 start-up and game won") << 103 << 9131 << 8000;
    QTest::newRow("104 two minutes left") << 104 << 6352 << 8000;
    QTest::newRow("105 clock tick") << 105 << 53 << 22050;
}

void SoundTest::everyEmbeddedSoundDecodesToItsLength()
{
    QFETCH(int, id);
    QFETCH(int, sampleBytes);
    QFETCH(int, rate);
    SdlWaveOutput output;
    QCOMPARE(output.DecodedCount(), 5);
    QueueHold hold(output);
    output.Play(id);
    QCOMPARE_LE(qAbs(hold.Queued() - DeviceBytes(sampleBytes, rate)), ResamplingSlack);
}

void SoundTest::closingPlayerFreesItsDeviceAndSparesOthers()
{
    auto first = std::make_unique<SdlWaveOutput>(TestWaves());
    QVERIFY(first->HasDevice());
    // The dummy driver has a single output, so a second player has to go without.
    auto second = std::make_unique<SdlWaveOutput>(TestWaves());
    QVERIFY(!second->HasDevice());
    second.reset();
    {
        QueueHold hold(*first);
        first->Play(101);
        QCOMPARE(hold.Queued(), 2000);
    }

    // Keeps the audio system up, so only closing the device can free the output.
    const SdlWaveOutput keeper(TestWaves());
    first.reset();
    const SdlWaveOutput next(TestWaves());
    QVERIFY(next.HasDevice());
}

void SoundTest::withoutDriverNothingPlaysAndNothingFails()
{
    qputenv("SDL_AUDIODRIVER", "nonexistent");
    SdlWaveOutput output(TestWaves());
    QVERIFY(!output.HasDevice());
    QCOMPARE(output.DecodedCount(), 0);
    output.Play(101);
    output.Play(999);

    SdlWaveOutput embedded;
    QVERIFY(!embedded.HasDevice());
    embedded.Play(103);
}

void SoundTest::recordingOutputKeepsEveryIdInOrder()
{
    RecordingWaveOutput recorder;
    WaveOutput &output = recorder;
    output.Play(103);
    output.Play(101);
    output.Play(101);
    output.Play(105);
    QCOMPARE(recorder.Played, QList<int>({103, 101, 101, 105}));
}

QTEST_GUILESS_MAIN(SoundTest)
#include "tst_sound.moc"
