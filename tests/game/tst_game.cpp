#include "FieldBuilder.h"
#include "Minefield.h"

#include <QTest>

// The neighbour counts of a field, without the window.
class GameTest : public QObject
{
    Q_OBJECT

private slots:
    void countsBombsAmongTheNeighboursOnEdgesAndCorners();
};

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

QTEST_APPLESS_MAIN(GameTest)
#include "tst_game.moc"
