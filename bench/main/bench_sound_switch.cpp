// Prints how long the game window takes, with the real sound player, from a command of the Game
// menu to its repaint: the Sound item both ways (also right after switching on, while the
// device may still be opening), New game and Abort; at rest and in a game. Then the memory the
// process holds over 1,000 switches of the Sound item, and over 200 openings and closings of
// the device by the player itself. Run it on a real display (xvfb-run) with a sound server (a
// null sink does): with QT_QPA_PLATFORM=offscreen or without sound it measures nothing useful.
#include "ClockRandomSource.h"
#include "SdlWaveOutput.h"
#include "frmMine.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

enum Item
{
    NewGame = 0,
    Abort = 1,
    Sound = 2
};

// Resident memory of this process in kB.
long ResidentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    }
    return 0;
}

// Milliseconds from the command to the end of the repaint it causes.
double ClickToRepaint(frmMine &window, Item item)
{
    QElapsedTimer timer;
    timer.start();
    window.mnuProg_Click(item);
    window.update();
    QApplication::processEvents();
    return double(timer.nsecsElapsed()) / 1e6;
}

struct Figures
{
    std::vector<double> times;
    void Print(const char *what)
    {
        std::sort(times.begin(), times.end());
        std::printf("%-52s median %6.2f ms, max %6.2f ms (%zu runs)\n", what,
                    times[times.size() / 2], times.back(), times.size());
    }
};

} // namespace

int main(int argc, char *argv[])
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // each figure as soon as it is known
    QApplication app(argc, argv);
    QTemporaryDir settings;
    qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    SdlWaveOutput sound;
    ClockRandomSource random;
    frmMine window(sound, random);
    window.Form_Load(); // sound off on a first run
    QTest::qWait(500);

    constexpr int Runs = 20;
    Figures restOn, restOff, gameOn, gameOff, gameOffAtOnce, newGame, abort;
    for (int run = 0; run < Runs; ++run) {
        restOn.times.push_back(ClickToRepaint(window, Sound));
        QTest::qWait(300);
        restOff.times.push_back(ClickToRepaint(window, Sound));
        QTest::qWait(300);
    }
    window.mnuProg_Click(Sound);
    for (int run = 0; run < Runs; ++run) {
        newGame.times.push_back(ClickToRepaint(window, NewGame));
        QTest::qWait(300);
        gameOff.times.push_back(ClickToRepaint(window, Sound));
        QTest::qWait(300);
        gameOn.times.push_back(ClickToRepaint(window, Sound));
        gameOffAtOnce.times.push_back(ClickToRepaint(window, Sound));
        gameOn.times.push_back(ClickToRepaint(window, Sound));
        QTest::qWait(300);
        abort.times.push_back(ClickToRepaint(window, Abort));
        QTest::qWait(300);
    }
    restOn.Print("Sound on, at rest");
    restOff.Print("Sound off, at rest");
    gameOn.Print("Sound on, in a game");
    gameOff.Print("Sound off, in a game");
    gameOffAtOnce.Print("Sound off right after on, in a game");
    newGame.Print("New game, sound on");
    abort.Print("Abort, sound on");

    for (const Item start : {Abort, NewGame}) {
        window.mnuProg_Click(start);
        QTest::qWait(4000); // past the loss sound and the device's last few seconds
        const long before = ResidentKb();
        for (int run = 0; run < 1000; ++run) {
            window.mnuProg_Click(Sound);
            QApplication::processEvents();
        }
        QTest::qWait(4000);
        std::printf("1,000 Sound switches %-15s resident %ld kB -> %ld kB\n",
                    start == NewGame ? "in a game:" : "at rest:", before, ResidentKb());
    }
    window.mnuProg_Click(Abort);
    QTest::qWait(4000);

    // The device itself, opened and closed by the player 200 times: each takes a good part of a
    // second with a sound server.
    const long before = ResidentKb();
    for (int run = 0; run < 200; ++run) {
        sound.KeepOpen(true);
        while (!sound.IsOpen())
            QTest::qWait(1);
        sound.KeepOpen(false);
        while (sound.IsOpen())
            QTest::qWait(1);
        if (run == 99)
            std::printf("device opened and closed 100 times: resident %ld kB -> %ld kB\n", before,
                        ResidentKb());
    }
    std::printf("device opened and closed 200 times: resident %ld kB -> %ld kB\n", before,
                ResidentKb());
    return 0;
}
