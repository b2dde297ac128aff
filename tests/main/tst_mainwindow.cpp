#include "GameHarness.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

#include <tuple>

namespace {

// Easy: nine bombs along the top row and one below its left end.
const char *const TopRow = "*********\n*........\n.........\n.........\n.........\n"
                           ".........\n.........\n.........\n.........";

} // namespace

// The frame of the game window: keys, the smiley, menus in both languages and the mouse; levels
// with the layout and the stored level; the hall of fame after a win.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void keysSmileyMenusInBothLanguagesAndTheMouseOnCells();
    void levelChoicesFitTheWindowWithoutPlayingAndTheLevelIsStoredAtClose();
    void winOnPresetEntersRecordThroughBothDialogs();
};

void tst_MainWindow::keysSmileyMenusInBothLanguagesAndTheMouseOnCells()
{
    GameHarness game; // sound off
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    const QAction *debug = game.window.findChild<QMenu *>("mnudbg")->menuAction();
    // F12 with these modifiers, and the beeps heard so far; an odd count shows the Debug menu.
    const Qt::KeyboardModifiers shiftCtrl = Qt::ShiftModifier | Qt::ControlModifier;
    const QList<Qt::KeyboardModifiers> keys{
        {},        Qt::ShiftModifier,           Qt::ControlModifier,        shiftCtrl,
        shiftCtrl, shiftCtrl | Qt::AltModifier, shiftCtrl | Qt::AltModifier};
    const int beeps[] = {0, 0, 0, 1, 2, 3, 4};
    for (int press = 0; press < keys.size(); ++press) {
        QTest::keyClick(game.Field(), Qt::Key_F12, keys[press]);
        QCOMPARE(std::pair(debug->isVisible(), game.window.Beeps),
                 std::pair(beeps[press] % 2 == 1, beeps[press]));
    }

    QTest::mouseClick(game.window.findChild<QAbstractButton *>("btnSmile"), Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), game.window.findChild<QWidget *>("pBomb"));
    QCOMPARE(game.Status(), "10 300 face4 ticking levels-off");

    // Every menu and item in the order they are shown, the language item last.
    const char *const italian =
        "Gioco|Nuova partita|Annulla partita|Suono|I Record...|Esci|Livello|"
        "Facile|Medio|Difficile|Personalizzato...|?|A proposito...|Barare|"
        "Mostra celle|Nascondi celle|English";
    const char *const english = "Game|New|Abort|Sound|Hall of Fame...|Exit|Level|Easy|Medium|Hard|"
                                "Custom...|?|About...|Debug|Show cells|Hide cells|Italiano";
    QAction *sound = game.window.findChild<QAction *>("mnuProg2");
    // Start-up Italian, English, Italian again; before each switch the sound check mark and the
    // Debug menu change, and the switch must leave them so.
    for (int step = 0; step < 3; ++step) {
        if (step > 0) {
            game.window.mnuProg_Click(2);
            game.window.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier | Qt::ControlModifier);
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
    for (const QPoint border : {QPoint(1, 1), QPoint(field->width() - 2, field->height() / 2)})
        QTest::mouseClick(game.Field(), Qt::LeftButton, {}, border);
    QTest::mouseClick(game.Field(), Qt::MiddleButton, {}, field->CellRect(20).topLeft());
    QCOMPARE(game.Pictures().left(29), "#########\n#F#######\n#1#######");
    QCOMPARE(game.Status(), "09 300 face4 ticking levels-off");
}

