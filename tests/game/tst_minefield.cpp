#include "Minefield.h"

#include <QTest>

class MinefieldTest : public QObject
{
    Q_OBJECT

private slots:
    void positionOfIndexMatchesKnownCells_data();
    void positionOfIndexMatchesKnownCells();
    void everyIndexRoundTripsThroughItsPosition_data();
    void everyIndexRoundTripsThroughItsPosition();
    void indexesRunRowByRowFromTheTop();
    void newFieldHasOpenRingAndCoveredCells();
    void resetClearsEverythingOfThePreviousField();
    void everyCellIncludingTheRingIsDistinct();
};

void MinefieldTest::positionOfIndexMatchesKnownCells_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("row");
    QTest::newRow("easy first") << 9 << 9 << 1 << 1 << 1;
    QTest::newRow("easy end of first row") << 9 << 9 << 9 << 9 << 1;
    QTest::newRow("easy start of second row") << 9 << 9 << 10 << 1 << 2;
    QTest::newRow("easy last") << 9 << 9 << 81 << 9 << 9;
    QTest::newRow("hard last") << 30 << 16 << 480 << 30 << 16;
    QTest::newRow("largest last") << 49 << 49 << 2401 << 49 << 49;
    QTest::newRow("narrow tall") << 7 << 49 << 337 << 1 << 49;
}

void MinefieldTest::positionOfIndexMatchesKnownCells()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    QFETCH(int, index);
    QFETCH(int, column);
    QFETCH(int, row);
    Minefield field;
    field.Reset(fieldX, fieldY);
    field.Vect2Idx(index);
    QCOMPARE(field.CurX, column);
    QCOMPARE(field.CurY, row);
    QCOMPARE(field.Idx2Vect(column, row), index);
}

void MinefieldTest::everyIndexRoundTripsThroughItsPosition_data()
{
    QTest::addColumn<int>("fieldX");
    QTest::addColumn<int>("fieldY");
    QTest::newRow("easy") << 9 << 9;
    QTest::newRow("medium") << 16 << 16;
    QTest::newRow("hard") << 30 << 16;
    QTest::newRow("smallest") << 7 << 7;
    QTest::newRow("wide") << 49 << 7;
    QTest::newRow("largest") << 49 << 49;
}

void MinefieldTest::everyIndexRoundTripsThroughItsPosition()
{
    QFETCH(int, fieldX);
    QFETCH(int, fieldY);
    Minefield field;
    field.Reset(fieldX, fieldY);
    QCOMPARE(field.NumCells(), fieldX * fieldY);
    for (int k = 1; k <= field.NumCells(); ++k) {
        field.Vect2Idx(k);
        QVERIFY2(field.CurX >= 1 && field.CurX <= fieldX, qPrintable(QString::number(k)));
        QVERIFY2(field.CurY >= 1 && field.CurY <= fieldY, qPrintable(QString::number(k)));
        QCOMPARE(field.Idx2Vect(field.CurX, field.CurY), k);
    }
}

void MinefieldTest::indexesRunRowByRowFromTheTop()
{
    Minefield field;
    field.Reset(30, 16);
    int expected = 1;
    for (int y = 1; y <= 16; ++y) {
        for (int x = 1; x <= 30; ++x)
            QCOMPARE(field.Idx2Vect(x, y), expected++);
    }
}

void MinefieldTest::newFieldHasOpenRingAndCoveredCells()
{
    Minefield field;
    field.Reset(16, 9);
    QCOMPARE(field.FieldX(), 16);
    QCOMPARE(field.FieldY(), 9);
    for (int y = 0; y <= 10; ++y) {
        for (int x = 0; x <= 17; ++x) {
            const Cell &cell = field.Cells(x, y);
            const bool ring = x == 0 || y == 0 || x == 17 || y == 10;
            QCOMPARE(cell.Opened, ring);
            QVERIFY(!cell.Bomb && !cell.Flagged && !cell.Queried && cell.Count == 0);
        }
    }
}

void MinefieldTest::resetClearsEverythingOfThePreviousField()
{
    Minefield field;
    field.Reset(9, 9);
    for (int y = 1; y <= 9; ++y) {
        for (int x = 1; x <= 9; ++x)
            field.Cells(x, y) = Cell{true, true, 8, true, true};
    }
    field.Reset(9, 9);
    for (int y = 1; y <= 9; ++y) {
        for (int x = 1; x <= 9; ++x) {
            const Cell &cell = field.Cells(x, y);
            QVERIFY(!cell.Flagged && !cell.Queried && !cell.Bomb && !cell.Opened);
            QCOMPARE(cell.Count, 0);
        }
    }
    QVERIFY(field.Cells(10, 10).Opened);
}

void MinefieldTest::everyCellIncludingTheRingIsDistinct()
{
    // Non-square sizes catch a mixed-up row length in the storage.
    Minefield field;
    field.Reset(11, 7);
    for (int y = 0; y <= 8; ++y) {
        for (int x = 0; x <= 12; ++x)
            field.Cells(x, y).Count = y * 100 + x;
    }
    for (int y = 0; y <= 8; ++y) {
        for (int x = 0; x <= 12; ++x)
            QCOMPARE(field.Cells(x, y).Count, y * 100 + x);
    }
}

QTEST_APPLESS_MAIN(MinefieldTest)
#include "tst_minefield.moc"
