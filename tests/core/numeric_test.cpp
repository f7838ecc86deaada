#include "Numeric.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>

using namespace quorvel;

TEST(Numeric, RoundingTakesHalvesToEvenOnTheValueAsStored) {
    EXPECT_EQ(RoundHalfEven(2.5), 2.0);
    EXPECT_EQ(RoundHalfEven(-3.5), -4.0);
    // The tie is judged on the scaled double: 2.675 * 100 is exactly 267.5, 1.005 * 100 is below 100.5.
    EXPECT_EQ(RoundHalfEven(2.675, 2), 2.68);
    EXPECT_EQ(RoundHalfEven(-2.675, 2), -2.68);
    EXPECT_EQ(RoundHalfEven(1.005, 2), 1.0);
    EXPECT_EQ(RoundHalfEven(0.125, 2), 0.12);
    EXPECT_EQ(RoundHalfEven(0.375, 2), 0.38);
    EXPECT_EQ(ToInt16(-32768.5), int16_t{-32768});
    EXPECT_EQ(ToInt16(32767.5), std::nullopt);
    EXPECT_EQ(ToInt16(std::nan("")), std::nullopt);
    EXPECT_EQ(ToSingle(-1e300), -HUGE_VALF);
}

TEST(Numeric, NumbersFormatWithADotWhateverTheLocale) {
    for (const char *name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
        if (std::setlocale(LC_NUMERIC, name) != nullptr)
            break;
    }
    EXPECT_EQ(FormatSingle(2.5f), "2.5");
    EXPECT_EQ(FormatSingle(0.1f), "0.1");
    EXPECT_EQ(FormatSingle(-0.0f), "0");
    EXPECT_EQ(FormatSingle(1e7f), "1E+7");
    EXPECT_EQ(FormatDouble(0.1 + 0.2), "0.3");
    EXPECT_EQ(FormatDouble(-1.5e-5), "-1.5E-5");
    std::setlocale(LC_NUMERIC, "C");
}
