#include "Numeric.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace quorvel {

double RoundHalfEven(double x) {
    // Adding and taking away 2^52 leaves no room for a fraction, so the sum is rounded to
    // nearest with ties to even (the default mode, which the program never changes);
    // std::round would take halves away from zero. Larger magnitudes are already whole.
    constexpr double kNoFraction = 4503599627370496.0;
    if (!(std::fabs(x) < kNoFraction))
        return x;
    const double magnitude = (std::fabs(x) + kNoFraction) - kNoFraction;
    return std::copysign(magnitude, x);
}

double RoundHalfEven(double x, int decimals) {
    // Powers of ten up to 10^22 are exact doubles; the table spares a pow call per value.
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const double scale = decimals >= 0 && decimals <= 22 ? kPowers[decimals] : std::pow(10.0, decimals);
    // The scaled double is rounded as it stands: 2.675 * 100 is 267.5 in doubles, which goes
    // to the even 268, so 2.675 rounds to 2.68 like every other tie the scaling produces.
    return RoundHalfEven(x * scale) / scale;
}

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

std::string FormatSignificant(double x, int digits) {
    if (x == 0.0)
        return "0";
    if (std::isnan(x))
        return "NaN";
    if (std::isinf(x))
        return x > 0 ? "Inf" : "-Inf";
    // to_chars ignores the C locale, which a toolkit may have set to a comma separator.
    char buffer[40];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, x, std::chars_format::general, digits).ptr;
    std::string text(buffer, end);
    // The general format keeps trailing zeros out but writes exponents as e+20 / e-05;
    // show them as 1E+20 and 1E-5.
    const auto e = text.find('e');
    if (e != std::string::npos) {
        const std::string mantissa = text.substr(0, e);
        const char sign = text[e + 1];
        std::string exponent = text.substr(e + 2);
        while (exponent.size() > 1 && exponent.front() == '0')
            exponent.erase(0, 1);
        text = mantissa + 'E' + sign + exponent;
    }
    return text;
}

} // namespace

std::string FormatDouble(double x) {
    return FormatSignificant(x, 15);
}

std::string FormatSingle(float x) {
    return FormatSignificant(static_cast<double>(x), 7);
}

std::string FormatWhole(long long x) {
    return std::to_string(x);
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
