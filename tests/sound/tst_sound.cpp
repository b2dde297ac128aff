#include "GameHarness.h"
#include "SdlAudioDevice.h"
#include "SdlWaveOutput.h"
#include "WaveResource.h"

#include <QDir>
#include <QTest>

#include <csignal>

class SoundTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        // A device that discards what it plays, so the test needs no sound card.
        qputenv("SDL_AUDIODRIVER", "dummy");
    }

    // The 8-bit mono frames of the waves (698 and 53 at 22050 Hz for 101 and 105; 7605, 9131
    // and 6352 at 8000 Hz for 102..104) become 2 bytes each, times 22050 / 8000 rounded down
    // when resampled. Without a driver the device stays closed; each start replaces what is
    // queued and says how long it plays.
    void deviceDecodesOpensAndReplacesItsQueue()
    {
        std::signal(SIGTERM, SIG_DFL); // as in the game, not the test runner's handler
        SdlAudioDevice device;
        qputenv("SDL_AUDIODRIVER", "nonexistent");
        device.Open();
        QVERIFY(!device.IsOpen());
        qputenv("SDL_AUDIODRIVER", "dummy");
        device.Open();
        // SDL leaves the termination signal to the program, which must still end by it.
        QVERIFY(std::signal(SIGTERM, SIG_DFL) == SIG_DFL);
        QList<int> queued;
        QList<qint64> lengths;
        SDL_LockAudioDevice(device.Id()); // the device drains nothing meanwhile
        for (const int id : {102, 101, 103, 104, 105}) {
            lengths.append(device.Start(SdlAudioDevice::Decode(WaveResource(id))).count());
            queued.append(int(SDL_GetQueuedAudioSize(device.Id())));
        }
        SDL_UnlockAudioDevice(device.Id());
        device.Close();
        QCOMPARE(queued, QList<int>({41922, 1396, 50334, 35014, 106}));
        QCOMPARE(lengths, QList<qint64>({950, 31, 1141, 793, 2}));
    }

    // Only the five whole waves decode. The player opens the device for a sound asked for while
    // closed and closes it once the sound is over, SDL's audio and its thread with it; kept open,
    // it stays until released. The newest sound cuts off the one playing, and an id without a
    // decoded sound is ignored.
    void outputOpensForSoundsAndClosesAfterThem()
    {
        // The five embedded waves, and the tick cut inside its header, which is refused.
        QMap<int, QByteArray> waves{{106, WaveResource(105).left(30)}};
        for (int id = 101; id <= 105; ++id)
            waves.insert(id, WaveResource(id));
        SdlWaveOutput output(waves, std::chrono::milliseconds(0));
        const auto threads = [] { return QDir(QStringLiteral("/proc/self/task")).count(); };
        const int closedThreads = threads();
        QCOMPARE(output.DecodedCount(), 5);

        output.Play(106);
        output.Play(101);
        QTRY_COMPARE(output.LastStarted(), 101);
        QTRY_VERIFY(!output.IsOpen());
        // Asked for together while closed: the later one is what plays once the device is open.
        output.Play(103);
        output.Play(104);
        QTRY_COMPARE(output.LastStarted(), 104);

        output.KeepOpen(true);
        QTRY_VERIFY(output.IsOpen());
        output.Play(103);
        QTRY_COMPARE(output.LastStarted(), 103);
        // Still queued: the dummy device takes the 1.14 s of the sound in real time.
        QVERIFY(SDL_GetQueuedAudioSize(output.DeviceId()) > 0);
        output.Play(105);
        QTRY_COMPARE(output.LastStarted(), 105);
        QVERIFY(SDL_GetQueuedAudioSize(output.DeviceId()) <= 106);
        output.KeepOpen(false);
        QTRY_VERIFY(!output.IsOpen());
        QCOMPARE(threads(), closedThreads);
        {
            SdlWaveOutput held;
            held.KeepOpen(true);
            QTRY_VERIFY(held.IsOpen());
        }
        QVERIFY(!SDL_WasInit(SDL_INIT_AUDIO)); // closed with the player that held it
    }

    // The window keeps the output open exactly while a game runs with sound on; the end of a
    // game is played on a released output, which opens for it.
    void windowKeepsTheOutputOpenWhileAGameRunsWithSound()
    {
        GameHarness game("*....\n.....", true); // sound switched on at rest, then a new game
        QVERIFY2(game.sound.KeptOpen, "a new game with sound holds it");
        // Sound switched off and on in that game, the game aborted, sound off and on at rest.
        const int Abort = 1, Sound = 2; // items of the Game menu
        QStringList output;
        for (const int item : {Sound, Sound, Abort, Sound, Sound}) {
            game.window.mnuProg_Click(item);
            output << (game.sound.KeptOpen ? "held" : "released");
        }
        QCOMPARE(output.join(' '), "released held released released released");
        game.NewGame(game.board);
        game.Play("R1,1"); // the only bomb flagged
        QCOMPARE(game.Face(), 1);
        QVERIFY2(!game.sound.KeptOpen, "a win releases it");
    }
};

QTEST_MAIN(SoundTest)
#include "tst_sound.moc"
