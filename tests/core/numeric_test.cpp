#include "Numeric.h"

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdint>

using namespace quorvel;

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
    EXPECT_EQ(FormatSingle(2.5f) + " " + FormatSingle(-0.0f) + " " + FormatSingle(1e7f) + " " + FormatDouble(0.1 + 0.2),
              "2.5 0 1E+7 0.3");
    std::setlocale(LC_NUMERIC, "C");
}
