#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "Flood.h"
#include "Minefield.h"
#include "NumericText.h"
#include "RecordInsertion.h"

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

// The flood as plain recursion, the order the stepped flood must follow: a visit opens a
// covered cell and, when it is empty, visits its neighbours row by row around it.
void RecursiveFlood(Minefield &field, int x, int y, std::vector<CellPicture> &opened)
{
    Cell &cell = field.Cells(x, y);
    if (cell.Opened)
        return;
    cell.Opened = true;
    opened.push_back({field.Idx2Vect(x, y), cell.Count + 1});
    for (int k = 0; cell.Count == 0 && k < 9; ++k)
        RecursiveFlood(field, x + k % 3 - 1, y + k / 3 - 1, opened);
}

} // namespace

// The rules of the field and the hall of fame, without the window.
class GameTest : public QObject
{
    Q_OBJECT

private slots:
    void numericReadingTakesTheLeadingNumberAndRoundsHalvesToEven();
    void presetsSetTheFieldAndCustomKeepsTheTimeLimit();
    void eachDrawBombsItsRoundedCellAndBombedCellsAreDrawnAgain();
    void countsBombsAmongTheNeighboursOnEdgesAndCorners();
    void recordGoesBelowEqualTimesReadAsNumbersAndShiftsTheRowsUnder();
    void floodOpensOneEmptyCellPerStepInTheRecursiveOrder();
};

void GameTest::numericReadingTakesTheLeadingNumberAndRoundsHalvesToEven()
{
    // The text, the number read from it, and that number rounded.
    const std::tuple<const char16_t *, double, std::int32_t> cases[] = {
        {u"7.5", 7.5, 8},
        {u"8.5", 8.5, 8},
        {u"6.5", 6.5, 6},
        {u"-2.5", -2.5, -2},
        {u" -3e2x", -300, -300},
        {u"1,5", 1, 1},
        {u"3e", 3, 3},
        {u"5E-1", 0.5, 0},
        {u"abc", 0, 0},
        {u"", 0, 0},
        {u"1e400", qInf(), INT32_MAX},
        {u"-1e400", -qInf(), INT32_MIN},
        {u"1e-400", 0, 0},
        {u"2147483646.5", 2147483646.5, 2147483646},
        {u"-99999999999", -99999999999, INT32_MIN}};
    for (const auto &[text, value, whole] : cases) {
        const double read = NumericValue(text);
        QCOMPARE(std::pair(read, WholeValue(read)), std::pair(value, whole));
    }
}

void GameTest::presetsSetTheFieldAndCustomKeepsTheTimeLimit()
{
    // Level and the field the menus and the custom dialog left; the field built.
    const int cases[][8] = {{0, 7, 49, 2000, 9, 9, 10, 300},   {1, 7, 49, 2000, 16, 16, 40, 600},
                            {2, 7, 49, 2000, 30, 16, 99, 900}, {3, 7, 7, 8, 7, 7, 8, 900},
                            {3, 7, 7, 9, 7, 7, 8, 900},        {3, 20, 11, 479, 20, 11, 43, 900}};
    for (const auto &[level, fieldX, fieldY, bombs, x, y, b, time] : cases) {
        std::tie(Common::Level, Common::FieldX, Common::FieldY, Common::Bombs) =
            std::tuple(level, fieldX, fieldY, bombs);
        ApplyLevelPreset();
        QCOMPARE(QList<int>({Common::FieldX, Common::FieldY, Common::Bombs, Common::TimeLimit}),
                 QList<int>({x, y, b, time}));
    }
}

void GameTest::eachDrawBombsItsRoundedCellAndBombedCellsAreDrawnAgain()
{
    // On 64 cells r = u * 64 + 1: 0 gives cell 1, and again is drawn anew; 2.5 rounds to 2 and
    // 3.5 to 4; 64.75 rounds to 65, folded onto 64; 64.5 rounds to 64, then drawn anew.
    Draws random({0.0f, 0.0f, 1.5f / 64, 2.5f / 64, 63.75f / 64, 63.5f / 64, 0.97f});
    Minefield field;
    field.Reset(8, 8);
    QList<int> bombed;
    for (int bomb = 0; bomb < 5; ++bomb) {
        PlaceBombs(field, 1, random);
        bombed << field.Idx2Vect(field.CurX, field.CurY);
    }
    QCOMPARE(bombed, (QList<int>{1, 2, 4, 64, 63}));
    QCOMPARE(random.taken, std::size_t(7));
}

