#include "Common.h"
#include "FieldView.h"
#include "Flood.h"
#include "GameHarness.h"

#include <QFile>
#include <QTest>
#include <QTimer>

namespace {

// Two empty regions parted by a wall of bombs: A is columns 1 to 4 with the numbers of column
// 5, B columns 8 to 12 with the numbers of column 7.
const char *const TwoRegions = ".....*......\n"
                               ".....*......\n"
                               ".....*......\n"
                               ".....*......\n"
                               ".....*......\n"
                               ".....*......\n"
                               ".....*......";
constexpr int RegionACells = 5 * 7;
constexpr int RegionBCells = 6 * 7;

// How many cells of the columns first..last show an open picture.
int OpenIn(const GameHarness &game, int first, int last)
{
    int open = 0;
    for (int y = 1; y <= 7; ++y) {
        for (int x = first; x <= last; ++x)
            open += game.Pic(game.At(x, y)) <= 9 ? 1 : 0;
    }
    return open;
}

// Runs `look` each time the field is painted.
class PaintWatcher : public QObject
{
public:
    PaintWatcher(QWidget *widget, std::function<void()> look) : look(std::move(look))
    {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            look();
        return false;
    }

private:
    std::function<void()> look;
};

// The cells the flood from (x, y) opens on this field, in its order.
QList<int> WalkOrder(Minefield field, int x, int y)
{
    QList<int> order;
    Flood flood(x, y);
    while (!flood.Finished()) {
        for (const CellPicture &opened : flood.Step(field))
            order.append(opened.Index);
    }
    return order;
}

} // namespace

// Floods open their region one empty cell per turn of the event loop, while presses, ticks and
// menu commands go on being handled.
class tst_MainFlood : public QObject
{
    Q_OBJECT

private slots:
    void floodIsPaintedProgressivelyInWalkOrder();
    void secondPressDuringFloodRunsToItsEndFirst();
    void newGameDuringFloodWaitsForItsEnd();
    void abortDuringFloodEndsGameAndFloodFinishes();
    void timeOutDuringFloodLosesAndFloodFinishes();
    void exitDuringFloodWaitsForItsEnd();
    void floodOpensWholeLargestField();
};

void tst_MainFlood::floodIsPaintedProgressivelyInWalkOrder()
{
    GameHarness game;
    game.NewGame(TwoRegions);
    const QList<int> order = WalkOrder(game.window.Field(), 1, 1);
    QCOMPARE(order.size(), RegionACells);

    // At every paint the open cells are exactly the first cells of the walk.
    QList<int> openAtPaint;
    bool inOrder = true;
    PaintWatcher watcher(game.Field(), [&] {
        int open = 0;
        while (open < order.size() && game.Pic(order[open]) != 13)
            ++open;
        inOrder = inOrder && OpenIn(game, 1, 12) == open;
        openAtPaint.append(open);
    });
    game.LeftPress(game.At(1, 1));
    QCOMPARE(OpenIn(game, 1, 12), 1);
    QVERIFY(game.window.Flooding());

    QTRY_VERIFY(!game.window.Flooding());
    QTRY_VERIFY(!openAtPaint.isEmpty() && openAtPaint.last() == RegionACells);
    QVERIFY(inOrder);
    QVERIFY2(openAtPaint.size() > 20, "the region appeared in a few paints, not cell by cell");
    QCOMPARE(game.Pictures().section(u'\n', 0, 0), QStringLiteral("....2#######"));
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    QCOMPARE(game.window.ShownFace(), 4);
}

void tst_MainFlood::secondPressDuringFloodRunsToItsEndFirst()
{
    GameHarness game;
    game.NewGame(TwoRegions);
    struct Seen
    {
        int A;
        int B;
    };
    QList<Seen> seen;
    PaintWatcher watcher(game.Field(), [&] {
        seen.append({OpenIn(game, 1, 5), OpenIn(game, 7, 12)});
    });

    game.LeftPress(game.At(1, 1));
    game.LeftPress(game.At(12, 7));
    QTRY_VERIFY(!game.window.Flooding());
    QTRY_VERIFY(!seen.isEmpty() && seen.last().A == RegionACells);

    bool aWaited = true;
    bool aResumedAfterB = false;
    for (const Seen &moment : seen) {
        if (moment.B < RegionBCells)
            aWaited = aWaited && moment.A == 1;
        else
            aResumedAfterB = aResumedAfterB || moment.A < RegionACells;
    }
    QVERIFY(aWaited);
    QVERIFY(aResumedAfterB);
    QCOMPARE(game.Pictures().section(u'\n', 6, 6), QStringLiteral("....2#2....."));
}

