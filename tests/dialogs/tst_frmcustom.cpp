#include "Common.h"
#include "DialogUnderTest.h"
#include "frmCustom.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

class FrmCustomTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void controlsSitAtTheirPlaces_data();
    void controlsSitAtTheirPlaces();
    void showsTheFieldAndTheCaptionsOfTheLanguage_data();
    void showsTheFieldAndTheCaptionsOfTheLanguage();
    void textBoxesAreBoldSansSerif();
    void tabOrderRunsFromOkThroughTheBoxesToCancel();
    void okJudgesEachValueByItself_data();
    void okJudgesEachValueByItself();
    void enterRightAfterOpeningPressesOk();
    void enterInATextBoxPressesOk();
    void cancelAndEscapeChangeNothing_data();
    void cancelAndEscapeChangeNothing();
};

namespace {

void Type(DialogUnderTest<frmCustom> &dialog, const QString &columns, const QString &rows,
          const QString &bombs)
{
    dialog.Child<QLineEdit>("txX")->setText(columns);
    dialog.Child<QLineEdit>("txY")->setText(rows);
    dialog.Child<QLineEdit>("txB")->setText(bombs);
}

} // namespace

// Every case starts after an Easy game in Italian.
void FrmCustomTest::init()
{
    Common::FieldX = 9;
    Common::FieldY = 9;
    Common::Bombs = 10;
    Common::LangEnglish = false;
}

void FrmCustomTest::controlsSitAtTheirPlaces_data()
{
    AddPlaceColumns();
    QTest::newRow("btnOk") << "btnOk"
                           << "frmCustom" << QRect(124, 120, 53, 17);
    QTest::newRow("Frame1") << "Frame1"
                            << "frmCustom" << QRect(4, 4, 177, 109);
    QTest::newRow("Label1") << "Label1"
                            << "Frame1" << QRect(8, 20, 85, 13);
    QTest::newRow("txX") << "txX"
                         << "Frame1" << QRect(108, 16, 37, 19);
    QTest::newRow("Label2") << "Label2"
                            << "Frame1" << QRect(8, 48, 85, 13);
    QTest::newRow("txY") << "txY"
                         << "Frame1" << QRect(108, 44, 37, 19);
    QTest::newRow("Label3") << "Label3"
                            << "Frame1" << QRect(8, 76, 85, 13);
    QTest::newRow("txB") << "txB"
                         << "Frame1" << QRect(108, 72, 37, 19);
    QTest::newRow("btnCancel") << "btnCancel"
                               << "frmCustom" << QRect(8, 120, 53, 17);
}

void FrmCustomTest::controlsSitAtTheirPlaces()
{
    VerifyControlPlace<frmCustom>(QSize(185, 145));
}

void FrmCustomTest::showsTheFieldAndTheCaptionsOfTheLanguage_data()
{
    QTest::addColumn<bool>("english");
    QTest::addColumn<QStringList>("captions"); // title, Label1 to Label3, btnOk, btnCancel
    QTest::newRow("English")
        << true << QStringList{"Custom game", "Horizontal size", "Vertical size", "Number of bombs",
                               "OK",          "Cancel"};
    QTest::newRow("Italian") << false << QStringList{"Personalizza",
                                                     "Caselle orizzontali",
                                                     "Caselle verticali",
                                                     "Numero di bombe",
                                                     "OK",
                                                     "Annulla"};
}

void FrmCustomTest::showsTheFieldAndTheCaptionsOfTheLanguage()
{
    QFETCH(bool, english);
    QFETCH(QStringList, captions);
    Common::LangEnglish = english;
    Common::FieldX = 30;
    Common::FieldY = 16;
    Common::Bombs = 99;
    DialogUnderTest<frmCustom> dialog;
    const QStringList shown{dialog->windowTitle(),
                            dialog.Child<QLabel>("Label1")->text(),
                            dialog.Child<QLabel>("Label2")->text(),
                            dialog.Child<QLabel>("Label3")->text(),
                            dialog.Child<QPushButton>("btnOk")->text(),
                            dialog.Child<QPushButton>("btnCancel")->text()};
    QCOMPARE(shown, captions);
    QCOMPARE(dialog.Child<QLineEdit>("txX")->text(), "30");
    QCOMPARE(dialog.Child<QLineEdit>("txY")->text(), "16");
    QCOMPARE(dialog.Child<QLineEdit>("txB")->text(), "99");
}

void FrmCustomTest::textBoxesAreBoldSansSerif()
{
    DialogUnderTest<frmCustom> dialog;
    for (const char *name : {"txX", "txY", "txB"}) {
        const auto *box = dialog.Child<QLineEdit>(name);
        QVERIFY(box->font().bold());
        QCOMPARE(box->font().pointSizeF(), 8.25);
        QCOMPARE(box->font().styleHint(), QFont::SansSerif);
    }
}

void FrmCustomTest::tabOrderRunsFromOkThroughTheBoxesToCancel()
{
    DialogUnderTest<frmCustom> dialog;
    QStringList order;
    dialog.RunModal([&] {
        QWidget *focus = QApplication::focusWidget();
        for (int step = 0; step < 5 && focus; ++step) {
            order << focus->objectName();
            QTest::keyClick(focus, Qt::Key_Tab);
            focus = QApplication::focusWidget();
        }
    });
    QCOMPARE(order, (QStringList{"btnOk", "txX", "txY", "txB", "btnCancel"}));
}

