#include "Common.h"
#include "RecordInsertion.h"
#include "frmAbout.h"
#include "frmCustom.h"
#include "frmFame.h"
#include "frmPlayer.h"

#include <QtTest>
#include <QtWidgets>

namespace {

// Whether the dialog has closed and deleted itself.
bool Gone(const QPointer<QDialog> &dialog)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return dialog.isNull();
}

// Opens the dialog with exec(), as the program does, and calls `whileOpen` from inside its event
// loop once it is active. Returns whether the dialog was still open afterwards; it is closed then.
bool StaysOpen(QDialog *opened, const std::function<void()> &whileOpen)
{
    QPointer<QDialog> dialog = opened;
    bool open = false;
    QTimer::singleShot(0, dialog, [&] {
        if (QTest::qWaitForWindowActive(dialog))
            whileOpen();
        open = dialog && dialog->isVisible();
        if (open)
            dialog->close();
    });
    dialog->exec();
    return open;
}

// The fifteen hall of fame rows as "name|time", Easy first: as the dialog shows them in the
// frame of their level, or as stored when no dialog is given.
QStringList Rows(const QWidget *fame = nullptr)
{
    QStringList rows;
    for (int row = 0; row < 15; ++row) {
        const QString index = QStringLiteral("%1(%2)").arg(row / 5 + 1).arg(row % 5);
        const RecordRow &stored = RecordsOfLevel(row / 5)[row % 5];
        const QWidget *frame =
            fame ? fame->findChild<QWidget *>(QStringLiteral("Frame%1").arg(row / 5 + 1)) : nullptr;
        rows << (!fame   ? stored.Name + '|' + stored.Time
                 : frame ? frame->findChild<QLabel *>("pl" + index)->text() + '|' +
                               frame->findChild<QLabel *>("sc" + index)->text()
                         : QStringLiteral("no frame"));
    }
    return rows;
}

} // namespace

class tst_dialogs : public QObject
{
    Q_OBJECT

    QWidget owner; // of the dialogs, as the game window is

private slots:
    // Every case starts after a first start and an Easy game in Italian.
    void init()
    {
        std::tie(Common::FieldX, Common::FieldY, Common::Bombs) = std::tuple(9, 9, 10);
        Common::LangEnglish = false;
        for (int row = 0; row < 15; ++row)
            RecordsOfLevel(row / 5)[row % 5] = {"Player" + QString::number(row % 5 + 1), "999"};
    }

    void customTakesValuesWithinLimitsOnOkOrEnterAndNothingOnCancel()
    {
        // Columns, rows and bombs typed, then OK, Cancel or Enter; the columns, rows and bombs
        // taken, from 9, 9 and 10. Texts are read by their leading number and rounded halves to
        // even; a number too large for 32 bits is rejected.
        const QStringList cases =
            QString(
                "7|7|7|Ok 7 7 7; 7|7|8|Ok 7 7 8; 7|7|9|Ok 7 7 10; 6|7|7|Ok 9 7 7; "
                "7|6|8|Ok 7 9 8; 49|49|479|Ok 49 49 479; 49|49|480|Ok 49 49 10; "
                "50|20|30|Ok 9 20 30; 7.5|8.5|8|Ok 8 8 8; 6.5|9|12|Ok 9 9 12; "
                "49.5|49.5|10|Ok 9 9 10; |||Ok 9 9 10; 1e1| 12abc|8,9|Ok 10 12 8; "
                "4294967303|1e400|-8|Ok 9 9 10; 20|20|40|Cancel 9 9 10; 12|14|20|Enter 12 14 20")
                .split("; ");
        for (const QString &entry : cases) {
            init();
            const QStringList typed = entry.section(u' ', 0, -4).split(u'|');
            QPointer<QDialog> dialog = new frmCustom(&owner);
            for (int box = 0; box < 3; ++box)
                dialog->findChild<QLineEdit *>(QStringList{"txX", "txY", "txB"}[box])
                    ->setText(typed[box]);
            if (typed[3] == "Enter")
                QVERIFY(!StaysOpen(
                    dialog, [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }));
            else
                QTest::mouseClick(dialog->findChild<QWidget *>("btn" + typed[3]), Qt::LeftButton);
            QVERIFY(Gone(dialog));
            QCOMPARE(QString::asprintf("%d %d %d", Common::FieldX, Common::FieldY, Common::Bombs),
                     entry.section(u' ', -3));
        }
    }

