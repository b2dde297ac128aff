#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "FieldPicture.h"
#include "Flood.h"
#include "Minefield.h"

#include <QTest>

#include <algorithm>
#include <functional>
#include <random>

namespace {

// The flood as plain mutual recursion, the reading against which the stepped flood is checked.
// afterEmpty runs where the window handles events: after each empty cell is opened.
struct RecursiveFlood
{
    explicit RecursiveFlood(Minefield &field) : field(field) {}

    Minefield &field;
    std::vector<CellPicture> opened;
    std::function<void()> afterEmpty = [] {};

    void reveilBlanks(int x, int y)
    {
        field.Cells(x, y).Opened = true;
        opened.push_back({field.Idx2Vect(x, y), 1});
        afterEmpty();
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                if (dx != 0 || dy != 0)
                    checkNeighb(x + dx, y + dy);
            }
        }
    }

    void checkNeighb(int x, int y)
    {
        Cell &cell = field.Cells(x, y);
        if (cell.Opened)
            return;
        if (cell.Count == 0) {
            reveilBlanks(x, y);
        } else if (!cell.Bomb) {
            cell.Opened = true;
            opened.push_back({field.Idx2Vect(x, y), cell.Count + 1});
        }
    }
};

bool isFloodStart(const Minefield &field, int x, int y)
{
    const Cell &cell = field.Cells(x, y);
    return !cell.Opened && !cell.Bomb && cell.Count == 0;
}

// The first covered empty cell at or after a random index, wrapping round; false if none.
bool pickFloodStart(const Minefield &field, std::mt19937 &rng, int &x, int &y)
{
    const int n = field.NumCells();
    const int from = int(rng() % unsigned(n));
    for (int i = 0; i < n; ++i) {
        const int k = (from + i) % n;
        x = k % field.FieldX() + 1;
        y = k / field.FieldX() + 1;
        if (isFloodStart(field, x, y))
            return true;
    }
    return false;
}

// Every Step but the last ends with the one empty cell it opened; the last has at most one.
void runToEnd(Flood &flood, Minefield &field, std::vector<CellPicture> &opened)
{
    while (!flood.Finished()) {
        const std::vector<CellPicture> step = flood.Step(field);
        const auto empties = std::count_if(step.begin(), step.end(),
                                           [](const CellPicture &p) { return p.Picture == 1; });
        if (!flood.Finished())
            QCOMPARE(empties, 1);
        if (empties == 1)
            QCOMPARE(step.back().Picture, 1);
        QVERIFY(empties <= 1);
        opened.insert(opened.end(), step.begin(), step.end());
    }
}

// A random field with a tenth of its covered cells flagged and another tenth question-marked.
Minefield randomMarkedField(int fieldX, int fieldY, int bombs, std::uint32_t seed)
{
    Common::FieldX = fieldX;
    Common::FieldY = fieldY;
    ClockRandomSource random(seed);
    Minefield field;
    BuildMinefield(field, bombs, random);
    std::mt19937 rng(seed);
    for (int y = 1; y <= fieldY; ++y) {
        for (int x = 1; x <= fieldX; ++x) {
            const unsigned roll = rng() % 10;
            field.Cells(x, y).Flagged = roll == 0;
            field.Cells(x, y).Queried = roll == 1;
        }
    }
    return field;
}

// Floods random fields step by step and by the recursive walk, and compares what they open.
// With a press, a second flood starts at a random covered empty cell after a random number of
// steps of the first and runs to its end there, as the recursion would run it nested.
void compareWithRecursion(int fieldX, int fieldY, int bombs, bool press, int &secondFloods)
{
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        Minefield stepped = randomMarkedField(fieldX, fieldY, bombs, seed);
        std::mt19937 rng(seed);
        int x = 0;
        int y = 0;
        if (!pickFloodStart(stepped, rng, x, y))
            continue;
        const int pressAfter = press ? 1 + int(rng() % 30) : 0;
        const std::mt19937 pressRng = rng;
        int px = 0;
        int py = 0;

        Minefield recursive = stepped;
        RecursiveFlood reference(recursive);
        int empties = 0;
        reference.afterEmpty = [&] {
            std::mt19937 r = pressRng;
            if (++empties != pressAfter || !pickFloodStart(recursive, r, px, py))
                return;
            RecursiveFlood nested(recursive);
            nested.reveilBlanks(px, py);
            reference.opened.insert(reference.opened.end(), nested.opened.begin(),
                                    nested.opened.end());
        };
        reference.reveilBlanks(x, y);

        Flood first(x, y);
        std::vector<CellPicture> opened;
        for (int step = 0; step < pressAfter && !first.Finished(); ++step) {
            const std::vector<CellPicture> cells = first.Step(stepped);
            opened.insert(opened.end(), cells.begin(), cells.end());
        }
        std::mt19937 r = pressRng;
        if (pressAfter > 0 && empties >= pressAfter && pickFloodStart(stepped, r, px, py)) {
            Flood second(px, py);
            runToEnd(second, stepped, opened);
            ++secondFloods;
        }
        runToEnd(first, stepped, opened);
        QVERIFY2(opened == reference.opened, qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

// The pictures a flood from (x, y) puts on the field, drawn as text.
QString floodPictures(Minefield &field, int x, int y)
{
    Flood flood(x, y);
    std::vector<CellPicture> opened;
    runToEnd(flood, field, opened);
    return PicturesAsText(field, opened);
}

} // namespace

class FloodTest : public QObject
{
    Q_OBJECT

private slots:
    void opensInTheOrderOfTheRecursiveWalk_data();
    void opensInTheOrderOfTheRecursiveWalk();
    void secondFloodInTheMiddleRunsAsIfNested_data();
    void secondFloodInTheMiddleRunsAsIfNested();
    void opensTheRegionAndItsNumbersOnce_data();
    void opensTheRegionAndItsNumbersOnce();
    void openedMarksAreKept();
    void finishedFloodOpensNothingMore();
};

void FloodTest::opensInTheOrderOfTheRecursiveWalk_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<int>("bombs");
    QTest::newRow("easy") << 9 << 9 << 10;
    QTest::newRow("medium") << 16 << 16 << 40;
    QTest::newRow("hard") << 30 << 16 << 99;
    QTest::newRow("largest, crowded") << 49 << 49 << 479;
    QTest::newRow("largest, sparse") << 49 << 49 << 30;
    QTest::newRow("largest, one bomb") << 49 << 49 << 1;
}

