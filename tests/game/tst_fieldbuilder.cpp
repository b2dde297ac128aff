#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "FieldPicture.h"
#include "Minefield.h"
#include "SequenceRandomSource.h"

#include <QTest>

namespace {

int bombsOn(const Minefield &field)
{
    int bombs = 0;
    for (int y = 0; y <= field.FieldY() + 1; ++y) {
        for (int x = 0; x <= field.FieldX() + 1; ++x)
            bombs += field.Cells(x, y).Bomb ? 1 : 0;
    }
    return bombs;
}

int bombIndexOnlyOne(Minefield &field)
{
    for (int k = 1; k <= field.NumCells(); ++k) {
        field.Vect2Idx(k);
        if (field.Cells(field.CurX, field.CurY).Bomb)
            return k;
    }
    return 0;
}

// Sets the level and the field parameters as the menus and the custom dialog leave them, then
// applies the level.
void applyLevel(int level, int fieldX, int fieldY, int bombs)
{
    Common::Level = level;
    Common::FieldX = fieldX;
    Common::FieldY = fieldY;
    Common::Bombs = bombs;
    ApplyLevelPreset();
}

// Builds a field from the parameters in Common; checks its size and returns its bomb count.
int bombsOfNewField(std::uint32_t seed)
{
    ClockRandomSource random(seed);
    Minefield field;
    BuildMinefield(field, Common::Bombs, random);
    if (field.FieldX() != Common::FieldX || field.FieldY() != Common::FieldY)
        return -1;
    return bombsOn(field);
}

} // namespace

class FieldBuilderTest : public QObject
{
    Q_OBJECT

private slots:
    void presetsSetSizeBombsAndTime_data();
    void presetsSetSizeBombsAndTime();
    void customFieldKeepsTheLastPresetTime();
    void customBombCountIsLoweredToWhatTheFieldHolds_data();
    void customBombCountIsLoweredToWhatTheFieldHolds();
    void drawPicksTheCellOfTheRoundedFormula_data();
    void drawPicksTheCellOfTheRoundedFormula();
    void drawOnABombIsDrawnAgain();
    void buildPlacesExactlyTheBombsInsideTheRing_data();
    void buildPlacesExactlyTheBombsInsideTheRing();
    void countsMatchTheDrawnBoards_data();
    void countsMatchTheDrawnBoards();
    void edgesAndCornersNeverCountTheRing();
    void rebuildingReplacesTheWholeField();
    void clockSourceNeverReachesOne();
};

void FieldBuilderTest::presetsSetSizeBombsAndTime_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<int>("bombs");
    QTest::addColumn<int>("timeLimit");
    QTest::newRow("easy") << 0 << 9 << 9 << 10 << 300;
    QTest::newRow("medium") << 1 << 16 << 16 << 40 << 600;
    QTest::newRow("hard") << 2 << 30 << 16 << 99 << 900;
}

void FieldBuilderTest::presetsSetSizeBombsAndTime()
{
    QFETCH(int, level);
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, bombs);
    QFETCH(int, timeLimit);
    // Leftovers of a custom field that the preset must override.
    Common::TimeLimit = 1;
    applyLevel(level, 7, 49, 2000);
    QCOMPARE(Common::FieldX, fieldX);
    QCOMPARE(Common::FieldY, fieldY);
    QCOMPARE(Common::Bombs, bombs);
    QCOMPARE(Common::TimeLimit, timeLimit);
    QCOMPARE(bombsOfNewField(42), bombs);
}

void FieldBuilderTest::customFieldKeepsTheLastPresetTime()
{
    applyLevel(Common::LevelHard, 9, 9, 10);
    applyLevel(Common::LevelCustom, 7, 7, 8);
    QCOMPARE(Common::FieldX, 7);
    QCOMPARE(Common::FieldY, 7);
    QCOMPARE(Common::Bombs, 8);
    QCOMPARE(Common::TimeLimit, 900);
    QCOMPARE(bombsOfNewField(3), 8);

    // Any level outside the presets is custom too.
    applyLevel(17, 20, 11, 30);
    QCOMPARE(Common::FieldX, 20);
    QCOMPARE(Common::FieldY, 11);
    QCOMPARE(Common::Bombs, 30);
    QCOMPARE(Common::TimeLimit, 900);
}

