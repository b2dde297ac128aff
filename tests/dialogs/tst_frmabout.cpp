#include "Common.h"
#include "DialogUnderTest.h"
#include "frmAbout.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

class FrmAboutTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void controlsSitAtTheirPlaces_data();
    void controlsSitAtTheirPlaces();
    void showsTheLabelSetAndFlagOfTheLanguage_data();
    void showsTheLabelSetAndFlagOfTheLanguage();
    void clicksCloseOnlyWhereTheyShould_data();
    void clicksCloseOnlyWhereTheyShould();
    void keysThatTypeACharacterClose_data();
    void keysThatTypeACharacterClose();
    void noseShowsTheHintAndLeavesTheBoxOpen_data();
    void noseShowsTheHintAndLeavesTheBoxOpen();
};

void FrmAboutTest::init()
{
    Common::LangEnglish = false;
}

void FrmAboutTest::controlsSitAtTheirPlaces_data()
{
    AddPlaceColumns();
    QTest::newRow("lE4") << "lE4"
                         << "frmAbout" << QRect(4, 4, 169, 45);
    QTest::newRow("lI4") << "lI4"
                         << "frmAbout" << QRect(4, 4, 169, 45);
    QTest::newRow("Label6") << "Label6"
                            << "frmAbout" << QRect(4, 48, 169, 21);
    QTest::newRow("lE5") << "lE5"
                         << "frmAbout" << QRect(4, 68, 169, 17);
    QTest::newRow("lI5") << "lI5"
                         << "frmAbout" << QRect(4, 68, 169, 17);
    QTest::newRow("Label7") << "Label7"
                            << "frmAbout" << QRect(4, 84, 169, 17);
    QTest::newRow("flagI") << "flagI"
                           << "frmAbout" << QRect(180, 4, 37, 30);
    QTest::newRow("FlagE") << "FlagE"
                           << "frmAbout" << QRect(180, 4, 35, 30);
    QTest::newRow("Image1") << "Image1"
                            << "frmAbout" << QRect(160, 44, 200, 160);
    QTest::newRow("nose") << "nose"
                          << "frmAbout" << QRect(188, 92, 22, 22);
    QTest::newRow("callout") << "callout"
                             << "frmAbout" << QRect(-4, 100, 200, 140);
    QTest::newRow("lE1") << "lE1"
                         << "frmAbout" << QRect(16, 116, 89, 21);
    QTest::newRow("lI1") << "lI1"
                         << "frmAbout" << QRect(24, 116, 89, 21);
    QTest::newRow("Label5") << "Label5"
                            << "frmAbout" << QRect(104, 117, 37, 17);
    QTest::newRow("lE2") << "lE2"
                         << "frmAbout" << QRect(12, 136, 137, 45);
    QTest::newRow("lI2") << "lI2"
                         << "frmAbout" << QRect(14, 135, 137, 45);
    QTest::newRow("lE3") << "lE3"
                         << "frmAbout" << QRect(16, 180, 133, 45);
    QTest::newRow("lI3") << "lI3"
                         << "frmAbout" << QRect(15, 180, 133, 45);
    QTest::newRow("Label1") << "Label1"
                            << "frmAbout" << QRect(172, 204, 157, 29);
}

void FrmAboutTest::controlsSitAtTheirPlaces()
{
    VerifyControlPlace<frmAbout>(QSize(326, 232));
}

void FrmAboutTest::showsTheLabelSetAndFlagOfTheLanguage_data()
{
    QTest::addColumn<bool>("english");
    QTest::newRow("English") << true;
    QTest::newRow("Italian") << false;
}

void FrmAboutTest::showsTheLabelSetAndFlagOfTheLanguage()
{
    QFETCH(bool, english);
    Common::LangEnglish = english;
    DialogUnderTest<frmAbout> dialog;
    QVERIFY(dialog.Show());
    QCOMPARE(dialog->windowTitle(), "Who I am");
    for (int line = 1; line <= 5; ++line) {
        QCOMPARE(dialog.Child(QStringLiteral("lE%1").arg(line))->isVisible(), english);
        QCOMPARE(dialog.Child(QStringLiteral("lI%1").arg(line))->isVisible(), !english);
    }
    QCOMPARE(dialog.Child("FlagE")->isVisible(), english);
    QCOMPARE(dialog.Child("flagI")->isVisible(), !english);
    for (const char *shared : {"Label1", "Label5", "Label6", "Label7", "Image1", "callout"})
        QVERIFY2(dialog.Child(shared)->isVisible(), shared);
    QCOMPARE(dialog.Child<QLabel>("Label6")->text(), "Version 1.02 - Dec, 2003");
    QCOMPARE(dialog.Child<QLabel>("lE3")->text(),
             "and, if you want an hint on how to play dishonestly... press my nose !");
    QCOMPARE(dialog.Child<QLabel>("lI3")->text(),
             "e se vuoi un aiuto per giocare disonestamente, premi il mio naso !");
}

