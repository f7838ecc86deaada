#include "Numeric.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>
#include <tuple>

using namespace quorvel;

// Whole-number rounding agrees with the library's to-nearest-even: halves, values just off a half,
// the edge of the doubles that still have a fraction, signed zeros and infinities.
TEST(Numeric, RoundingAgreesWithNearestEvenOfTheLibrary) {
    const double two52 = 4503599627370496.0;
    for (double x : {0.0, 0.5, 1.5, 2.5, 0.49999999999999994, 2.5000000000000004, two52 - 0.5, two52 - 1.5, two52 + 1,
                     1e300, 5e-324, 32767.5, HUGE_VAL})
        for (double v : {x, -x})
            EXPECT_EQ(std::bit_cast<uint64_t>(RoundHalfEven(v)), std::bit_cast<uint64_t>(std::nearbyint(v))) << v;
    for (double x = -1000.0; x <= 1000.0; x += 0.125)
        ASSERT_EQ(RoundHalfEven(x), std::nearbyint(x)) << x;
    EXPECT_TRUE(std::isnan(RoundHalfEven(std::nan(""))));
}

TEST(Numeric, DecimalsJudgeTheTieOnTheScaledDoubleAndSixteenBitsAreChecked) {
    // 2.675 * 100 is exactly 267.5; 1.005 * 100 is below 100.5.
    const std::tuple<double, int, double> cases[] = {
        {2.675, 2, 2.68}, {1.005, 2, 1.0}, {0.125, 2, 0.12}, {0.375, 2, 0.38}, {1250.0, -2, 1200.0}};
    for (const auto &[x, decimals, want] : cases)
        EXPECT_EQ(RoundHalfEven(x, decimals), want) << x << " to " << decimals;
    EXPECT_EQ(RoundHalfEven(1234.5678, 25), std::nearbyint(1234.5678 * 1e25) / 1e25);
    EXPECT_EQ(ToInt16(-32768.5), int16_t{-32768});
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
    EXPECT_EQ(ToInt16(std::nan("")), std::nullopt);
    EXPECT_EQ(ToSingle(-1e300), -HUGE_VALF);
}

TEST(Numeric, NumbersFormatWithADotWhateverTheLocale) {
    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr)
        std::setlocale(LC_NUMERIC, "fr_FR.UTF-8");
    EXPECT_EQ(FormatSingle(2.5f) + " " + FormatSingle(0.1f) + " " + FormatSingle(-0.0f) + " " + FormatSingle(1e7f),
              "2.5 0.1 0 1E+7");
    EXPECT_EQ(FormatDouble(0.1 + 0.2) + " " + FormatDouble(-1.5e-5), "0.3 -1.5E-5");
    std::setlocale(LC_NUMERIC, "C");
}
