#include "ReadNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

using quorvel::ReadNumber;

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
