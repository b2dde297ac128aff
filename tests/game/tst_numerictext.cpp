#include "NumericText.h"

#include <QTest>

#include <tuple>

class NumericTextTest : public QObject
{
    Q_OBJECT

private slots:
    void readsTheLeadingNumberAndRoundsHalvesToEvenOrSaturates();
};

void NumericTextTest::readsTheLeadingNumberAndRoundsHalvesToEvenOrSaturates()
{
    // The text, the number read from it, and that number rounded.
    const std::tuple<const char16_t *, double, std::int32_t> cases[] = {
        {u"7.5", 7.5, 8},
        {u"8.5", 8.5, 8},
        {u"6.5", 6.5, 6},
        {u"1.5", 1.5, 2},
        {u"2.5", 2.5, 2},
        {u" -3e2x", -300, -300},
        {u"1,5", 1, 1},
        {u"3e", 3, 3},
        {u"5E-1", 0.5, 0},
        {u"abc", 0, 0},
        {u"", 0, 0},
        {u"1e400", qInf(), INT32_MAX},
        {u"-1e400", -qInf(), INT32_MIN},
        {u"1e-400", 0, 0},
        {u"2147483646.5", 2147483646.5, 2147483646},
        {u"99999999999", 99999999999, INT32_MAX},
        {u"-99999999999", -99999999999, INT32_MIN}};
    for (const auto &[text, value, whole] : cases) {
        const double read = NumericValue(text);
        QCOMPARE(std::pair(read, WholeValue(read)), std::pair(value, whole));
    }
    QCOMPARE(WholeValue(qQNaN()), 0);
}

QTEST_APPLESS_MAIN(NumericTextTest)
#include "tst_numerictext.moc"
