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
    const LoadEnd end = LoadDnaStream(in, library, [&](int slot, const RowCells &) { slots.push_back(slot); });
    return {end, slots};
}

} // namespace

TEST(ReadDnaLine, CrLfAndLoneCrEndLinesButLoneLfDoesNot) {
    EXPECT_EQ(Lines("a\r\nb\r\n\r\n"), (std::vector<std::string>{"a", "b", ""}));
    EXPECT_EQ(Lines("a\rb\n c\r\nlast"), (std::vector<std::string>{"a", "b\n c", "last"}));
    EXPECT_TRUE(Lines("").empty());
    const std::string noise("\0\xFF\n\x1A", 4), longLine(100000, 'x');
    EXPECT_EQ(Lines(noise + "\r" + longLine), (std::vector<std::string>{noise, longLine}));
}

TEST(LoadDnaStream, StopsAtShortBadOrOverflowingLinesKeepingEarlierSamples) {
    DnaLibrary library;
    EXPECT_EQ(Load(library, SampleLines(1, 3)), std::pair(LoadEnd::Complete, std::vector<int>{1, 2, 3}));
    // A blank line stops the load, also as the last line; so does a bad field on the first line.
    EXPECT_EQ(Load(library, SampleLines(4, 4) + "\r\n" + SampleLines(5, 5)).second, std::vector<int>{4});
    EXPECT_EQ(Load(library, SampleLines(5, 5) + "\r\n"), std::pair(LoadEnd::Stopped, std::vector<int>{5}));
    EXPECT_EQ(Load(library, "-12000,2,3,4,5,6,7,8,9,10,x\r\n" + SampleLines(7, 7)).second.size(), 0u);
    EXPECT_EQ(library.Records[library.Count].Name, "S5");

    DnaLibrary exactly;
    EXPECT_EQ(Load(exactly, SampleLines(1, 500)).first, LoadEnd::Complete);
    DnaLibrary full;
    EXPECT_EQ(Load(full, SampleLines(1, 600)).first, LoadEnd::Stopped);
    EXPECT_EQ(full.Count, 500);
    EXPECT_EQ(full.Records[500].Name, "S500");
}

TEST(LoadDnaStream, AppendAfterShrinkingLoadOverwritesStaleSlots) {
    DnaLibrary library;
    Load(library, "1,1,1,1,1,1,1,1,1,1,old1,50,11,1,6\r\n1,1,1,1,1,1,1,1,1,1,old2,60,11,1,6\r\n");
    library.ClearLibrary();
    Load(library, SampleLines(1, 1));
    EXPECT_EQ(Load(library, "5,5,5,5,5,5,5,5,5,5,\r\n").second, std::vector<int>{2});
    EXPECT_EQ(FormatDnaLine(library.Records[2], false), "5,5,5,5,5,5,5,5,5,5,2,0,0,0,0\r\n");
}

TEST(RebuildRowCells, PadsNumbersAndShowsNothingForOddIndexes) {
    const DnaRecord record{"Kusak", {123, 7, -5, 0, 12345, -32768, 10, 999, 1000, 99}, 11, 1, 18, 6.5f};
    const RowCells expected = {"9",    "Kusak", " 123", "   7", "   -5", "   0",    "12345",   "-32768",
                               "  10", " 999",  "1000", "  99", "  18",  "Yavin 4", "Mission", "Unknown"};
    EXPECT_EQ(RebuildRowCells(record, 9), expected);
    const auto odd = RebuildRowCells({"x", {}, 12, -1, 0, 8.0f}, 9);
    EXPECT_EQ(odd[13] + odd[14] + odd[15], "");
}

TEST(FormatDnaFile, SavedLinesReadBackToTheSameSamples) {
    const DnaRecord record{"Jörg €", {412, 388, 270, 301, 95, 102, 340, 298, 415, -502}, 1, 0, 18, 2.5f};
    const std::string numeric = "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,1,0,2.5\r\n";
    EXPECT_EQ(FormatDnaLine(record, false), numeric);
    EXPECT_EQ(FormatDnaLine(record, true),
              "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,Corellia,Wild,Average\r\n");

    // Saved in the order asked, slots outside the library left out; the line with words
    // reads back with planet, origin and quality 0.
    const std::string first = "1,-2,3,4,5,6,7,8,9,32767,Alpha \x9F,-7,11,1,6.5\r\n";
    DnaLibrary library;
    EXPECT_EQ(Load(library, first + numeric + FormatDnaLine(record, true)).first, LoadEnd::Complete);
    EXPECT_EQ(FormatDnaFile(library, {2, 1, 3, 501, -1}, false),
              numeric + first + "412,388,270,301,95,102,340,298,415,-502,J\xF6rg \x80,18,0,0,0\r\n");
}
