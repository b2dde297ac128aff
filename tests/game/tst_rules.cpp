#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "Flood.h"
#include "LossDisplay.h"
#include "Minefield.h"
#include "NumericText.h"

#include <QMap>
#include <QTest>

#include <cmath>

// Compares what one row of a table gives with what it expects; a failure names the row.
#define COMPARE_ROW(actual, row)                                                                   \
    if (!QTest::qCompare(actual, row.expected, row.name, "expected", __FILE__, __LINE__))          \
    return

namespace {

// One row of a table: what it checks, in words, what goes in, and what must come out.
struct Row
{
    const char *name;
    QString input;
    QString expected;
};

// A field from rows of cells. A safe cell is '.' covered, 'f' flagged, '?' question-marked or
// 'o' open; a bomb is '*' covered, 'F' flagged, '!' question-marked or 'X' open (it went off).
Minefield Board(const QString &picture)
{
    const QString cells = QString(picture).remove(u'\n');
    Minefield field;
    field.Reset(int(picture.indexOf(u'\n')), int(picture.count(u'\n')) + 1);
    for (int i = 0; i < cells.size(); ++i) {
        field.Vect2Idx(i + 1);
        Cell &cell = field.Cells(field.CurX, field.CurY);
        cell.Bomb = QStringLiteral("*F!X").contains(cells[i]);
        cell.Flagged = cells[i].toLower() == u'f';
        cell.Queried = cells[i] == u'?' || cells[i] == u'!';
        cell.Opened = cells[i] == u'o' || cells[i] == u'X';
    }
    CountNeighbours(field);
    return field;
}

// Rows of one character per field cell, the character `show(cell, index)` gives it.
template<typename Show> QString Rows(const Minefield &field, Show show)
{
    QStringList rows(field.FieldY());
    for (int y = 1; y <= field.FieldY(); ++y) {
        for (int x = 1; x <= field.FieldX(); ++x)
            rows[y - 1] += show(field.Cells(x, y), field.Idx2Vect(x, y));
    }
    return rows.join(u'\n');
}

// Hands out the draws given, in order.
struct FixedDraws : RandomSource
{
    float NextUniform() override { return draws.takeFirst(); }
    QList<float> draws;
};

} // namespace

// The rules of the game without a window: the flood, the loss display, a new field and the
// reading of numbers in texts. The hall of fame is tested with its dialogs in tests/main.
class tst_Rules : public QObject
{
    Q_OBJECT

private slots:
    void floodOpensItsRegionDepthFirstOneEmptyCellPerStep()
    {
        // A board, then the order its cells open in from the cell 'a': 'b' next, and so on; '#'
        // stays covered.
        const Row floods[] = {
            {"the eight neighbours in turn: the row above, left, right, the row below; "
             "the last touches the region only at its lower right corner",
             "..*..\n.....\n*...*\n.....\n..*..", "#####\n#bcd#\n#eaf#\n#ghi#\n#####"},
            {"depth first, and a flagged empty cell is opened and the flood goes on past it",
             "..f..\n.....\n..*..", "abcde\nlkjfg\nmn#hi"},
        };
        for (const Row &flood : floods) {
            Minefield field = Board(flood.input);
            const int start = int(QString(flood.expected).remove(u'\n').indexOf(u'a')) + 1;
            field.Vect2Idx(start);
            Flood walk(field.CurX, field.CurY);
            QMap<int, QChar> opened;
            int steps = 0, empty = 0; // each step but the last opens one more empty cell
            for (; !walk.Finished() && steps <= field.NumCells(); ++steps) {
                for (const CellPicture &shown : walk.Step(field)) {
                    empty += shown.Picture == CellPicture::Empty;
                    opened.insert(shown.Index, QChar(u'a' + int(opened.size())));
                }
            }
            QCOMPARE(steps, empty + 1);
            // A cell shown open is open in the field too, so a right press cannot flag it.
            COMPARE_ROW(Rows(field,
                             [&](const Cell &cell, int index) {
                                 return cell.Opened ? opened.value(index, u'?') : QChar(u'#');
                             }),
                        flood);
        }
    }

