#include "Cp1252.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorvel;

TEST(Cp1252, BytesRoundTripAndUnmappableOrBrokenTextBecomesQuestionMarks) {
    EXPECT_EQ(Cp1252ToUtf8("\x80\x83\x8C\x99\x9F a\xA0\xE9\x81\x9D"), "€ƒŒ™Ÿ a\u00A0é\u0081\u009D");
    std::string all;
    for (int b = 0; b < 256; ++b)
        all += static_cast<char>(b);
    EXPECT_EQ(Utf8ToCp1252(Cp1252ToUtf8(all)), all);
    // U+0080 is a control, not the euro byte; then a cut sequence and a surrogate.
    const std::pair<const char *, const char *> cases[] = {
        {"日本 a\U0001F600b", "?? a?b"}, {"\u0080", "?"}, {"x\xE2\x82y", "x??y"}, {"\xED\xA0\x80", "???"}};
    for (const auto &[text, bytes] : cases)
        EXPECT_EQ(Utf8ToCp1252(text), bytes) << text;
}
