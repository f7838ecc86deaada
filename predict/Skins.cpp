#include "Skins.h"

#include "Numeric.h"

namespace quorvel {

const std::array<Skin, kSkinCount> SkinTable{{
    {"Angler", 2},     {"Bearded Jax", 2}, {"Boar Wolf", 2},    {"Bocatt", 2},        {"Choku", 2},
    {"Durni", 2},      {"Eopie", 2},       {"Gnort", 2},        {"Hermit Spider", 2}, {"Huurton", 2},
    {"Kima", 2},       {"Krahbu", 2},      {"Kusak", 2},        {"Langlatch", 2},     {"Mott", 2},
    {"Roba", 2},       {"Shear Mite", 2},  {"Slice Hound", 2},  {"Squall", 2},        {"Swirl Prong", 2},
    {"Vir Vur", 2},    {"Bageraset", 5},   {"Bantha", 5},       {"Blurgg", 5},        {"Bol", 5},
    {"Bolle Bol", 5},  {"Bolma", 5},       {"Bordok", 5},       {"Brackaset", 5},     {"Carrion Spat", 5},
    {"Cu Pa", 5},      {"Dalyrake", 5},    {"Dewback", 5},      {"Dune Lizard", 5},   {"Falumpaset", 5},
    {"Gualama", 5},    {"Guf Drolg", 5},   {"Gurnaset", 5},     {"Gurrcat", 5},       {"Gurreck", 5},
    {"Ikopi", 5},      {"Kaadu", 5},       {"Kahmurra", 5},     {"Kwi", 5},           {"Mawgax", 5},
    {"Narglatch", 5},  {"Pugoriss", 5},    {"Verne", 5},        {"Zucca Boar", 5},    {"Huf Dun", 10},
    {"Razor Cat", 10}, {"Veermok", 10},    {"Woolamander", 10}, {"Gronda", 15},       {"Kliknik", 15},
    {"Ronto", 15},     {"Snorbal", 15},    {"Thune", 15},       {"Tybis", 15},        {"Vesp", 15},
    {"Malkloc", 20},   {"Torton", 20},     {"Graul", 25},       {"Merek", 25},        {"Piket", 25},
    {"Sharnaff", 25},  {"Fambaa", 30},     {"Rancor", 35},      {"Kimogila", 40},
}};

namespace {

bool InTable(int index) {
    return index >= 0 && index < kSkinCount;
}

} // namespace

std::string SkinItemText(int index) {
    if (!InTable(index))
        return {};
    const Skin &skin = SkinTable[static_cast<std::size_t>(index)];
    return std::string(skin.Name) + " [" + FormatWhole(skin.MinLevel) + "]";
}

std::optional<std::string> ApplySkinLevel(int index, float lastCreatureLevel) {
    if (!InTable(index))
        return std::nullopt;
    const int16_t minLevel = SkinTable[static_cast<std::size_t>(index)].MinLevel;
    if (lastCreatureLevel <= static_cast<float>(minLevel))
        return FormatWhole(minLevel);
    return FormatSingle(lastCreatureLevel);
}

} // namespace quorvel
