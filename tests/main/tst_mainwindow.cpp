#include "GameHarness.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTest>

#include <tuple>

// The frame of the game window: layout, menus in both languages, keys, settings, the hall of
// fame after a win, and the field view's report of presses.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void layoutFitsEachFieldAndKeepsThePlace();
    void languageSwitchesThereAndBackTouchingNothingElse();
    void cheatKeyTogglesDebugAndSmileyStartsAGame();
    void settingsWrittenOnceAtCloseAndReadAtStart();
    void winOnPresetEntersRecordThroughBothDialogs();
    void newGameWaitingForAFloodWaitsForTheRecordDialogsToo();
    void fieldViewReportsPressesOnCellsOnly();
};

void tst_MainWindow::layoutFitsEachFieldAndKeepsThePlace()
{
    GameHarness game;
    game.window.move(57, 31);
    const QPoint place = game.window.pos();
    // Level, columns, rows, field width and height, left edges of the smiley and the clock.
    const int layouts[][7] = {{0, 9, 9, 148, 148, 61, 93},
                              {1, 16, 16, 260, 260, 117, 205},
                              {2, 30, 16, 484, 260, 229, 429},
                              {3, 7, 7, 116, 116, 45, 61},
                              {3, 49, 49, 788, 788, 381, 733}};
    for (const auto &[level, columns, rows, width, height, smileLeft, clockLeft] : layouts) {
        Common::Level = level;
        Common::FieldX = columns;
        Common::FieldY = rows;
        game.window.DrawField();
        QCOMPARE(game.Field()->geometry(), QRect(4, 32, width, height));
        QCOMPARE(game.window.findChild<QWidget *>("box")->geometry(), QRect(4, 0, width, 33));
        QCOMPARE(game.window.findChild<QAbstractButton *>("btnSmile")->x(), smileLeft);
        QCOMPARE(game.window.findChild<QWidget *>("pT")->x(), clockLeft);
        // The client area below the menu bar holds the panel and the field with 4-pixel margins.
        const QRect client = game.window.centralWidget()->geometry();
        QCOMPARE(client.size(), QSize(width + 8, height + 36));
        QCOMPARE(client.top(), game.window.menuWidget()->geometry().bottom() + 1);
        QCOMPARE(game.window.size(), QSize(client.width(), client.bottom() + 1));
        QCOMPARE(game.window.pos(), place);
        // All four menu bar items stay in sight, on a second line when the field is narrow.
        int items = 0;
        for (QMenuBar *line : game.window.menuWidget()->findChildren<QMenuBar *>()) {
            for (QAction *item : line->actions())
                items += line->rect().contains(line->actionGeometry(item));
        }
        QCOMPARE(items, 4);
    }
}

void tst_MainWindow::languageSwitchesThereAndBackTouchingNothingElse()
{
    GameHarness game;
    game.window.mnuProg_Click(0);
    QAction *sound = game.window.findChild<QAction *>("mnuProg2");
    QAction *debug = game.window.findChild<QMenu *>("mnudbg")->menuAction();
    const char *const italian = "Gioco|Livello|?|English|A proposito...";
    const char *const english = "Game|Level|?|Italiano|About...";
    // Start-up Italian, English, Italian again; before each switch the sound check mark and the
    // Debug menu change, and the switch must leave them so.
    for (int step = 0; step < 3; ++step) {
        if (step > 0) {
            game.window.mnuProg_Click(2);
            game.window.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier | Qt::ControlModifier);
            game.window.findChild<QAction *>("mnuLang")->trigger();
        }
        QStringList captions;
        for (const char *menu : {"mnuGame", "mnuLev", "mnuAbout"})
            captions.append(game.window.findChild<QMenu *>(menu)->title());
        for (const char *item : {"mnuLang", "mnuWho"})
            captions.append(game.window.findChild<QAction *>(item)->text());
        QCOMPARE(captions.join(u'|'), step == 1 ? english : italian);
        QCOMPARE(sound->isChecked(), step == 1);
        QCOMPARE(debug->isVisible(), step == 1);
        QVERIFY(game.ClockRunning());
    }
}

void tst_MainWindow::cheatKeyTogglesDebugAndSmileyStartsAGame()
{
    GameHarness game;
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    const QAction *debug = game.window.findChild<QMenu *>("mnudbg")->menuAction();
    // F12 alone does nothing; each Shift+Ctrl+F12, with or without Alt, shows or hides.
    const Qt::KeyboardModifiers shiftCtrl = Qt::ShiftModifier | Qt::ControlModifier;
    int press = 0;
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(), shiftCtrl, shiftCtrl, shiftCtrl | Qt::AltModifier,
          shiftCtrl | Qt::AltModifier}) {
        QTest::keyClick(game.Field(), Qt::Key_F12, modifiers);
        QCOMPARE(debug->isVisible(), press++ % 2 == 1);
    }

    QTest::mouseClick(game.window.findChild<QAbstractButton *>("btnSmile"), Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), game.window.findChild<QWidget *>("pBomb"));
    QCOMPARE(game.Clock(), "300");
    QVERIFY(game.ClockRunning());
}

