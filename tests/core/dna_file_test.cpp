#include "Cp1252.h"
#include "DnaFile.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace quorvel;

using Texts = std::vector<std::string>;

namespace {

const std::string kAttributes = "412,388,270,301,95,102,340,298,415,502";

std::string SampleLines(int from, int to) {
    std::string text;
    for (int n = from; n <= to; ++n)
        text += std::to_string(n) + ",2,3,4,5,6,7,8,9,10,S" + std::to_string(n) + ",5,1,0,2\r\n";
    return text;
}

// Loads `text` and gives the slots that onRow reported.
std::pair<LoadEnd, std::vector<int>> Load(DnaLibrary &library, const std::string &text) {
    std::istringstream in(text);
    std::vector<int> slots;
    const LoadEnd end = LoadDnaStream(in, library, [&](int slot, const RowCells &) { slots.push_back(slot); });
    return {end, slots};
}

ParsedLine Parse(const std::string &line, int slot = 1) {
    return std::get<ParsedLine>(ParseDnaLine(line, slot));
}

} // namespace

TEST(ParseDnaLine, FieldsAreRoundedButLoaderCellsShowThemAsTypedAndBadFieldsAreFound) {
    const auto full = Parse(kAttributes + ",Kusak Alpha,18,7,1,3,extra", 17);
    EXPECT_EQ(FormatDnaLine(full.Record, false), kAttributes + ",Kusak Alpha,18,7,1,3\r\n");
    EXPECT_EQ((Texts{full.Cells[0], full.Cells[1], full.Cells[6], full.Cells[12], full.Cells[13]}),
              (Texts{"17", "Kusak Alpha", "   95", "   18", "Naboo"}));
    const auto typed = Parse("12.7,2.5,3.5,1 2,abc,0,0,0,0,0, N \xE9 ,4.5,2.5,0.5,6.5");
    EXPECT_EQ(FormatDnaLine(typed.Record, false), "13,2,4,12,0,0,0,0,0,0, N \xE9 ,4,2,0,6.5\r\n");
    EXPECT_EQ((Texts{typed.Cells[2], typed.Cells[5], typed.Cells[15]}), (Texts{" 12.7", "  1 2", "Unknown"}));
    // Eleven fields with an empty name: the slot number stands in for it. Quality 7 has no name.
    const auto shortest = Parse("1,2,3,4,5,6,7,8,9,10,", 42);
    EXPECT_EQ(FormatDnaLine(shortest.Record, false), "1,2,3,4,5,6,7,8,9,10,42,0,0,0,0\r\n");
    EXPECT_EQ((Texts{shortest.Cells[12], Parse(kAttributes + ",n,0,0,0,7").Cells[15]}), (Texts{"   0", ""}));
    // A comma in a name shifts the later fields.
    EXPECT_EQ(FormatDnaLine(Parse(kAttributes + ",Kusak, Alpha,5,1,0").Record, false),
              kAttributes + ",Kusak,0,5,1,0\r\n");
    EXPECT_EQ(std::get<LineError>(ParseDnaLine(kAttributes, 1)), LineError::TooFewFields);
    // An attribute of six characters; 16 bits; planet, origin and quality (7.5 rounds to 8) outside their tables.
    const std::string rest = kAttributes.substr(3);
    for (const std::string &line : {"-12000" + rest + ",n", "32768" + rest + ",n", kAttributes + ",n,0,12",
                                    kAttributes + ",n,0,0,2", kAttributes + ",n,0,0,0,7.5", kAttributes + ",n,0,0,0,8"})
        EXPECT_EQ(std::get<LineError>(ParseDnaLine(line, 1)), LineError::BadField) << line;
}

TEST(LoadDnaStream, CrLfOrLoneCrEndLinesAndShortBadOrOverflowingLinesStopIt) {
    DnaLibrary library;
    // A lone LF does not end a line: it stays in the name.
    EXPECT_EQ(Load(library, "1,2,3,4,5,6,7,8,9,10,a\nb\r" + SampleLines(2, 3)),
              std::pair(LoadEnd::Complete, std::vector<int>{1, 2, 3}));
    EXPECT_EQ(library.Records[1].Name, "a\nb");
    // A blank line stops the load, also as the last line; so does a bad line.
    EXPECT_EQ(Load(library, SampleLines(4, 4) + "\r\n" + SampleLines(5, 5)).second, std::vector<int>{4});
    EXPECT_EQ(Load(library, SampleLines(5, 5) + "\r\n"), std::pair(LoadEnd::Stopped, std::vector<int>{5}));
    EXPECT_EQ(Load(library, "-12000,2,3,4,5,6,7,8,9,10,x\r\n" + SampleLines(7, 7)).second, std::vector<int>{});
    EXPECT_EQ(library.Count, 5);
    DnaLibrary full;
    EXPECT_EQ(Load(full, SampleLines(1, 600)).first, LoadEnd::Stopped);
    EXPECT_EQ(full.Count, 500);
}

TEST(LoadDnaStream, AppendAfterShrinkingLoadOverwritesStaleSlots) {
    DnaLibrary library;
    Load(library, "1,1,1,1,1,1,1,1,1,1,old1,50,11,1,6\r\n1,1,1,1,1,1,1,1,1,1,old2,60,11,1,6\r\n");
    library.ClearLibrary();
    Load(library, SampleLines(1, 1));
    EXPECT_EQ(Load(library, "5,5,5,5,5,5,5,5,5,5,\r\n").second, std::vector<int>{2});
    EXPECT_EQ(FormatDnaLine(library.Records[2], false), "5,5,5,5,5,5,5,5,5,5,2,0,0,0,0\r\n");
}

TEST(RebuildRowCells, PadsNumbersToFourCharacters) {
    const DnaRecord record{"Kusak", {123, 7, -5, 0, 12345, -32768, 10, 999, 1000, 99}, 11, 1, 18, 6.5f};
    const RowCells expected = {"9",    "Kusak", " 123", "   7", "   -5", "   0",    "12345",   "-32768",
                               "  10", " 999",  "1000", "  99", "  18",  "Yavin 4", "Mission", "Unknown"};
    EXPECT_EQ(RebuildRowCells(record, 9), expected);
}

// Saved in the order asked, slots outside the library left out; words read back as 0.
TEST(FormatDnaFile, SavedLinesReadBackToTheSameSamples) {
    const DnaRecord record{"Jörg €", {412, 388, 270, 301, 95, 102, 340, 298, 415, -502}, 1, 0, 18, 2.5f};
    const std::string start = "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,";
    EXPECT_EQ(FormatDnaLine(record, true), start + "Corellia,Wild,Average\r\n");
    DnaLibrary library;
    EXPECT_EQ(Load(library, FormatDnaLine(record, false) + FormatDnaLine(record, true)).first, LoadEnd::Complete);
    EXPECT_EQ(FormatDnaFile(library, {2, 1, 501, -1}, false), start + "0,0,0\r\n" + start + "1,0,2.5\r\n");
}

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
