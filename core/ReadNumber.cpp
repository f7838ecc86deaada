#include "ReadNumber.h"

#include <charconv>
#include <cstddef>
#include <limits>
#include <string>

namespace quorvel {

namespace {

// Walks the text while skipping the characters that may stand anywhere in a number.
class Cursor {
public:
    explicit Cursor(std::string_view text) : text_(text) { Skip(); }

    bool AtEnd() const { return pos_ >= text_.size(); }
    char Peek() const { return AtEnd() ? '\0' : text_[pos_]; }
    void Next() {
        ++pos_;
        Skip();
    }
    bool Take(char c) {
        if (Peek() != c)
            return false;
        Next();
        return true;
    }
    bool TakeEither(char a, char b) { return Take(a) || Take(b); }

private:
    void Skip() {
        while (!AtEnd() && (text_[pos_] == ' ' || text_[pos_] == '\t' || text_[pos_] == '\n'))
            ++pos_;
    }

    std::string_view text_;
    std::size_t pos_ = 0;
};

int DigitValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return 99;
}

double ReadRadix(Cursor &cursor, int radix) {
    double value = 0.0;
    for (int digit = DigitValue(cursor.Peek()); digit < radix; digit = DigitValue(cursor.Peek())) {
        value = value * radix + digit;
        cursor.Next();
    }
    return value;
}

// Sign, digits with at most one ".", and an exponent that counts only with its digits.
double ReadDecimal(Cursor &cursor) {
    std::string number;
    if (cursor.Peek() == '-')
        number += '-';
    if (cursor.Peek() == '-' || cursor.Peek() == '+')
        cursor.Next();

    // The decimal exponent of the leading digit, roughly: tells an overflow from an underflow.
    long long magnitude = 0;
    bool significant = false;
    bool anyDigit = false;
    bool point = false;
    for (;; cursor.Next()) {
        const char c = cursor.Peek();
        if (c >= '0' && c <= '9') {
            significant = significant || c != '0';
            if (!point && significant)
                ++magnitude;
            else if (point && !significant)
                --magnitude;
            anyDigit = true;
            number += c;
        } else if (c == '.' && !point) {
            point = true;
            number += c;
        } else {
            break;
        }
    }
    if (!anyDigit)
        return 0.0;

    if (cursor.TakeEither('E', 'e')) {
        std::string exponent = "e";
        if (cursor.Peek() == '-' || cursor.Peek() == '+') {
            exponent += cursor.Peek();
            cursor.Next();
        }
        long long exponentValue = 0;
        bool exponentDigit = false;
        for (; cursor.Peek() >= '0' && cursor.Peek() <= '9'; cursor.Next()) {
            exponentDigit = true;
            exponent += cursor.Peek();
            if (exponentValue < 1'000'000'000)
                exponentValue = exponentValue * 10 + (cursor.Peek() - '0');
        }
        if (exponentDigit) {
            number += exponent;
            magnitude += exponent[1] == '-' ? -exponentValue : exponentValue;
        }
    }

    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        const bool negative = number.front() == '-';
        value = magnitude > 0 ? std::numeric_limits<double>::infinity() : 0.0;
        if (negative)
            value = -value;
    }
    return value;
}

} // namespace

double ReadNumber(std::string_view text) {
    Cursor cursor(text);
    double value = 0.0;
    if (cursor.Take('&')) {
        if (cursor.TakeEither('H', 'h'))
            value = ReadRadix(cursor, 16);
        else if (cursor.TakeEither('O', 'o'))
            value = ReadRadix(cursor, 8);
    } else {
        value = ReadDecimal(cursor);
    }
    return value + 0.0; // "-0" reads as 0
}

} // namespace quorvel
