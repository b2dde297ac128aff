#include "Common.h"
#include "GameHarness.h"

#include <QMenu>
#include <QTest>
#include <QTimer>

// Presses on cells and both ends of a game.
class tst_MainPlay : public QObject
{
    Q_OBJECT

private slots:
    void rightPressCyclesFlagQuestionCover();
    void pressShowsAstonishedFaceUntilRelease();
    void pressesIgnoredBeforeNewGameAndAfterTheEnd();
    void pressOnOpenCellOnlyClicks();
    void leftPressOnFlaggedBombLoses();
    void middlePressOpensLikeLeft();
    void flaggingEveryBombWinsWhateverElseIsFlagged();
    void openingEverySafeCellDoesNotWin();
    void abortWithNoGameShowsTheField();
    void newGameReplacesRunningGame();
};

void tst_MainPlay::rightPressCyclesFlagQuestionCover()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    const int safe = game.At(4, 4);

    game.RightPress(safe);
    QCOMPARE(game.Pic(safe), 14);
    QCOMPARE(game.BombCounter(), QStringLiteral("06"));
    game.RightPress(safe);
    QCOMPARE(game.Pic(safe), 15);
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    game.RightPress(safe);
    QCOMPARE(game.Pic(safe), 13);
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    QCOMPARE(game.sound.Played, QList<int>({101, 101, 101}));

    // A flag taken off a bomb and put back counts once; a bomb under a question mark is not
    // flagged.
    const int bomb = game.At(1, 1);
    game.RightPress(game.At(1, 7));
    game.RightPress(game.At(1, 7));
    for (int press = 0; press < 4; ++press)
        game.RightPress(bomb);
    for (int y = 2; y <= 6; ++y)
        game.RightPress(game.At(1, y));
    QCOMPARE(game.Pic(game.At(1, 7)), 15);
    QCOMPARE(game.BombCounter(), QStringLiteral("01"));
    QVERIFY(game.ClockRunning());
    QCOMPARE(game.window.ShownFace(), 4);
    game.RightPress(game.At(1, 7));
    game.RightPress(game.At(1, 7));
    QCOMPARE(game.window.ShownFace(), 1);
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
}

void tst_MainPlay::pressShowsAstonishedFaceUntilRelease()
{
    GameHarness game;
    game.NewGame(LeftWall);
    game.window.btn_MouseDown(game.At(7, 1), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 3);
    game.window.btn_MouseUp(game.At(7, 1), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 4);
}

void tst_MainPlay::pressesIgnoredBeforeNewGameAndAfterTheEnd()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    const QString untouched = game.Pictures();
    for (int i = 1; i <= 81; i += 8) {
        game.window.btn_MouseDown(i, Qt::LeftButton);
        game.window.btn_MouseDown(i, Qt::RightButton);
    }
    QCOMPARE(game.Pictures(), untouched);
    QCOMPARE(game.window.ShownFace(), 4);
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
    QVERIFY(game.sound.Played.isEmpty());

    game.NewGame(LeftWall);
    game.LeftPress(game.At(1, 3));
    const QString lost = game.Pictures();
    game.sound.Played.clear();
    game.window.btn_MouseDown(game.At(2, 2), Qt::LeftButton);
    game.window.btn_MouseDown(game.At(1, 2), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 2);
    game.window.btn_MouseUp(game.At(1, 2), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 2);
    QCOMPARE(game.Pictures(), lost);
    QVERIFY(game.sound.Played.isEmpty());
}

void tst_MainPlay::pressOnOpenCellOnlyClicks()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    const int numbered = game.At(2, 4);
    game.LeftPress(numbered);
    QCOMPARE(game.Pic(numbered), 4);
    const QString shown = game.Pictures();
    game.window.btn_MouseDown(numbered, Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 3);
    game.LeftPress(numbered);
    QCOMPARE(game.Pictures(), shown);
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    QCOMPARE(game.sound.Played, QList<int>({101, 101, 101}));
}

