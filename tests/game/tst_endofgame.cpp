#include "Common.h"
#include "FieldPicture.h"
#include "LossDisplay.h"
#include "RecordInsertion.h"

#include <QTest>

namespace {

RecordTable tableOfTimes(const QStringList &times)
{
    RecordTable table;
    for (int row = 0; row < 5; ++row)
        table[row] = RecordRow{QStringLiteral("P%1").arg(row), times[row]};
    return table;
}

QStringList namesOf(const RecordTable &table)
{
    QStringList names;
    for (const RecordRow &row : table)
        names << row.Name + u'=' + row.Time;
    return names;
}

} // namespace

class EndOfGameTest : public QObject
{
    Q_OBJECT

private slots:
    void recordRowIsFirstStrictlyGreaterTime_data();
    void recordRowIsFirstStrictlyGreaterTime();
    void newRecordShiftsTheRowsBelowIt_data();
    void newRecordShiftsTheRowsBelowIt();
    void levelsHaveTheirOwnTables();
    void lossShowsHiddenBombsAndWrongFlags_data();
    void lossShowsHiddenBombsAndWrongFlags();
    void lossPicturesComeRowByRow();
};

void EndOfGameTest::recordRowIsFirstStrictlyGreaterTime_data()
{
    QTest::addColumn<QStringList>("times");
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<int>("row");
    const QStringList spread{"10", "20", "30", "40", "50"};
    QTest::newRow("faster than all") << spread << 5 << 0;
    QTest::newRow("equal goes below") << spread << 10 << 1;
    QTest::newRow("between") << spread << 35 << 3;
    QTest::newRow("just beats the last") << spread << 49 << 4;
    QTest::newRow("equal to the last is no record") << spread << 50 << -1;
    QTest::newRow("slower than all") << spread << 60 << -1;
    const QStringList ties{"7", "7", "7", "9", "9"};
    QTest::newRow("below every equal time") << ties << 7 << 3;
    const QStringList placeholders{"999", "999", "999", "999", "999"};
    QTest::newRow("placeholders take the longest countdown") << placeholders << 900 << 0;
    QTest::newRow("first second") << placeholders << 0 << 0;
    const QStringList odd{"abc", " 30x", "1e2", "0", "100.5"};
    QTest::newRow("times read as numbers") << odd << 99 << 2;
    QTest::newRow("decimal time") << odd << 100 << 4;
}

void EndOfGameTest::recordRowIsFirstStrictlyGreaterTime()
{
    QFETCH(QStringList, times);
    QFETCH(int, elapsed);
    QFETCH(int, row);
    QCOMPARE(RecordRowFor(tableOfTimes(times), elapsed), row);
}

void EndOfGameTest::newRecordShiftsTheRowsBelowIt_data()
{
    QTest::addColumn<int>("elapsed");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("row 0 drops the old last")
        << 0 << QStringList{"Ada=0", "P0=10", "P1=20", "P2=30", "P3=40"};
    QTest::newRow("middle") << 25 << QStringList{"P0=10", "P1=20", "Ada=25", "P2=30", "P3=40"};
    QTest::newRow("row 4 moves nothing")
        << 45 << QStringList{"P0=10", "P1=20", "P2=30", "P3=40", "Ada=45"};
    QTest::newRow("tie with row 0")
        << 10 << QStringList{"P0=10", "Ada=10", "P1=20", "P2=30", "P3=40"};
}

void EndOfGameTest::newRecordShiftsTheRowsBelowIt()
{
    QFETCH(int, elapsed);
    QFETCH(QStringList, after);
    RecordTable table = tableOfTimes({"10", "20", "30", "40", "50"});
    const int row = RecordRowFor(table, elapsed);
    QVERIFY(row >= 0);
    MakeRoomAt(table, row);
    WriteRecordRow(table, row, QStringLiteral("Ada"), elapsed);
    QCOMPARE(namesOf(table), after);
}

void EndOfGameTest::levelsHaveTheirOwnTables()
{
    QCOMPARE(&RecordsOfLevel(Common::LevelEasy), &Common::EasyRecords);
    QCOMPARE(&RecordsOfLevel(Common::LevelMedium), &Common::MediumRecords);
    QCOMPARE(&RecordsOfLevel(Common::LevelHard), &Common::HardRecords);

    // An empty name is stored as it is.
    WriteRecordRow(RecordsOfLevel(Common::LevelHard), 2, QString(), 57);
    QCOMPARE(Common::HardRecords[2], (RecordRow{QString(), QStringLiteral("57")}));
    QCOMPARE(Common::EasyRecords[2], RecordRow{});
}

void EndOfGameTest::lossShowsHiddenBombsAndWrongFlags_data()
{
    // Legend of the field in FieldPicture.h; shown: 'j' picture 10, 'l' picture 12.
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("exploded");
    QTest::addColumn<QString>("shown");
    QTest::newRow("stepped on a bomb") << "@*.\n.o.\n..*" << 1 << "-j-\n---\n--j";
    QTest::newRow("exploded bomb not yet marked open") << "**\n.." << 2 << "j-\n--";
    QTest::newRow("stepped on a flagged bomb") << "X*\n.." << 1 << "-j\n--";
    QTest::newRow("time out: no bomb went off") << "*.\n.*" << 0 << "j-\n-j";
    QTest::newRow("flagged bomb keeps its flag") << "X*\n.." << 0 << "-j\n--";
    QTest::newRow("question mark on a bomb is covered") << "q?\n.." << 0 << "j-\n--";
    QTest::newRow("flag without bomb is crossed") << "F*\n.." << 0 << "lj\n--";
    QTest::newRow("opened flag without bomb is crossed") << "fo\n.*" << 0 << "l-\n-j";
    QTest::newRow("open bomb stays") << "@o\n.." << 0 << "--\n--";
    QTest::newRow("nothing to show") << "o?\n.o" << 0 << "--\n--";
}

void EndOfGameTest::lossShowsHiddenBombsAndWrongFlags()
{
    QFETCH(QString, field);
    QFETCH(int, exploded);
    QFETCH(QString, shown);
    const Minefield minefield = FieldFromPicture(field);
    const Minefield before = minefield;
    QCOMPARE(PicturesAsText(minefield, LossDisplay(minefield, exploded)), shown);
    for (int y = 1; y <= minefield.FieldY(); ++y) {
        for (int x = 1; x <= minefield.FieldX(); ++x)
            QCOMPARE(minefield.Cells(x, y).Opened, before.Cells(x, y).Opened);
    }
}

void EndOfGameTest::lossPicturesComeRowByRow()
{
    const Minefield field = FieldFromPicture("..*F\n"
                                             "F*..\n"
                                             "*..F");
    const std::vector<CellPicture> shown = LossDisplay(field, 0);
    const std::vector<CellPicture> expected{{3, 10}, {4, 12}, {5, 12}, {6, 10}, {9, 10}, {12, 12}};
    QCOMPARE(shown, expected);
}

QTEST_APPLESS_MAIN(EndOfGameTest)
#include "tst_endofgame.moc"
