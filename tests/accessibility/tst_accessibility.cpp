#include "AccessibleFactory.h"
#include "GameHarness.h"

#include <QAccessible>
#include <QRegularExpression>
#include <QTest>
#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

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

// What the game told assistive technology about the field, as "focus <name> | <description>",
// "said <description>", "name <name>", "shown <notification>", "reset" or "rows <first>-<last>".
QStringList Events;

void Record(QAccessibleEvent *event)
{
    const QAccessible::Event type = event->type();
    if (type == QAccessible::TableModelChanged) {
        const auto *change = static_cast<QAccessibleTableModelChangeEvent *>(event);
        Events
            << (change->modelChangeType() == QAccessibleTableModelChangeEvent::ModelReset
                    ? QStringLiteral("reset")
                    : QStringLiteral("rows %1-%2").arg(change->firstRow()).arg(change->lastRow()));
    }
    const QList<QAccessible::Event> told = {QAccessible::Focus, QAccessible::DescriptionChanged,
                                            QAccessible::NameChanged, QAccessible::ObjectShow};
    QAccessibleInterface *target = told.contains(type) ? event->accessibleInterface() : nullptr;
    if (!target)
        return;
    const QString name = target->text(QAccessible::Name);
    if (target->role() == QAccessible::Notification && type == QAccessible::ObjectShow)
        Events << "shown " + name;
    if (target->role() != QAccessible::Cell)
        return;
    const QString description = target->text(QAccessible::Description);
    Events << (type == QAccessible::Focus         ? "focus " + name + " | " + description
               : type == QAccessible::NameChanged ? "name " + name
                                                  : "said " + description);
}

// The events of the kinds given ("focus|said") told since the last call, once the batched
// announcements have gone out.
QStringList Told(const QString &kinds)
{
    QTest::qWait(2 * FieldView::AnnounceInterval);
    return std::exchange(Events, {}).filter(QRegularExpression("^(" + kinds + ")\\b"));
}

// A game on the corners board with the clock held, the keyboard focus in the field, entered by
// Tab from the smiley, and the events told so far taken.
struct KeyboardGame : GameHarness
{
    explicit KeyboardGame(bool english) : GameHarness(Corners)
    {
        if (english)
            window.mnuLang_Click();
        window.findChild<QTimer *>("Timer")->stop();
        window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        Smiley()->setFocus();
        Type("Tab");
        QTRY_VERIFY(Field()->hasFocus());
        Told("");
    }
    QWidget *Smiley() const { return window.findChild<QWidget *>("btnSmile"); }
    // Types keys split by blanks, each as QKeySequence spells it ("Right Ctrl+End F"), into the
    // focused widget, and returns the events told of the kinds given.
    QStringList Type(const QString &keys, const QString &kinds = "focus|said")
    {
        for (const QString &key : keys.split(u' ', Qt::SkipEmptyParts)) {
            const QKeyCombination combination = QKeySequence(key)[0];
            QTest::keyClick(QApplication::focusWidget(), combination.key(),
                            combination.keyboardModifiers());
            QCoreApplication::processEvents(); // each key in a turn of its own, as when typed
        }
        while (window.Flooding())
            QCoreApplication::processEvents();
        return Told(kinds);
    }
};

} // namespace

// The game window read as assistive technology reads it: the field as a table of named cells
// with a focused current cell that the keyboard moves and presses, the counters and the face
// with their values, in the language of the menus; and what is announced as the game goes.
class tst_Accessibility : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QAccessible::installFactory(CreateGameAccessible);
        QAccessible::installUpdateHandler(Record);
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    }
    void fieldCellsAreNamedAsShownThroughAGame();
    void countersAndFaceFollowTheGame();
    void keysMoveTheFocusedCellAndItsPlaceIsSpoken();
    void pressesByKeyAreSpokenOnTheFocusedCell();
    void changedCellsAndNewFieldsAreAnnounced();
    void keysOutsideTheFieldChangeNothing();
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
                // The current cell, the first, tells the last press's outcome before its place.
                QVERIFY(cell->text(QAccessible::Description)
                            .endsWith(QString(english ? "row %1, column %2" : "riga %1, colonna %2")
                                          .arg(i / 5 + 1)
                                          .arg(i % 5 + 1)));
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
        {false,
         0,
         0,
         false,
         {"Bombe rimaste 3 03", "Tempo rimasto 300 300", "Nuova partita: normale"}},
        {true, 2, 7, false, {"Bombs left 1 01", "Time left 293 293", "New game: normal"}},
        {true, 1, 61, true, {"Bombs left 2 02", "Time left 239 239", "New game: game lost"}},
        {false,
         0,
         1,
         true,
         {"Bombe rimaste 3 03", "Tempo rimasto 299 299", "Nuova partita: partita persa"}}};
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
        for (const char *name : {"pBomb", "pT"}) {
            QAccessibleInterface *counter = Interface(game, name);
            shown << counter->text(QAccessible::Name) + ' ' + counter->text(QAccessible::Value);
            QCOMPARE(counter->valueInterface()->currentValue().toInt(),
                     shown.last().section(' ', -1).toInt());
        }
        QAccessibleInterface *smiley = Interface(game, "btnSmile");
        shown << smiley->text(QAccessible::Name) + ": " + smiley->text(QAccessible::Description);
        QCOMPARE(shown, heard);
        // Its press action starts a new game.
        smiley->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(game.Status(), "03 300 face4 ticking levels-off");
    }
}

