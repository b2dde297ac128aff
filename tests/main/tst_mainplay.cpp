#include "GameHarness.h"

#include <QTest>

#include <tuple>

namespace {

// Seven bombs down the left edge; the rest is one empty region with numbers beside the bombs.
const char *const LeftWall = "*......\n*......\n*......\n*......\n*......\n*......\n*......";

// Two empty regions parted by a wall of bombs: A is columns 1 to 5 (its numbers in column 5),
// B columns 7 to 12 (its numbers in column 7).
const QString TwoRegions = QString(".....*......\n").repeated(7).chopped(1);
constexpr int RegionACells = 5 * 7;
constexpr int RegionBCells = 6 * 7;

// How many cells of the columns first..last are no longer covered.
int OpenIn(const GameHarness &game, int first, int last)
{
    int open = 0;
    for (const QString &row : game.Pictures().split(u'\n'))
        open += last - first + 1 - int(row.mid(first - 1, last - first + 1).count(u'#'));
    return open;
}

} // namespace

// Presses on cells, the counters and the clock, both ends of a game, and floods that open
// their region one empty cell per turn of the event loop.
class tst_MainPlay : public QObject
{
    Q_OBJECT

private slots:
    void rightPressCyclesFlagQuestionCoverAndFlagsAloneWin();
    void middlePressOpensLikeLeftAndOpeningEverySafeCellDoesNotWin();
    void leftPressOnFlaggedBombLosesAndPressesAreIgnoredOutsideAGame();
    void countersShowBombsAndTimeAndTheClockRunsOut();
    void floodsRunCellByCellNewestFirstAndNewFieldsWait();
};

void tst_MainPlay::rightPressCyclesFlagQuestionCoverAndFlagsAloneWin()
{
    GameHarness game(LeftWall, true);
    QCOMPARE(game.BombCounter(), "07");
    for (const auto &[picture, counter] : {std::pair{14, "06"}, {15, "07"}, {13, "07"}}) {
        game.Right({{4, 4}});
        QCOMPARE(game.Pic(4, 4), picture);
        QCOMPARE(game.BombCounter(), counter);
    }
    QCOMPARE(game.Sounds(), QList<int>(3, 101));

    // A question mark on a bomb is no flag; a flag taken off a bomb and put back counts once;
    // an extra flag on a safe cell does not stand in the way of the win.
    game.Right({{1, 7}, {1, 7}, {5, 5}, {1, 1}, {1, 1}, {1, 1}, {1, 1}});
    game.Right({{1, 2}, {1, 3}, {1, 4}, {1, 5}, {1, 6}});
    QCOMPARE(game.Pic(1, 7), 15);
    QCOMPARE(game.BombCounter(), "00");
    QVERIFY(game.ClockRunning());
    game.Right({{1, 7}});
    game.Sounds();
    game.Right({{1, 7}});
    QCOMPARE(game.Face(), 1);
    QCOMPARE(game.Sounds(), QList<int>({101, 103}));
    QVERIFY(!game.ClockRunning());

    // Abort with no game running still shows the loss.
    game.window.mnuProg_Click(1);
    QCOMPARE(game.Face(), 2);
    QCOMPARE(game.Sounds(), QList<int>({102}));
    QCOMPARE(game.Pictures(), "F######\nF######\nF######\nF######\nF###x##\nF######\nF######");
}

void tst_MainPlay::middlePressOpensLikeLeftAndOpeningEverySafeCellDoesNotWin()
{
    GameHarness game(LeftWall);
    for (int y = 1; y <= 7; ++y)
        game.Press(2, y, Qt::MiddleButton);
    game.Press(7, 7);
    QTRY_VERIFY(!game.window.Flooding());
    QCOMPARE(game.Pictures(), "#2.....\n#3.....\n#3.....\n#3.....\n#3.....\n#3.....\n#2.....");
    QCOMPARE(game.Face(), 4);
    QVERIFY(game.ClockRunning());
    game.Press(1, 7, Qt::MiddleButton);
    QCOMPARE(game.Pic(1, 7), 11);
    QCOMPARE(game.Face(), 2);
}

void tst_MainPlay::leftPressOnFlaggedBombLosesAndPressesAreIgnoredOutsideAGame()
{
    GameHarness game({}, true);
    const auto pressEverywhere = [&game] {
        for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
            for (int i = 1; i <= 7; ++i)
                game.Press(i, i, button);
        }
    };
    const QString untouched = game.Pictures();
    pressEverywhere();
    QCOMPARE(game.Pictures(), untouched);
    QCOMPARE(game.Face(), 4);
    QCOMPARE(game.BombCounter(), "00");
    QVERIFY(game.Sounds().isEmpty());

    game.NewGame(LeftWall);
    game.Right({{1, 2}, {1, 5}, {1, 6}, {1, 6}, {6, 6}}); // (1, 6) a question mark
    game.Sounds();
    game.window.btn_MouseDown(game.At(1, 5), Qt::LeftButton);
    QCOMPARE(game.Sounds(), QList<int>({101, 102}));
    QVERIFY(!game.ClockRunning());
    const QString lost = "*######\nF######\n*######\n*######\nX######\n*####x#\n*######";
    QCOMPARE(game.Pictures(), lost);
    pressEverywhere();
    QCOMPARE(game.Pictures(), lost);
    QCOMPARE(game.Face(), 2);
    QVERIFY(game.Sounds().isEmpty());
}

