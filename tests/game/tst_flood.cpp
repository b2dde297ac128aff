#include "ClockRandomSource.h"
#include "Common.h"
#include "FieldBuilder.h"
#include "Flood.h"
#include "Minefield.h"

#include <QPoint>
#include <QTest>

#include <algorithm>
#include <functional>
#include <random>

namespace {

// The flood as plain recursion, the order the stepped flood must follow: a visit opens a
// covered cell and, when it is empty, visits its neighbours in the walk's order. Only empty
// cells have their neighbours visited, so a visit never reaches a bomb. pressed runs where the
// window handles events, after each empty cell is opened.
void recursiveFlood(Minefield &field, int x, int y, std::vector<CellPicture> &opened,
                    const std::function<void()> &pressed)
{
    Cell &cell = field.Cells(x, y);
    if (cell.Opened)
        return;
    cell.Opened = true;
    opened.push_back({field.Idx2Vect(x, y), cell.Count + 1});
    if (cell.Count > 0)
        return;
    pressed();
    for (int k = 0; k < 9; ++k)
        recursiveFlood(field, x + k % 3 - 1, y + k / 3 - 1, opened, pressed);
}

// Steps a flood to its end, or `steps` times: every step but the last ends with the one empty
// cell it opened, the last opens numbered cells only.
void runToEnd(Flood &flood, Minefield &field, std::vector<CellPicture> &opened, int steps = -1)
{
    for (; steps != 0 && !flood.Finished(); --steps) {
        const std::vector<CellPicture> cells = flood.Step(field);
        const auto empties = std::count_if(cells.begin(), cells.end(),
                                           [](const CellPicture &p) { return p.Picture == 1; });
        QVERIFY(flood.Finished() ? empties == 0 : empties == 1 && cells.back().Picture == 1);
        opened.insert(opened.end(), cells.begin(), cells.end());
    }
}

// The covered empty cell of the highest index up to index, or a null point.
QPoint coveredEmptyUpTo(const Minefield &field, int index)
{
    for (int k = index - 1; k >= 0; --k) {
        const QPoint p(k % field.FieldX() + 1, k / field.FieldX() + 1);
        const Cell &cell = field.Cells(p.x(), p.y());
        if (!cell.Opened && !cell.Bomb && cell.Count == 0)
            return p;
    }
    return {};
}

} // namespace

class FloodTest : public QObject
{
    Q_OBJECT

private slots:
    void opensInTheRecursiveOrderEvenAroundASecondFlood();
};

// On random fields with a tenth of the cells flagged and a tenth question-marked, every other
// flood is joined, after a random number of steps, by a second one started at the last covered
// empty cell and run to its end: the recursion runs it nested at that point.
void FloodTest::opensInTheRecursiveOrderEvenAroundASecondFlood()
{
    const int sizes[][3] = {{9, 9, 10}, {16, 16, 40}, {30, 16, 99}, {49, 49, 479}, {49, 49, 30}};
    int secondFloods = 0;
    int openedMarks = 0;
    for (const auto &[fieldX, fieldY, bombs] : sizes) {
        std::tie(Common::FieldX, Common::FieldY) = std::tuple(fieldX, fieldY);
        for (std::uint32_t seed = 1; seed <= 40; ++seed) {
            ClockRandomSource random(seed);
            Minefield stepped;
            BuildMinefield(stepped, bombs, random);
            std::mt19937 rng(seed);
            for (int k = 0; k < fieldX * fieldY; ++k) {
                const unsigned roll = rng() % 10;
                Cell &cell = stepped.Cells(k % fieldX + 1, k / fieldX + 1);
                std::tie(cell.Flagged, cell.Queried) = std::pair(roll == 0, roll == 1);
            }
            const QPoint start =
                coveredEmptyUpTo(stepped, 1 + int(rng() % unsigned(fieldX * fieldY)));
            if (start.isNull())
                continue;
            const int pressAfter = seed % 2 == 0 ? 1 + int(rng() % 30) : 0;

            Minefield reference = stepped;
            std::vector<CellPicture> expected;
            int empties = 0;
            recursiveFlood(reference, start.x(), start.y(), expected, [&] {
                const QPoint second = coveredEmptyUpTo(reference, fieldX * fieldY);
                if (++empties == pressAfter && !second.isNull())
                    recursiveFlood(reference, second.x(), second.y(), expected, [] {});
            });

            Flood flood(start.x(), start.y());
            std::vector<CellPicture> opened;
            runToEnd(flood, stepped, opened, pressAfter);
            const QPoint second = coveredEmptyUpTo(stepped, fieldX * fieldY);
            if (empties >= pressAfter && pressAfter > 0 && !second.isNull()) {
                Flood inside(second.x(), second.y());
                runToEnd(inside, stepped, opened);
                ++secondFloods;
            }
            runToEnd(flood, stepped, opened);
            QVERIFY2(opened == expected, qPrintable(QStringLiteral("seed %1").arg(seed)));
            // The recursion leaves every mark alone.
            for (int k = 0; k < fieldX * fieldY; ++k) {
                const Cell &a = stepped.Cells(k % fieldX + 1, k / fieldX + 1);
                const Cell &b = reference.Cells(k % fieldX + 1, k / fieldX + 1);
                QVERIFY(a.Flagged == b.Flagged && a.Queried == b.Queried);
                openedMarks += a.Opened && (a.Flagged || a.Queried) ? 1 : 0;
            }
        }
    }
    QVERIFY(secondFloods > 0 && openedMarks > 0);
}

QTEST_APPLESS_MAIN(FloodTest)
#include "tst_flood.moc"
