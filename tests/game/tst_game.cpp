#include "FieldBuilder.h"
#include "Minefield.h"
#include "RandomSource.h"

#include <QTest>

namespace {

// Hands out the prepared draws in order; asking for one more throws.
struct Draws : RandomSource
{
    explicit Draws(std::vector<float> draws) : draws(std::move(draws)) {}
    float NextUniform() override { return draws.at(taken++); }
    std::vector<float> draws;
    std::size_t taken = 0;
};

} // namespace

// The building of a field, without the window.
class GameTest : public QObject
{
    Q_OBJECT

private slots:
    void eachDrawBombsItsRoundedCellAndBombedCellsAreDrawnAgain();
    void countsBombsAmongTheNeighboursOnEdgesAndCorners();
};

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

QTEST_APPLESS_MAIN(GameTest)
#include "tst_game.moc"
