#include "Common.h"
#include "DialogUnderTest.h"
#include "frmPlayer.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class FrmPlayerTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void controlsSitAtTheirPlaces_data();
    void controlsSitAtTheirPlaces();
    void proposesTheDefaultNameSelected_data();
    void proposesTheDefaultNameSelected();
    void typingReplacesTheDefaultAndEnterHandsItOver();
    void okHandsTheTextOverExactly_data();
    void okHandsTheTextOverExactly();
    void closingWithoutOkKeepsTheName_data();
    void closingWithoutOkKeepsTheName();
    void secondOpeningProposesTheDefaultAgain();
};

void FrmPlayerTest::init()
{
    Common::LangEnglish = false;
    Common::PlayerName = "Anonymous";
}

void FrmPlayerTest::controlsSitAtTheirPlaces_data()
{
    AddPlaceColumns();
    QTest::newRow("txPlayer") << "txPlayer"
                              << "frmPlayer" << QRect(56, 20, 105, 19);
    QTest::newRow("Label1") << "Label1"
                            << "frmPlayer" << QRect(4, 22, 50, 17);
    QTest::newRow("btnClose") << "btnClose"
                              << "frmPlayer" << QRect(168, 20, 29, 21);
}

void FrmPlayerTest::controlsSitAtTheirPlaces()
{
    VerifyControlPlace<frmPlayer>(QSize(203, 59));
}

void FrmPlayerTest::proposesTheDefaultNameSelected_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QStringList>("texts"); // title, Label1, the proposed name
    QTest::newRow("English") << true << QStringList{"Player Name", "Player", "Anonymous"};
    QTest::newRow("Italian") << false << QStringList{"Nome giocatore", "Giocatore", "Anonimo"};
}

void FrmPlayerTest::proposesTheDefaultNameSelected()
{
    QFETCH(bool, english);
    QFETCH(QStringList, texts);
    Common::LangEnglish = english;
    Common::PlayerName = "Earlier";
    DialogUnderTest<frmPlayer> dialog;
    QString focused;
    QString selected;
    const ModalRun run = dialog.RunModal([&] {
        focused = Focus()->objectName();
        selected = dialog.Child<QLineEdit>("txPlayer")->selectedText();
        QTest::mouseClick(dialog.Child<QPushButton>("btnClose"), Qt::LeftButton);
    });
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE(focused, "txPlayer");
    QCOMPARE(selected, texts[2]);
    QCOMPARE(Common::PlayerName, texts[2]);
    QVERIFY(dialog.Deleted());

    DialogUnderTest<frmPlayer> again;
    QCOMPARE(again->windowTitle(), texts[0]);
    QCOMPARE(again.Child<QLabel>("Label1")->text(), texts[1]);
    QCOMPARE(again.Child<QPushButton>("btnClose")->text(), "OK");
}

void FrmPlayerTest::typingReplacesTheDefaultAndEnterHandsItOver()
{
    DialogUnderTest<frmPlayer> dialog;
    const ModalRun run = dialog.RunModal([&] {
        QTest::keyClicks(Focus(), "Zoe");
        QTest::keyClick(Focus(), Qt::Key_Return);
    });
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE(Common::PlayerName, "Zoe");
}

void FrmPlayerTest::okHandsTheTextOverExactly_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << "";
    QTest::newRow("blanks only") << "   ";
    QTest::newRow("blanks around") << "  Ann Lee ";
    QTest::newRow("markup-like") << "<b>x</b>";
    QTest::newRow("long") << QString(300, QLatin1Char('z'));
}

void FrmPlayerTest::okHandsTheTextOverExactly()
{
    QFETCH(QString, typed);
    DialogUnderTest<frmPlayer> dialog;
    dialog.Child<QLineEdit>("txPlayer")->setText(typed);
    QTest::mouseClick(dialog.Child<QPushButton>("btnClose"), Qt::LeftButton);
    QCOMPARE(Common::PlayerName, typed);
    QVERIFY(dialog.Deleted());
}

void FrmPlayerTest::closingWithoutOkKeepsTheName_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("title bar") << false;
    QTest::newRow("Esc") << true;
}

void FrmPlayerTest::closingWithoutOkKeepsTheName()
{
    QFETCH(bool, byEscape);
    Common::PlayerName = "Given before";
    DialogUnderTest<frmPlayer> dialog;
    const ModalRun run = dialog.RunModal([&] {
        QTest::keyClicks(Focus(), "Zoe");
        if (byEscape)
            QTest::keyClick(Focus(), Qt::Key_Escape);
        else
            dialog->close();
    });
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE(Common::PlayerName, "Given before");
    QVERIFY(dialog.Deleted());
}

void FrmPlayerTest::secondOpeningProposesTheDefaultAgain()
{
    DialogUnderTest<frmPlayer> first;
    first.Child<QLineEdit>("txPlayer")->setText("Zoe");
    QTest::mouseClick(first.Child<QPushButton>("btnClose"), Qt::LeftButton);
    QCOMPARE(Common::PlayerName, "Zoe");
    DialogUnderTest<frmPlayer> second;
    QCOMPARE(second.Child<QLineEdit>("txPlayer")->text(), "Anonimo");
    QCOMPARE(second.Child<QLineEdit>("txPlayer")->selectedText(), "Anonimo");
}

QTEST_MAIN(FrmPlayerTest)
#include "tst_frmplayer.moc"