void GameTest::countsBombsAmongTheNeighboursOnEdgesAndCorners()
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

void GameTest::recordGoesBelowEqualTimesReadAsNumbersAndShiftsTheRowsUnder()
{
    // The times before, the seconds of the win, and the table after ("" when no record).
    const std::tuple<QString, int, QString> cases[] = {
        {"10 20 30 40 50", 0, "Ada=0 P0=10 P1=20 P2=30 P3=40"},
        {"10 20 30 40 50", 10, "P0=10 Ada=10 P1=20 P2=30 P3=40"},
        {"10 20 30 40 50", 49, "P0=10 P1=20 P2=30 P3=40 Ada=49"},
        {"10 20 30 40 50", 50, ""},
        {"999 999 999 999 999", 900, "Ada=900 P0=999 P1=999 P2=999 P3=999"},
        // Stored times are read by their leading number: "1e1" is 10, " 12" and "12abc" 12.
        {"1e1 12abc _12 x 50", 10, "P0=1e1 Ada=10 P1=12abc P2=_12 P3=x"},
        {"1e1 12abc _12 x 50", 12, "P0=1e1 P1=12abc P2=_12 P3=x Ada=12"}};
    for (const auto &[times, elapsed, after] : cases) {
        RecordTable table;
        for (int row = 0; row < 5; ++row)
            table[row] = {QStringLiteral("P%1").arg(row),
                          times.split(u' ')[row].replace(u'_', u' ')};
        const int row = RecordRowFor(table, elapsed);
        QStringList shown;
        if (row >= 0) {
            MakeRoomAt(table, row);
            WriteRecordRow(table, row, QStringLiteral("Ada"), elapsed);
            for (const RecordRow &record : table)
                shown << record.Name + u'=' + QString(record.Time).replace(u' ', u'_');
        }
        QCOMPARE(shown.join(u' '), after);
    }
    QCOMPARE(&RecordsOfLevel(Common::LevelMedium), &Common::MediumRecords);
    QCOMPARE(&RecordsOfLevel(Common::LevelHard), &Common::HardRecords);
}

void GameTest::floodOpensOneEmptyCellPerStepInTheRecursiveOrder()
{
    const int sizes[][3] = {{9, 9, 10}, {30, 16, 99}, {49, 49, 479}, {49, 49, 30}};
    for (const auto &[fieldX, fieldY, bombs] : sizes) {
        std::tie(Common::FieldX, Common::FieldY) = std::tuple(fieldX, fieldY);
        for (std::uint32_t seed = 1; seed <= 20; ++seed) {
            ClockRandomSource random(seed);
            Minefield stepped;
            BuildMinefield(stepped, bombs, random);
            int start = int(seed * 7919 % std::uint32_t(fieldX * fieldY)); // any empty cell
            while (stepped.Cells(start % fieldX + 1, start / fieldX + 1).Count != 0 ||
                   stepped.Cells(start % fieldX + 1, start / fieldX + 1).Bomb)
                start = (start + 1) % (fieldX * fieldY);
            Minefield reference = stepped;
            std::vector<CellPicture> expected, opened;
            RecursiveFlood(reference, start % fieldX + 1, start / fieldX + 1, expected);
            for (Flood flood(start % fieldX + 1, start / fieldX + 1); !flood.Finished();) {
                const std::vector<CellPicture> step = flood.Step(stepped);
                const auto empties = std::count_if(step.begin(), step.end(),
                                                   [](CellPicture p) { return p.Picture == 1; });
                QVERIFY(flood.Finished() ? empties == 0 : empties == 1 && step.back().Picture == 1);
                opened.insert(opened.end(), step.begin(), step.end());
            }
            QVERIFY2(opened == expected, qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
    }
}

QTEST_APPLESS_MAIN(GameTest)
#include "tst_game.moc"
