#include "Common.h"
#include "GameHarness.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace {

// Easy: nine bombs along the top row and one below its left end.
const char *const TopRow = "*********\n"
                           "*........\n"
                           ".........\n"
                           ".........\n"
                           ".........\n"
                           ".........\n"
                           ".........\n"
                           ".........\n"
                           ".........";

void FlagTopRow(GameHarness &game)
{
    for (int x = 1; x <= 9; ++x)
        game.RightPress(game.At(x, 1));
    game.RightPress(game.At(1, 2));
}

// What the player saw in the two dialogs of a record.
struct DialogsSeen
{
    QString PlayerTitle;
    QString ProposedName;
    QString FameTitle;
    QString FirstName;
    QString FirstTime;
    QString SecondName;
};

// Answers the name dialog with `name` (or OK at once when null) and closes the hall of fame.
void AnswerRecordDialogs(DialogsSeen &seen, const char *name)
{
    WhenModal("frmPlayer", [&seen, name](QWidget *dialog) {
        seen.PlayerTitle = dialog->windowTitle();
        auto *text = dialog->findChild<QLineEdit *>(QStringLiteral("txPlayer"));
        seen.ProposedName = text->text();
        if (name)
            text->setText(QString::fromUtf8(name));
        dialog->findChild<QPushButton *>(QStringLiteral("btnClose"))->click();
        WhenModal("frmFame", [&seen](QWidget *fame) {
            seen.FameTitle = fame->windowTitle();
            seen.FirstName = fame->findChild<QLabel *>(QStringLiteral("pl1(0)"))->text();
            seen.FirstTime = fame->findChild<QLabel *>(QStringLiteral("sc1(0)"))->text();
            seen.SecondName = fame->findChild<QLabel *>(QStringLiteral("pl1(1)"))->text();
            fame->findChild<QPushButton *>(QStringLiteral("btnClose"))->click();
        });
    });
}

} // namespace

// A win on a preset level that beats a stored time: the name asked, the row written, the hall
// of fame shown.
class tst_MainRecords : public QObject
{
    Q_OBJECT

private slots:
    void recordEnteredThroughNameDialogAndHallOfFame();
    void emptyNameIsEnteredAsTyped();
    void englishDefaultNameWhenConfirmedAtOnce();
    void noDialogWithoutARecord();
};

void tst_MainRecords::recordEnteredThroughNameDialogAndHallOfFame()
{
    GameHarness game;
    game.window.mnuProg_Click(2);
    game.NewGame(TopRow);
    for (int tick = 0; tick < 3; ++tick)
        game.window.Timer_Timer();
    game.sound.Played.clear();
    DialogsSeen seen;
    AnswerRecordDialogs(seen, "Ada");
    FlagTopRow(game);

    QCOMPARE(seen.PlayerTitle, QStringLiteral("Nome giocatore"));
    QCOMPARE(seen.ProposedName, QStringLiteral("Anonimo"));
    QCOMPARE(seen.FameTitle, QStringLiteral(" VETRINA DEI RECORD"));
    QCOMPARE(seen.FirstName, QStringLiteral("Ada"));
    QCOMPARE(seen.FirstTime, QStringLiteral("3"));
    QCOMPARE(seen.SecondName, QStringLiteral("Player1"));
    QCOMPARE(Common::EasyRecords[0], RecordRow({"Ada", "3"}));
    QCOMPARE(Common::EasyRecords[4], RecordRow({"Player4", "999"}));
    QCOMPARE(Common::MediumRecords[0], RecordRow({"Player1", "999"}));
    // Ten presses, then the win; the dialogs play nothing.
    QCOMPARE(game.sound.Played, QList<int>(10, 101) << 103);
    QCOMPARE(game.window.ShownFace(), 1);
    QCOMPARE(game.Clock(), QStringLiteral("297"));
    QVERIFY(game.Menu("mnuLev")->menuAction()->isEnabled());
}

void tst_MainRecords::emptyNameIsEnteredAsTyped()
{
    GameHarness game;
    game.NewGame(TopRow);
    DialogsSeen seen;
    AnswerRecordDialogs(seen, "");
    FlagTopRow(game);
    QCOMPARE(Common::EasyRecords[0], RecordRow({"", "0"}));
    QCOMPARE(seen.FirstName, QString());
    QCOMPARE(seen.FirstTime, QStringLiteral("0"));
}

void tst_MainRecords::englishDefaultNameWhenConfirmedAtOnce()
{
    GameHarness game;
    game.window.mnuLang_Click();
    Common::EasyRecords[0] = {"Bea", "5"};
    Common::EasyRecords[1] = {"Cid", "7"};
    game.NewGame(TopRow);
    for (int tick = 0; tick < 7; ++tick)
        game.window.Timer_Timer();
    DialogsSeen seen;
    AnswerRecordDialogs(seen, nullptr);
    FlagTopRow(game);

    QCOMPARE(seen.PlayerTitle, QStringLiteral("Player Name"));
    QCOMPARE(seen.FameTitle, QStringLiteral(" HALL OF FAME"));
    // A time equal to a stored one goes below it.
    QCOMPARE(Common::EasyRecords[1], RecordRow({"Cid", "7"}));
    QCOMPARE(Common::EasyRecords[2], RecordRow({"Anonymous", "7"}));
    QCOMPARE(Common::EasyRecords[3], RecordRow({"Player3", "999"}));
}

void tst_MainRecords::noDialogWithoutARecord()
{
    GameHarness game;
    for (RecordRow &row : Common::EasyRecords)
        row = {"Fast", "1"};
    game.NewGame(TopRow);
    game.window.Timer_Timer();
    game.window.Timer_Timer();
    bool dialogShown = false;
    QTimer closer;
    closer.setInterval(10);
    connect(&closer, &QTimer::timeout, [&dialogShown] {
        if (QWidget *dialog = QApplication::activeModalWidget()) {
            dialogShown = true;
            dialog->close();
        }
    });
    closer.start();
    FlagTopRow(game);
    QTest::qWait(50);
    QVERIFY(!dialogShown);
    QCOMPARE(game.window.ShownFace(), 1);
    QCOMPARE(Common::EasyRecords[4], RecordRow({"Fast", "1"}));
}

QTEST_MAIN(tst_MainRecords)
#include "tst_mainrecords.moc"
