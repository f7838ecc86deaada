#pragma once

namespace quorvel {

// The panel texts in the order of its labels: Health, Regen, Armor, To hit, Defense, State Resist,
// Critical hit, Critical save, Aggro bonus, Damage, Level.
enum class PetStat : int {
    Health,
    Regen,
    Armor,
    ToHit,
    Defense,
    StateResist,
    CriticalHit,
    CriticalSave,
    AggroBonus,
    Damage,
    Level
};

} // namespace quorvel
