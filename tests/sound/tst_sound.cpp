#include "ClockRandomSource.h"
#include "RecordingWaveOutput.h"
#include "SdlWaveOutput.h"
#include "WaveResource.h"
#include "frmMine.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

class SoundTest : public QObject
{
    Q_OBJECT

private slots:
    // SDL's audio, its thread and the device exist only while open, and a sound played while
    // closed is dropped. The sounds are decoded once, before any device is found: the 8-bit mono
    // frames of the waves (698 and 53 at 22050 Hz for 101 and 105; 7605, 9131 and 6352 at
    // 8000 Hz for 102..104) become 2 bytes each, times 22050 / 8000 rounded down when resampled.
    // Each play replaces the queue; an id without a sound leaves it alone, as do 106 and up here:
    // every cut of the tick's header, and a zero format tag, channel count or sample rate.
    void playsOnlyWhileOpen()
    {
        QMap<int, QByteArray> waves;
        const QByteArray tick = WaveResource(105);
        for (int id = 101; id <= 153; ++id) {
            const int cut = id - 106;
            waves.insert(id, id <= 105   ? WaveResource(id)
                             : cut <= 44 ? tick.left(cut)
                                         : QByteArray(tick).replace(20 + 2 * (cut - 45), 2,
                                                                    QByteArray(2, '\0')));
        }
        const auto threads = [] { return QDir(QStringLiteral("/proc/self/task")).count(); };
        const auto closedThreads = threads();
        std::signal(SIGTERM, SIG_DFL); // as in the game, not the test runner's handler
        qputenv("SDL_AUDIODRIVER", "nonexistent");
        SdlWaveOutput output(waves);
        output.SetOpen(true);
        QVERIFY(!output.IsOpen() && output.DecodedCount() == 5);
        // A device that discards what it plays, so the test needs no sound card.
        qputenv("SDL_AUDIODRIVER", "dummy");
        for (int round = 0; round < 2; ++round) {
            output.Play(101);
            output.SetOpen(true);
            QVERIFY(output.IsOpen() && threads() > closedThreads);
            // SDL leaves the termination signal to the program, which must still end by it.
            QVERIFY(std::signal(SIGTERM, SIG_DFL) == SIG_DFL);
            QList<int> queued;
            SDL_LockAudioDevice(output.DeviceId()); // the device drains nothing meanwhile
            for (const int id : {106, 101, 102, 103, 104, 105, 105, 153}) {
                output.Play(id);
                queued.append(int(SDL_GetQueuedAudioSize(output.DeviceId())));
            }
            SDL_UnlockAudioDevice(output.DeviceId());
            output.SetOpen(false);
            QVERIFY(!output.IsOpen() && !SDL_WasInit(SDL_INIT_AUDIO) && threads() == closedThreads);
            QCOMPARE(queued, QList<int>({0, 1396, 41922, 50334, 35014, 106, 106, 106}));
        }
    }

    // The stored switch opens the output at start-up, before the start sound; the Sound item
    // closes and opens it. Each round leaves the switch on for the next start.
    void windowOpensTheOutputWithTheSoundSwitch()
    {
        QTemporaryDir settings;
        qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
        ClockRandomSource random;
        for (const bool storedOn : {false, true}) {
            RecordingWaveOutput sound;
            frmMine window(sound, random);
            window.Form_Load();
            QCOMPARE(sound.Played, storedOn ? QList<int>{103} : QList<int>{});
            for (const bool open : {storedOn, !storedOn, storedOn}) {
                QCOMPARE(sound.Open, open);
                window.mnuProg_Click(2);
            }
            window.close();
        }
    }
};

QTEST_MAIN(SoundTest)
#include "tst_sound.moc"
