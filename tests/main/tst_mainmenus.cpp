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

// The menus in both languages and the keys of the game window.
class tst_MainMenus : public QObject
{
    Q_OBJECT

private slots:
    void menuBarInDisplayOrder();
    void languageSwitchesThereAndBack();
    void languageSwitchTouchesNothingElse();
    void cheatKeyTogglesDebugMenu();
    void debugItemsDoNothing();
    void functionKeysStartAGameAndExit();
    void smileyStartsAGameAndGivesUpFocus();
};

void tst_MainMenus::menuBarInDisplayOrder()
{
    GameHarness game;
    QCOMPARE(
        game.window.menuBar()->actions(),
        QList<QAction *>({game.Menu("mnuGame")->menuAction(), game.Menu("mnuLev")->menuAction(),
                          game.Menu("mnuAbout")->menuAction(), game.Action("mnuLang")}));
    QCOMPARE(
        game.Menu("mnuGame")->actions(),
        QList<QAction *>({game.Action("mnuProg0"), game.Action("mnuProg1"), game.Action("mnuProg2"),
                          game.Action("mnuProg3"), game.Action("mnuProg4")}));
    QCOMPARE(game.Action("mnuProg0")->shortcut(), QKeySequence(Qt::Key_F2));
    QCOMPARE(game.Action("mnuProg4")->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    QVERIFY(game.Action("mnuProg2")->isCheckable());
    QCOMPARE(game.Menu("mnuLev")->actions().size(), 4);
    for (const QAction *level : game.Menu("mnuLev")->actions())
        QVERIFY(!level->isCheckable());
    QCOMPARE(game.Menu("mnuAbout")->actions(),
             QList<QAction *>({game.Action("mnuWho"), game.Menu("mnudbg")->menuAction()}));
    QVERIFY(!game.Menu("mnudbg")->menuAction()->isVisible());
    QCOMPARE(game.Menu("mnudbg")->actions(),
             QList<QAction *>({game.Action("mnuDebug0"), game.Action("mnuDebug1")}));
}

void tst_MainMenus::languageSwitchesThereAndBack()
{
    GameHarness game;
    const QStringList italianGame = {"Nuova partita", "Annulla partita", "Suono", "I Record...",
                                     "Esci"};
    const QStringList italianLevels = {"Facile", "Medio", "Difficile", "Personalizzato..."};
    const QStringList italianHelp = {"A proposito...", "Barare"};
    const QStringList italianDebug = {"Mostra celle", "Nascondi celle"};
    QCOMPARE(Texts(game.Menu("mnuGame")->actions()), italianGame);
    QCOMPARE(Texts(game.Menu("mnuLev")->actions()), italianLevels);
    QCOMPARE(Texts(game.Menu("mnuAbout")->actions()), italianHelp);
    QCOMPARE(Texts(game.Menu("mnudbg")->actions()), italianDebug);

    game.Action("mnuLang")->trigger();
    QVERIFY(Common::LangEnglish);
    QCOMPARE(Texts(game.window.menuBar()->actions()),
             QStringList({"Game", "Level", "?", "Italiano"}));
    QCOMPARE(Texts(game.Menu("mnuGame")->actions()),
             QStringList({"New", "Abort", "Sound", "Hall of Fame...", "Exit"}));
    QCOMPARE(Texts(game.Menu("mnuLev")->actions()),
             QStringList({"Easy", "Medium", "Hard", "Custom..."}));
    QCOMPARE(Texts(game.Menu("mnuAbout")->actions()), QStringList({"About...", "Debug"}));
    QCOMPARE(Texts(game.Menu("mnudbg")->actions()), QStringList({"Show cells", "Hide cells"}));
    QCOMPARE(game.window.windowTitle(), QStringLiteral("Velkaro - GA1.03"));

    game.Action("mnuLang")->trigger();
    QVERIFY(!Common::LangEnglish);
    QCOMPARE(Texts(game.window.menuBar()->actions()),
             QStringList({"Gioco", "Livello", "?", "English"}));
    QCOMPARE(Texts(game.Menu("mnuGame")->actions()), italianGame);
    QCOMPARE(Texts(game.Menu("mnuLev")->actions()), italianLevels);
    QCOMPARE(Texts(game.Menu("mnuAbout")->actions()), italianHelp);
    QCOMPARE(Texts(game.Menu("mnudbg")->actions()), italianDebug);
}

void tst_MainMenus::languageSwitchTouchesNothingElse()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.window.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier | Qt::ControlModifier);
    game.window.mnuProg_Click(0);
    game.window.mnuLang_Click();
    QVERIFY(game.Action("mnuProg2")->isChecked());
    QVERIFY(game.Menu("mnudbg")->menuAction()->isVisible());
    QVERIFY(!game.Menu("mnuLev")->menuAction()->isEnabled());
    QVERIFY(game.ClockRunning());
}

