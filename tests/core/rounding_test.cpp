#include "Numeric.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace quorvel;

// The arithmetic rounding agrees with the library's to-nearest-even rounding everywhere:
// halves, values just off a half, the edge of the doubles that still have a fraction, and
// the values that are not numbers.
TEST(Rounding, AgreesWithNearestEvenOfTheLibrary) {
    const double two52 = 4503599627370496.0;
    for (double x : {0.5, 1.5, 2.5, -0.5, -2.5, 0.49999999999999994, 2.5000000000000004, two52 - 0.5, two52 - 1.5,
                     two52 + 1, 2 * two52 + 2, 1e300, 5e-324, -0.0, 32767.5, -32768.5}) {
        EXPECT_EQ(RoundHalfEven(x), std::nearbyint(x)) << x;
        EXPECT_EQ(std::signbit(RoundHalfEven(x)), std::signbit(std::nearbyint(x))) << x;
        EXPECT_EQ(RoundHalfEven(-x), std::nearbyint(-x)) << -x;
    }
    for (double x = -1000.0; x <= 1000.0; x += 0.125)
        ASSERT_EQ(RoundHalfEven(x), std::nearbyint(x)) << x;
    EXPECT_TRUE(std::isnan(RoundHalfEven(std::numeric_limits<double>::quiet_NaN())));
    EXPECT_EQ(RoundHalfEven(-HUGE_VAL), -HUGE_VAL);
    EXPECT_EQ(RoundHalfEven(1234.5678, 25), std::nearbyint(1234.5678 * 1e25) / 1e25);
    EXPECT_EQ(RoundHalfEven(1250.0, -2), 1200.0);
}
