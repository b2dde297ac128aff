#include "FieldBuilder.h"
#include "GameHarness.h"

#include <QTest>

namespace {

// Seven bombs down the left edge; the rest is one empty region with numbers beside the bombs.
const char *const LeftWall = "*......\n*......\n*......\n*......\n*......\n*......\n*......";

// Two empty regions parted by a wall of bombs: A is columns 1 to 5 (its numbers in column 5),
// B columns 7 to 12 (its numbers in column 7).
const QString TwoRegions = QString(".....*......\n").repeated(7).chopped(1);

// The cells a flood from (x, y) opens, in order: plain recursion that opens a covered cell
// and, when it is empty, visits its neighbours row by row around it.
void RecursiveFlood(Minefield &field, int x, int y, QList<int> &opened)
{
    Cell &cell = field.Cells(x, y);
    if (cell.Opened)
        return;
    cell.Opened = true;
    opened.append(field.Idx2Vect(x, y));
    for (int k = 0; cell.Count == 0 && k < 9; ++k)
        RecursiveFlood(field, x + k % 3 - 1, y + k / 3 - 1, opened);
}

} // namespace

// Presses on cells, the counters, the clock and the sounds through two games and the ends of
// a game; where the bombs land and how they are counted; and floods that open their region one
// empty cell per turn of the event loop.
class tst_MainPlay : public QObject
{
    Q_OBJECT

private slots:
    void gamesOnTheLeftWall_data();
    void gamesOnTheLeftWall();
    void bombsLandWhereTheDrawsRoundHalvesToEvenAndAnExplodedOneStays();
    void countsBombsAmongTheNeighboursOnEdgesAndCorners();
    void floodsRunCellByCellNewestFirstAndNewFieldsWait();
};

void tst_MainPlay::gamesOnTheLeftWall_data()
{
    QTest::addColumn<bool>("soundOn");
    QTest::newRow("sound on") << true;
    QTest::newRow("sound off") << false;
}

// Each step: the moves > the cells after them ('/' between rows; '=' as before) > the panel >
// the sounds heard when sound is on ("105*3" for three ticks). With sound off nothing is heard.
void tst_MainPlay::gamesOnTheLeftWall()
{
    QFETCH(bool, soundOn);
    const char *const steps[] = {
        // No game yet: presses do nothing.
        "L2,2 R3,3 M4,4 H5,5 > #########/#########/#########/#########/#########/#########/"
        "#########/#########/######### > 00 000 face4 stopped levels-on > ",
        // A new game; flag, then question mark and cover.
        "N R4,4 > #######/#######/#######/###F###/#######/#######/####### > "
        "06 300 face4 ticking levels-off > 101",
        "R4,4 R4,4 > #######/#######/#######/#######/#######/#######/####### > "
        "07 300 face4 ticking levels-off > 101 101",
        // Astonished while the button is down; a right press on an open cell changes nothing.
        "H2,1 > #2#####/#######/#######/#######/#######/#######/####### > "
        "07 300 face3 ticking levels-off > 101",
        "R2,1 > = > 07 300 face4 ticking levels-off > 101",
        "M2,2 > #2#####/#3#####/#######/#######/#######/#######/####### > "
        "07 300 face4 ticking levels-off > 101",
        // A flag on a safe cell; a question mark on a bomb is no flag; a flag taken off a bomb
        // and put back counts once.
        "R5,5 R1,7 R1,7 R1,1 R1,1 R1,1 R1,1 > F2#####/#3#####/#######/#######/####F##/#######/"
        "?###### > 05 300 face4 ticking levels-off > 101*7",
        // The flood opens the flagged safe cell; every safe cell open does not win.
        "L4,4 > F2...../#3...../#3...../#3...../#3...../#3...../?2..... > "
        "05 300 face4 ticking levels-off > 101",
        "R1,2 R1,3 R1,4 R1,5 R1,6 > F2...../F3...../F3...../F3...../F3...../F3...../?2..... > "
        "00 300 face4 ticking levels-off > 101*5",
        // Every bomb flagged wins, with a flag too many; after it presses do nothing.
        "R1,7 R1,7 > F2...../F3...../F3...../F3...../F3...../F3...../F2..... > "
        "00 300 face1 stopped levels-on > 101 101 103",
        "L3,3 R2,2 H4,4 > = > 00 300 face1 stopped levels-on > ",
        // Abort after the game shows the loss: the opened flag on a safe cell is wrong.
        "A > F2...../F3...../F3...../F3...../F3..x../F3...../F2..... > "
        "00 300 face2 stopped levels-on > 102",
        // In a new game a left press on a flagged bomb loses; then presses do nothing, and the
        // exploded cell stays so at a later Abort.
        "N R1,2 R1,5 R1,6 R1,6 R6,6 L1,5 > *######/F######/*######/*######/X######/*####x#/"
        "*###### > 04 300 face2 stopped levels-on > 101*6 102",
        "L2,2 R3,3 M4,4 A > = > 04 300 face2 stopped levels-on > 102",
        // The countdown: a tick sound every second, the warning at 120, the loss at 0.
        "N T179 > #######/#######/#######/#######/#######/#######/####### > "
        "07 121 face4 ticking levels-off > 105*179",
        "T1 > = > 07 120 face4 ticking levels-off > 105 104",
        "T119 > = > 07 001 face4 ticking levels-off > 105*119",
        "T1 > *######/*######/*######/*######/*######/*######/*###### > "
        "07 000 face2 stopped levels-on > 105 102"};
    GameHarness game({}, soundOn);
    game.board = LeftWall;
    QString pictures;
    for (const QString step : steps) {
        const QStringList part = step.split(" > ");
        game.Play(part[0]);
        pictures = part[1] == "=" ? pictures : QString(part[1]).replace(u'/', u'\n');
        QCOMPARE(game.Pictures(), pictures);
        QCOMPARE(game.Status(), part[2]);
        QList<int> sounds;
        for (const QString &run : part[3].split(u' ', Qt::SkipEmptyParts))
            sounds +=
                QList<int>(run.section(u'*', 1).toInt() + !run.contains(u'*'), run.left(3).toInt());
        QCOMPARE(game.Sounds(), soundOn ? sounds : QList<int>());
    }
}

