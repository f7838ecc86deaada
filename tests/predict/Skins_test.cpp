#include "Skins.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace quorvel;

TEST(Skins, GroupBoundariesAndItemTexts) {
    const std::pair<int, const char *> items[] = {
        {0, "Angler [2]"},    {20, "Vir Vur [2]"},      {21, "Bageraset [5]"}, {48, "Zucca Boar [5]"},
        {49, "Huf Dun [10]"}, {52, "Woolamander [10]"}, {53, "Gronda [15]"},   {59, "Vesp [15]"},
        {60, "Malkloc [20]"}, {61, "Torton [20]"},      {62, "Graul [25]"},    {65, "Sharnaff [25]"},
        {66, "Fambaa [30]"},  {67, "Rancor [35]"},      {68, "Kimogila [40]"},
    };
    for (const auto &[index, text] : items)
        EXPECT_EQ(SkinItemText(index), text) << index;
    EXPECT_EQ(SkinItemText(8), "Hermit Spider [2]");
    EXPECT_EQ(SkinItemText(29), "Carrion Spat [5]");
}

TEST(Skins, TableHasSixtyNineDistinctRowsInRisingLevels) {
    std::set<std::string> names;
    for (int i = 0; i < kSkinCount; ++i) {
        names.insert(SkinTable[i].Name);
        if (i > 0) {
            EXPECT_LE(SkinTable[i - 1].MinLevel, SkinTable[i].MinLevel) << i;
        }
    }
    EXPECT_EQ(names.size(), 69u);
    EXPECT_EQ(SkinItemText(-1), "");
    EXPECT_EQ(SkinItemText(69), "");
}

TEST(Skins, LevelShownAfterChoosingASkin) {
    EXPECT_EQ(ApplySkinLevel(0, 49.78f), "49.78");
    EXPECT_EQ(ApplySkinLevel(68, 23.61f), "40");
    EXPECT_EQ(ApplySkinLevel(68, 40.0f), "40");
    EXPECT_EQ(ApplySkinLevel(68, 40.01f), "40.01");
    EXPECT_EQ(ApplySkinLevel(21, -3.5f), "5");
    EXPECT_EQ(ApplySkinLevel(66, 1234.567f), "1234.567");
    EXPECT_EQ(ApplySkinLevel(-1, 10.0f), std::nullopt);
    EXPECT_EQ(ApplySkinLevel(69, 10.0f), std::nullopt);
}
