#include "NumericText.h"

#include <QTest>

#include <cmath>
#include <limits>

class NumericTextTest : public QObject
{
    Q_OBJECT

private slots:
    void readsTheLeadingNumber_data();
    void readsTheLeadingNumber();
    void overflowAndUnderflowStayDefined();
    void roundsHalvesToEven_data();
    void roundsHalvesToEven();
    void saturatesOutsideTheIntegerRange();
    void readingThenRoundingMatchesTheDialogExamples_data();
    void readingThenRoundingMatchesTheDialogExamples();
};

void NumericTextTest::readsTheLeadingNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("expected");
    QTest::newRow("integer") << "57" << 57.0;
    QTest::newRow("decimal") << "7.5" << 7.5;
    QTest::newRow("leading blanks, sign, exponent, junk") << " -3e2x" << -300.0;
    QTest::newRow("tab before") << "\t12" << 12.0;
    QTest::newRow("plus sign") << "+4" << 4.0;
    QTest::newRow("point first") << ".25" << 0.25;
    QTest::newRow("trailing point") << "9." << 9.0;
    QTest::newRow("second point stops") << "1.2.3" << 1.2;
    QTest::newRow("comma is not a decimal point") << "1,5" << 1.0;
    QTest::newRow("exponent sign") << "5E-1" << 0.5;
    QTest::newRow("exponent without digits stops before E") << "3e" << 3.0;
    QTest::newRow("exponent sign without digits") << "3e+x" << 3.0;
    QTest::newRow("blank inside stops") << "1 2" << 1.0;
    QTest::newRow("letters") << "abc" << 0.0;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("blanks only") << "   " << 0.0;
    QTest::newRow("sign only") << "-" << 0.0;
    QTest::newRow("point only") << "." << 0.0;
    QTest::newRow("sign before letters") << "-x5" << 0.0;
    QTest::newRow("non-ASCII digits are not digits") << QString::fromUtf8("\u0663") << 0.0;
}

void NumericTextTest::readsTheLeadingNumber()
{
    QFETCH(QString, text);
    QFETCH(double, expected);
    QCOMPARE(NumericValue(text), expected);
}

void NumericTextTest::overflowAndUnderflowStayDefined()
{
    QCOMPARE(NumericValue(u"1e400"), std::numeric_limits<double>::infinity());
    QCOMPARE(NumericValue(u"-1e400"), -std::numeric_limits<double>::infinity());
    QCOMPARE(NumericValue(u"1e-400"), 0.0);
    QCOMPARE(NumericValue(u"1e99999999999999999999"), std::numeric_limits<double>::infinity());
    QCOMPARE(NumericValue(u"0e400"), 0.0);
    QCOMPARE(NumericValue(QStringLiteral("0.") + QString(400, u'0') + u'1'), 0.0);
    QCOMPARE(NumericValue(QString(400, u'9')), std::numeric_limits<double>::infinity());
    QCOMPARE(NumericValue(u"99999999999"), 99999999999.0);
}

void NumericTextTest::roundsHalvesToEven_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");
    QTest::newRow("7.5") << 7.5 << 8;
    QTest::newRow("8.5") << 8.5 << 8;
    QTest::newRow("6.5") << 6.5 << 6;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2.5") << 2.5 << 2;
    QTest::newRow("0.5") << 0.5 << 0;
    QTest::newRow("-0.5") << -0.5 << 0;
    QTest::newRow("-1.5") << -1.5 << -2;
    QTest::newRow("-2.5") << -2.5 << -2;
    QTest::newRow("just above half") << 2.5000001 << 3;
    QTest::newRow("just below half") << 2.4999999 << 2;
    QTest::newRow("whole") << 15.0 << 15;
}

void NumericTextTest::roundsHalvesToEven()
{
    QFETCH(double, value);
    QFETCH(int, expected);
    QCOMPARE(WholeValue(value), expected);
}

void NumericTextTest::saturatesOutsideTheIntegerRange()
{
    const auto max = std::numeric_limits<std::int32_t>::max();
    const auto min = std::numeric_limits<std::int32_t>::min();
    QCOMPARE(WholeValue(2147483647.0), max);
    QCOMPARE(WholeValue(2147483646.5), 2147483646);
    QCOMPARE(WholeValue(99999999999.0), max);
    QCOMPARE(WholeValue(-99999999999.0), min);
    QCOMPARE(WholeValue(std::numeric_limits<double>::infinity()), max);
    QCOMPARE(WholeValue(-std::numeric_limits<double>::infinity()), min);
    QCOMPARE(WholeValue(std::nan("")), 0);
}

void NumericTextTest::readingThenRoundingMatchesTheDialogExamples_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");
    QTest::newRow("7.5") << "7.5" << 8;
    QTest::newRow("8.5") << "8.5" << 8;
    QTest::newRow("6.5") << "6.5" << 6;
    QTest::newRow("49.5") << "49.5" << 50;
    QTest::newRow("1.5") << "1.5" << 2;
    QTest::newRow("2.5") << "2.5" << 2;
    QTest::newRow(" -3e2x") << " -3e2x" << -300;
    QTest::newRow("abc") << "abc" << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("1e400") << "1e400" << std::numeric_limits<std::int32_t>::max();
}

void NumericTextTest::readingThenRoundingMatchesTheDialogExamples()
{
    QFETCH(QString, text);
    QFETCH(int, expected);
    QCOMPARE(WholeValue(NumericValue(text)), expected);
}

QTEST_APPLESS_MAIN(NumericTextTest)
#include "tst_numerictext.moc"
