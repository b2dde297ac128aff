#include "Common.h"
#include "DigitDisplay.h"
#include "FieldView.h"
#include "GameHarness.h"
#include "GameSettings.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

// The frame of the game window: its parts and their places, start-up, the levels, and the
// settings at the end of a run.
class tst_MainWindow : public QObject
{
    Q_OBJECT

private slots:
    void titleIconAndControlsCarryTheirNames();
    void layoutFitsEachField_data();
    void layoutFitsEachField();
    void windowKeepsItsPlaceWhenRebuilt();
    void startupShowsAnIdleFieldInItalian();
    void soundSwitchMovesItsCheckMarkAndIsStored();
    void startupSoundOnlyWithSoundOn();
    void settingsWrittenOnceAtClose();
    void levelItemsRebuildWithoutStartingAGame();
    void customLevelAsksForTheSizeFirst();
};

void tst_MainWindow::titleIconAndControlsCarryTheirNames()
{
    GameHarness game;
    QCOMPARE(game.window.windowTitle(), QStringLiteral("Velkaro - GA1.03"));
    QVERIFY(!game.window.windowIcon().isNull());
    QCOMPARE(game.window.centralWidget()->palette().color(QPalette::Window), QColor(0xD2D2D2));
    for (const char *name : {"box", "pBomb", "btnSmile", "pT", "field"})
        QVERIFY2(game.window.findChild<QWidget *>(QLatin1String(name)), name);
    QVERIFY(game.window.findChild<QPushButton *>(QStringLiteral("btnSmile"))->isFlat());
    QCOMPARE(game.window.findChild<QTimer *>(QStringLiteral("Timer"))->interval(), 1000);
}

void tst_MainWindow::layoutFitsEachField_data()
{
    QTest::addColumn<int>("level");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QSize>("fieldSize");
    QTest::addColumn<int>("smileLeft");
    QTest::addColumn<int>("clockLeft");
    QTest::newRow("easy") << 0 << 9 << 9 << QSize(148, 148) << 61 << 93;
    QTest::newRow("medium") << 1 << 16 << 16 << QSize(260, 260) << 117 << 205;
    QTest::newRow("hard") << 2 << 30 << 16 << QSize(484, 260) << 229 << 429;
    QTest::newRow("custom 7x7") << 3 << 7 << 7 << QSize(116, 116) << 45 << 61;
    QTest::newRow("custom 49x49") << 3 << 49 << 49 << QSize(788, 788) << 381 << 733;
}

void tst_MainWindow::layoutFitsEachField()
{
    QFETCH(int, level);
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(QSize, fieldSize);
    QFETCH(int, smileLeft);
    QFETCH(int, clockLeft);
    GameHarness game;
    // A preset overrides the size asked for; the custom level builds it.
    Common::Level = level;
    Common::FieldX = columns;
    Common::FieldY = rows;
    Common::Bombs = 8;
    game.window.DrawField();
    QVERIFY(QTest::qWaitForWindowExposed(&game.window));

    QCOMPARE(game.Field()->geometry(), QRect(QPoint(4, 32), fieldSize));
    QWidget *box = game.window.findChild<QWidget *>(QStringLiteral("box"));
    QCOMPARE(box->geometry(), QRect(4, 0, fieldSize.width(), 33));
    QCOMPARE(game.window.findChild<QWidget *>(QStringLiteral("pBomb"))->geometry(),
             QRect(0, 0, 37, 29));
    QCOMPARE(game.window.findChild<QWidget *>(QStringLiteral("btnSmile"))->geometry(),
             QRect(smileLeft, 2, 26, 25));
    QCOMPARE(game.window.findChild<QWidget *>(QStringLiteral("pT"))->geometry(),
             QRect(clockLeft, 0, 53, 29));

    // The client area below the menu bar holds the panel and the field with 4-pixel margins.
    const QRect client = game.window.centralWidget()->geometry();
    QCOMPARE(client.size(), QSize(fieldSize.width() + 8, fieldSize.height() + 36));
    QCOMPARE(client.top(), game.window.menuBar()->geometry().bottom() + 1);
    QCOMPARE(game.window.size(), QSize(client.width(), client.bottom() + 1));
    QCOMPARE(game.window.minimumSize(), game.window.maximumSize());
    QCOMPARE(Common::NumCells, columns * rows);
}

void tst_MainWindow::windowKeepsItsPlaceWhenRebuilt()
{
    GameHarness game;
    game.window.move(57, 31);
    const QPoint place = game.window.pos();
    game.window.mnuLevel_Click(Common::LevelHard);
    QCOMPARE(game.window.pos(), place);
    QCOMPARE(game.Field()->size(), QSize(484, 260));
    game.window.mnuLevel_Click(Common::LevelEasy);
    QCOMPARE(game.window.pos(), place);
    QCOMPARE(game.Field()->size(), QSize(148, 148));
}

