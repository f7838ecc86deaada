#include "Numeric.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

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

// n / 10^decimals in plain decimals with no trailing zeros in the fraction.
char *WriteDecimal(char *out, bool negative, uint64_t n, int decimals) {
    while (decimals > 0 && n % 10 == 0) {
        n /= 10;
        --decimals;
    }
    // Written from the last digit backwards; the whole part gets at least its zero.
    char text[32];
    char *first = std::end(text);
    for (; decimals > 0; --decimals, n /= 10)
        *--first = static_cast<char>('0' + n % 10);
    if (first != std::end(text))
        *--first = '.';
    do {
        *--first = static_cast<char>('0' + n % 10);
        n /= 10;
    } while (n != 0);
    if (negative)
        *--first = '-';
    return std::copy(first, std::end(text), out);
}

// A double from 1E-4 up to 1E15 that is the nearest double to a decimal of at most 15 digits
// (12.34 after rounding to two decimals) is written as that decimal; nullptr for the rest.
// The decimal lies within half a unit in the last place of x, far inside half a unit of the
// 15th digit, so the 15-digit general format rounds x to exactly that decimal, in plain
// decimals at these sizes.
char *WritePlain(char *out, double x) {
    const double magnitude = std::fabs(x);
    if (!(magnitude >= 1e-4 && magnitude < 1e15))
        return nullptr;
    for (int decimals = 1; decimals < static_cast<int>(std::size(kPowersOfTen)); ++decimals) {
        const double scaled = RoundHalfEven(magnitude * kPowersOfTen[decimals]);
        if (scaled >= 1e15)
            return nullptr;
        if (scaled / kPowersOfTen[decimals] == magnitude)
            return WriteDecimal(out, x < 0, static_cast<uint64_t>(scaled), decimals);
    }
    return nullptr;
}

// A single from 1E-4 up to 1E7 scaled to seven whole digits is exact in a double: 24 bits
// times 10^n for n up to 10, whose odd part 5^n has at most 24 bits. Rounding that half to
// even gives the seven digits the 7-digit general format shows; nullptr when the rounding
// carries the value to 1E+7, which that format writes with an exponent.
char *WritePlain(char *out, float x) {
    const double magnitude = std::fabs(static_cast<double>(x));
    if (!(magnitude >= 1e-4 && magnitude < 1e7))
        return nullptr;
    int decimals = 0;
    while (magnitude * kPowersOfTen[decimals] < 1e6)
        ++decimals;
    double digits = RoundHalfEven(magnitude * kPowersOfTen[decimals]);
    if (digits == 1e7) {
        if (decimals == 0)
            return nullptr;
        digits = 1e6;
        --decimals;
    }
    return WriteDecimal(out, x < 0, static_cast<uint64_t>(digits), decimals);
}

// Room for any number text below: "-1.23456789012345E+308" or a 64-bit whole number.
constexpr std::size_t kNumberRoom = 40;

// to_chars ignores the C locale, which a toolkit may have set to a comma separator.
char *WriteWhole(char *out, long long x) {
    return std::to_chars(out, out + kNumberRoom, x).ptr;
}

char *WriteLiteral(char *out, std::string_view text) {
    return std::copy(text.begin(), text.end(), out);
}

template <typename T> char *WriteSignificant(char *out, T value, int digits, double wholeLimit) {
    const double x = value;
    if (x == 0.0)
        return WriteLiteral(out, "0");
    if (std::isnan(x))
        return WriteLiteral(out, "NaN");
    if (std::isinf(x))
        return WriteLiteral(out, x > 0 ? "Inf" : "-Inf");
    // Whole numbers with no more digits than allowed are written as plain digits, which is
    // what the general format gives them, without its rounding work.
    if (std::fabs(x) < wholeLimit) {
        const auto whole = static_cast<long long>(x);
        if (static_cast<double>(whole) == x)
            return WriteWhole(out, whole);
    }
    if (char *end = WritePlain(out, value))
        return end;
    char *end = std::to_chars(out, out + kNumberRoom, x, std::chars_format::general, digits).ptr;
    // The general format keeps trailing zeros out but writes exponents as e+20 / e-05;
    // show them as 1E+20 and 1E-5.
    char *e = std::find(out, end, 'e');
    if (e != end) {
        *e = 'E';
        char *first = e + 2;
        char *digit = first;
        while (digit + 1 < end && *digit == '0')
            ++digit;
        end = std::copy(digit, end, first);
    }
    return end;
}

char *WriteDouble(char *out, double x) {
    return WriteSignificant(out, x, 15, 1e15);
}

char *WriteSingle(char *out, float x) {
    return WriteSignificant(out, x, 7, 1e7);
}

} // namespace

std::string FormatDouble(double x) {
    char buffer[kNumberRoom];
    return std::string(buffer, WriteDouble(buffer, x));
}

std::string FormatSingle(float x) {
    char buffer[kNumberRoom];
    return std::string(buffer, WriteSingle(buffer, x));
}

std::string FormatWhole(long long x) {
    char buffer[kNumberRoom];
    return std::string(buffer, WriteWhole(buffer, x));
}

void AppendDouble(std::string &text, double x) {
    char buffer[kNumberRoom];
    text.append(buffer, static_cast<std::size_t>(WriteDouble(buffer, x) - buffer));
}

void AppendSingle(std::string &text, float x) {
    char buffer[kNumberRoom];
    text.append(buffer, static_cast<std::size_t>(WriteSingle(buffer, x) - buffer));
}

void AppendWhole(std::string &text, long long x) {
    char buffer[kNumberRoom];
    text.append(buffer, static_cast<std::size_t>(WriteWhole(buffer, x) - buffer));
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