void FieldBuilderTest::customBombCountIsLoweredToWhatTheFieldHolds_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<int>("bombs");
    QTest::addColumn<int>("kept");
    QTest::newRow("smallest, count from a larger field") << 7 << 7 << 479 << 8;
    QTest::newRow("smallest, exactly a fifth") << 7 << 7 << 9 << 8;
    QTest::newRow("smallest, largest accepted") << 7 << 7 << 8 << 8;
    QTest::newRow("more bombs than cells") << 8 << 7 << 100 << 10;
    QTest::newRow("largest, a fifth") << 49 << 49 << 480 << 479;
    QTest::newRow("largest, largest accepted") << 49 << 49 << 479 << 479;
    QTest::newRow("below the limit untouched") << 12 << 9 << 7 << 7;
}

void FieldBuilderTest::customBombCountIsLoweredToWhatTheFieldHolds()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, bombs);
    QFETCH(int, kept);
    applyLevel(Common::LevelCustom, fieldX, fieldY, bombs);
    QCOMPARE(Common::Bombs, kept);
    QCOMPARE(bombsOfNewField(7), kept);
}

void FieldBuilderTest::drawPicksTheCellOfTheRoundedFormula_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<float>("u");
    QTest::addColumn<int>("index");
    QTest::newRow("zero is the first cell") << 9 << 9 << 0.0f << 1;
    QTest::newRow("just under a half cell is the first") << 8 << 8 << 0.0078125f * 0.99f << 1;
    QTest::newRow("half rounds to even, down") << 8 << 8 << 0.0234375f << 2;
    QTest::newRow("half rounds to even, up") << 8 << 8 << 0.0078125f << 2;
    QTest::newRow("middle") << 9 << 9 << 0.5f << 42;
    QTest::newRow("last, r rounds to N") << 9 << 9 << 0.984375f << 81;
    QTest::newRow("last, r rounds to N+1 and folds") << 9 << 9 << 0.99609375f << 81;
    QTest::newRow("last, largest draw") << 49 << 49 << 0.99999994f << 2401;
    QTest::newRow("just below N-1.5 is not last") << 8 << 8 << 0.9765f << 63;
}

void FieldBuilderTest::drawPicksTheCellOfTheRoundedFormula()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(float, u);
    QFETCH(int, index);
    Minefield field;
    field.Reset(fieldX, fieldY);
    SequenceRandomSource random({u});
    PlaceBombs(field, 1, random);
    QCOMPARE(bombIndexOnlyOne(field), index);
    QCOMPARE(bombsOn(field), 1);
}

void FieldBuilderTest::drawOnABombIsDrawnAgain()
{
    Minefield field;
    field.Reset(9, 9);
    // The first cell, then twice the first cell again, then the last cell twice, then a third.
    SequenceRandomSource random({0.0f, 0.0f, 0.001f, 0.999f, 0.9999f, 0.5f});
    PlaceBombs(field, 3, random);
    QCOMPARE(random.Taken(), std::size_t(6));
    QCOMPARE(bombsOn(field), 3);
    QVERIFY(field.Cells(1, 1).Bomb);
    QVERIFY(field.Cells(9, 9).Bomb);
    QVERIFY(field.Cells(6, 5).Bomb); // index 42
}

void FieldBuilderTest::buildPlacesExactlyTheBombsInsideTheRing_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<int>("bombs");
    QTest::newRow("easy") << 9 << 9 << 10;
    QTest::newRow("hard") << 30 << 16 << 99;
    QTest::newRow("largest") << 49 << 49 << 479;
    QTest::newRow("smallest, every cell") << 7 << 7 << 49;
}

void FieldBuilderTest::buildPlacesExactlyTheBombsInsideTheRing()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, bombs);
    Common::FieldX = fieldX;
    Common::FieldY = fieldY;
    ClockRandomSource random(2024);
    Minefield field;
    for (int run = 0; run < 20; ++run) {
        BuildMinefield(field, bombs, random);
        QCOMPARE(bombsOn(field), bombs);
        for (int y = 0; y <= fieldY + 1; ++y) {
            for (int x = 0; x <= fieldX + 1; ++x) {
                const bool ring = x == 0 || y == 0 || x == fieldX + 1 || y == fieldY + 1;
                QCOMPARE(field.Cells(x, y).Opened, ring);
                if (ring)
                    QVERIFY(!field.Cells(x, y).Bomb);
            }
        }
    }
}