void FrmCustomTest::okJudgesEachValueByItself_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("bombs");
    QTest::addColumn<QList<int>>("expected"); // FieldX, FieldY, Bombs after OK, from 9, 9, 10
    QTest::newRow("7x7 takes 7 bombs") << "7"
                                       << "7"
                                       << "7" << QList<int>{7, 7, 7};
    QTest::newRow("7x7 takes 8 bombs") << "7"
                                       << "7"
                                       << "8" << QList<int>{7, 7, 8};
    QTest::newRow("7x7 refuses 9 bombs") << "7"
                                         << "7"
                                         << "9" << QList<int>{7, 7, 10};
    QTest::newRow("49x49 takes 479") << "49"
                                     << "49"
                                     << "479" << QList<int>{49, 49, 479};
    QTest::newRow("49x49 refuses 480") << "49"
                                       << "49"
                                       << "480" << QList<int>{49, 49, 10};
    QTest::newRow("fewer than 7 bombs refused") << "20"
                                                << "20"
                                                << "6" << QList<int>{20, 20, 10};
    QTest::newRow("rejected columns do not stop rows and bombs") << "50"
                                                                 << "20"
                                                                 << "30" << QList<int>{9, 20, 30};
    QTest::newRow("bomb limit uses the kept columns") << "50"
                                                      << "20"
                                                      << "36" << QList<int>{9, 20, 10};
    QTest::newRow("bomb limit uses the new size, not the old") << "20"
                                                               << "20"
                                                               << "79" << QList<int>{20, 20, 79};
    QTest::newRow("6 columns and 50 rows refused") << "6"
                                                   << "50"
                                                   << "10" << QList<int>{9, 9, 10};
    QTest::newRow("7.5 and 8.5 both read as 8") << "7.5"
                                                << "8.5"
                                                << "8" << QList<int>{8, 8, 8};
    QTest::newRow("6.5 reads as 6, refused") << "6.5"
                                             << "9"
                                             << "10" << QList<int>{9, 9, 10};
    QTest::newRow("49.5 reads as 50, refused") << "49.5"
                                               << "49.5"
                                               << "10" << QList<int>{9, 9, 10};
    QTest::newRow("empty boxes keep the values") << ""
                                                 << ""
                                                 << "" << QList<int>{9, 9, 10};
    QTest::newRow("words read as 0, refused") << "ten"
                                              << "x12"
                                              << "many" << QList<int>{9, 9, 10};
    QTest::newRow("leading number counts") << " 12 cols"
                                           << "12abc"
                                           << "20!" << QList<int>{12, 12, 20};
    QTest::newRow("long texts are not cut")
        << QString(40, QLatin1Char(' ')) + "12"
        << "1" + QString(40, QLatin1Char('0')) << "20" << QList<int>{12, 9, 20};
    QTest::newRow("negative refused") << "-9"
                                      << "-9"
                                      << "-10" << QList<int>{9, 9, 10};
    QTest::newRow("beyond 32 bits refused") << "1e10"
                                            << "4294967305"
                                            << "1e300" << QList<int>{9, 9, 10};
}

void FrmCustomTest::okJudgesEachValueByItself()
{
    QFETCH(QString, columns);
    QFETCH(QString, rows);
    QFETCH(QString, bombs);
    QFETCH(QList<int>, expected);
    DialogUnderTest<frmCustom> dialog;
    Type(dialog, columns, rows, bombs);
    QTest::mouseClick(dialog.Child<QPushButton>("btnOk"), Qt::LeftButton);
    QCOMPARE((QList<int>{Common::FieldX, Common::FieldY, Common::Bombs}), expected);
    QVERIFY(dialog.Deleted());
}

void FrmCustomTest::enterRightAfterOpeningPressesOk()
{
    DialogUnderTest<frmCustom> dialog;
    QString focused;
    const ModalRun run = dialog.RunModal([&] {
        focused = Focus()->objectName();
        // Filled in without moving the focus, so only OK can have taken the values over.
        Type(dialog, "12", "14", "20");
        QTest::keyClick(Focus(), Qt::Key_Return);
    });
    QCOMPARE(focused, "btnOk");
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE((QList<int>{Common::FieldX, Common::FieldY, Common::Bombs}), (QList<int>{12, 14, 20}));
    QVERIFY(dialog.Deleted());
}

void FrmCustomTest::enterInATextBoxPressesOk()
{
    DialogUnderTest<frmCustom> dialog;
    const ModalRun run = dialog.RunModal([&] {
        QTest::keyClick(Focus(), Qt::Key_Tab);
        QTest::keyClicks(Focus(), "15");
        QTest::keyClick(Focus(), Qt::Key_Return);
    });
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE(Common::FieldX, 15);
}

void FrmCustomTest::cancelAndEscapeChangeNothing_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("Cancel") << false;
    QTest::newRow("Esc") << true;
}

void FrmCustomTest::cancelAndEscapeChangeNothing()
{
    QFETCH(bool, byEscape);
    DialogUnderTest<frmCustom> dialog;
    const ModalRun run = dialog.RunModal([&] {
        Type(dialog, "20", "20", "40");
        if (byEscape)
            QTest::keyClick(Focus(), Qt::Key_Escape);
        else
            QTest::mouseClick(dialog.Child<QPushButton>("btnCancel"), Qt::LeftButton);
    });
    QCOMPARE(run, ModalRun::Closed);
    QCOMPARE((QList<int>{Common::FieldX, Common::FieldY, Common::Bombs}), (QList<int>{9, 9, 10}));
    QVERIFY(dialog.Deleted());
}

QTEST_MAIN(FrmCustomTest)
#include "tst_frmcustom.moc"
