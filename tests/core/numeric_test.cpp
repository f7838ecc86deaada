#include "Numeric.h"
#include "ReadNumber.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <utility>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

// Halves, values just off a half, the edge of the doubles that still have a fraction,
// signed zeros and infinities.
TEST(Numeric, RoundingIsToNearestEvenAlsoForDecimalsAndSixteenBits) {
    for (double x : {0.0, 0.5, 1.5, 2.5, 0.49999999999999994, 2.5000000000000004, 0x1p52 - 0.5, 0x1p52 + 1, HUGE_VAL})
        for (double v : {x, -x})
            EXPECT_EQ(std::bit_cast<uint64_t>(RoundHalfEven(v)), std::bit_cast<uint64_t>(std::nearbyint(v))) << v;
    EXPECT_TRUE(std::isnan(RoundHalfEven(std::nan(""))));
    // 2.675 * 100 is exactly 267.5; 1.005 * 100 is below 100.5.
    EXPECT_EQ(RoundHalfEven(2.675, 2), 2.68);
    EXPECT_EQ(RoundHalfEven(1.005, 2), 1.0);
    EXPECT_EQ(RoundHalfEven(1250.0, -2), 1200.0);
    EXPECT_EQ(ToInt16(-32768.5), int16_t{-32768});
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
}

TEST(Numeric, NumbersFormatWithADotWhateverTheLocale) {
    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr && std::setlocale(LC_NUMERIC, "fr_FR.UTF-8") == nullptr)
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ((Texts{FormatSingle(2.5f), FormatSingle(-0.0f), FormatSingle(1e7f), FormatDouble(0.1 + 0.2)}),
              (Texts{"2.5", "0", "1E+7", "0.3"}));
    std::setlocale(LC_NUMERIC, "C");
}

// The printf general format is the reference: random values of many sizes, two- and
// three-decimal values, rounding results and values right around where exponents start.
TEST(Numeric, FormattingMatchesTheGeneralFormatOverManyValues) {
    const auto general = [](double x, int digits) {
        char text[64];
        std::string s(text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.*G", digits, x)));
        for (std::size_t e = s.find('E'); e != std::string::npos && s.size() > e + 3 && s[e + 2] == '0';)
            s.erase(e + 2, 1);
        return s;
    };
    std::mt19937_64 generator(2024);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    const double edges[] = {1e-4, 1e7, 1e15};
    for (int k = 1; k <= 40000; ++k) {
        const double random = mantissa(generator) * std::pow(10.0, k % 24 - 7);
        const double edge = edges[k % 3] * (1 + (k % 2001 - 1000) * 1e-16) * (k % 2 ? 1 : -1);
        for (double x : {random, k / -100.0, k / 1000.0, k * 250.5, RoundHalfEven(random, 2), edge}) {
            if (x == 0.0)
                continue;
            ASSERT_EQ(FormatDouble(x), general(x, 15)) << x;
            ASSERT_EQ(FormatSingle(static_cast<float>(x)), general(static_cast<float>(x), 7)) << x;
        }
    }
}

TEST(ReadNumber, LenientReadingStopsWhereTheNumberEnds) {
    const std::pair<const char *, double> cases[] = {
        {".5", 0.5}, {"1.2.3", 1.2}, {"12abc", 12},    {"1,5", 1},        {" \t- 1\n2 . 5 ", -12.5},
        {"1\r2", 1}, {"1E-", 1},     {"2.5e-1", 0.25}, {"&hFFFF", 65535}, {"&o78", 7},
        {"", 0},     {"--1", 0},     {"&X12", 0},      {"E5", 0},         {"-", 0},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(ReadNumber(text), value) << '"' << text << '"';
    EXPECT_FALSE(std::signbit(ReadNumber("-0")));
    EXPECT_EQ(ReadNumber("1" + std::string(400, '0')), HUGE_VAL);
    EXPECT_EQ(ReadNumber("&H" + std::string(1000, 'F')), HUGE_VAL);
    EXPECT_EQ(ReadNumber("0." + std::string(400, '0') + "1e405"), 1e4);
}
