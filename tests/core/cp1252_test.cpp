#include "Cp1252.h"

#include <gtest/gtest.h>

#include <string>

using quorvel::Cp1252ToUtf8;
using quorvel::Utf8ToCp1252;

TEST(Cp1252, SpecialBytesBecomeTheirCharactersAndEveryByteRoundTrips) {
    EXPECT_EQ(Cp1252ToUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(Cp1252ToUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
    EXPECT_EQ(Cp1252ToUtf8("a\xA0\xE9\xFF"), "a\u00A0éÿ");
    EXPECT_EQ(Cp1252ToUtf8("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
}

TEST(Cp1252, UnmappableOrBrokenTextBecomesQuestionMarks) {
    EXPECT_EQ(Utf8ToCp1252("日本 a\U0001F600b"), "?? a?b");
    EXPECT_EQ(Utf8ToCp1252("\u0080"), "?"); // the control U+0080 is not the euro byte
    EXPECT_EQ(Utf8ToCp1252("\xC3"), "?");
    EXPECT_EQ(Utf8ToCp1252("x\xE2\x82y"), "x??y");
    EXPECT_EQ(Utf8ToCp1252("\xC0\xAF"), "??");      // overlong
    EXPECT_EQ(Utf8ToCp1252("\xED\xA0\x80"), "???"); // surrogate
    EXPECT_EQ(Utf8ToCp1252("\xF4\x90\x80\x80\xFE"), "?????");
}
