#include "Numeric.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace quorvel {

bool FitsInt16(double wholeNumber) {
    return wholeNumber >= -32768.0 && wholeNumber <= 32767.0;
}

std::optional<int16_t> ToInt16(double x) {
    if (!std::isfinite(x))
        return std::nullopt;
    const double r = RoundHalfEven(x);
    if (!FitsInt16(r))
        return std::nullopt;
    return static_cast<int16_t>(r);
}

float ToSingle(double x) {
    constexpr double kMax = std::numeric_limits<float>::max();
    if (x > kMax)
        return std::numeric_limits<float>::infinity();
    if (x < -kMax)
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(x);
}

namespace {

std::string FormatSignificant(double x, int digits, double wholeLimit) {
    if (x == 0.0)
        return "0";
    if (std::isnan(x))
        return "NaN";
    if (std::isinf(x))
        return x > 0 ? "Inf" : "-Inf";
    // to_chars ignores the C locale, which a toolkit may have set to a comma separator.
    char buffer[40];
    // Whole numbers with no more digits than allowed are written as plain digits, which is
    // what the general format gives them, without its rounding work.
    if (std::fabs(x) < wholeLimit) {
        const auto whole = static_cast<long long>(x);
        if (static_cast<double>(whole) == x)
            return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, whole).ptr);
    }
    char *end = std::to_chars(buffer, buffer + sizeof buffer, x, std::chars_format::general, digits).ptr;
    // The general format keeps trailing zeros out but writes exponents as e+20 / e-05;
    // show them as 1E+20 and 1E-5.
    char *e = std::find(buffer, end, 'e');
    if (e != end) {
        *e = 'E';
        char *first = e + 2;
        char *digit = first;
        while (digit + 1 < end && *digit == '0')
            ++digit;
        end = std::copy(digit, end, first);
    }
    return std::string(buffer, end);
}

} // namespace

std::string FormatDouble(double x) {
    return FormatSignificant(x, 15, 1e15);
}

std::string FormatSingle(float x) {
    return FormatSignificant(static_cast<double>(x), 7, 1e7);
}

std::string FormatWhole(long long x) {
    char buffer[24];
    return std::string(buffer, std::to_chars(buffer, buffer + sizeof buffer, x).ptr);
}

std::string PadLoaderCell(const std::string &fieldText) {
    if (fieldText.size() >= 5)
        return fieldText;
    return std::string(5 - fieldText.size(), ' ') + fieldText;
}

std::string RebuildCell(int value) {
    const std::string number = std::to_string(value);
    const std::size_t digits = number.size() - (value < 0 ? 1 : 0);
    // Five-digit values cannot be padded: they are shown with no blank in front.
    const std::size_t blanks = digits < 4 ? 4 - digits : 0;
    return std::string(blanks, ' ') + number;
}

std::string EditorCell(int value) {
    return "   " + std::to_string(value);
}

} // namespace quorvel
