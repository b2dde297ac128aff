#include "AccessibleFactory.h"
#include "GameHarness.h"

#include <QAccessible>
#include <QPainter>
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

// What the game told assistive technology: "focus <row>,<column>", "said <what the
// focused cell's description adds to its place>", "name <cell name>", "shown <notification>",
// "reset" or "rows <first>-<last>".
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
    } else if (type == QAccessible::Focus || type == QAccessible::DescriptionChanged ||
               type == QAccessible::NameChanged || type == QAccessible::ObjectShow) {
        QAccessibleInterface *target = event->accessibleInterface();
        const QString name = target->text(QAccessible::Name);
        const QString said = target->text(QAccessible::Description).section(", r", 0, 0);
        if (target->role() == QAccessible::Notification)
            Events << "shown " + name;
        else if (const QAccessibleTableCellInterface *cell = target->tableCellInterface())
            Events << (type == QAccessible::Focus ? QStringLiteral("focus %1,%2")
                                                        .arg(cell->rowIndex() + 1)
                                                        .arg(cell->columnIndex() + 1)
                       : type == QAccessible::NameChanged ? "name " + name
                                                          : "said " + said);
    }
}

// The events of the kinds given ("focus|said") since the last call, once batches have gone out.
QStringList Told(const QString &kinds)
{
    QTest::qWait(2 * FieldView::AnnounceInterval);
    return std::exchange(Events, {}).filter(QRegularExpression("^(" + kinds + ")\\b"));
}

// Types keys as QKeySequence spells them, split by blanks ("Right Ctrl+End F"), each in a turn
// of the event loop of its own, and returns the events told of the kinds given.
QStringList Type(const QString &keys, const QString &kinds = "focus|said|shown|reset")
{
    for (const QString &key : keys.split(u' ', Qt::SkipEmptyParts)) {
        const QKeyCombination combination = QKeySequence(key)[0];
        QTest::keyClick(QApplication::focusWidget(), combination.key(),
                        combination.keyboardModifiers());
        QCoreApplication::processEvents();
    }
    return Told(kinds);
}

