#include "Common.h"
#include "LossDisplay.h"
#include "Minefield.h"
#include "RecordInsertion.h"

#include <QTest>

#include <tuple>

class EndOfGameTest : public QObject
{
    Q_OBJECT

private slots:
    void recordGoesBelowEqualTimesAndShiftsTheRowsUnder();
    void lossShowsHiddenBombsAndWrongFlagsRowByRow();
};

void EndOfGameTest::recordGoesBelowEqualTimesAndShiftsTheRowsUnder()
{
    // The times before, the seconds of the win, and the table after ("" when no record).
    const std::tuple<QString, int, QString> cases[] = {
        {"10 20 30 40 50", 0, "Ada=0 P0=10 P1=20 P2=30 P3=40"},
        {"10 20 30 40 50", 10, "P0=10 Ada=10 P1=20 P2=30 P3=40"},
        {"10 20 30 40 50", 49, "P0=10 P1=20 P2=30 P3=40 Ada=49"},
        {"10 20 30 40 50", 50, ""},
        {"999 999 999 999 999", 900, "Ada=900 P0=999 P1=999 P2=999 P3=999"}};
    for (const auto &[times, elapsed, after] : cases) {
        RecordTable table;
        for (int row = 0; row < 5; ++row)
            table[row] = RecordRow{QStringLiteral("P%1").arg(row), times.split(u' ')[row]};
        const int row = RecordRowFor(table, elapsed);
        QStringList shown;
        if (row >= 0) {
            MakeRoomAt(table, row);
            WriteRecordRow(table, row, QStringLiteral("Ada"), elapsed);
            for (const RecordRow &record : table)
                shown << record.Name + u'=' + record.Time;
        }
        QCOMPARE(shown.join(u' '), after);
    }
    QCOMPARE(&RecordsOfLevel(Common::LevelEasy), &Common::EasyRecords);
    QCOMPARE(&RecordsOfLevel(Common::LevelMedium), &Common::MediumRecords);
    QCOMPARE(&RecordsOfLevel(Common::LevelHard), &Common::HardRecords);
}

void EndOfGameTest::lossShowsHiddenBombsAndWrongFlagsRowByRow()
{
    // Cells 1 to 12 row by row: '*' covered bomb, 'X' flagged bomb, '@' open bomb, 'q' bomb under a
    // question mark, '?' question mark, 'F' flag, 'f' open flag, 'o' open, '.' covered; the
    // counts run 0, 1, 2 so that numbers and blanks are among the cells left alone.
    const QString picture = QStringLiteral("*X*@"
                                           "q?F."
                                           "fo..");
    Minefield field;
    field.Reset(4, 3);
    for (int k = 0; k < 12; ++k) {
        const QChar c = picture[k];
        field.Cells(k % 4 + 1, k / 4 + 1) =
            Cell{QStringLiteral("XFf").contains(c), QStringLiteral("q?").contains(c), k % 3,
                 QStringLiteral("*Xq@").contains(c), QStringLiteral("@of").contains(c)};
    }
    const std::vector<CellPicture> timeOut{{1, 10}, {3, 10}, {5, 10}, {7, 12}, {9, 12}};
    QCOMPARE(LossDisplay(field, 0), timeOut);
    QCOMPARE(LossDisplay(field, 3), (std::vector<CellPicture>{{1, 10}, {5, 10}, {7, 12}, {9, 12}}));
}

QTEST_APPLESS_MAIN(EndOfGameTest)
#include "tst_endofgame.moc"
