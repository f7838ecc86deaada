#include "ReadNumber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>

using quorvel::ReadNumber;

TEST(ReadNumber, LenientReadingStopsWhereTheNumberEnds) {
    const std::pair<const char *, double> cases[] = {
        {"-2.5", -2.5}, {"+7", 7},      {".5", 0.5},      {"1.", 1},         {"12abc", 12},
        {"1,5", 1},     {"1.2.3", 1.2}, {"3-4", 3},       {"1 2", 12},       {" \t- 1\n2 . 5 ", -12.5},
        {"1\r2", 1},    {"1E3", 1000},  {"2.5e-1", 0.25}, {"1 E 2", 100},    {"1E", 1},
        {"1E-", 1},     {"7e+x", 7},    {"&H1F", 31},     {"&hFFFF", 65535}, {"&O17", 15},
        {"&o78", 7},    {"", 0},        {"abc", 0},       {"-", 0},          {".", 0},
        {"E5", 0},      {"&H", 0},      {"&X12", 0},      {"--1", 0},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(ReadNumber(text), value) << '"' << text << '"';
    EXPECT_FALSE(std::signbit(ReadNumber("-0")));
}

TEST(ReadNumber, HugeAndLongInputIsHandled) {
    EXPECT_EQ(ReadNumber("1" + std::string(400, '0')), HUGE_VAL);
    EXPECT_EQ(ReadNumber("&H" + std::string(100000, 'F')), HUGE_VAL);
    EXPECT_EQ(ReadNumber("-1e99999999999999999999"), -HUGE_VAL);
    EXPECT_EQ(ReadNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(ReadNumber("0." + std::string(400, '0') + "1e405"), 1e4);
    EXPECT_EQ(ReadNumber(std::string(100000, ' ') + "42"), 42.0);
}
