#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// The one place where numbers are rounded, range-checked and turned into text.
// Rounding is always to the nearest with halves to the even neighbour (2.5 -> 2, 3.5 -> 4).
// Rounding to n decimals scales by 10^n in doubles, rounds that product and scales back
// (2.675 to 2 decimals: 2.675 * 100 is 267.5 in doubles, so the result is 2.68).
namespace quorvel {

// 10^0 .. 10^22, every one an exact double; the table spares a pow call per value.
inline constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                          1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Nearest whole number, halves to even, as a double (no range check).
inline double RoundHalfEven(double x) {
    // Adding and taking away 2^52 leaves no room for a fraction, so the sum is rounded to
    // nearest with ties to even (the default mode, which the program never changes);
    // std::round would take halves away from zero. Larger magnitudes are already whole.
    constexpr double kNoFraction = 4503599627370496.0;
    if (!(std::fabs(x) < kNoFraction))
        return x;
    const double magnitude = (std::fabs(x) + kNoFraction) - kNoFraction;
    return std::copysign(magnitude, x);
}

// x scaled by 10^decimals, rounded half to even, scaled back.
inline double RoundHalfEven(double x, int decimals) {
    const double scale = decimals >= 0 && decimals <= 22 ? kPowersOfTen[decimals] : std::pow(10.0, decimals);
    // The scaled double is rounded as it stands: 2.675 * 100 is 267.5 in doubles, which goes
    // to the even 268, so 2.675 rounds to 2.68 like every other tie the scaling produces.
    return RoundHalfEven(x * scale) / scale;
}

// True when a whole number fits a signed 16-bit field.
bool FitsInt16(double wholeNumber);

// Rounds half to even and checks the signed 16-bit range; nothing when it does not fit
// (or the value is not finite).
std::optional<int16_t> ToInt16(double x);

// The nearest single-precision value, no rounding to a whole number; beyond the single
// range it gives an infinity of the same sign.
float ToSingle(double x);

// A number written as the whole of `text` in plain C form ("-12", "39.99"); nothing for any
// other text, trailing characters included.
template <typename Number> std::optional<Number> ParseExact(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

// Shortest decimal text with up to 15 significant digits, "." as separator,
// no trailing zeros, "-0" shown as "0" (712, 12.5, -3, 1E+20).
std::string FormatDouble(double x);

// The same for a single-precision value with up to 7 significant digits (10.63, 2697).
std::string FormatSingle(float x);

// A whole number as plain digits with a leading minus when negative.
std::string FormatWhole(long long x);

// The texts above added to the end of `text`, with no string of their own in between.
void AppendDouble(std::string &text, double x);
void AppendSingle(std::string &text, float x);
void AppendWhole(std::string &text, long long x);

// Cell texts of the DNA list.
// The loader's attribute cell: the field as read, blanks in front up to 5 characters.
std::string PadLoaderCell(const std::string &fieldText);
// The rebuild's number cell: (4 - digits) blanks in front; five digits get none.
std::string RebuildCell(int value);
// The editor's and the Add DNA window's number cell: three blanks and the number.
std::string EditorCell(int value);

} // namespace quorvel
