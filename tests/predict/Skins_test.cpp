#include "Skins.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <tuple>

using namespace quorvel;

TEST(Skins, RowsRiseInLevelAndAChosenSkinRaisesTheLevelToItsMinimum) {
    for (int i = 1; i < kSkinCount; ++i)
        EXPECT_LE(SkinTable[i - 1].MinLevel, SkinTable[i].MinLevel) << i;
    // The first and last row of each group: with rising levels they fix every row's level.
    const std::pair<int, const char *> items[] = {
        {0, "Angler [2]"},    {20, "Vir Vur [2]"},      {21, "Bageraset [5]"}, {48, "Zucca Boar [5]"},
        {49, "Huf Dun [10]"}, {52, "Woolamander [10]"}, {53, "Gronda [15]"},   {59, "Vesp [15]"},
        {60, "Malkloc [20]"}, {61, "Torton [20]"},      {62, "Graul [25]"},    {65, "Sharnaff [25]"},
        {66, "Fambaa [30]"},  {67, "Rancor [35]"},      {68, "Kimogila [40]"},
    };
    for (const auto &[index, text] : items)
        EXPECT_EQ(SkinItemText(index), text) << index;
    // A chosen skin raises the level to its minimum.
    const std::tuple<int, float, std::optional<std::string>> cases[] = {
        {0, 49.78f, "49.78"}, {68, 23.61f, "40"}, {68, 40.0f, "40"}, {21, -3.5f, "5"}, {69, 10.0f, std::nullopt}};
    for (const auto &[skin, level, shown] : cases)
        EXPECT_EQ(ApplySkinLevel(skin, level), shown) << skin << " " << level;
}
