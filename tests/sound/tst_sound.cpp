#include "ClockRandomSource.h"
#include "Common.h"
#include "RecordingWaveOutput.h"
#include "SdlAudioDevice.h"
#include "SdlWaveOutput.h"
#include "WaveResource.h"
#include "frmMine.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

namespace {

int Threads()
{
    return QDir(QStringLiteral("/proc/self/task")).count();
}

// The five embedded waves, and from 106 on every cut of the tick's header and a zero format
// tag, channel count or sample rate, none of which the loader takes.
QMap<int, QByteArray> WavesWithBrokenOnes()
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
    return waves;
}

} // namespace

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
    // when resampled. SDL's audio, its thread and the device exist only while open; each start
    // replaces what is queued and says how long it plays.
    void deviceDecodesOpensAndReplacesItsQueue()
    {
        const QMap<int, QByteArray> waves = WavesWithBrokenOnes();
        QList<int> decoded;
        for (const QByteArray &wave : waves)
            decoded.append(int(SdlAudioDevice::Decode(wave).size()));
        QCOMPARE(decoded.mid(0, 5), QList<int>({1396, 41922, 50334, 35014, 106}));
        QCOMPARE(decoded.mid(5), QList<int>(waves.size() - 5, 0));

        const int closedThreads = Threads();
        std::signal(SIGTERM, SIG_DFL); // as in the game, not the test runner's handler
        SdlAudioDevice device;
        qputenv("SDL_AUDIODRIVER", "nonexistent");
        device.Open();
        QVERIFY(!device.IsOpen());
        qputenv("SDL_AUDIODRIVER", "dummy");
        for (int round = 0; round < 2; ++round) {
            device.Open();
            QVERIFY(device.IsOpen() && Threads() > closedThreads);
            // SDL leaves the termination signal to the program, which must still end by it.
            QVERIFY(std::signal(SIGTERM, SIG_DFL) == SIG_DFL);
            QList<int> queued;
            QList<qint64> lengths;
            SDL_LockAudioDevice(device.Id()); // the device drains nothing meanwhile
            for (const int id : {102, 101, 103, 105}) {
                lengths.append(device.Start(SdlAudioDevice::Decode(waves[id])).count());
                queued.append(int(SDL_GetQueuedAudioSize(device.Id())));
            }
            SDL_UnlockAudioDevice(device.Id());
            device.Close();
            QVERIFY(!device.IsOpen() && !SDL_WasInit(SDL_INIT_AUDIO) && Threads() == closedThreads);
            QCOMPARE(queued, QList<int>({41922, 1396, 50334, 106}));
            QCOMPARE(lengths, QList<qint64>({950, 31, 1141, 2}));
        }
    }

    // The player opens the device for a sound asked for while closed and closes it once the
    // sound is over; kept open, it stays until released. The newest sound cuts off the one
    // playing, and an id without a decoded sound is ignored.
    void outputOpensForSoundsAndClosesAfterThem()
    {
        SdlWaveOutput output(WavesWithBrokenOnes(), std::chrono::milliseconds(0));
        const int closedThreads = Threads();
        QCOMPARE(output.DecodedCount(), 5);

        output.Play(106);
        output.Play(101);
        QTRY_COMPARE(output.LastStarted(), 101);
        QTRY_VERIFY(!output.IsOpen());
        QVERIFY(!SDL_WasInit(SDL_INIT_AUDIO) && Threads() == closedThreads);
        // Asked for together while closed: the later one is what plays once the device is open.
        output.Play(103);
        output.Play(104);
        QTRY_COMPARE(output.LastStarted(), 104);
        QTRY_VERIFY(!output.IsOpen());

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
        QCOMPARE(Threads(), closedThreads);
        {
            SdlWaveOutput held(WavesWithBrokenOnes());
            held.KeepOpen(true);
            QTRY_VERIFY(held.IsOpen());
        }
        QVERIFY(!SDL_WasInit(SDL_INIT_AUDIO)); // closed with the player that held it
    }

    // The window keeps the output open exactly while a game runs with sound on; the start-up
    // sound and the end of a game are played on a released output, which opens for them.
    void windowKeepsTheOutputOpenWhileAGameRunsWithSound()
    {
        QTemporaryDir settings;
        qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
        QDir(settings.path()).mkpath(QStringLiteral("Velkaro"));
        QFile ini(settings.filePath(QStringLiteral("Velkaro/Velkaro.ini")));
        QVERIFY(ini.open(QIODevice::WriteOnly));
        ini.write("[Game]\nSound=true\nLevel=0\n");
        ini.close();

        RecordingWaveOutput sound;
        ClockRandomSource random;
        frmMine window(sound, random);
        window.Form_Load();
        QCOMPARE(sound.Played, QList<int>{103});
        QVERIFY(!sound.KeptOpen);
        Common::Level = Common::LevelCustom; // a win asks for no name

        enum Item
        {
            NewGame = 0,
            Abort = 1,
            Sound = 2
        };
        const struct
        {
            const char *name;
            Item item;
            bool keptOpen;
        } steps[] = {
            {"a new game with sound holds it", NewGame, true},
            {"sound switched off in a game releases it", Sound, false},
            {"sound switched on again in that game holds it", Sound, true},
            {"abort ends the game and releases it", Abort, false},
            {"sound switched off at rest holds nothing", Sound, false},
            {"sound switched on at rest holds nothing", Sound, false},
            {"the next new game holds it", NewGame, true},
        };
        for (const auto &step : steps) {
            window.mnuProg_Click(step.item);
            QVERIFY2(sound.KeptOpen == step.keptOpen, step.name);
        }
        const Minefield &field = window.Field();
        for (int y = 1; y <= field.FieldY(); ++y) {
            for (int x = 1; x <= field.FieldX(); ++x) {
                if (field.Cells(x, y).Bomb)
                    window.btn_MouseDown(field.Idx2Vect(x, y), Qt::RightButton);
            }
        }
        QCOMPARE(window.ShownFace(), 1);
        QVERIFY2(!sound.KeptOpen, "a win releases it");
        window.close();
    }
};

QTEST_MAIN(SoundTest)
#include "tst_sound.moc"