    void lossShowsEveryHiddenBombAndWrongFlag()
    {
        // Every kind of cell before the loss (letters as for Board), and what the loss shows on
        // them: 'B' a bomb, 'W' a wrong flag; every other cell keeps its look.
        const Minefield field = Board("*F!X.\nfo?.*\n..o*f");
        const auto shownAfterLoss = [&](int exploded) {
            QString shown = "*F!X.fo?.*..o*f";
            for (const CellPicture &cell : LossDisplay(field, exploded))
                shown[cell.Index - 1] = cell.Picture == CellPicture::HiddenBomb ? u'B' : u'W';
            return shown;
        };
        // The bomb pressed, cell 1, keeps its exploded look; at a time-out (0) it shows too, but
        // not the bomb that went off in an earlier loss, nor a flagged bomb.
        QCOMPARE(shownAfterLoss(1), "*FBX.Wo?.B..oBW");
        QCOMPARE(shownAfterLoss(0), "BFBX.Wo?.B..oBW");
    }

    void bombsLandWhereTheDrawsRoundAndEveryCellCountsItsNeighbours()
    {
        // On 64 cells a draw u bombs cell u * 64 + 1 rounded: 0 gives cell 1, and again is drawn
        // anew; 2.5 rounds to 2 and 3.5 to 4 (halves to even); 64.75 rounds to 65, folded onto 64;
        // 64.5 rounds to 64, drawn anew; 63.08 to 63. Shown: '*' a bomb, else its count, '.' none.
        std::tie(Common::FieldX, Common::FieldY) = std::pair(8, 8);
        FixedDraws random;
        random.draws = {0.0f, 0.0f, 1.5f / 64, 2.5f / 64, 63.75f / 64, 63.5f / 64, 0.97f};
        Minefield field;
        BuildMinefield(field, 5, random);
        const auto bombOrCount = [](const Cell &cell, int) {
            return QStringLiteral(".12345678*")[cell.Bomb ? 9 : cell.Count];
        };
        QCOMPARE(Rows(field, bombOrCount),
                 "**2*1...\n22211...\n........\n........\n........\n........\n.....122\n.....1**");
        // The running program draws from the top 24 of 32 random bits: all bits set stay below 1.
        QCOMPARE(double(ClockRandomSource::UniformFromBits(0xFFFFFFFFu)),
                 1.0 - std::ldexp(1.0, -24));
    }

    void levelsSetTheFieldAndCustomBombCountsStayBelowAFifth()
    {
        // The level, columns, rows and bombs in force, then the field built: columns, rows, bombs
        // and seconds of the countdown. In this order: a custom field keeps the last preset's time.
        const Row levels[] = {
            {"Medium is 16 by 16 with 40 bombs in 600 s", "1 7 7 8", "16 16 40 600"},
            {"a count of exactly a fifth of the cells is lowered by one", "3 7 7 9", "7 7 8 600"},
            {"a custom count kept from a larger field is lowered to fit", "3 7 7 300", "7 7 8 600"},
            {"a fifth of the largest field is lowered too", "3 49 49 480", "49 49 479 600"},
            {"one below a fifth of the largest field stays", "3 49 49 479", "49 49 479 600"},
        };
        for (const Row &level : levels) {
            const QStringList in = level.input.split(u' ');
            std::tie(Common::Level, Common::FieldX, Common::FieldY, Common::Bombs) =
                std::tuple(in[0].toInt(), in[1].toInt(), in[2].toInt(), in[3].toInt());
            ApplyLevelPreset();
            COMPARE_ROW(QString::asprintf("%d %d %d %d", Common::FieldX, Common::FieldY,
                                          Common::Bombs, Common::TimeLimit),
                        level);
        }
    }

    void textsReadAsTheirLeadingNumber()
    {
        const QString digits = QString(400, u'9');
        const Row texts[] = {
            {"blanks and tabs before the number are skipped, letters end it", " \t 12abc", "12"},
            {"a plus sign, and the full stop is the decimal point", "+2.5", "2.5"},
            {"a second full stop or a comma ends the number", ".5.3,1", "0.5"},
            {"an exponent with its sign", "25E-1", "2.5"},
            {"an E and a sign without digits are not part of the number", "3e+x", "3"},
            {"a text without a number reads as 0, without a sign", "-.e5", "0"},
            {"a word is no number, not even inf", "inf", "0"},
            {"a number beyond a double reads as infinity", digits, "inf"},
            {"so does one with a negative exponent led by a zero", digits + "e-090", "inf"},
            {"a number beyond a double by its exponent keeps its sign", "-0.01e+400", "-inf"},
            {"a number too close to 0 for a double is 0", "0." + QString(400, u'0') + "1", "0"},
            {"so does one with an exponent too long to hold", "1e-" + digits, "0"},
        };
        for (const Row &text : texts)
            COMPARE_ROW(QString::number(NumericValue(text.input)), text);
    }
};

QTEST_GUILESS_MAIN(tst_Rules)
#include "tst_rules.moc"
