#include "CaptionTable.h"

#include <QTest>

#include <limits>

class CaptionTableTest : public QObject
{
    Q_OBJECT

private slots:
    void bothLanguagesCaptionTheSameMenu_data();
    void bothLanguagesCaptionTheSameMenu();
    void numbersOutsideBothSetsAreEmpty_data();
    void numbersOutsideBothSetsAreEmpty();
};

void CaptionTableTest::bothLanguagesCaptionTheSameMenu_data()
{
    QTest::addColumn<int>("italianNumber");
    QTest::addColumn<QString>("italian");
    QTest::addColumn<QString>("english");
    QTest::newRow("mnuGame") << 101 << "Gioco"
                             << "Game";
    QTest::newRow("mnuProg(0)") << 102 << "Nuova partita"
                                << "New";
    QTest::newRow("mnuProg(1)") << 103 << "Annulla partita"
                                << "Abort";
    QTest::newRow("mnuProg(2)") << 104 << "Suono"
                                << "Sound";
    QTest::newRow("mnuProg(3)") << 105 << "I Record..."
                                << "Hall of Fame...";
    QTest::newRow("mnuProg(4)") << 106 << "Esci"
                                << "Exit";
    QTest::newRow("mnuLev") << 107 << "Livello"
                            << "Level";
    QTest::newRow("mnuLevel(0)") << 108 << "Facile"
                                 << "Easy";
    QTest::newRow("mnuLevel(1)") << 109 << "Medio"
                                 << "Medium";
    QTest::newRow("mnuLevel(2)") << 110 << "Difficile"
                                 << "Hard";
    QTest::newRow("mnuLevel(3)") << 111 << "Personalizzato..."
                                 << "Custom...";
    QTest::newRow("mnudbg") << 112 << "Barare"
                            << "Debug";
    QTest::newRow("mnuDebug(0)") << 113 << "Mostra celle"
                                 << "Show cells";
    QTest::newRow("mnuDebug(1)") << 114 << "Nascondi celle"
                                 << "Hide cells";
    QTest::newRow("mnuWho") << 115 << "A proposito..."
                            << "About...";
}

void CaptionTableTest::bothLanguagesCaptionTheSameMenu()
{
    QFETCH(int, italianNumber);
    QFETCH(QString, italian);
    QFETCH(QString, english);
    QCOMPARE(LoadString(italianNumber), italian);
    QCOMPARE(LoadString(italianNumber + 100), english);
}

void CaptionTableTest::numbersOutsideBothSetsAreEmpty_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("just before the Italian set") << 100;
    QTest::newRow("just after the Italian set") << 116;
    QTest::newRow("just before the English set") << 200;
    QTest::newRow("just after the English set") << 216;
    QTest::newRow("between the sets") << 150;
    QTest::newRow("a third set would start here") << 301;
    QTest::newRow("zero") << 0;
    QTest::newRow("negative") << -1;
    QTest::newRow("Italian number negated") << -101;
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
    QTest::newRow("largest") << std::numeric_limits<int>::max();
}

void CaptionTableTest::numbersOutsideBothSetsAreEmpty()
{
    QFETCH(int, number);
    QVERIFY(LoadString(number).isEmpty());
}

QTEST_GUILESS_MAIN(CaptionTableTest)
#include "tst_captiontable.moc"