void FrmAboutTest::clicksCloseOnlyWhereTheyShould_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<bool>("closes");
    QTest::newRow("background") << false << QPoint(280, 20) << true;
    QTest::newRow("portrait beside the nose") << false << QPoint(250, 60) << true;
    QTest::newRow("Italian hint") << false << QPoint(60, 195) << true;
    QTest::newRow("English hint") << true << QPoint(60, 195) << true;
    QTest::newRow("Italian flag") << false << QPoint(198, 18) << false;
    QTest::newRow("English flag") << true << QPoint(198, 18) << false;
    QTest::newRow("bubble where it covers the portrait") << false << QPoint(175, 150) << false;
    QTest::newRow("version line") << false << QPoint(80, 58) << false;
    QTest::newRow("author's name") << true << QPoint(110, 124) << false;
    QTest::newRow("body of the note") << true << QPoint(60, 150) << false;
    QTest::newRow("contact line") << false << QPoint(250, 215) << false;
}

void FrmAboutTest::clicksCloseOnlyWhereTheyShould()
{
    QFETCH(bool, english);
    QFETCH(QPoint, place);
    QFETCH(bool, closes);
    Common::LangEnglish = english;
    DialogUnderTest<frmAbout> dialog;
    QVERIFY(dialog.Show());
    dialog.ClickAt(place);
    QCOMPARE(dialog.Deleted(), closes);
}

void FrmAboutTest::keysThatTypeACharacterClose_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("closes");
    QTest::newRow("letter") << int(Qt::Key_A) << true;
    QTest::newRow("digit") << int(Qt::Key_7) << true;
    QTest::newRow("Enter") << int(Qt::Key_Return) << true;
    QTest::newRow("Esc") << int(Qt::Key_Escape) << true;
    QTest::newRow("left arrow") << int(Qt::Key_Left) << false;
    QTest::newRow("down arrow") << int(Qt::Key_Down) << false;
    QTest::newRow("F5") << int(Qt::Key_F5) << false;
}

void FrmAboutTest::keysThatTypeACharacterClose()
{
    QFETCH(int, key);
    QFETCH(bool, closes);
    DialogUnderTest<frmAbout> dialog;
    QVERIFY(dialog.Show());
    QTest::keyClick(dialog->windowHandle(), Qt::Key(key));
    QCOMPARE(dialog.Deleted(), closes);
}

void FrmAboutTest::noseShowsTheHintAndLeavesTheBoxOpen_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("message");
    QTest::newRow("English") << true << "Be dishonest !"
                             << "during game, press Shift+Ctrl+F12...and see what happens !";
    QTest::newRow("Italian") << false << QString::fromUtf8("Un pò di disonestà !")
                             << "durante il gioco, premi Shift+Ctrl+F12...e vedi cosa succede !";
}

void FrmAboutTest::noseShowsTheHintAndLeavesTheBoxOpen()
{
    QFETCH(bool, english);
    QFETCH(QString, title);
    QFETCH(QString, message);
    // The box is built in the other language: the hint follows the language of the click.
    Common::LangEnglish = !english;
    DialogUnderTest<frmAbout> dialog;
    QVERIFY(dialog.Show());
    Common::LangEnglish = english;
    QPointer<QMessageBox> hint;
    QString shownTitle;
    QString shownMessage;
    QTimer::singleShot(0, [&] {
        hint = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!hint)
            return;
        shownTitle = hint->windowTitle();
        shownMessage = hint->text();
        QCOMPARE(hint->icon(), QMessageBox::NoIcon);
        QCOMPARE(hint->standardButtons(), QMessageBox::Ok);
        hint->button(QMessageBox::Ok)->click();
    });
    dialog.ClickAt(QPoint(199, 103)); // the middle of the nose
    QCOMPARE(shownTitle, title);
    QCOMPARE(shownMessage, message);
    QVERIFY(!dialog.Deleted());
    QVERIFY(dialog->isVisible());
}

QTEST_MAIN(FrmAboutTest)
#include "tst_frmabout.moc"
