#include "CaptionTable.h"

#include <QTest>

class CaptionTableTest : public QObject
{
    Q_OBJECT

private slots:
    // English number = Italian number + 100; numbers outside both sets give no text.
    void bothLanguagesCaptionTheSameMenuAndNothingElse()
    {
        const std::tuple<int, QString, QString> pairs[] = {{101, "Gioco", "Game"},
                                                           {105, "I Record...", "Hall of Fame..."},
                                                           {111, "Personalizzato...", "Custom..."},
                                                           {115, "A proposito...", "About..."}};
        for (const auto &[number, italian, english] : pairs) {
            QCOMPARE(LoadString(number), italian);
            QCOMPARE(LoadString(number + 100), english);
        }
        for (int number = 101; number <= 115; ++number)
            QVERIFY2(!LoadString(number).isEmpty() && !LoadString(number + 100).isEmpty(),
                     qPrintable(QString::number(number)));
        for (int number : {100, 116, 200, 216, 0, -1})
            QVERIFY2(LoadString(number).isEmpty(), qPrintable(QString::number(number)));
    }
};

QTEST_GUILESS_MAIN(CaptionTableTest)
#include "tst_captiontable.moc"
