#include "DnaFile.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace quorvel;

namespace {

std::vector<std::string> Lines(const std::string &text) {
    std::istringstream in(text);
    std::vector<std::string> lines;
    for (std::string line; ReadDnaLine(in, line);)
        lines.push_back(line);
    return lines;
}

std::string SampleLines(int from, int to) {
    std::string text;
    for (int n = from; n <= to; ++n)
        text += std::to_string(n % 9999) + ",2,3,4,5,6,7,8,9,10,S" + std::to_string(n) + ",5,1,0,2\r\n";
    return text;
}

// Loads `text` and gives the slots that onRow reported.
std::pair<LoadEnd, std::vector<int>> Load(DnaLibrary &library, const std::string &text) {
    std::istringstream in(text);
    std::vector<int> slots;
    const LoadEnd end = LoadDnaStream(in, library, [&](int slot, const RowCells &cells) {
        EXPECT_EQ(cells[0], std::to_string(slot));
        slots.push_back(slot);
    });
    return {end, slots};
}

} // namespace

TEST(ReadDnaLine, CrLfAndLoneCrEndLinesButLoneLfDoesNot) {
    EXPECT_EQ(Lines("a\r\nb\r\n\r\n"), (std::vector<std::string>{"a", "b", ""}));
    EXPECT_EQ(Lines("a\rb\n c\r\nlast"), (std::vector<std::string>{"a", "b\n c", "last"}));
    EXPECT_TRUE(Lines("").empty());
    const std::string noise("\0\xFF\n\x1A", 4);
    const std::string longLine(100000, 'x');
    EXPECT_EQ(Lines(noise + "\r" + longLine), (std::vector<std::string>{noise, longLine}));
}

TEST(LoadDnaStream, StopsAtShortBadOrOverflowingLinesKeepingEarlierSamples) {
    DnaLibrary library;
    EXPECT_EQ(Load(library, SampleLines(1, 3)), std::pair(LoadEnd::Complete, std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Load(library, SampleLines(4, 4) + "\r\n" + SampleLines(5, 5)).second, std::vector<int>{4});
    EXPECT_EQ(Load(library, SampleLines(5, 5) + "\r\n"), std::pair(LoadEnd::Stopped, std::vector<int>{5}));
    EXPECT_EQ(Load(library, "-12000,2,3,4,5,6,7,8,9,10,x\r\n" + SampleLines(7, 7)).second.size(), 0u);
    EXPECT_EQ(library.Count, 5);
    EXPECT_EQ(library.Records[5].Name, "S5");

    DnaLibrary exactly;
    EXPECT_EQ(Load(exactly, SampleLines(1, 500)).first, LoadEnd::Complete);
    DnaLibrary full;
    const auto capped = Load(full, SampleLines(1, 600));
    EXPECT_EQ(capped.first, LoadEnd::Stopped);
    EXPECT_EQ(capped.second.size(), 500u);
    EXPECT_EQ(full.Count, 500);
    EXPECT_EQ(full.Records[500].Name, "S500");

    std::istringstream unreadable(SampleLines(1, 1));
    unreadable.setstate(std::ios::failbit);
    EXPECT_EQ(LoadDnaStream(unreadable, full, nullptr), LoadEnd::Stopped);
}

TEST(LoadDnaStream, AppendAfterShrinkingLoadOverwritesStaleSlots) {
    DnaLibrary library;
    Load(library, "1,1,1,1,1,1,1,1,1,1,old1,50,11,1,6\r\n1,1,1,1,1,1,1,1,1,1,old2,60,11,1,6\r\n");
    library.ClearLibrary();
    Load(library, SampleLines(1, 1));
    EXPECT_EQ(library.Records[2].Name, "old2");
    EXPECT_EQ(Load(library, "5,5,5,5,5,5,5,5,5,5,\r\n").second, std::vector<int>{2});
    const DnaRecord &reused = library.Records[2];
    EXPECT_EQ(reused.Name, "2");
    EXPECT_EQ(reused.Level + reused.Planet + reused.Origin, 0);
    EXPECT_EQ(reused.Quality, 0.0f);
}

TEST(RebuildRowCells, PadsNumbersAndShowsNothingForOddIndexes) {
    DnaRecord record{"Kusak", {123, 7, -5, 0, 12345, -32768, 10, 999, 1000, 99}, 11, 1, 18, 6.5f};
    const RowCells expected = {"9",    "Kusak", " 123", "   7", "   -5", "   0",    "12345",   "-32768",
                               "  10", " 999",  "1000", "  99", "  18",  "Yavin 4", "Mission", "Unknown"};
    EXPECT_EQ(RebuildRowCells(record, 9), expected);
    record = {"x", {}, 12, -1, 0, 8.0f};
    const auto odd = RebuildRowCells(record, 9);
    EXPECT_EQ(odd[13] + odd[14] + odd[15], "");
}

TEST(FormatDnaFile, WrittenFileReadsBackToTheSameSamples) {
    const DnaRecord record{"Jörg €", {412, 388, 270, 301, 95, 102, 340, 298, 415, -502}, 1, 0, 18, 2.5f};
    EXPECT_EQ(FormatDnaLine(record, false), "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,1,0,2.5\r\n");
    EXPECT_EQ(FormatDnaLine(record, true),
              "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,Corellia,Wild,Average\r\n");

    DnaLibrary library;
    Load(library, "1,-2,3,4,5,6,7,8,9,32767,Alpha \x9F,-7,11,1,6.5\r\n-9999,0,0,0,0,0,0,0,0,0,B,0,0,0,0.1\r\n" +
                      FormatDnaLine(record, false) + FormatDnaLine(record, true));
    ASSERT_EQ(library.Count, 4);
    EXPECT_EQ(library.Records[4].Planet + library.Records[4].Quality, 0.0f);
    const std::string text = FormatDnaFile(library, {3, 1, 2, 501, -1}, false);
    DnaLibrary back;
    EXPECT_EQ(Load(back, text).first, LoadEnd::Complete);
    ASSERT_EQ(back.Count, 3);
    const int order[] = {3, 1, 2};
    for (int i = 0; i < 3; ++i) {
        const DnaRecord &a = library.Records[order[i]];
        const DnaRecord &b = back.Records[i + 1];
        EXPECT_EQ(std::tie(a.Name, a.Attributes, a.Level, a.Planet, a.Origin, a.Quality),
                  std::tie(b.Name, b.Attributes, b.Level, b.Planet, b.Origin, b.Quality));
    }
    EXPECT_EQ(FormatDnaFile(back, {1, 2, 3}, false), text);
}