void FloodTest::opensInTheOrderOfTheRecursiveWalk()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, bombs);
    int secondFloods = 0;
    compareWithRecursion(fieldX, fieldY, bombs, false, secondFloods);
}

void FloodTest::secondFloodInTheMiddleRunsAsIfNested_data()
{
    opensInTheOrderOfTheRecursiveWalk_data();
}

void FloodTest::secondFloodInTheMiddleRunsAsIfNested()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, bombs);
    int secondFloods = 0;
    compareWithRecursion(fieldX, fieldY, bombs, true, secondFloods);
    if (!QTest::currentTestFailed())
        QVERIFY(secondFloods > 0);
}

void FloodTest::opensTheRegionAndItsNumbersOnce_data()
{
    // Shown: 'a' open empty, 'b'.. 'i' open with 1..8 bombs around, '!' opened twice.
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("startX");
    QTest::addColumn<int>("startY");
    QTest::addColumn<QString>("shown");
    QTest::newRow("from a corner to the far edge")
        << ".......\n.......\n.....11\n.....1*" << 1 << 1 << "aaaaaaa\naaaaaaa\naaaaabb\naaaaab-";
    QTest::newRow("numbers reached from several sides")
        << "..1*1..\n..111..\n......." << 1 << 1 << "aab-baa\naabbbaa\naaaaaaa";
    QTest::newRow("a wall of bombs stops it")
        << "..2*2..\n..3*3..\n..2*2.." << 1 << 2 << "aac----\naad----\naac----";
    QTest::newRow("through flags and question marks")
        << "?.F..\n..?..\n...F1\n....*" << 1 << 4 << "aaaaa\naaaaa\naaabb\naaab-";
}

void FloodTest::opensTheRegionAndItsNumbersOnce()
{
    QFETCH(QString, field);
    QFETCH(int, startX);
    QFETCH(int, startY);
    QFETCH(QString, shown);
    Minefield minefield = FieldFromPicture(field);
    QCOMPARE(floodPictures(minefield, startX, startY), shown);
    for (int x = 0; x <= minefield.FieldX() + 1; ++x)
        QVERIFY(minefield.Cells(x, 0).Opened && !minefield.Cells(x, 0).Flagged);
}

void FloodTest::openedMarksAreKept()
{
    Minefield field = FieldFromPicture("?.F..\n"
                                       "..?..\n"
                                       "...F1\n"
                                       "....*");
    floodPictures(field, 1, 4);
    QVERIFY(field.Cells(1, 1).Queried && field.Cells(1, 1).Opened);
    QVERIFY(field.Cells(3, 1).Flagged && field.Cells(3, 1).Opened);
    QVERIFY(field.Cells(4, 3).Flagged && field.Cells(4, 3).Opened);
    QVERIFY(!field.Cells(4, 3).Queried && !field.Cells(5, 4).Opened);
}

void FloodTest::finishedFloodOpensNothingMore()
{
    Minefield field = FieldFromPicture("...\n...\n..*");
    Flood flood(1, 1);
    std::vector<CellPicture> opened;
    runToEnd(flood, field, opened);
    QCOMPARE(int(opened.size()), 8);
    QVERIFY(flood.Finished());
    QVERIFY(flood.Step(field).empty());
    QVERIFY(!field.Cells(3, 3).Opened);
}

QTEST_APPLESS_MAIN(FloodTest)
#include "tst_flood.moc"