void tst_MainMenus::cheatKeyTogglesDebugMenu()
{
    GameHarness game;
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    QAction *debugMenu = game.Menu("mnudbg")->menuAction();
    QWidget *focus = game.window.findChild<QWidget *>(QStringLiteral("btnSmile"));
    focus->setFocus();

    QTest::keyClick(focus, Qt::Key_F12);
    QTest::keyClick(focus, Qt::Key_F12, Qt::ControlModifier);
    QTest::keyClick(focus, Qt::Key_F12, Qt::ShiftModifier);
    QVERIFY(!debugMenu->isVisible());
    QTest::keyClick(focus, Qt::Key_F12, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(debugMenu->isVisible());
    QTest::keyClick(game.Field(), Qt::Key_F12,
                    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    QVERIFY(!debugMenu->isVisible());
    QTest::keyClick(&game.window, Qt::Key_F11, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(!debugMenu->isVisible());
    // Any time, also during a game, and never a sound effect.
    game.window.mnuProg_Click(2);
    game.window.mnuProg_Click(0);
    QTest::keyClick(&game.window, Qt::Key_F12, Qt::ShiftModifier | Qt::ControlModifier);
    QVERIFY(debugMenu->isVisible());
    QVERIFY(game.sound.Played.isEmpty());
}

void tst_MainMenus::debugItemsDoNothing()
{
    GameHarness game;
    game.NewGame("*........\n*........\n*........\n*........\n*........\n"
                 "*........\n*........\n*........\n*.......*");
    const QString before = game.Pictures();
    game.Action("mnuDebug0")->trigger();
    game.Action("mnuDebug1")->trigger();
    QCOMPARE(game.Pictures(), before);
    QCOMPARE(game.window.ShownFace(), 4);
    QVERIFY(game.ClockRunning());
}

void tst_MainMenus::functionKeysStartAGameAndExit()
{
    GameHarness game;
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    QTest::keyClick(&game.window, Qt::Key_F2);
    QCOMPARE(game.BombCounter(), QStringLiteral("10"));
    QCOMPARE(game.Clock(), QStringLiteral("300"));
    QVERIFY(game.ClockRunning());

    ForgetSettings();
    QTest::keyClick(&game.window, Qt::Key_Q, Qt::ControlModifier);
    QVERIFY(!game.window.isVisible());
    QVERIFY(QFile::exists(SettingsFilePath()));
}

void tst_MainMenus::smileyStartsAGameAndGivesUpFocus()
{
    GameHarness game;
    game.window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&game.window));
    auto *smiley = game.window.findChild<QPushButton *>(QStringLiteral("btnSmile"));
    QTest::mouseClick(smiley, Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), game.window.findChild<QWidget *>("pBomb"));
    QCOMPARE(game.Clock(), QStringLiteral("300"));
    QVERIFY(!game.Menu("mnuLev")->menuAction()->isEnabled());
    QCOMPARE(game.window.ShownFace(), 4);
}

QTEST_MAIN(tst_MainMenus)
#include "tst_mainmenus.moc"
