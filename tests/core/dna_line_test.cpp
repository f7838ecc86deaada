#include "DnaFile.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

using namespace quorvel;

namespace {

const std::string kAttributes = "412,388,270,301,95,102,340,298,415,502";

ParsedLine Parse(const std::string &line, int slot = 1) {
    const auto result = ParseDnaLine(line, slot);
    EXPECT_TRUE(std::holds_alternative<ParsedLine>(result)) << line;
    return std::holds_alternative<ParsedLine>(result) ? std::get<ParsedLine>(result) : ParsedLine{};
}

// Name, level, planet, origin and quality of a sample.
std::string Fields(const DnaRecord &r) {
    std::ostringstream out;
    out << r.Name << "|" << r.Level << "|" << r.Planet << "|" << r.Origin << "|" << r.Quality;
    return out.str();
}

bool Fails(const std::string &line, LineError error) {
    const auto result = ParseDnaLine(line, 1);
    return std::holds_alternative<LineError>(result) && std::get<LineError>(result) == error;
}

} // namespace

TEST(ParseDnaLine, FullAndShortestLinesGiveSampleAndLoaderCells) {
    const auto full = Parse(kAttributes + ",Kusak Alpha,18,7,1,3,extra,&HFFFFF", 17);
    EXPECT_EQ(full.record.Attributes, (AttributeArray{412, 388, 270, 301, 95, 102, 340, 298, 415, 502}));
    EXPECT_EQ(Fields(full.record), "Kusak Alpha|18|7|1|3");
    const RowCells fullCells = {"17",    "Kusak Alpha", "  412", "  388", "  270", "  301", "   95",   "  102",
                                "  340", "  298",       "  415", "  502", "   18", "Naboo", "Mission", "Above Average"};
    EXPECT_EQ(full.cells, fullCells);

    // Eleven fields with an empty name: the slot number stands in for it.
    const auto shortest = Parse("1,2,3,4,5,6,7,8,9,10,", 42);
    const RowCells shortCells = {"42",    "42",    "    1", "    2", "    3", "    4", "    5", "    6",
                                 "    7", "    8", "    9", "   10", "   0",  "?",     "Wild",  "Poor"};
    EXPECT_EQ(shortest.cells, shortCells);
    EXPECT_EQ(Fields(shortest.record), "42|0|0|0|0");
}

TEST(ParseDnaLine, NumbersAreRoundedButCellsShowThemAsTyped) {
    const auto parsed = Parse("12.7,2.5,3.5,-5,1 2,abc,12ab,&H10,0,0, N \xE9 ,4.5,2.5,0.5,2.5");
    EXPECT_EQ(parsed.record.Attributes, (AttributeArray{13, 2, 4, -5, 12, 0, 12, 16, 0, 0}));
    EXPECT_EQ(Fields(parsed.record), " N é |4|2|0|2.5");
    EXPECT_EQ(parsed.cells[2] + "|" + parsed.cells[6] + "|" + parsed.cells[12] + "|" + parsed.cells[15],
              " 12.7|  1 2|   4|Average");
    // Qualities up to 6.5 name a row of the table; 7 is kept without a name.
    for (const auto &[quality, text] : {std::pair{"3.5", "High"}, {"6.5", "Unknown"}, {"7", ""}})
        EXPECT_EQ(Parse(kAttributes + ",n,0,0,0," + quality).cells[15], text) << quality;
    EXPECT_EQ(Fields(Parse(kAttributes + ",n,0,0,0,6.5").record), "n|0|0|0|6.5");
}

TEST(ParseDnaLine, ShortLinesStopAndOutOfRangeOrShiftedFieldsAreBad) {
    EXPECT_TRUE(Fails("", LineError::TooFewFields));
    EXPECT_TRUE(Fails(kAttributes, LineError::TooFewFields));
    const std::string rest = kAttributes.substr(3);
    for (const std::string &line :
         {"-12000" + rest + ",n", "32768" + rest + ",n", kAttributes + ",n,32767.5", kAttributes + ",n,0,12",
          kAttributes + ",n,0,-1", kAttributes + ",n,0,0,2", kAttributes + ",n,0,0,0,7.5", kAttributes + ",n,0,0,0,8",
          kAttributes + ",n,0,0,0,-0.6", kAttributes + ",n,0,0,0,1e39", kAttributes + ",Kusak, Alpha,18,7,0,3"})
        EXPECT_TRUE(Fails(line, LineError::BadField)) << line;
    EXPECT_EQ(Parse("-1200,32767" + kAttributes.substr(7) + ",n").record.Attributes,
              (AttributeArray{-1200, 32767, 270, 301, 95, 102, 340, 298, 415, 502}));
    // A comma in a name shifts the later fields.
    EXPECT_EQ(Fields(Parse(kAttributes + ",Kusak, Alpha,5,1,0").record), "Kusak|0|5|1|0");
}