    void fameShowsTheRowsAsStoredAndClearsThemInTheLanguageStayingOpen()
    {
        Common::MediumRecords[2] = RecordRow{"", "42"}; // an empty name stays empty
        const QDialog *fame = new frmFame(&owner);
        QCOMPARE(Rows(fame), Rows());
        // Where the last name's label lies, which its pixels do not show; a screen reader tells.
        QCOMPARE(fame->findChild<QLabel *>("pl3(4)")->geometry(), QRect(8, 124, 89, 17));
        // Enter right after opening closes the box and clears nothing.
        QVERIFY(!StaysOpen(new frmFame(&owner),
                           [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); }));
        QCOMPARE(Common::MediumRecords[2], (RecordRow{"", "42"}));
        for (const bool english : {true, false}) {
            Common::LangEnglish = english;
            QDialog *dialog = new frmFame(&owner);
            QStringList shown;
            QVERIFY(StaysOpen(dialog, [&] {
                QTest::mouseClick(dialog->findChild<QWidget *>("btnCancel"), Qt::LeftButton);
                shown = Rows(dialog);
            }));
            QStringList cleared;
            for (int row = 0; row < 15; ++row)
                cleared << (english ? "Player" : "Giocatore") + QString::number(row % 5) + "|999";
            QCOMPARE(std::pair(Rows(), shown), std::pair(cleared, cleared));
        }
    }

    void playerProposesTheDefaultFullySelectedAndHandsOverOnlyOk()
    {
        // The keys typed right after each opening, and the name held afterwards.
        const QStringList keys{"Zoe\r", "\b\r", "   \r", "x\x1b", "\r"};
        const QStringList names{"Zoe", "", "   ", "   ", "Anonimo"};
        for (int opening = 0; opening < keys.size(); ++opening) {
            QDialog *dialog = new frmPlayer(&owner);
            QString selected;
            QVERIFY(!StaysOpen(dialog, [&] {
                selected = dialog->findChild<QLineEdit *>("txPlayer")->selectedText();
                QTest::keyClicks(QApplication::focusWidget(), keys[opening]);
            }));
            QVERIFY2(selected == "Anonimo" && Common::PlayerName == names[opening],
                     qPrintable(keys[opening]));
        }
    }

    void aboutShowsTheLanguageClosesOnlyWhereItShouldAndHintsAtTheNose()
    {
        const QPoint nose(199, 103);
        // Language, click place or key, and whether it closes the box: the background, the
        // portrait, lI3, lE3, a flag, the bubble over the portrait, a letter, an arrow; then
        // the nose, whose hint follows the language at the click.
        const std::tuple<bool, QPoint, int, bool> cases[] = {
            {false, {280, 20}, 0, true},  {false, {250, 60}, 0, true},
            {false, {60, 195}, 0, true},  {true, {60, 195}, 0, true},
            {true, {198, 18}, 0, false},  {false, {175, 150}, 0, false},
            {false, {}, Qt::Key_A, true}, {false, {}, Qt::Key_Left, false},
            {true, nose, 0, false},       {false, nose, 0, false}};
        for (const auto &[english, place, key, closes] : cases) {
            Common::LangEnglish = english;
            QPointer<QDialog> dialog = new frmAbout(&owner);
            dialog->show(); // without a nested event loop, for clicks and keys sent to its window
            QVERIFY(QTest::qWaitForWindowExposed(dialog->windowHandle()));
            Common::LangEnglish = !english;
            QString shown; // the hint
            if (place == nose) {
                QTimer::singleShot(0, dialog, [&] {
                    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                    shown = box->windowTitle() + '|' + box->text();
                    box->accept();
                });
            }
            if (key)
                QTest::keyClick(dialog->windowHandle(), Qt::Key(key));
            else
                QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {}, place);
            QVERIFY2(Gone(dialog) == closes,
                     qPrintable(QStringLiteral("%1 %2").arg(place.x()).arg(key)));
            const QString hint =
                english
                    ? "Un pò di disonestà !|durante il gioco, premi Shift+Ctrl+F12...e vedi cosa "
                      "succede !"
                    : "Be dishonest !|during game, press Shift+Ctrl+F12...and see what happens !";
            QCOMPARE(shown, place == nose ? hint : QString());
        }
    }
};

QTEST_MAIN(tst_dialogs)
#include "tst_dialogs.moc"