void tst_MainWindow::settingsWrittenOnceAtCloseAndReadAtStart()
{
    {
        GameHarness game;
        QVERIFY(game.sound.Played.isEmpty());
        game.window.mnuProg_Click(2);
        game.window.mnuLevel_Click(Common::LevelHard);
        QFile::remove(IniPath); // start-up has already saved fresh tables
        game.window.close();
        QVERIFY(QFile::exists(IniPath));
        // Not written again: the next start finds the state at the first close.
        game.window.show();
        game.window.mnuLevel_Click(Common::LevelMedium);
        game.window.mnuProg_Click(4);
    }
    RecordingWaveOutput sound;
    ClockRandomSource random;
    frmMine window(sound, random);
    window.Form_Load();
    QCOMPARE(sound.Played, QList<int>({103}));
    QCOMPARE(window.findChild<FieldView *>("field")->FieldX(), 30);
}

void tst_MainWindow::winOnPresetEntersRecordThroughBothDialogs()
{
    // Easy: nine bombs along the top row and one below its left end.
    const char *const topRow = "*********\n*........\n.........\n.........\n.........\n"
                               ".........\n.........\n.........\n.........";
    // The name the dialog is given; what the dialogs showed: the name dialog's title, then the
    // hall of fame's title and its first row.
    using Win = std::tuple<bool, bool, QString, int, QStringList>; // English, a record
    const Win wins[] = {
        {false, true, "Ada", 3, {"Nome giocatore", " VETRINA DEI RECORD", "Ada", "3"}},
        {true, true, "", 0, {"Player Name", " HALL OF FAME", "", "0"}},
        {false, false, "Ada", 2, {}}}; // every stored time is faster: no dialog
    for (const auto &[english, record, name, seconds, seen] : wins) {
        GameHarness game;
        if (english)
            game.window.mnuLang_Click();
        if (!record)
            Common::EasyRecords.fill({"Fast", "1"});
        game.NewGame(topRow, Common::LevelEasy);
        game.Ticks(seconds);
        QStringList shown;
        QTimer answer;
        connect(&answer, &QTimer::timeout, [&] {
            if (QWidget *dialog = QApplication::activeModalWidget()) {
                shown.append(dialog->windowTitle());
                if (auto *text = dialog->findChild<QLineEdit *>("txPlayer")) {
                    text->setText(name);
                } else {
                    shown << dialog->findChild<QLabel *>("pl1(0)")->text()
                          << dialog->findChild<QLabel *>("sc1(0)")->text();
                }
                dialog->findChild<QAbstractButton *>("btnClose")->click();
            }
        });
        answer.start(10);
        for (int x = 1; x <= 9; ++x)
            game.Press(x, 1, Qt::RightButton);
        game.Press(1, 2, Qt::RightButton);
        QCOMPARE(game.Face(), 1);
        QCOMPARE(shown, seen);
        QCOMPARE(Common::EasyRecords[0],
                 (record ? RecordRow{name, QString::number(seconds)} : RecordRow{"Fast", "1"}));
    }
}

void tst_MainWindow::newGameWaitingForAFloodWaitsForTheRecordDialogsToo()
{
    GameHarness game;
    game.NewGame("*********\n*........\n.........\n.........\n.........\n"
                 ".........\n.........\n.........\n.........",
                 Common::LevelEasy);
    game.Press(9, 9);
    game.window.mnuProg_Click(0);
    // The flood ends while the dialogs are open; the new game must not start under them.
    QStringList clockUnderDialogs;
    QTimer answer;
    connect(&answer, &QTimer::timeout, [&] {
        if (QWidget *dialog = QApplication::activeModalWidget()) {
            clockUnderDialogs.append(game.ClockRunning() ? "running" : "stopped");
            dialog->findChild<QAbstractButton *>("btnClose")->click();
        }
    });
    answer.start(20);
    for (int x = 1; x <= 9; ++x)
        game.Press(x, 1, Qt::RightButton);
    game.Press(1, 2, Qt::RightButton);
    QCOMPARE(clockUnderDialogs, QStringList({"stopped", "stopped"}));
    QTRY_VERIFY(game.ClockRunning() && game.Face() == 4);
    QVERIFY(!game.window.findChild<QMenu *>("mnuLev")->menuAction()->isEnabled());
}

void tst_MainWindow::fieldViewReportsPressesOnCellsOnly()
{
    FieldView view;
    view.Reset(9, 9);
    QSignalSpy presses(&view, &FieldView::CellPressed);
    QSignalSpy releases(&view, &FieldView::CellReleased);
    QTest::mousePress(&view, Qt::RightButton, {}, view.CellRect(11).center());
    // The pointer has moved on to another cell before the button comes up.
    QTest::mouseRelease(&view, Qt::RightButton, {}, view.CellRect(40).center());
    for (const QPoint border : {QPoint(1, 1), QPoint(view.width() - 2, view.height() / 2)})
        QTest::mouseClick(&view, Qt::LeftButton, {}, border);
    QTest::mouseClick(&view, Qt::MiddleButton, {}, view.CellRect(81).topLeft());

    const QList<QVariantList> expected = {{11, QVariant::fromValue(Qt::RightButton)},
                                          {81, QVariant::fromValue(Qt::MiddleButton)}};
    QCOMPARE(QList<QVariantList>(presses), expected);
    QCOMPARE(QList<QVariantList>(releases), expected);
}

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
