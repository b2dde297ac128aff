#include "AccessibleFactory.h"
#include "GameHarness.h"

#include <QAccessible>
#include <QTest>

namespace {

// Bombs in three corners; a press in the middle floods all but the left column.
const char *const Corners = "*...*\n.....\n.....\n*....";

// What a player hears for each character of GameHarness::Pictures but digits, in both languages.
const QString Shown = "#F?.*Xx";
const QStringList Italian = {"coperta", "bandierina",    "punto interrogativo", "vuota",
                             "bomba",   "bomba esplosa", "bandierina sbagliata"};
const QStringList English = {"covered", "flag",          "question mark", "empty",
                             "bomb",    "exploded bomb", "wrong flag"};

QString Heard(QChar shown, bool english)
{
    return shown.isDigit() ? shown : (english ? English : Italian).at(Shown.indexOf(shown));
}

QAccessibleInterface *Interface(const GameHarness &game, const char *name)
{
    return QAccessible::queryAccessibleInterface(game.window.findChild<QWidget *>(name));
}

} // namespace

// The game window read as assistive technology reads it: the field as a table of named cells,
// the counters and the face with their values, in the language of the menus.
class tst_Accessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QAccessible::installFactory(CreateGameAccessible); }
    void fieldCellsAreNamedAsShownThroughAGame();
    void countersAndFaceFollowTheGame();
};

void tst_Accessibility::fieldCellsAreNamedAsShownThroughAGame()
{
    for (const bool english : {false, true}) {
        GameHarness game(Corners);
        if (english)
            game.window.mnuLang_Click();
        QAccessibleInterface *field = Interface(game, "field");
        QAccessibleTableInterface *table = field->tableInterface();
        QAccessibleInterface *const corner = table->cellAt(0, 0);
        // Start, two flags and a question mark, a flood, a loss: flags first, then a press.
        const std::pair<QList<QPoint>, QPoint> stages[] = {
            {{}, {}}, {{{1, 1}, {3, 4}, {5, 1}, {5, 1}}, {}}, {{}, {3, 2}}, {{}, {1, 4}}};
        for (const auto &[flags, press] : stages) {
            for (const QPoint flag : flags)
                game.Right({flag});
            if (!press.isNull())
                game.Press(press.x(), press.y());
            QTRY_VERIFY(!game.window.Flooding());
            const QStringList rows = game.Pictures().split(u'\n');
            QCOMPARE(table->rowCount() * 10 + table->columnCount(), 45);
            for (int i = 0; i < 20; ++i) {
                QAccessibleInterface *cell = table->cellAt(i / 5, i % 5);
                QCOMPARE(cell->text(QAccessible::Name), Heard(rows[i / 5][i % 5], english));
                QCOMPARE(field->indexOfChild(cell), i);
                const QPoint centre = cell->rect().center();
                QCOMPARE(field->childAt(centre.x(), centre.y()), cell);
            }
        }
        QCOMPARE(game.Pictures(), "F1.1*\n#1.11\n#1...\nX1x..");
        QCOMPARE(table->cellAt(0, 0), corner); // the same object throughout
        QCOMPARE(field->text(QAccessible::Name), english ? "Field" : "Campo");
    }
}

void tst_Accessibility::countersAndFaceFollowTheGame()
{
    // Language, flags on safe cells, clock ticks, loss, then bomb counter, clock and face.
    const std::tuple<bool, int, int, bool, QStringList> rounds[] = {
        {false, 0, 0, false, {"Bombe rimaste 03", "Tempo rimasto 300", "Nuova partita normale"}},
        {true, 2, 7, false, {"Bombs left 01", "Time left 293", "New game normal"}},
        {true, 1, 61, true, {"Bombs left 02", "Time left 239", "New game game lost"}}};
    for (const auto &[english, flags, ticks, lose, heard] : rounds) {
        GameHarness game(Corners);
        if (english)
            game.window.mnuLang_Click();
        for (int x = 1; x <= flags; ++x)
            game.Right({{x, 2}});
        game.Ticks(ticks);
        if (lose)
            game.Press(1, 1);
        QStringList shown;
        for (const char *name : {"pBomb", "pT", "btnSmile"}) {
            QAccessibleInterface *control = Interface(game, name);
            shown << control->text(QAccessible::Name) + ' ' + control->text(QAccessible::Value);
            if (QAccessibleValueInterface *value = control->valueInterface())
                QCOMPARE(value->currentValue().toInt(), shown.last().section(' ', -1).toInt());
        }
        QCOMPARE(shown, heard);
    }
}

QTEST_MAIN(tst_Accessibility)
#include "tst_accessibility.moc"