void tst_Accessibility::keysMoveTheFocusedCellAndItsPlaceIsSpoken()
{
    struct Moves
    {
        const char *name;
        bool english;
        QString keys;
        QStringList told;
    };
    const Moves rows[] = {
        {"arrows step one cell and stop at the edge",
         false,
         "Right Down Left Left Up",
         {"focus coperta | riga 1, colonna 2", "focus coperta | riga 2, colonna 2",
          "focus coperta | riga 2, colonna 1", "focus coperta | riga 1, colonna 1"}},
        {"Home and End reach the ends of the row",
         true,
         "Down End Home",
         {"focus covered | row 2, column 1", "focus covered | row 2, column 5",
          "focus covered | row 2, column 1"}},
        {"Ctrl+End and Ctrl+Home reach the corners",
         false,
         "Ctrl+End Ctrl+End Ctrl+Home",
         {"focus coperta | riga 4, colonna 5", "focus coperta | riga 1, colonna 1"}},
    };
    for (const Moves &row : rows) {
        KeyboardGame game(row.english);
        QCOMPARE(game.Type(row.keys), row.told);
        QAccessibleInterface *focused = Interface(game, "field")->focusChild();
        QCOMPARE(focused->text(QAccessible::Description), row.told.last().section(" | ", 1));
        QVERIFY(focused->state().focused);
    }
    // Mouse presses make their cell current without a frame; Tab brings the focus and the frame.
    KeyboardGame game(false);
    FieldView *field = game.Field();
    const QImage framedFirst = field->grab().toImage();
    game.Smiley()->setFocus();
    const QImage plain = field->grab().toImage();
    for (int press = 0; press < 3; ++press) // flag, question mark, cover again
        QTest::mouseClick(field, Qt::RightButton, {}, field->CellRect(8).center());
    QCOMPARE(field->grab().toImage(), plain);
    QVERIFY(framedFirst != plain);
    QCOMPARE(game.Type("Tab", "focus"), QStringList({"focus coperta | riga 2, colonna 3"}));
    QCOMPARE(field->grab().toImage().copy(field->CellRect(8)),
             framedFirst.copy(field->CellRect(1)));
}

void tst_Accessibility::pressesByKeyAreSpokenOnTheFocusedCell()
{
    struct Presses
    {
        const char *name;
        bool english;
        QString keys;
        QStringList said;
    };
    const Presses rows[] = {
        {"Space opens a number", false, "Right Space", {"said 1, riga 1, colonna 2"}},
        {"Enter floods and counts the cells opened",
         true,
         "Down Right Right Return",
         {"said 15 cells opened, row 2, column 3"}},
        {"F cycles flag, question mark and cover with the bombs left",
         false,
         "F F F",
         {"said bandierina, 2 bombe rimaste, riga 1, colonna 1",
          "said punto interrogativo, 3 bombe rimaste, riga 1, colonna 1",
          "said coperta, 3 bombe rimaste, riga 1, colonna 1"}},
        {"a bomb explodes and the game is lost",
         false,
         "Space",
         {"said bomba esplosa, partita persa, riga 1, colonna 1"}},
        {"the last flag wins",
         true,
         "F End F Ctrl+End Home F",
         {"said flag, 2 bombs left, row 1, column 1", "said flag, 1 bomb left, row 1, column 5",
          "said flag, 0 bombs left, game won, row 4, column 1"}},
        {"C reads the counters as shown",
         false,
         "F C",
         {"said bandierina, 2 bombe rimaste, riga 1, colonna 1",
          "said 2 bombe rimaste, 300 secondi, riga 1, colonna 1"}},
        {"F2 announces the new game on the first cell",
         true,
         "Down F2",
         {"said 3 bombs, 300 seconds, row 1, column 1"}},
    };
    for (const Presses &row : rows) {
        KeyboardGame game(row.english);
        const QStringList told = game.Type(row.keys, "said|shown");
        QCOMPARE(told.filter(QRegularExpression("^said")), row.said);
        // The same, without the place, as a notification shown.
        QCOMPARE(told.filter(QRegularExpression("^shown")),
                 QStringList(row.said).replaceInStrings(
                     QRegularExpression("^said (.*), (riga|row) .*"), "shown \\1"));
    }
}

void tst_Accessibility::changedCellsAndNewFieldsAreAnnounced()
{
    // Empty but for one bomb in the top left corner: a press in the other corner floods the rest.
    GameHarness game(QString("*........\n") + QString(".........\n").repeated(7) + ".........");
    Told("");
    game.Right({{2, 1}});
    QCOMPARE(Told("name|rows|reset"), QStringList({"name bandierina"}));
    game.Play("L9,9");
    QCOMPARE(Told("name|rows|reset"), QStringList({"rows 0-8"}));
    game.NewGame(game.board);
    QCOMPARE(Told("name|rows|reset"), QStringList({"reset"}));
}

void tst_Accessibility::keysOutsideTheFieldChangeNothing()
{
    KeyboardGame game(false);
    game.window.findChild<QWidget *>("pBomb")->setFocus(); // where a click on the smiley puts it
    Told("");
    QCOMPARE(game.Type("Right Down F Return C", "focus|said|name|shown"), QStringList());
    QCOMPARE(game.Pictures(), "#####\n#####\n#####\n#####");
    QCOMPARE(game.Field()->CurrentCell(), 1);
}

QTEST_MAIN(tst_Accessibility)
#include "tst_accessibility.moc"