void FieldBuilderTest::countsMatchTheDrawnBoards_data()
{
    QTest::addColumn<QString>("board");
    QTest::newRow("corner bomb") << "*1.\n11.\n...";
    QTest::newRow("centre bomb") << "111\n1*1\n111";
    QTest::newRow("bombs in all corners") << "*1.1*\n11.11\n.....\n11.11\n*1.1*";
    QTest::newRow("crowded edge") << "*2*2*\n13231\n.1*1.";
    QTest::newRow("full ring around a cell") << "***\n*8*\n***";
    QTest::newRow("wide") << "...1*\n11.11\n*1...";
}

void FieldBuilderTest::countsMatchTheDrawnBoards()
{
    QFETCH(QString, board);
    const Minefield field = FieldFromPicture(board);
    const std::vector<int> expected = ExpectedCounts(board);
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x) {
            const int want = expected[std::size_t((y - 1) * field.FieldX() + x - 1)];
            if (want >= 0)
                QCOMPARE(field.Cells(x, y).Count, want);
        }
    }
}

void FieldBuilderTest::edgesAndCornersNeverCountTheRing()
{
    // With a bomb on every cell, each cell counts exactly its neighbours inside the field.
    const Minefield field = FieldFromPicture("****\n****\n****");
    const int expected[3][4] = {{3, 5, 5, 3}, {5, 8, 8, 5}, {3, 5, 5, 3}};
    for (int y = 1; y <= 3; ++y) {
        for (int x = 1; x <= 4; ++x)
            QCOMPARE(field.Cells(x, y).Count, expected[y - 1][x - 1]);
    }
}

void FieldBuilderTest::rebuildingReplacesTheWholeField()
{
    Common::FieldX = 16;
    Common::FieldY = 16;
    ClockRandomSource first(1);
    Minefield reused;
    BuildMinefield(reused, 40, first);
    for (int y = 1; y <= 16; ++y) {
        for (int x = 1; x <= 16; ++x) {
            reused.Cells(x, y).Opened = true;
            reused.Cells(x, y).Flagged = (x + y) % 2 == 0;
            reused.Cells(x, y).Queried = (x + y) % 2 == 1;
        }
    }
    ClockRandomSource second(2);
    BuildMinefield(reused, 40, second);
    ClockRandomSource sameAsSecond(2);
    Minefield fresh;
    BuildMinefield(fresh, 40, sameAsSecond);
    for (int y = 0; y <= 17; ++y) {
        for (int x = 0; x <= 17; ++x) {
            const Cell &a = reused.Cells(x, y);
            const Cell &b = fresh.Cells(x, y);
            QCOMPARE(a.Bomb, b.Bomb);
            QCOMPARE(a.Count, b.Count);
            QCOMPARE(a.Opened, b.Opened);
            QVERIFY(!a.Flagged && !a.Queried);
        }
    }
}

void FieldBuilderTest::clockSourceNeverReachesOne()
{
    QCOMPARE(ClockRandomSource::UniformFromBits(0), 0.0f);
    QCOMPARE(ClockRandomSource::UniformFromBits(0xFFFFFFFFu), 1.0f - 1.0f / 16777216.0f);
    QCOMPARE(ClockRandomSource::UniformFromBits(0x80000000u), 0.5f);
    ClockRandomSource random;
    float lowest = 1.0f;
    float highest = 0.0f;
    for (int i = 0; i < 100000; ++i) {
        const float u = random.NextUniform();
        QVERIFY(u >= 0.0f && u < 1.0f);
        lowest = std::min(lowest, u);
        highest = std::max(highest, u);
    }
    QVERIFY(lowest < 0.001f && highest > 0.999f);
}

QTEST_APPLESS_MAIN(FieldBuilderTest)
#include "tst_fieldbuilder.moc"
