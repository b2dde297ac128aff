#include "NumericText.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// For a number that does not fit a double: whether it is too small rather than too large,
// judged by the decimal position of its first significant digit.
bool isTiny(const std::string &number)
{
    const auto e = number.find('e');
    const std::string mantissa = number.substr(0, e);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto firstSignificant = mantissa.find_first_not_of("0.");
    long long magnitude = 0;
    if (firstSignificant < point)
        magnitude = static_cast<long long>(point - firstSignificant);
    else
        magnitude = -static_cast<long long>(firstSignificant - point - 1);
    if (e != std::string::npos) {
        long long exponent = 0;
        const bool negativeExponent = number[e + 1] == '-';
        for (auto i = e + 1; i < number.size(); ++i) {
            if (std::isdigit(static_cast<unsigned char>(number[i])))
                exponent = std::min(exponent * 10 + (number[i] - '0'), 1'000'000LL);
        }
        magnitude += negativeExponent ? -exponent : exponent;
    }
    return magnitude < 0;
}

} // namespace

double NumericValue(QStringView text)
{
    qsizetype i = 0;
    while (i < text.size() && (text[i] == u' ' || text[i] == u'\t'))
        ++i;

    // Collect the longest prefix that forms a number, in plain ASCII for from_chars,
    // which unlike strtod ignores the locale's decimal separator.
    std::string number;
    bool negative = false;
    if (i < text.size() && (text[i] == u'+' || text[i] == u'-')) {
        negative = text[i] == u'-';
        ++i;
    }
    bool sawDigit = false;
    for (bool sawPoint = false; i < text.size(); ++i) {
        if (isDigit(text[i])) {
            sawDigit = true;
        } else if (text[i] == u'.' && !sawPoint) {
            sawPoint = true;
        } else {
            break;
        }
        number += char(text[i].unicode());
    }
    if (!sawDigit)
        return 0.0;

    // An exponent counts only when at least one digit follows the E and its sign.
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        qsizetype j = i + 1;
        std::string exponent = "e";
        if (j < text.size() && (text[j] == u'+' || text[j] == u'-'))
            exponent += char(text[j++].unicode());
        const qsizetype firstExponentDigit = j;
        while (j < text.size() && isDigit(text[j]))
            exponent += char(text[j++].unicode());
        if (j > firstExponentDigit)
            number += exponent;
    }

    double value = 0.0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value,
                                              std::chars_format::general);
    if (error == std::errc::result_out_of_range)
        value = isTiny(number) ? 0.0 : std::numeric_limits<double>::infinity();
    return negative ? -value : value;
}

std::int32_t WholeValue(double value)
{
    if (std::isnan(value))
        return 0;
    // nearbyint honours the default rounding mode, which rounds halves to even.
    const double whole = std::nearbyint(value);
    if (whole >= double(std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::max();
    if (whole <= double(std::numeric_limits<std::int32_t>::min()))
        return std::numeric_limits<std::int32_t>::min();
    return std::int32_t(whole);
}
