#include "Common.h"
#include "GameHarness.h"

#include <QMenu>
#include <QTest>
#include <QTimer>

// The bomb counter and the countdown clock with its sounds.
class tst_MainClock : public QObject
{
    Q_OBJECT

private slots:
    void newGameShowsBombsAndTimeOfTheLevel_data();
    void newGameShowsBombsAndTimeOfTheLevel();
    void timeOutLosesWithoutExplodedCell();
    void twoMinuteWarningFollowsTheTick();
    void bombCounterStaysAt99UntilFewerAreLeft();
};

void tst_MainClock::newGameShowsBombsAndTimeOfTheLevel_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("bombs");
    QTest::addColumn<QString>("time");
    QTest::newRow("easy") << 0 << "10"
                          << "300";
    QTest::newRow("medium") << 1 << "40"
                            << "600";
    QTest::newRow("hard") << 2 << "99"
                          << "900";
}

void tst_MainClock::newGameShowsBombsAndTimeOfTheLevel()
{
    QFETCH(int, level);
    QFETCH(QString, bombs);
    QFETCH(QString, time);
    GameHarness game;
    game.window.mnuLevel_Click(level);
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
    QCOMPARE(game.Clock(), QStringLiteral("000"));
    game.window.mnuProg_Click(0);
    QCOMPARE(game.BombCounter(), bombs);
    QCOMPARE(game.Clock(), time);
    QCOMPARE(game.window.ShownFace(), 4);
    QVERIFY(game.ClockRunning());
    game.window.Timer_Timer();
    QCOMPARE(game.Clock().toInt(), time.toInt() - 1);
}

void tst_MainClock::timeOutLosesWithoutExplodedCell()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    game.RightPress(game.At(1, 1));
    game.RightPress(game.At(4, 4));
    for (int tick = 0; tick < 299; ++tick)
        game.window.Timer_Timer();
    QCOMPARE(game.Clock(), QStringLiteral("001"));
    QVERIFY(game.ClockRunning());
    game.sound.Played.clear();

    game.window.Timer_Timer();
    QCOMPARE(game.Clock(), QStringLiteral("000"));
    QCOMPARE(game.sound.Played, QList<int>({105, 102}));
    QVERIFY(!game.ClockRunning());
    QCOMPARE(game.window.ShownFace(), 2);
    QCOMPARE(game.Pictures(), QStringLiteral("F######\n"
                                             "*######\n"
                                             "*######\n"
                                             "*##x###\n"
                                             "*######\n"
                                             "*######\n"
                                             "*######"));
}

void tst_MainClock::twoMinuteWarningFollowsTheTick()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    for (int tick = 0; tick < 179; ++tick)
        game.window.Timer_Timer();
    QCOMPARE(game.Clock(), QStringLiteral("121"));
    QCOMPARE(game.sound.Played, QList<int>(179, 105));
    game.sound.Played.clear();
    game.window.Timer_Timer();
    QCOMPARE(game.Clock(), QStringLiteral("120"));
    QCOMPARE(game.sound.Played, QList<int>({105, 104}));
    game.window.Timer_Timer();
    QCOMPARE(game.sound.Played, QList<int>({105, 104, 105}));

    // Silent with sound off.
    game.window.mnuProg_Click(2);
    game.window.Timer_Timer();
    QCOMPARE(game.sound.Played.size(), 3);
}

void tst_MainClock::bombCounterStaysAt99UntilFewerAreLeft()
{
    GameHarness game;
    Common::Level = Common::LevelCustom;
    Common::FieldX = 49;
    Common::FieldY = 49;
    Common::Bombs = 300;
    game.window.mnuProg_Click(0);
    QCOMPARE(game.BombCounter(), QStringLiteral("99"));
    int flags = 0;
    for (int i = 1; flags < 201; ++i) {
        game.RightPress(i);
        ++flags;
    }
    QCOMPARE(game.BombCounter(), QStringLiteral("99"));
    game.RightPress(202);
    QCOMPARE(game.BombCounter(), QStringLiteral("98"));
}

QTEST_MAIN(tst_MainClock)
#include "tst_mainclock.moc"
