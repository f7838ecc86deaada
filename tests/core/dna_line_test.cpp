#include "DnaFile.h"

#include <gtest/gtest.h>

#include <string>

using namespace quorvel;

namespace {

const std::string kAttributes = "412,388,270,301,95,102,340,298,415,502";

ParsedLine Parse(const std::string &line, int slot = 1) {
    const auto result = ParseDnaLine(line, slot);
    EXPECT_TRUE(std::holds_alternative<ParsedLine>(result)) << line;
    return std::holds_alternative<ParsedLine>(result) ? std::get<ParsedLine>(result) : ParsedLine{};
}

std::optional<LineError> ErrorOf(const std::string &line) {
    const auto result = ParseDnaLine(line, 1);
    const auto *error = std::get_if<LineError>(&result);
    return error ? std::optional(*error) : std::nullopt;
}

} // namespace

TEST(ParseDnaLine, FullAndShortestLinesGiveSampleAndLoaderCells) {
    const auto full = Parse(kAttributes + ",Kusak Alpha,18,7,1,3,extra,&HFFFFF", 17);
    EXPECT_EQ(full.record.Attributes, (AttributeArray{412, 388, 270, 301, 95, 102, 340, 298, 415, 502}));
    EXPECT_EQ(full.record.Name, "Kusak Alpha");
    EXPECT_EQ(full.record.Level, 18);
    EXPECT_EQ(full.record.Quality, 3.0f);
    const RowCells fullCells = {"17",    "Kusak Alpha", "  412", "  388", "  270", "  301", "   95",   "  102",
                                "  340", "  298",       "  415", "  502", "   18", "Naboo", "Mission", "Above Average"};
    EXPECT_EQ(full.cells, fullCells);

    const auto shortest = Parse("1,2,3,4,5,6,7,8,9,10,", 42);
    const RowCells shortCells = {"42",    "42",    "    1", "    2", "    3", "    4", "    5", "    6",
                                 "    7", "    8", "    9", "   10", "   0",  "?",     "Wild",  "Poor"};
    EXPECT_EQ(shortest.cells, shortCells);
    EXPECT_EQ(shortest.record.Name, "42");
    EXPECT_EQ(Parse(kAttributes + ", spaced \xE9 ").record.Name, " spaced é ");
}

TEST(ParseDnaLine, NumbersAreRoundedButCellsShowThemAsTyped) {
    const auto parsed = Parse("12.7,2.5,3.5,-5,1 2,abc,12ab,&H10,0,0,N,4.5,2.5,0.5,2.5");
    EXPECT_EQ(parsed.record.Attributes, (AttributeArray{13, 2, 4, -5, 12, 0, 12, 16, 0, 0}));
    EXPECT_EQ(parsed.cells[2], " 12.7");
    EXPECT_EQ(parsed.cells[6], "  1 2");
    EXPECT_EQ(parsed.cells[12], "   4");
    EXPECT_EQ(parsed.record.Planet, 2);
    EXPECT_EQ(parsed.record.Origin, 0);
    EXPECT_EQ(parsed.cells[15], "Average");
    EXPECT_EQ(Parse(kAttributes + ",n,0,0,0,3.5").cells[15], "High");
    const auto unknown = Parse(kAttributes + ",n,0,0,0,6.5");
    EXPECT_EQ(unknown.record.Quality, 6.5f);
    EXPECT_EQ(unknown.cells[15], "Unknown");
    EXPECT_EQ(Parse(kAttributes + ",n,0,0,0,7").cells[15], "");
}

TEST(ParseDnaLine, ShortLinesAndBadFields) {
    EXPECT_EQ(ErrorOf(""), LineError::TooFewFields);
    EXPECT_EQ(ErrorOf(kAttributes), LineError::TooFewFields);
    const std::string rest = kAttributes.substr(3);
    for (const std::string &line :
         {"-12000" + rest + ",n", "32768" + rest + ",n", kAttributes + ",n,32767.5", kAttributes + ",n,0,12",
          kAttributes + ",n,0,-1", kAttributes + ",n,0,0,2", kAttributes + ",n,0,0,0,7.5", kAttributes + ",n,0,0,0,8",
          kAttributes + ",n,0,0,0,-0.6", kAttributes + ",n,0,0,0,1e39", kAttributes + ",Kusak, Alpha,18,7,0,3"})
        EXPECT_EQ(ErrorOf(line), LineError::BadField) << line;
    EXPECT_EQ(Parse("-1200" + rest + ",n").record.Attributes[0], -1200);
    EXPECT_EQ(Parse("32767" + rest + ",n").record.Attributes[0], 32767);
}

TEST(ParseDnaLine, CommaInNameShiftsLaterFields) {
    const auto parsed = Parse(kAttributes + ",Kusak, Alpha,5,1,0");
    EXPECT_EQ(parsed.record.Name, "Kusak");
    EXPECT_EQ(parsed.record.Level, 0);
    EXPECT_EQ(parsed.record.Planet, 5);
    EXPECT_EQ(parsed.record.Origin, 1);
}