void tst_MainPlay::countersShowBombsAndTimeAndTheClockRunsOut()
{
    GameHarness game({}, true);
    // A warning at two minutes left, the loss at zero.
    game.NewGame(LeftWall);
    game.Right({{1, 1}, {4, 4}});
    game.Ticks(179);
    QCOMPARE(game.Clock(), "121");
    game.Sounds();
    game.Ticks(1);
    QCOMPARE(game.Clock(), "120");
    QCOMPARE(game.Sounds(), QList<int>({105, 104}));
    game.Ticks(119);
    QCOMPARE(game.Clock(), "001");
    QVERIFY(game.ClockRunning());
    game.Sounds();
    game.Ticks(1);
    QCOMPARE(game.Clock(), "000");
    QCOMPARE(game.Sounds(), QList<int>({105, 102}));
    QVERIFY(!game.ClockRunning());
    QCOMPARE(game.Face(), 2);
    QCOMPARE(game.Pictures(), "F######\n*######\n*######\n*##x###\n*######\n*######\n*######");

    for (const auto &[level, bombs, time] :
         {std::tuple{0, "10", "300"}, {1, "40", "600"}, {2, "99", "900"}}) {
        Common::Level = level;
        game.window.mnuProg_Click(0);
        QCOMPARE(game.BombCounter(), bombs);
        QCOMPARE(game.Clock(), time);
        QVERIFY(game.ClockRunning());
    }

    // Two places: more than 99 bombs left show 99; a negative count leaves the digits.
    Common::Level = Common::LevelCustom;
    Common::FieldX = Common::FieldY = 49;
    Common::Bombs = 300;
    game.window.mnuProg_Click(0);
    QCOMPARE(game.BombCounter(), "99");
    for (int i = 1; i <= 201; ++i)
        game.window.btn_MouseDown(i, Qt::RightButton);
    QCOMPARE(game.BombCounter(), "99");
    game.window.btn_MouseDown(202, Qt::RightButton);
    QCOMPARE(game.BombCounter(), "98");
    game.window.DisplayBombs(-1);
    QCOMPARE(game.BombCounter(), "98");
}

void tst_MainPlay::floodsRunCellByCellNewestFirstAndNewFieldsWait()
{
    GameHarness game(TwoRegions);
    Minefield copy = game.window.Field();
    QList<int> walk; // of region A from (1, 1)
    for (Flood flood(1, 1); !flood.Finished();) {
        for (const CellPicture &opened : flood.Step(copy))
            walk.append(opened.Index);
    }
    // A press in B while A floods: A waits until B has ended. New game, Level and the smiley
    // wait for both floods and are carried out together; the time-out ends the game at once.
    game.Ticks(299);
    game.Press(1, 1);
    game.Press(12, 7);
    game.window.mnuProg_Click(0);
    game.window.mnuLevel_Click(Common::LevelMedium);
    game.window.btnSmile_Click();
    game.Ticks(1);
    QVERIFY(game.Face() == 2 && !game.ClockRunning());
    bool inWalkOrder = true, aWaited = true, aResumedAfterB = false, bothShown = false;
    int turns = 0;
    for (; game.Field()->FieldX() == 12 && turns < 10000; ++turns) {
        const int a = OpenIn(game, 1, 5);
        const int b = OpenIn(game, 7, 12);
        for (int k = 0; k < a; ++k)
            inWalkOrder = inWalkOrder && game.Field()->Pic(walk[k]) != 13;
        aWaited = aWaited && (b == RegionBCells || a == 1);
        aResumedAfterB = aResumedAfterB || (b == RegionBCells && a < RegionACells);
        bothShown = bothShown || (a == RegionACells && b == RegionBCells);
        QCoreApplication::processEvents();
    }
    QVERIFY(inWalkOrder && bothShown);
    QVERIFY(aWaited && aResumedAfterB);
    QVERIFY2(turns > 50, "the regions appeared in a few turns, not cell by cell");
    QCOMPARE(game.Pictures().count(u'#'), 256);
    QCOMPARE(game.Clock(), "600");
    QVERIFY(game.ClockRunning());

    // Abort ends the game at once; Exit waits for the flood.
    game.NewGame(TwoRegions);
    game.Press(12, 1);
    game.window.mnuProg_Click(1);
    game.window.mnuProg_Click(4);
    QVERIFY(game.Face() == 2 && game.window.Flooding() && game.window.isVisible());
    QTRY_VERIFY(!game.window.isVisible());
    QCOMPARE(game.Pictures().section(u'\n', 3, 3), "#####*3.....");
}

QTEST_MAIN(tst_MainPlay)
#include "tst_mainplay.moc"
