#include "RecordingWaveOutput.h"
#include "SdlWaveOutput.h"
#include "WaveResource.h"

#include <QTest>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

// While held, the audio thread cannot drain the queue, so its size is exact.
struct QueueHold
{
    explicit QueueHold(SDL_AudioDeviceID device) : id(device) { SDL_LockAudioDevice(id); }
    ~QueueHold() { SDL_UnlockAudioDevice(id); }
    int Queued() const { return int(SDL_GetQueuedAudioSize(id)); }
    SDL_AudioDeviceID id;
};

class SoundTest : public QObject
{
    Q_OBJECT

private slots:
    // A device that discards what it plays, so the tests need no sound card.
    void init() { qputenv("SDL_AUDIODRIVER", "dummy"); }

    // The embedded waves hold 8-bit mono frames: 698 and 53 at 22050 Hz (101, 105), 7605, 9131
    // and 6352 at 8000 Hz (102..104). The dummy device takes 16-bit mono at 22050 Hz, so each
    // frame becomes 2 bytes, times 22050 / 8000 when resampled, which may lose a frame or two.
    void playReplacesTheQueueWithTheConvertedSound()
    {
        SdlWaveOutput output;
        QueueHold hold(output.DeviceId());
        const int bytes[] = {1396, 41922, 50334, 35014, 106};
        for (int id : {101, 102, 103, 104, 105, 105}) {
            output.Play(id);
            QVERIFY2(qAbs(hold.Queued() - bytes[id - 101]) <= 8, qPrintable(QString::number(id)));
        }
        output.Play(106); // an unknown id leaves the queue alone
        QCOMPARE(hold.Queued(), 106);
    }

    // Every cut of the header, and a zero format tag, channel count or sample rate.
    void damagedWavesAreLeftOut()
    {
        const QByteArray tick = WaveResource(105);
        QList<QByteArray> damaged;
        for (int size = 0; size <= 44; ++size)
            damaged.append(tick.left(size));
        for (int offset : {20, 22, 24})
            damaged.append(QByteArray(tick).replace(offset, 2, QByteArray(2, '\0')));
        for (const QByteArray &image : damaged) {
            SdlWaveOutput output({{101, WaveResource(101)}, {102, image}});
            QueueHold hold(output.DeviceId());
            output.Play(101);
            output.Play(102);
            QVERIFY2(output.DecodedCount() == 1 && hold.Queued() == 1396,
                     image.toHex().constData());
        }
    }

    void withoutDriverNothingPlays()
    {
        qputenv("SDL_AUDIODRIVER", "nonexistent");
        SdlWaveOutput output;
        QVERIFY(!output.HasDevice());
        QCOMPARE(output.DecodedCount(), 0);
        output.Play(101);
    }

    // The player must not take the termination signal away from the program.
    void terminationSignalStillEndsTheProgram()
    {
        const pid_t child = fork();
        if (child == 0) {
            std::signal(SIGTERM, SIG_DFL); // as in the game, not the test runner's handler
            SdlWaveOutput output;
            std::raise(SIGTERM);
            _exit(0);
        }
        int status = 0;
        QCOMPARE(waitpid(child, &status, 0), child);
        QVERIFY(WIFSIGNALED(status) && WTERMSIG(status) == SIGTERM);
    }

    void recordingOutputKeepsIdsInOrder()
    {
        RecordingWaveOutput recorder;
        for (int id : {103, 101, 101, 105})
            static_cast<WaveOutput &>(recorder).Play(id);
        QCOMPARE(recorder.Played, QList<int>({103, 101, 101, 105}));
    }
};

QTEST_GUILESS_MAIN(SoundTest)
#include "tst_sound.moc"
