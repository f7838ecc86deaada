#include "SettingsFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace quorvel;

namespace {

std::array<bool, kSettingCount> OnlyOn(std::initializer_list<SettingIndex> on) {
    std::array<bool, kSettingCount> options{};
    for (const SettingIndex i : on)
        options[i] = true;
    return options;
}

} // namespace

TEST(SettingsFile, KeysAreExactAndMayComeInAnyOrder) {
    // No file: nothing on, no points, and the points written as 1.
    EXPECT_EQ(ReadSettingsText("").settings.ExpPoints, 0);
    EXPECT_EQ(WriteSettingsText(ReadSettingsText("")), "Exp\r\n 1 \r\n");
    const auto new2 = ReadSettingsText("New2\r\nExp\r\n 4 \r\n");
    EXPECT_EQ(new2.settings.Options, OnlyOn({New2}));
    EXPECT_EQ(new2.settings.ExpPoints, 4);
    // A lone LF ends a line too; the last Exp wins, rounded; the last line needs no line end.
    const auto mixed =
        ReadSettingsText("Old\nnew1\r\nMin \r\njunk\r\nExp\r\n 2 \r\nOnTop\r\nExp\r\n 3.5x\r\nOld\r\nNew1");
    EXPECT_EQ(mixed.settings.Options, OnlyOn({Old, OnTop, New1}));
    EXPECT_EQ(mixed.settings.ExpPoints, 4);
}

TEST(SettingsFile, ExpIsKeptAsReadButClampedWhenWritten) {
    const auto thirteen = ReadSettingsText("Exp\r\n 13 \r\n");
    EXPECT_EQ(thirteen.settings.ExpPoints, 13);
    EXPECT_EQ(WriteSettingsText(thirteen), "Exp\r\n 12 \r\n");
    EXPECT_EQ(ReadSettingsText("Exp\r\n2.5").settings.ExpPoints, 2);
    EXPECT_EQ(ReadSettingsText("Exp\r\n1e30").settings.ExpPoints, 32767);
}

TEST(SettingsFile, LoadLineIsTakenWhole) {
    EXPECT_EQ(ReadSettingsText("Load\r\n C:\\my pets, old\\dna.txt\r\nExp").lastDnaFile, " C:\\my pets, old\\dna.txt");
    const std::string emptyPath = "Load\r\n\r\nExp\r\n 8 \r\n";
    EXPECT_EQ(WriteSettingsText(ReadSettingsText(emptyPath)), emptyPath);
}

TEST(SettingsFile, WidthsRoundDownAndEverythingRoundTrips) {
    SettingsFileData data;
    data.settings.Options.fill(true);
    data.settings.ExpPoints = 5;
    data.lastDnaFile = "C:\\pets\\dna.txt";
    data.columnWidths.fill(600.0);
    data.columnWidths[1] = 540.5;
    data.columnWidths[2] = -15.5;
    data.columnWidths[3] = 1e20;
    data.placement = {2455.5, -30.0, 12000.0, std::nullopt};
    const std::string text = WriteSettingsText(data);
    EXPECT_NE(text.find("Col\r\n 600 \r\n 540 \r\n-16 \r\n 2147483647 \r\n 600 \r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Size\r\n 2455.5 \r\n-30 \r\n 12000 \r\n 0 \r\nOld\r\n"), std::string::npos) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 32);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\r'), 32);
    EXPECT_EQ(WriteSettingsText(ReadSettingsText(text)), text);

    const std::string example = "Load\r\nC:\\pets\\dna.txt\r\nSize\r\n 1005 \r\n 780 \r\n 12000 \r\n 8610 \r\n"
                                "Old\r\nExp\r\n 8 \r\n";
    EXPECT_EQ(WriteSettingsText(ReadSettingsText(example)), example);
}

TEST(SettingsFile, FileCutShortKeepsWhatCameBefore) {
    const auto widths = ReadSettingsText("Min\r\nCol\r\n 100 \r\n 200 \r\n");
    EXPECT_EQ(widths.settings.Options, OnlyOn({Min, Col}));
    EXPECT_EQ(widths.columnWidths[2], std::nullopt);
    EXPECT_NE(WriteSettingsText(widths).find("Col\r\n 100 \r\n 200 \r\n 0 \r\n"), std::string::npos);
    EXPECT_EQ(ReadSettingsText("Size\r\n 5 ").placement[1], std::nullopt);
    const auto load = ReadSettingsText("Exp\r\n 3 \r\nLoad\r\n");
    EXPECT_EQ(load.settings.Options, OnlyOn({Load}));
    EXPECT_EQ(load.settings.ExpPoints, 3);
}
