#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "Minefield.h"

#include <QPoint>
#include <QTest>

#include <tuple>

namespace {

// Hands out the prepared draws in order; asking for one more throws.
struct Draws : RandomSource
{
    explicit Draws(std::vector<float> draws) : draws(std::move(draws)) {}
    float NextUniform() override { return draws.at(taken++); }
    std::vector<float> draws;
    std::size_t taken = 0;
};

// Bombs anywhere in the storage, the ring included.
int bombsOn(const Minefield &field)
{
    const int width = field.FieldX() + 2;
    int bombs = 0;
    for (int k = 0; k < width * (field.FieldY() + 2); ++k)
        bombs += field.Cells(k % width, k / width).Bomb ? 1 : 0;
    return bombs;
}

// Sets the level and the field as the menus and the custom dialog leave them, then applies it.
QList<int> applyLevel(int level, int fieldX, int fieldY, int bombs)
{
    std::tie(Common::Level, Common::FieldX, Common::FieldY, Common::Bombs) =
        std::tuple(level, fieldX, fieldY, bombs);
    ApplyLevelPreset();
    return {Common::FieldX, Common::FieldY, Common::Bombs, Common::TimeLimit};
}

} // namespace

class FieldBuilderTest : public QObject
{
    Q_OBJECT

private slots:
    void indexesRunRowByRowAndConvertBothWays();
    void presetsSetTheFieldAndCustomKeepsTheTimeLimit();
    void eachDrawBombsItsRoundedCellAndBombedCellsAreDrawnAgain();
    void countsBombsAmongTheNeighboursOnEdgesAndCorners();
    void everyBuildReplacesTheWholeFieldWithExactlyTheBombs();
    void clockDrawsStayBelowOne();
};

void FieldBuilderTest::indexesRunRowByRowAndConvertBothWays()
{
    // Among them, on 9 columns: 1 is (1, 1), 9 is (9, 1), 10 is (1, 2); 480 is (30, 16) on the
    // hard field and 2401 is (49, 49) on the largest.
    const int sizes[][2] = {{9, 9}, {16, 16}, {30, 16}, {49, 49}};
    Minefield field;
    for (const auto &[fieldX, fieldY] : sizes) {
        field.Reset(fieldX, fieldY);
        int index = 0;
        for (int y = 1; y <= fieldY; ++y) {
            for (int x = 1; x <= fieldX; ++x) {
                field.Vect2Idx(++index);
                QCOMPARE(QPoint(field.CurX, field.CurY), QPoint(x, y));
                QCOMPARE(field.Idx2Vect(x, y), index);
            }
        }
    }
}

void FieldBuilderTest::presetsSetTheFieldAndCustomKeepsTheTimeLimit()
{
    Common::TimeLimit = 1;
    QCOMPARE(applyLevel(Common::LevelEasy, 7, 49, 2000), (QList<int>{9, 9, 10, 300}));
    QCOMPARE(applyLevel(Common::LevelMedium, 7, 49, 2000), (QList<int>{16, 16, 40, 600}));
    QCOMPARE(applyLevel(Common::LevelHard, 7, 49, 2000), (QList<int>{30, 16, 99, 900}));
    // Any other level is custom: size and time limit stay, and a bomb count from a fifth of the
    // cells up is lowered to a fifth less one.
    QCOMPARE(applyLevel(Common::LevelCustom, 7, 7, 8), (QList<int>{7, 7, 8, 900}));
    QCOMPARE(applyLevel(17, 7, 7, 9), (QList<int>{7, 7, 8, 900}));
    QCOMPARE(applyLevel(-1, 20, 11, 479), (QList<int>{20, 11, 43, 900}));
}

void FieldBuilderTest::eachDrawBombsItsRoundedCellAndBombedCellsAreDrawnAgain()
{
    // r = u * 81 + 1 rounded, halves to even: 0 gives the first cell, and again is drawn anew;
    // from r = 80.5 up the last cell, whether r rounds to 82 and is folded back or to 81 (then
    // drawn anew); just below, the cell before it.
    Draws random({0.0f, 0.0f, 0.99609375f, 0.5f, 0.9765f, 0.984375f, 0.25f});
    Minefield field;
    field.Reset(9, 9);
    QList<int> bombed;
    for (int bomb = 0; bomb < 5; ++bomb) {
        PlaceBombs(field, 1, random);
        bombed << field.Idx2Vect(field.CurX, field.CurY);
    }
    QCOMPARE(bombed, (QList<int>{1, 81, 42, 80, 21}));
    QCOMPARE(random.taken, std::size_t(7));
}

void FieldBuilderTest::countsBombsAmongTheNeighboursOnEdgesAndCorners()
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

void FieldBuilderTest::everyBuildReplacesTheWholeFieldWithExactlyTheBombs()
{
    const int fields[][3] = {{9, 9, 10}, {9, 9, 10}, {16, 16, 40}, {30, 16, 99}, {49, 49, 479}};
    Minefield field;
    for (const auto &[fieldX, fieldY, bombs] : fields) {
        std::tie(Common::FieldX, Common::FieldY) = std::tuple(fieldX, fieldY);
        ClockRandomSource random(7), same(7);
        BuildMinefield(field, bombs, random);
        // The same draws on a new field, step by step.
        Minefield fresh;
        fresh.Reset(fieldX, fieldY);
        PlaceBombs(fresh, bombs, same);
        CountNeighbours(fresh);
        QCOMPARE(bombsOn(field), bombs);
        for (int y = 0; y <= fieldY + 1; ++y) {
            for (int x = 0; x <= fieldX + 1; ++x) {
                const Cell &cell = field.Cells(x, y);
                const bool ring = x == 0 || y == 0 || x == fieldX + 1 || y == fieldY + 1;
                QVERIFY2(cell.Opened == ring && !cell.Flagged && !cell.Queried &&
                             cell.Bomb == fresh.Cells(x, y).Bomb &&
                             cell.Count == fresh.Cells(x, y).Count,
                         qPrintable(QStringLiteral("%1,%2").arg(x).arg(y)));
                // Leaves a played field, bombs on the ring too, for the next build.
                field.Cells(x, y) = Cell{x % 2 == 0, x % 2 == 1, 8, x % 3 == 0, true};
            }
        }
    }
}

void FieldBuilderTest::clockDrawsStayBelowOne()
{
    // Draws lie in [0, 1): all bits set stays just below 1.
    QCOMPARE(ClockRandomSource::UniformFromBits(0), 0.0f);
    QVERIFY(ClockRandomSource::UniformFromBits(0xFFFFFFFFu) < 1.0f);
    QVERIFY(ClockRandomSource::UniformFromBits(0xFFFFFFFFu) > 0.9999f);
}

QTEST_APPLESS_MAIN(FieldBuilderTest)
#include "tst_fieldbuilder.moc"
