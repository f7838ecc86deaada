#include "Skins.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <tuple>

using namespace quorvel;

TEST(Skins, SixtyNineDistinctRowsWithTheLevelsOfTheirGroups) {
    std::set<std::string> names;
    for (int i = 0; i < kSkinCount; ++i) {
        names.insert(SkinTable[i].Name);
        EXPECT_TRUE(i == 0 || SkinTable[i - 1].MinLevel <= SkinTable[i].MinLevel) << i;
    }
    EXPECT_EQ(names.size(), 69u);
    // The first and last row of each group: with rising levels they fix every row's level.
    const std::pair<int, const char *> items[] = {
        {0, "Angler [2]"},    {20, "Vir Vur [2]"},      {21, "Bageraset [5]"}, {48, "Zucca Boar [5]"},
        {49, "Huf Dun [10]"}, {52, "Woolamander [10]"}, {53, "Gronda [15]"},   {59, "Vesp [15]"},
        {60, "Malkloc [20]"}, {61, "Torton [20]"},      {62, "Graul [25]"},    {65, "Sharnaff [25]"},
        {66, "Fambaa [30]"},  {67, "Rancor [35]"},      {68, "Kimogila [40]"},
    };
    for (const auto &[index, text] : items)
        EXPECT_EQ(SkinItemText(index), text) << index;
    EXPECT_EQ(SkinItemText(-1) + SkinItemText(69), "");
}

TEST(Skins, ChosenSkinRaisesTheLevelToItsMinimum) {
    const std::tuple<int, float, std::optional<std::string>> cases[] = {
        {0, 49.78f, "49.78"}, {68, 23.61f, "40"},        {68, 40.0f, "40"},
        {21, -3.5f, "5"},     {-1, 10.0f, std::nullopt}, {69, 10.0f, std::nullopt},
    };
    for (const auto &[skin, level, shown] : cases)
        EXPECT_EQ(ApplySkinLevel(skin, level), shown) << skin << " " << level;
}