// Starts a game on the corners board with the clock held and the keyboard in the field,
// entered by Tab from the smiley.
void EnterField(GameHarness &game, bool english)
{
    if (english)
        game.window.mnuLang_Click();
    game.window.findChild<QTimer *>("Timer")->stop();
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    game.window.findChild<QWidget *>("btnSmile")->setFocus();
    Type("Tab");
}

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

    void fieldCellsCountersAndFaceAreNamedAsShownThroughAGame()
    {
        for (const bool english : {false, true}) {
            GameHarness game(Corners);
            if (english)
                game.window.mnuLang_Click();
            QAccessibleInterface *field = Interface(game, "field");
            QAccessibleTableInterface *table = field->tableInterface();
            QAccessibleInterface *const corner = table->cellAt(0, 0);
            QAccessibleInterface *smiley = Interface(game, "btnSmile");
            QCOMPARE(smiley->text(QAccessible::Description), english ? "normal" : "normale");
            // Start (a minute on the clock), two flags and a question mark, a flood, a loss.
            for (const char *moves : {"T61", "R1,1 R3,4 R5,1 R5,1", "L3,2", "L1,4"}) {
                game.Play(moves);
                const QStringList rows = game.Pictures().split(u'\n');
                QCOMPARE(table->rowCount() * 10 + table->columnCount(), 45);
                for (int i = 0; i < 20; ++i) {
                    QAccessibleInterface *cell = table->cellAt(i / 5, i % 5);
                    QCOMPARE(cell->text(QAccessible::Name), Heard(rows[i / 5][i % 5], english));
                    QCOMPARE(field->indexOfChild(cell), i);
                    const QPoint centre = cell->rect().center();
                    QCOMPARE(field->childAt(centre.x(), centre.y()), cell);
                    // After the outcome of the last press, when the cell is the current one.
                    const QString place = english ? "row %1, column %2" : "riga %1, colonna %2";
                    QVERIFY(cell->text(QAccessible::Description)
                                .endsWith(place.arg(i / 5 + 1).arg(i % 5 + 1)));
                }
            }
            QCOMPARE(table->cellAt(0, 0), corner); // the same object throughout
            // Neither the clock is a child of the field nor the field a child of a cell.
            QCOMPARE(
                std::pair(field->indexOfChild(Interface(game, "pT")), corner->indexOfChild(field)),
                std::pair(-1, -1));
            QCOMPARE(field->text(QAccessible::Name), english ? "Field" : "Campo");
            // The counters read as name with the number, digits and value; the smiley with its
            // face.
            QStringList heard;
            for (const char *name : {"pBomb", "pT"}) {
                QAccessibleInterface *counter = Interface(game, name);
                heard << counter->text(QAccessible::Name) + ' ' +
                             counter->text(QAccessible::Value) + ' ' +
                             counter->valueInterface()->currentValue().toString();
            }
            heard << smiley->text(QAccessible::Name) + ": " +
                         smiley->text(QAccessible::Description);
            QCOMPARE(heard.join(" / "),
                     english ? "Bombs left 1 01 1 / Time left 239 239 239 / New game: game lost"
                             : "Bombe rimaste 1 01 1 / Tempo rimasto 239 239 239 / "
                               "Nuova partita: partita persa");
            smiley->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
            QCOMPARE(game.Status(), "03 300 face4 ticking levels-off"); // a new game
        }
    }

    void keysMoveAndPressTheFocusedCellAndAreSpoken()
    {
        struct Keys
        {
            const char *name;
            bool english;
            QString keys;
            QString told; // split by " / "
        };
        const Keys rows[] = {
            {"arrows step one cell and stop at the edge, Home and End to the row's ends, with Ctrl "
             "to the corners; Space opens a number",
             false, "Down Left Up Up Right End Left Home Ctrl+End Ctrl+End Ctrl+Home Right Space",
             "focus 2,1 / focus 1,1 / focus 1,2 / focus 1,5 / focus 1,4 / focus 1,1 / focus 4,5 / "
             "focus 1,1 / focus 1,2 / said 1"},
            {"Enter floods and counts the cells opened", true, "Down Right Right Return",
             "focus 2,1 / focus 2,2 / focus 2,3 / said 15 cells opened"},
            {"F cycles flag, question mark and cover with the bombs left; C reads the counters",
             false, "F F F C",
             "said bandierina, 2 bombe rimaste / said punto interrogativo, 3 bombe rimaste / "
             "said coperta, 3 bombe rimaste / said 3 bombe rimaste, 300 secondi"},
            {"the last flag wins", true, "F End F Ctrl+End Home F",
             "said flag, 2 bombs left / focus 1,5 / said flag, 1 bomb left / "
             "focus 4,5 / focus 4,1 / said flag, 0 bombs left, game won"},
            {"a bomb loses; F2 starts again on the first cell", false, "Space End F2",
             "said bomba esplosa, partita persa / focus 1,5 / reset / focus 1,1 / said 3 bombe, "
             "300 secondi"},
            {"keys outside the field change nothing", false, "Shift+Tab F Return C", ""},
        };
        for (const Keys &row : rows) {
            GameHarness game(Corners);
            EnterField(game, row.english);
            const QStringList told = Type(row.keys);
            QVERIFY2(told.filter(QRegularExpression("^(focus|said|reset)")).join(" / ") == row.told,
                     row.name);
            // Each description said is also shown as a notification.
            QCOMPARE(told.filter(QRegularExpression("^shown ")).replaceInStrings("shown ", "said "),
                     told.filter(QRegularExpression("^said ")));
            QCOMPARE(
                Interface(game, "field")->child(game.Field()->CurrentCell() - 1)->state().focused,
                game.Field()->hasFocus());
        }
    }

    void mousePressesMoveTheCurrentCellWithoutAFrame()
    {
        GameHarness game(Corners);
        EnterField(game, false);
        FieldView *field = game.Field();
        const QImage framedFirst = field->grab().toImage();
        Type("Shift+Tab");
        const QImage plain = field->grab().toImage();
        QImage outsideTheFrame = framedFirst;
        QPainter(&outsideTheFrame).drawImage(field->CellRect(1), plain.copy(field->CellRect(1)));
        QCOMPARE(outsideTheFrame, plain);
        QVERIFY(framedFirst != plain);
        for (int press = 0; press < 3; ++press) // flag, question mark, cover again
            QTest::mouseClick(field, Qt::RightButton, {}, field->CellRect(8).center());
        QCOMPARE(field->grab().toImage(), plain);
        QCOMPARE(Type("Tab", "focus"), QStringList("focus 2,3"));
        QCOMPARE(field->grab().toImage().copy(field->CellRect(8)),
                 framedFirst.copy(field->CellRect(1)));
    }

    void changedCellsAreAnnouncedOneByOneOrAsATableChange()
    {
        // Empty but for one bomb in the top left corner: a press in the other corner floods the
        // rest.
        GameHarness game(QString("*........\n") + QString(".........\n").repeated(7) + ".........");
        Told("");
        game.Play("R2,1");
        QCOMPARE(Told("name|rows"), QStringList("name bandierina"));
        game.Play("L9,9");
        QCOMPARE(Told("name|rows"), QStringList("rows 0-8"));
        // Two floods, each counted on its own.
        game.NewGame("...*...\n...*...\n...*...");
        game.Play("L1,1 L7,3");
        QCOMPARE(Told("said"), QStringList({"said 3 bombe, 300 secondi", "said 9 caselle aperte",
                                            "said 9 caselle aperte"}));
    }
};

QTEST_MAIN(tst_Accessibility)
#include "tst_accessibility.moc"
