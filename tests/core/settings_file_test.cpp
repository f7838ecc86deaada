#include "SettingsFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace quorvel;

namespace {

// The text written after reading `text`.
std::string Again(const std::string &text) {
    return WriteSettingsText(ReadSettingsText(text));
}

} // namespace

TEST(SettingsFile, KeysAreExactComeInAnyOrderAndAFileCutShortKeepsWhatCameBefore) {
    // No file: nothing on and no points, written as 1.
    EXPECT_EQ(ReadSettingsText("").Settings.ExpPoints, 0);
    EXPECT_EQ(Again(""), "Exp\r\n 1 \r\n");
    EXPECT_EQ(Again("New2\r\nExp\r\n 4 \r\n"), "New2\r\nExp\r\n 4 \r\n");
    // A lone LF ends a line too; the last Exp wins, rounded; Exp 13 is kept as read but written as 12.
    EXPECT_EQ(Again("Old\nnew1\r\nMin \r\nExp\r\n 2 \r\nOnTop\r\nExp\r\n 3.5x\r\nLoad\r\n"),
              "OnTop\r\nLoad\r\n\r\nOld\r\nExp\r\n 4 \r\n");
    EXPECT_EQ(ReadSettingsText("Exp\r\n 13 \r\n").Settings.ExpPoints, 13);
    EXPECT_EQ(Again("Exp\r\n 13 \r\n"), "Exp\r\n 12 \r\n");
    // The Load line is taken whole, also when it is empty.
    EXPECT_EQ(ReadSettingsText("Load\r\n C:\\my pets, old\\dna.txt\r\nExp").LastDnaFile, " C:\\my pets, old\\dna.txt");
    EXPECT_EQ(Again("Load\r\n\r\nExp\r\n 8 \r\n"), "Load\r\n\r\nExp\r\n 8 \r\n");
}

TEST(SettingsFile, WidthsRoundDownAndEverythingRoundTrips) {
    SettingsFileData data;
    data.Settings.Options.fill(true);
    data.Settings.ExpPoints = 5;
    data.ColumnWidths.fill(600.0);
    data.ColumnWidths[1] = 540.5;
    data.ColumnWidths[2] = -15.5;
    data.Placement = {2455.5, -30.0, 12000.0, std::nullopt};
    const std::string text = WriteSettingsText(data);
    EXPECT_NE(text.find("Col\r\n 600 \r\n 540 \r\n-16 \r\n 600 \r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Size\r\n 2455.5 \r\n-30 \r\n 12000 \r\n 0 \r\nOld\r\n"), std::string::npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 32);
    EXPECT_EQ(Again(text), text);
    const std::string example =
        "Load\r\nC:\\pets\\dna.txt\r\nSize\r\n 1005 \r\n 780 \r\n 12000 \r\n 8610 \r\nOld\r\nExp\r\n 8 \r\n";
    EXPECT_EQ(Again(example), example);
}