void tst_MainWindow::levelChoicesFitTheWindowWithoutPlayingAndTheLevelIsStoredAtClose()
{
    GameHarness game;
    game.window.move(57, 31);
    const QPoint place = game.window.pos();
    // The custom dialog shows the field in force; OK takes the typed size, Cancel does not.
    const QStringList answers{"7|7|8|Ok", "49|49|300|Ok", "7|7||Ok", "20|20|40|Cancel"};
    QString seen;
    int answered = 0;
    game.AnswerDialogs([&](QWidget *dialog) {
        const QStringList answer = answers.value(answered++, "|||Cancel").split(u'|');
        seen = dialog->objectName();
        for (int box = 0; box < 3; ++box) {
            auto *text = dialog->findChild<QLineEdit *>(QStringList{"txX", "txY", "txB"}[box]);
            seen += u' ' + text->text();
            text->setText(answer[box]);
        }
        dialog->findChild<QAbstractButton *>("btn" + answer[3])->click();
    });
    // The level chosen, the dialog seen, the field's width and height and the left edges of
    // the smiley and the clock, and the counters of a new game there: more than 99 bombs
    // show 99, a custom field keeps the time of the last preset, and a bomb count kept from
    // a larger field is lowered to fit.
    const std::tuple<int, QString, std::array<int, 4>, QString> choices[] = {
        {0, "", {148, 148, 61, 93}, "10 300"},
        {1, "", {260, 260, 117, 205}, "40 600"},
        {2, "", {484, 260, 229, 429}, "99 900"},
        {3, "frmCustom 30 16 99", {116, 116, 45, 61}, "08 900"},
        {3, "frmCustom 7 7 8", {788, 788, 381, 733}, "99 900"},
        {3, "frmCustom 49 49 300", {116, 116, 45, 61}, "08 900"},
        {3, "frmCustom 7 7 8", {116, 116, 45, 61}, "08 900"}};
    for (const auto &[level, dialog, layout, counters] : choices) {
        const auto [width, height, smileLeft, clockLeft] = layout;
        seen.clear();
        game.window.mnuLevel_Click(level);
        QCOMPARE(seen, dialog);
        QCOMPARE(game.Status(), "00 000 face4 stopped levels-on");
        QCOMPARE(game.Field()->geometry(), QRect(4, 32, width, height));
        QCOMPARE(game.window.findChild<QWidget *>("box")->geometry(), QRect(4, 0, width, 33));
        QCOMPARE(QPoint(game.window.findChild<QWidget *>("btnSmile")->x(),
                        game.window.findChild<QWidget *>("pT")->x()),
                 QPoint(smileLeft, clockLeft));
        // The client area below the menu bar holds the panel and the field with 4-pixel
        // margins; the window keeps its place.
        const int menuHeight = game.window.menuWidget()->height();
        QCOMPARE(game.window.centralWidget()->geometry(),
                 QRect(0, menuHeight, width + 8, height + 36));
        QCOMPARE(std::pair(game.window.pos(), game.window.size()),
                 std::pair(place, QSize(width + 8, menuHeight + height + 36)));
        // All four menu bar items stay in sight, on a second line when the field is narrow.
        int items = 0;
        for (QMenuBar *line : game.window.menuWidget()->findChildren<QMenuBar *>()) {
            for (QAction *item : line->actions())
                items += line->rect().contains(line->actionGeometry(item));
        }
        QCOMPARE(items, 4);
        game.window.mnuProg_Click(0);
        QCOMPARE(game.Status(), counters + " face4 ticking levels-off");
        game.window.mnuProg_Click(1);
    }
    game.window.mnuProg_Click(2);
    QFile::remove(IniPath); // start-up has already saved fresh tables
    game.window.close();
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

void tst_MainWindow::winOnPresetEntersRecordThroughBothDialogs()
{
    // The name typed and the seconds taken; the titles of the dialogs shown and the Easy table
    // after the win. Each win comes while a flood runs and a new game waits for it: the new game
    // must wait for the dialogs too. Stored times are read by their leading number: "1e1" is 10,
    // "12abc" and " 12" are 12; a time equal to a stored one goes below it, equal to the last one
    // is none.
    const std::tuple<bool, QString, int, QString, QString> wins[] = {
        {false, "Ada", 3, "Nome giocatore| VETRINA DEI RECORD", "A=1,Ada=3,B=1e1,C=12abc,D= 12"},
        {true, "", 0, "Player Name| HALL OF FAME", "=0,A=1,B=1e1,C=12abc,D= 12"},
        {false, "Ada", 10, "Nome giocatore| VETRINA DEI RECORD", "A=1,B=1e1,Ada=10,C=12abc,D= 12"},
        {false, "Ada", 12, "Nome giocatore| VETRINA DEI RECORD", "A=1,B=1e1,C=12abc,D= 12,Ada=12"},
        {false, "Ada", 30, "", "A=1,B=1e1,C=12abc,D= 12,E=30"}};
    const auto easyTable = [] {
        QStringList rows;
        for (const RecordRow &row : Common::EasyRecords)
            rows << row.Name + u'=' + row.Time;
        return rows.join(u',');
    };
    for (const auto &[english, name, seconds, titles, table] : wins) {
        GameHarness game;
        if (english)
            game.window.mnuLang_Click();
        Common::EasyRecords = {
            RecordRow{"A", "1"}, {"B", "1e1"}, {"C", "12abc"}, {"D", " 12"}, {"E", "30"}};
        game.NewGame(TopRow, Common::LevelEasy);
        game.Ticks(seconds);
        QStringList shown;
        QString fame; // the table when the hall of fame shows it
        game.AnswerDialogs([&](QWidget *dialog) {
            shown.append(dialog->windowTitle() +
                         (game.ClockRunning() ? " under a running clock" : ""));
            if (auto *text = dialog->findChild<QLineEdit *>("txPlayer"))
                text->setText(name);
            else
                fame = easyTable();
            dialog->findChild<QAbstractButton *>("btnClose")->click();
        });
        game.Press(9, 9);
        game.window.mnuProg_Click(0);
        game.Right(
            {{1, 1}, {2, 1}, {3, 1}, {4, 1}, {5, 1}, {6, 1}, {7, 1}, {8, 1}, {9, 1}, {1, 2}});
        QCOMPARE(game.Face(), 1);
        QCOMPARE(shown.join(u'|'), titles);
        QCOMPARE(easyTable(), table);
        QCOMPARE(fame, titles.isEmpty() ? "" : table);
        QTRY_COMPARE(game.Status(), "10 300 face4 ticking levels-off");
    }
}

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