void tst_MainPlay::leftPressOnFlaggedBombLoses()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    game.RightPress(game.At(1, 2)); // flag on a bomb
    game.RightPress(game.At(1, 5)); // flag on a bomb, the one to explode
    game.RightPress(game.At(1, 6));
    game.RightPress(game.At(1, 6)); // question mark on a bomb
    game.RightPress(game.At(5, 5)); // flag on a safe cell, opened later
    game.LeftPress(game.At(5, 5));
    game.RightPress(game.At(6, 6)); // flag on a safe cell
    game.sound.Played.clear();

    game.window.btn_MouseDown(game.At(1, 5), Qt::LeftButton);
    QCOMPARE(game.window.ShownFace(), 2);
    QCOMPARE(game.sound.Played, QList<int>({101, 102}));
    game.window.btn_MouseUp(game.At(1, 5), Qt::LeftButton);
    QCOMPARE(game.window.ShownFace(), 2);
    QCOMPARE(game.Pictures(), QStringLiteral("*######\n"
                                             "F######\n"
                                             "*######\n"
                                             "*######\n"
                                             "X###x##\n"
                                             "*####x#\n"
                                             "*######"));
    QVERIFY(!game.ClockRunning());
    QVERIFY(game.Menu("mnuLev")->menuAction()->isEnabled());
    QCOMPARE(game.Clock(), QStringLiteral("300"));
}

void tst_MainPlay::middlePressOpensLikeLeft()
{
    GameHarness game;
    game.NewGame(LeftWall);
    game.window.btn_MouseDown(game.At(2, 7), Qt::MiddleButton);
    QCOMPARE(game.Pic(game.At(2, 7)), 3);
    game.window.btn_MouseDown(game.At(1, 7), Qt::MiddleButton);
    QCOMPARE(game.Pic(game.At(1, 7)), 11);
    QCOMPARE(game.window.ShownFace(), 2);
}

void tst_MainPlay::flaggingEveryBombWinsWhateverElseIsFlagged()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    game.window.Timer_Timer();
    game.RightPress(game.At(3, 3));
    game.RightPress(game.At(4, 3));
    for (int y = 1; y <= 6; ++y)
        game.RightPress(game.At(1, y));
    QVERIFY(game.ClockRunning());
    // Nine flags on seven bombs: the counter stays at "00".
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
    game.sound.Played.clear();

    game.window.btn_MouseDown(game.At(1, 7), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 1);
    QCOMPARE(game.sound.Played, QList<int>({101, 103}));
    game.window.btn_MouseUp(game.At(1, 7), Qt::RightButton);
    QCOMPARE(game.window.ShownFace(), 1);
    QVERIFY(!game.ClockRunning());
    QVERIFY(game.Menu("mnuLev")->menuAction()->isEnabled());
    // The clock keeps the seconds that were left; no table changes on the custom level.
    QCOMPARE(game.Clock(), QStringLiteral("299"));
    QCOMPARE(Common::EasyRecords[0].Time, QStringLiteral("999"));
}

void tst_MainPlay::openingEverySafeCellDoesNotWin()
{
    GameHarness game;
    game.NewGame(LeftWall);
    for (int y = 1; y <= 7; ++y)
        game.LeftPress(game.At(2, y));
    game.LeftPress(game.At(7, 7));
    QTRY_VERIFY(!game.window.Flooding());
    QCOMPARE(game.Pictures(), QStringLiteral("#2.....\n"
                                             "#3.....\n"
                                             "#3.....\n"
                                             "#3.....\n"
                                             "#3.....\n"
                                             "#3.....\n"
                                             "#2....."));
    QCOMPARE(game.window.ShownFace(), 4);
    QVERIFY(game.ClockRunning());
}

void tst_MainPlay::abortWithNoGameShowsTheField()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(LeftWall);
    game.window.mnuProg_Click(1);
    QCOMPARE(game.window.ShownFace(), 2);
    QCOMPARE(game.sound.Played, QList<int>({102}));
    QCOMPARE(game.Pictures(), QString("*######\n").repeated(6) + "*######");

    // Once more after the end: the same display, face and sound again.
    game.window.mnuProg_Click(1);
    QCOMPARE(game.sound.Played, QList<int>({102, 102}));
    QCOMPARE(game.Pictures(), QString("*######\n").repeated(6) + "*######");
}

void tst_MainPlay::newGameReplacesRunningGame()
{
    GameHarness game;
    game.NewGame(LeftWall);
    game.RightPress(game.At(3, 3));
    game.window.Timer_Timer();
    game.NewGame(LeftWall);
    QCOMPARE(game.Pic(game.At(3, 3)), 13);
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    QCOMPARE(game.Clock(), QStringLiteral("300"));
    QVERIFY(!game.Menu("mnuLev")->menuAction()->isEnabled());
}

QTEST_MAIN(tst_MainPlay)
#include "tst_mainplay.moc"