void tst_MainFlood::newGameDuringFloodWaitsForItsEnd()
{
    GameHarness game;
    game.NewGame(TwoRegions);
    game.window.Timer_Timer();
    bool wholeRegionShown = false;
    PaintWatcher watcher(game.Field(), [&] {
        wholeRegionShown = wholeRegionShown || OpenIn(game, 1, 5) == RegionACells;
    });
    game.LeftPress(game.At(1, 1));
    game.window.mnuProg_Click(0);
    game.window.btnSmile_Click();
    // Nothing rebuilt yet: the game in play goes on.
    QCOMPARE(OpenIn(game, 1, 5), 1);
    QCOMPARE(game.Clock(), QStringLiteral("299"));

    QTRY_VERIFY(!game.window.Flooding());
    QVERIFY(wholeRegionShown);
    QCOMPARE(OpenIn(game, 1, 12), 0);
    QCOMPARE(game.Clock(), QStringLiteral("300"));
    QCOMPARE(game.BombCounter(), QStringLiteral("07"));
    QVERIFY(game.ClockRunning());
}

void tst_MainFlood::abortDuringFloodEndsGameAndFloodFinishes()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(TwoRegions);
    game.LeftPress(game.At(1, 1));
    game.window.mnuProg_Click(1);
    QCOMPARE(game.window.ShownFace(), 2);
    QVERIFY(game.window.Flooding());
    // The level asked for meanwhile is built once the flood has ended.
    game.window.mnuLevel_Click(Common::LevelMedium);
    QCOMPARE(game.Field()->FieldX(), 12);

    QTRY_VERIFY(!game.window.Flooding());
    QCOMPARE(game.Field()->FieldX(), 16);
    QCOMPARE(game.Field()->FieldY(), 16);
    QCOMPARE(game.sound.Played, QList<int>({101, 102}));
    QVERIFY(!game.ClockRunning());
}

void tst_MainFlood::timeOutDuringFloodLosesAndFloodFinishes()
{
    GameHarness game;
    game.NewGame(TwoRegions);
    for (int tick = 0; tick < 299; ++tick)
        game.window.Timer_Timer();
    game.LeftPress(game.At(12, 1));
    game.window.Timer_Timer();
    QCOMPARE(game.window.ShownFace(), 2);
    QTRY_VERIFY(!game.window.Flooding());
    QCOMPARE(game.Pictures().section(u'\n', 3, 3), QStringLiteral("#####*3....."));
    QCOMPARE(game.Clock(), QStringLiteral("000"));
}

void tst_MainFlood::exitDuringFloodWaitsForItsEnd()
{
    GameHarness game;
    game.NewGame(TwoRegions);
    ForgetSettings();
    game.LeftPress(game.At(1, 1));
    game.window.mnuProg_Click(4);
    QVERIFY(game.window.isVisible());
    QVERIFY(!QFile::exists(SettingsFilePath()));
    QTRY_VERIFY(!game.window.Flooding());
    QVERIFY(!game.window.isVisible());
    QVERIFY(QFile::exists(SettingsFilePath()));
}

void tst_MainFlood::floodOpensWholeLargestField()
{
    GameHarness game;
    QByteArray board = QByteArray(49, '.').append('\n').repeated(48) + QByteArray(48, '.') + '*';
    game.NewGame(board.constData());
    game.LeftPress(1);
    QTRY_VERIFY_WITH_TIMEOUT(!game.window.Flooding(), 20000);
    QCOMPARE(OpenIn(game, 1, 7), 49);
    for (int i = 1; i <= 2401; ++i) {
        const int expected = i == 2401 ? 13 : (i == 2400 || i == 2352 || i == 2351) ? 2 : 1;
        QCOMPARE(game.Pic(i), expected);
    }
    QVERIFY(game.ClockRunning());
}

QTEST_MAIN(tst_MainFlood)
#include "tst_mainflood.moc"
