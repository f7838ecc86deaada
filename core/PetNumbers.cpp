#include "PetNumbers.h"

#include "Numeric.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace quorvel {

const std::array<const char *, kPetColumnCount> PetColumnNames = {
    "Health",       "Regen",         "Armor",       "To hit",     "Defense",     "State Resist",
    "Critical hit", "Critical save", "Aggro bonus", "Damage low", "Damage high", "Level"};

namespace {

// The number at the very start of `text` (no blank in front), moving `text` past it.
std::optional<double> TakeNumber(std::string_view &text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || !std::isfinite(value))
        return std::nullopt;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return value;
}

std::optional<double> LeadingNumber(std::string_view text) {
    return TakeNumber(text);
}

// "low - high"; the low end may carry its own minus ("-4 - 90").
std::array<std::optional<double>, 2> DamageRange(std::string_view text) {
    const auto low = TakeNumber(text);
    constexpr std::string_view kDash = " - ";
    if (!low || !text.starts_with(kDash))
        return {};
    text.remove_prefix(kDash.size());
    const auto high = TakeNumber(text);
    if (!high)
        return {};
    return {low, high};
}

// The last of the figures joined by " / " (the text begins with " / " when Old is off).
std::optional<double> LastLevel(std::string_view text) {
    const auto slash = text.rfind('/');
    if (slash != std::string_view::npos)
        text.remove_prefix(slash + 1);
    while (text.starts_with(' '))
        text.remove_prefix(1);
    return LeadingNumber(text);
}

} // namespace

PetNumbers ReadStatNumbers(const std::array<std::string, kPetStatTexts> &shown) {
    PetNumbers numbers;
    const auto text = [&shown](PetStat stat) -> const std::string & { return shown[static_cast<int>(stat)]; };
    const auto set = [&](PetColumn column, std::optional<double> value) { numbers[static_cast<int>(column)] = value; };
    const auto leading = [&](PetColumn column, PetStat stat) { set(column, LeadingNumber(text(stat))); };
    leading(PetColumn::Health, PetStat::Health);
    leading(PetColumn::Regen, PetStat::Regen);
    leading(PetColumn::Armor, PetStat::Armor);
    leading(PetColumn::ToHit, PetStat::ToHit);
    leading(PetColumn::Defense, PetStat::Defense);
    leading(PetColumn::StateResist, PetStat::StateResist);
    leading(PetColumn::CriticalHit, PetStat::CriticalHit);
    leading(PetColumn::CriticalSave, PetStat::CriticalSave);
    leading(PetColumn::AggroBonus, PetStat::AggroBonus);
    const auto damage = DamageRange(text(PetStat::Damage));
    set(PetColumn::DamageLow, damage[0]);
    set(PetColumn::DamageHigh, damage[1]);
    set(PetColumn::Level, LastLevel(text(PetStat::Level)));
    return numbers;
}

PetNumbers ReadPetNumbers(const StoredPet &pet) {
    return ReadStatNumbers(pet.Shown);
}

bool HasAllStatistics(const PetNumbers &numbers) {
    for (int column = 0; column < kPetColumnCount; ++column) {
        if (column != static_cast<int>(PetColumn::Level) && !numbers[column])
            return false;
    }
    return true;
}

std::array<PetDifference, kPetColumnCount> ComparePets(const StoredPet &first, const StoredPet &second) {
    const PetNumbers a = ReadPetNumbers(first);
    const PetNumbers b = ReadPetNumbers(second);
    std::array<PetDifference, kPetColumnCount> differences;
    for (int column = 0; column < kPetColumnCount; ++column) {
        if (!a[column] || !b[column])
            continue;
        // The figures carry at most 2 decimals; rounding takes away the binary remainders.
        const double difference = RoundHalfEven(*b[column] - *a[column], 2);
        const bool lowerIsBetter = column == static_cast<int>(PetColumn::Level);
        PetDifference &d = differences[column];
        d.Difference = difference == 0.0 ? 0.0 : difference;
        if (difference == 0.0)
            d.Verdict = Verdict::Same;
        else
            d.Verdict = (difference > 0.0) != lowerIsBetter ? Verdict::Better : Verdict::Worse;
    }
    return differences;
}

} // namespace quorvel