void tst_MainPlay::bombsLandWhereTheDrawsRoundHalvesToEvenAndAnExplodedOneStays()
{
    // On 64 cells a draw u bombs cell u * 64 + 1 rounded: 0 gives cell 1, and again is drawn
    // anew; 2.5 rounds to 2 and 3.5 to 4; 64.75 to 65, folded onto 64; 64.5 to 64, drawn anew.
    // They show when the game is lost on the first cell; a later Abort keeps that cell exploded.
    GameHarness game;
    game.draws = {0.0f, 0.0f, 1.5f / 64, 2.5f / 64, 63.75f / 64, 63.5f / 64, 0.97f};
    std::tie(Common::Level, Common::FieldX, Common::FieldY, Common::Bombs) =
        std::tuple(Common::LevelCustom, 8, 8, 5);
    game.window.mnuProg_Click(0);
    game.Play("L1,1 A");
    QCOMPARE(game.Pictures(), "X*#*####\n" + QString("########\n").repeated(6) + "######**");
    QVERIFY(game.draws.isEmpty());
}

void tst_MainPlay::countsBombsAmongTheNeighboursOnEdgesAndCorners()
{
    // A board and the counts it must give, bomb cells included.
    const std::pair<QString, QString> boards[] = {{"*.*.*\n.....\n..*..", "02020\n13231\n01010"},
                                                  {"****\n****\n****", "3553\n5885\n3553"}};
    for (const auto &[board, counts] : boards) {
        const int width = int(board.indexOf(u'\n'));
        const QString cells = QString(board).remove(u'\n');
        Minefield field;
        field.Reset(width, int(cells.size()) / width);
        for (int k = 0; k < cells.size(); ++k)
            field.Cells(k % width + 1, k / width + 1).Bomb = cells[k] == u'*';
        CountNeighbours(field);
        QString shown;
        for (int k = 0; k < cells.size(); ++k)
            shown += QChar(u'0' + field.Cells(k % width + 1, k / width + 1).Count);
        QCOMPARE(shown, QString(counts).remove(u'\n'));
    }
}

void tst_MainPlay::floodsRunCellByCellNewestFirstAndNewFieldsWait()
{
    GameHarness game(TwoRegions);
    Minefield copy = game.window.Field();
    QList<int> walk; // of region A from (1, 1)
    RecursiveFlood(copy, 1, 1, walk);
    // A press in B while A floods: A waits until B has ended. New game, Level and the smiley
    // wait for both floods and are carried out together; the time-out ends the game at once.
    game.Ticks(299);
    game.Press(1, 1);
    game.Press(12, 7);
    game.window.mnuProg_Click(0);
    game.window.mnuLevel_Click(Common::LevelMedium);
    game.window.btnSmile_Click();
    game.Ticks(1);
    QCOMPARE(game.Status(), "07 000 face2 stopped levels-on");
    bool inWalkOrder = true, aWaited = true, aResumedAfterB = false, bothShown = false;
    int turns = 0;
    for (; game.Field()->FieldX() == 12 && turns < 10000; ++turns) {
        int a = 0, b = 0; // cells open in A and in B; the wall of bombs between is in neither
        for (int i = 0; i < 7 * 12; ++i)
            if (i % 12 != 5)
                (i % 12 < 5 ? a : b) += game.Field()->Pic(i + 1) != 13;
        for (int k = 0; k < a; ++k)
            inWalkOrder = inWalkOrder && game.Field()->Pic(walk[k]) != 13;
        aWaited = aWaited && (b == 6 * 7 || a == 1);
        aResumedAfterB = aResumedAfterB || (b == 6 * 7 && a < 5 * 7);
        bothShown = bothShown || (a == 5 * 7 && b == 6 * 7);
        QCoreApplication::processEvents();
    }
    QVERIFY(inWalkOrder && bothShown && aWaited && aResumedAfterB);
    QVERIFY2(turns > 50, "the regions appeared in a few turns, not cell by cell");
    QCOMPARE(game.Pictures().count(u'#'), 256);
    QCOMPARE(game.Status(), "40 600 face4 ticking levels-off");

    // Abort ends the game at once; the flood runs on to its end.
    game.NewGame(TwoRegions);
    game.Press(12, 1);
    game.window.mnuProg_Click(1);
    QVERIFY(game.Face() == 2 && game.window.Flooding());
    QTRY_VERIFY(!game.window.Flooding());
    QCOMPARE(game.Pictures().section(u'\n', 3, 3), "#####*3.....");
}

QTEST_MAIN(tst_MainPlay)
#include "tst_mainplay.moc"
