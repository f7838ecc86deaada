#include "Captions.h"

#include "EnumIndex.h"
#include "ReferenceTables.h"

#include <array>

QString SampleBoxCaption(int index) {
    static constexpr std::array<const char *, 12> captions{
        "Hardiness:",     "Fortitude:", "Dexterity:",  "Endurance:", "Intellect:", "Cleverness:",
        "Dependability:", "Courage:",   "Fierceness:", "Power:",     "Name:",      "Level:"};
    return QString::fromLatin1(captions.at(static_cast<std::size_t>(index)));
}

QString StatCaption(int index) {
    static constexpr std::array<const char *, 11> captions{
        "Health:",       "Regen:",         "Armor:",       "To hit:", "Defense:", "State Resist:",
        "Critical hit:", "Critical save:", "Aggro bonus:", "Damage:", "Level:"};
    return QString::fromLatin1(captions.at(static_cast<std::size_t>(index)));
}

QString CategoryName(quorvel::Category category) {
    return QString::fromLatin1(quorvel::CategoryTable.at(quorvel::Index(category)));
}
