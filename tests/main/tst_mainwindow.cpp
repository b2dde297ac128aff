#include "GameHarness.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include <tuple>

namespace {

// Easy: nine bombs along the top row and one below its left end.
const QString TopRow = "*********\n*........" + QString("\n.........").repeated(7);

// Three bombs down the left edge; the rest is one empty region with numbers beside the bombs.
const char *const LeftWall = "*......\n*......\n*......";

// Two empty regions parted by a wall of bombs: A is columns 1 to 5 (its numbers in column 5),
// B columns 7 to 12 (its numbers in column 7).
const QString TwoRegions = QString(".....*......\n").repeated(7).chopped(1);

} // namespace

// What only the game window does: the sequence of face, sounds, counters and clock through a
// few games; floods shown cell by cell while presses and menus wait their turn; keys, the
// smiley, menus in both languages and the mouse; levels with the layout and the stored level;
// the hall of fame dialogs after a win. The rules themselves are tested in tests/game.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    // Each step: the moves > the cells after them ('/' between rows; '=' as before) > the panel >
    // the sounds heard when sound is on ("105*3" for three ticks). With sound off nothing is heard.
    void gamesOnTheLeftWall()
    {
        const char *const steps[] = {
            // No game yet: presses do nothing.
            "L2,2 R3,3 M4,4 H5,5 > = > 00 000 face4 stopped levels-on > ",
            // A new game; flag, then question mark and cover.
            "N R4,2 > #######/###F###/####### > 02 300 face4 ticking levels-off > 101",
            "R4,2 R4,2 > #######/#######/####### > 03 300 face4 ticking levels-off > 101 101",
            // Astonished while the button is down; a right press on an open cell changes nothing.
            "H2,1 > #2#####/#######/####### > 03 300 face3 ticking levels-off > 101",
            "R2,1 > = > 03 300 face4 ticking levels-off > 101",
            "M2,2 > #2#####/#3#####/####### > 03 300 face4 ticking levels-off > 101",
            // A flag on a safe cell; a question mark on a bomb is no flag; a flag taken off a bomb
            // and put back counts once.
            "R5,3 R1,3 R1,3 R1,1 R1,1 R1,1 R1,1 > F2#####/#3#####/?###F## > "
            "01 300 face4 ticking levels-off > 101*7",
            // The flood opens the flagged safe cell; every safe cell open does not win.
            "L4,2 > F2...../#3...../?2..... > 01 300 face4 ticking levels-off > 101",
            "R1,2 > F2...../F3...../?2..... > 00 300 face4 ticking levels-off > 101",
            // Every bomb flagged wins, with a flag too many; after it presses do nothing.
            "R1,3 R1,3 > F2...../F3...../F2..... > 00 300 face1 stopped levels-on > 101 101 103",
            "L3,3 R2,2 H4,2 > = > 00 300 face1 stopped levels-on > ",
            // Abort after the game shows the loss: the opened flag on a safe cell is wrong.
            "A > F2...../F3...../F2..x.. > 00 300 face2 stopped levels-on > 102",
            // In a new game a left press on a question mark over a bomb loses; then presses do
            // nothing, and the exploded cell stays so at a later Abort.
            "N R1,2 R1,3 R1,3 R6,2 L1,3 > *######/F####x#/X###### > "
            "01 300 face2 stopped levels-on > 101*5 102",
            "L2,2 R3,3 M4,2 A > = > 01 300 face2 stopped levels-on > 102",
            // The countdown: a tick sound every second, the warning at 120, the loss at 0.
            "N T179 > #######/#######/####### > 03 121 face4 ticking levels-off > 105*179",
            "T1 > = > 03 120 face4 ticking levels-off > 105 104",
            "T119 > = > 03 001 face4 ticking levels-off > 105*119",
            "T1 > *######/*######/*###### > 03 000 face2 stopped levels-on > 105 102"};
        for (const bool soundOn : {true, false}) {
            GameHarness game({}, soundOn);
            game.board = LeftWall;
            QString pictures = QString("#########\n").repeated(9).chopped(1); // Easy, before a game
            for (const QString step : steps) {
                const QStringList part = step.split(" > ");
                game.Play(part[0]);
                pictures = part[1] == "=" ? pictures : QString(part[1]).replace(u'/', u'\n');
                QCOMPARE(game.Pictures(), pictures);
                QCOMPARE(game.Status(), part[2]);
                QList<int> sounds;
                for (const QString &run : part[3].split(u' ', Qt::SkipEmptyParts))
                    sounds += QList<int>(run.section(u'*', 1).toInt() + !run.contains(u'*'),
                                         run.left(3).toInt());
                QCOMPARE(game.Sounds(), soundOn ? sounds : QList<int>());
            }
        }
    }

    void floodsRunCellByCellNewestFirstAndNewFieldsWait()
    {
        GameHarness game(TwoRegions);
        // A press in B while A floods: A waits until B has ended. New game, Level and the smiley
        // wait for both floods and are carried out together; the time-out ends the game at once.
        game.Ticks(299);
        game.Press(1, 1);
        game.Press(12, 7);
        game.window.mnuProg_Click(0);
        game.window.mnuLevel_Click(Common::LevelMedium);
        game.window.btnSmile_Click();
        game.Ticks(1);
        QCOMPARE(game.Status(), "07 000 face2 stopped levels-on");
        bool aWaited = true, aResumedAfterB = false, bothShown = false;
        int turns = 0;
        for (; game.Field()->FieldX() == 12 && turns < 10000; ++turns) {
            int a = 0, b = 0; // cells open in A and in B; the wall of bombs between is in neither
            for (int i = 0; i < 7 * 12; ++i)
                if (i % 12 != 5)
                    (i % 12 < 5 ? a : b) += game.Field()->Pic(i + 1) != 13;
            aWaited = aWaited && (b == 6 * 7 || a == 1);
            aResumedAfterB = aResumedAfterB || (b == 6 * 7 && a < 5 * 7);
            bothShown = bothShown || (a == 5 * 7 && b == 6 * 7);
            QCoreApplication::processEvents();
        }
        QVERIFY(bothShown && aWaited && aResumedAfterB);
        QVERIFY2(turns > 50, "the regions appeared in a few turns, not cell by cell");
        QCOMPARE(game.Pictures().count(u'#'), 256);
        QCOMPARE(game.Status(), "40 600 face4 ticking levels-off");

        // Abort ends the game at once; the flood runs on to its end.
        game.NewGame(TwoRegions);
        game.Press(12, 1);
        game.window.mnuProg_Click(1);
        QVERIFY(game.Face() == 2 && game.window.Flooding());
        QTRY_VERIFY(!game.window.Flooding());
        QCOMPARE(game.Pictures().section(u'\n', 3, 3), "#####*3.....");
    }

    void keysSmileyMenusInBothLanguagesAndTheMouseOnCells()
    {
        GameHarness game; // sound off
        game.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&game.window));
        const QAction *debug = game.window.findChild<QMenu *>("mnudbg")->menuAction();
        // F12 with these modifiers, and the beeps heard so far; an odd count shows the Debug menu.
        const Qt::KeyboardModifiers shiftCtrl = Qt::ShiftModifier | Qt::ControlModifier;
        const QList<Qt::KeyboardModifiers> keys{
            {}, Qt::ShiftModifier, Qt::ControlModifier, shiftCtrl, shiftCtrl | Qt::AltModifier};
        const int beeps[] = {0, 0, 0, 1, 2};
        for (int press = 0; press < keys.size(); ++press) {
            QTest::keyClick(game.Field(), Qt::Key_F12, keys[press]);
            QCOMPARE(std::pair(debug->isVisible(), game.window.Beeps),
                     std::pair(beeps[press] % 2 == 1, beeps[press]));
        }

        QTest::mouseClick(game.window.findChild<QAbstractButton *>("btnSmile"), Qt::LeftButton);
        QCOMPARE(QApplication::focusWidget(), game.window.findChild<QWidget *>("pBomb"));
        QCOMPARE(game.Status(), "10 300 face4 ticking levels-off");

        // Every menu and item in the order they are shown, the language item last.
        const char *const italian = "Gioco|Nuova partita|Annulla partita|Suono|I Record...|Esci|"
                                    "Livello|Facile|Medio|Difficile|Personalizzato...|?|"
                                    "A proposito...|Barare|Mostra celle|Nascondi celle|English";
        const char *const english =
            "Game|New|Abort|Sound|Hall of Fame...|Exit|Level|Easy|Medium|Hard|"
            "Custom...|?|About...|Debug|Show cells|Hide cells|Italiano";
        QAction *sound = game.window.findChild<QAction *>("mnuProg2");
        // Start-up Italian, English, Italian again; before each switch the sound check mark and the
        // Debug menu change, and the switch must leave them so.
        for (int step = 0; step < 3; ++step) {
            if (step > 0) {
                game.window.mnuProg_Click(2);
                game.window.Form_KeyDown(Qt::Key_F12, shiftCtrl);
                game.window.findChild<QAction *>("mnuLang")->trigger();
            }
            QStringList captions;
            for (const QAction *item : game.window.findChildren<QAction *>())
                captions << item->text();
            captions.removeAll(QString());
            QCOMPARE(captions.join(u'|'), step == 1 ? english : italian);
            QCOMPARE(game.window.windowTitle(), "Velkaro - GA1.03");
            QCOMPARE(std::pair(sound->isChecked(), debug->isVisible()),
                     std::pair(step == 1, step == 1));
            QVERIFY(game.ClockRunning());
        }

        // The mouse on the field: a press acts on the cell under it whichever cell the button comes
        // up on; the border around the cells is no cell; the middle button opens.
        game.NewGame(TopRow, Common::LevelEasy);
        const FieldView *field = game.Field();
        QTest::mousePress(game.Field(), Qt::RightButton, {}, field->CellRect(11).center());
        QCOMPARE(game.Face(), 3);
        QTest::mouseRelease(game.Field(), Qt::RightButton, {}, field->CellRect(40).center());
        for (const QPoint border : {QPoint(1, 1), field->CellRect(9).topRight() + QPoint(1, 0),
                                    field->CellRect(81).bottomLeft() + QPoint(0, 1)})
            QTest::mouseClick(game.Field(), Qt::LeftButton, {}, border);
        QTest::mouseClick(game.Field(), Qt::MiddleButton, {}, field->CellRect(20).topLeft());
        QCOMPARE(game.Pictures().left(29), "#########\n#F#######\n#1#######");
        QCOMPARE(game.Status(), "09 300 face4 ticking levels-off");
    }

    void levelChoicesFitTheWindowWithoutPlayingAndTheLevelIsStoredAtClose()
    {
        GameHarness game;
        game.window.move(57, 31);
        // The custom dialog shows the field in force; OK takes the typed size.
        const QStringList answers{"7|7|8", "49|49|300"};
        QString seen;
        int answered = 0;
        game.AnswerDialogs([&](QWidget *dialog) {
            const QStringList answer = answers[answered++].split(u'|');
            seen = dialog->objectName();
            for (int box = 0; box < 3; ++box) {
                auto *text = dialog->findChild<QLineEdit *>(QStringList{"txX", "txY", "txB"}[box]);
                seen += u' ' + text->text();
                text->setText(answer[box]);
            }
            dialog->findChild<QAbstractButton *>("btnOk")->click();
        });
        // The level chosen, the dialog seen, the field's width and height and the left edges of
        // the smiley and the clock, and the counters of a new game there: more than 99 bombs
        // show 99. (Each preset's window is compared with its picture by tests/pictures.)
        const std::tuple<int, QString, int, int, int, int, QString> choices[] = {
            {2, "", 484, 260, 229, 429, "99 900"},
            {3, "frmCustom 30 16 99", 116, 116, 45, 61, "08 900"},
            {3, "frmCustom 7 7 8", 788, 788, 381, 733, "99 900"}};
        for (const auto &[level, dialog, width, height, smileLeft, clockLeft, counters] : choices) {
            seen.clear();
            game.window.mnuLevel_Click(level);
            QCOMPARE(seen, dialog);
            QCOMPARE(game.Status(), "00 000 face4 stopped levels-on");
            QCOMPARE(game.Field()->geometry(), QRect(4, 32, width, height));
            QCOMPARE(QPoint(game.window.findChild<QWidget *>("btnSmile")->x(),
                            game.window.findChild<QWidget *>("pT")->x()),
                     QPoint(smileLeft, clockLeft));
            // Below the menu bar the window holds the panel and the field with 4-pixel margins,
            // and it keeps its place.
            const QWidget *menus = game.window.menuWidget();
            QCOMPARE(std::pair(game.window.pos(), game.window.size()),
                     std::pair(QPoint(57, 31), QSize(width + 8, menus->height() + height + 36)));
            // All four menu bar items stay in sight, on a second line when the field is narrow;
            // a line left empty is not shown.
            int items = 0;
            for (QMenuBar *line : menus->findChildren<QMenuBar *>()) {
                QCOMPARE(line->isVisible(), !line->actions().isEmpty());
                for (QAction *item : line->actions())
                    items += line->rect().contains(line->actionGeometry(item));
            }
            QCOMPARE(items, 4);
            game.window.mnuProg_Click(0);
            QCOMPARE(game.Status(), counters + " face4 ticking levels-off");
            game.window.mnuProg_Click(1);
        }
        game.window.mnuProg_Click(2);
        QFile::remove(IniPath);       // start-up has already saved fresh tables
        game.window.mnuProg_Click(4); // Exit
        QFile ini(IniPath);
        QVERIFY(ini.open(QIODevice::ReadOnly) && ini.readAll().contains("\nLevel=3"));
        // Stored sound on plays the start sound; a stored Custom level starts on Easy.
        RecordingWaveOutput sound;
        ClockRandomSource random;
        frmMine window(sound, random);
        window.Form_Load();
        QCOMPARE(sound.Played, QList<int>({103}));
        QCOMPARE(window.findChild<FieldView *>("field")->FieldX(), 9);
    }

    void winOnPresetEntersRecordThroughBothDialogs()
    {
        // The name typed and the seconds taken; the titles of the dialogs shown and the Easy table
        // after the win, each from the same table: a time equal to a stored one goes below it (1e1
        // is 10), stored times are read by their leading number, the last row drops out, and a time
        // equal to the last row's is no record and shows no dialog. Each win comes while a flood
        // runs and a new game waits for it: the new game must wait for the dialogs too. A logout or
        // a signal saves while the name is asked: the win is in the file under the last name given,
        // Ada, not lost behind a shifted copy of the row below.
        const std::tuple<bool, QString, int, QString, QString> wins[] = {
            {false, "Eve", 10, "Nome giocatore| VETRINA DEI RECORD",
             "A=1,B=1e1,Eve=10,C=12abc,D= 12"},
            {true, "", 0, "Player Name| HALL OF FAME", "=0,A=1,B=1e1,C=12abc,D= 12"},
            {false, "Eve", 12, "Nome giocatore| VETRINA DEI RECORD",
             "A=1,B=1e1,C=12abc,D= 12,Eve=12"},
            {false, "Eve", 30, "", "A=1,B=1e1,C=12abc,D= 12,E=30"}};
        for (const auto &[english, name, seconds, titles, table] : wins) {
            GameHarness game;
            if (english)
                game.window.mnuLang_Click();
            Common::PlayerName = "Ada";
            Common::EasyRecords = {
                RecordRow{"A", "1"}, {"B", "1e1"}, {"C", "12abc"}, {"D", " 12"}, {"E", "30"}};
            game.NewGame(TopRow, Common::LevelEasy);
            game.Ticks(seconds);
            QStringList shown;
            game.AnswerDialogs([&](QWidget *dialog) {
                shown.append(dialog->windowTitle() +
                             (game.ClockRunning() ? " under a running clock" : ""));
                if (auto *text = dialog->findChild<QLineEdit *>("txPlayer")) {
                    game.window.Form_Unload();
                    text->setText(name);
                }
                dialog->findChild<QAbstractButton *>("btnClose")->click();
            });
            game.Press(9, 9);
            game.window.mnuProg_Click(0);
            for (int bomb = 0; bomb < 10;
                 ++bomb) // all flagged: the top row, then below its left end
                game.Press(bomb % 9 + 1, bomb / 9 + 1, Qt::RightButton);
            QCOMPARE(shown.join(u'|'), titles);
            QStringList rows;
            for (const RecordRow &row : Common::EasyRecords)
                rows << row.Name + u'=' + row.Time;
            QCOMPARE(rows.join(u','), table);
            QFile saved(IniPath);
            QVERIFY(saved.open(QIODevice::ReadOnly));
            QCOMPARE(saved.readAll().contains("\nAda=" + QByteArray::number(seconds) + '\n'),
                     !titles.isEmpty());
            QTRY_COMPARE(game.Status(), "10 300 face4 ticking levels-off");
        }
    }
};

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
