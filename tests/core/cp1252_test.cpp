#include "Cp1252.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorvel;

TEST(Cp1252, SpecialBytesBecomeTheirCharactersAndEveryByteRoundTrips) {
    EXPECT_EQ(Cp1252ToUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(Cp1252ToUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
    EXPECT_EQ(Cp1252ToUtf8("a\xA0\xE9\xFF\x81\x8D\x8F\x90\x9D"), "a\u00A0éÿ\u0081\u008D\u008F\u0090\u009D");
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
}

TEST(Cp1252, UnmappableOrBrokenTextBecomesQuestionMarks) {
    // U+0080 is a control, not the euro byte; then a cut sequence at the end and inside,
    // an overlong form, a surrogate and code points beyond U+10FFFF.
    const std::pair<const char *, const char *> cases[] = {
        {"日本 a\U0001F600b", "?? a?b"},  {"\u0080", "?"},    {"\xC3", "?"},
        {"x\xE2\x82y", "x??y"},           {"\xC0\xAF", "??"}, {"\xED\xA0\x80", "???"},
        {"\xF4\x90\x80\x80\xFE", "?????"}};
    for (const auto &[text, bytes] : cases)
        EXPECT_EQ(Utf8ToCp1252(text), bytes) << text;
}