void tst_MainWindow::startupShowsAnIdleFieldInItalian()
{
    GameHarness game;
    QVERIFY(game.window.isVisible());
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
    QCOMPARE(game.Clock(), QStringLiteral("000"));
    QCOMPARE(game.window.ShownFace(), 4);
    QCOMPARE(game.Pictures(), QStringLiteral("#########\n").repeated(8) + "#########");
    QVERIFY(!game.ClockRunning());
    QVERIFY(game.Menu("mnuLev")->menuAction()->isEnabled());
    QCOMPARE(Texts(game.window.menuBar()->actions()),
             QStringList({"Gioco", "Livello", "?", "English"}));
    QCOMPARE(Common::PlayerName, QStringLiteral("Anonymous"));
    QVERIFY(!Common::LangEnglish);
}

void tst_MainWindow::soundSwitchMovesItsCheckMarkAndIsStored()
{
    {
        GameHarness game;
        QVERIFY(!game.Action("mnuProg2")->isChecked());
        game.Action("mnuProg2")->trigger();
        QVERIFY(game.Action("mnuProg2")->isChecked());
        game.window.mnuProg_Click(2);
        QVERIFY(!game.Action("mnuProg2")->isChecked());
        game.window.mnuProg_Click(2);
        QVERIFY(game.Action("mnuProg2")->isChecked());
        QVERIFY(game.sound.Played.isEmpty());
        game.window.close();
    }
    QVERIFY(ReadSettings());
}

void tst_MainWindow::startupSoundOnlyWithSoundOn()
{
    GameHarness silent;
    QVERIFY(silent.sound.Played.isEmpty());

    Common::Level = Common::LevelHard;
    WriteSettings(true);
    RecordingWaveOutput sound;
    BoardRandom random;
    frmMine window(sound, random);
    window.Form_Load();
    QCOMPARE(sound.Played, QList<int>({103}));
    QVERIFY(window.findChild<QAction *>(QStringLiteral("mnuProg2"))->isChecked());
    // The stored level is the first field's.
    QCOMPARE(window.findChild<FieldView *>(QStringLiteral("field"))->size(), QSize(484, 260));
}

void tst_MainWindow::settingsWrittenOnceAtClose()
{
    GameHarness game;
    game.window.mnuLevel_Click(Common::LevelMedium);
    ForgetSettings();
    game.window.close();
    QFile file(SettingsFilePath());
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QVERIFY(file.readAll().contains("Level=1"));

    ForgetSettings();
    game.window.mnuProg_Click(4);
    QVERIFY(!QFile::exists(SettingsFilePath()));
}

void tst_MainWindow::levelItemsRebuildWithoutStartingAGame()
{
    GameHarness game;
    game.Action("mnuLevel1")->trigger();
    QCOMPARE(Common::Level, Common::LevelMedium);
    QCOMPARE(game.Field()->size(), QSize(260, 260));
    QCOMPARE(game.BombCounter(), QStringLiteral("00"));
    QVERIFY(!game.ClockRunning());

    game.window.mnuProg_Click(0);
    QCOMPARE(game.BombCounter(), QStringLiteral("40"));
    QCOMPARE(game.Clock(), QStringLiteral("600"));
    QVERIFY(!game.Menu("mnuLev")->menuAction()->isEnabled());
    game.window.mnuProg_Click(1);
    QVERIFY(game.Menu("mnuLev")->menuAction()->isEnabled());
}

void tst_MainWindow::customLevelAsksForTheSizeFirst()
{
    GameHarness game;
    WhenModal("frmCustom", [](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("txX"))->setText(QStringLiteral("12"));
        dialog->findChild<QLineEdit *>(QStringLiteral("txY"))->setText(QStringLiteral("10"));
        dialog->findChild<QLineEdit *>(QStringLiteral("txB"))->setText(QStringLiteral("20"));
        dialog->findChild<QPushButton *>(QStringLiteral("btnOk"))->click();
    });
    game.window.mnuLevel_Click(Common::LevelCustom);
    QCOMPARE(Common::Level, Common::LevelCustom);
    QCOMPARE(game.Field()->size(), QSize(12 * 16 + 4, 10 * 16 + 4));

    // Cancelled: the same size is built again, on the custom level.
    WhenModal("frmCustom", [](QWidget *dialog) {
        dialog->findChild<QPushButton *>(QStringLiteral("btnCancel"))->click();
    });
    game.window.mnuLevel_Click(Common::LevelCustom);
    QCOMPARE(Common::Level, Common::LevelCustom);
    QCOMPARE(game.Field()->size(), QSize(12 * 16 + 4, 10 * 16 + 4));
    game.window.mnuProg_Click(0);
    QCOMPARE(game.BombCounter(), QStringLiteral("20"));
}

QTEST_MAIN(tst_MainWindow)
#include "tst_mainwindow.moc"
