#include "FinderModel.h"

#include "Numeric.h"
#include "Template.h"

#include <algorithm>
#include <numeric>

namespace quorvel::finder {

namespace {

// Caps are weighted means of 16-bit values; the table covers them with a step to spare.
constexpr Value kLowestCap = -32769;
constexpr Value kHighestCap = 32768;

// Below this cap the start-value rule falls as the cap rises; the lowest current values are at
// the caps around it.
constexpr Value kStartValueBottom = -75;

int PairOf(int attribute) {
    return attribute / 2;
}

// The start value of every cap in the table's range, made once for all searches.
const std::vector<Value> &StartValues() {
    static const std::vector<Value> table = [] {
        std::vector<Value> values;
        values.reserve(static_cast<std::size_t>(kHighestCap - kLowestCap + 1));
        for (Value cap = kLowestCap; cap <= kHighestCap; ++cap)
            values.push_back(StartValue(cap));
        return values;
    }();
    return table;
}

} // namespace

GoalShape ShapeOf(FinderGoal goal) {
    switch (goal) {
    case FinderGoal::Health:
        return {2, {At(Attribute::Hardiness), At(Attribute::Dexterity)}, {6.62, 1.32}};
    case FinderGoal::Regen:
        return {2, {At(Attribute::Endurance), At(Attribute::Dependability)}, {1.0 / 14, 1.0 / 70}};
    case FinderGoal::Armor:
        return {1, {At(Attribute::Fortitude), 0}, {6.0, 0.0}};
    case FinderGoal::ToHit:
        return {1, {At(Attribute::Cleverness), 0}, {1.0 / 4.9047, 0.0}};
    case FinderGoal::Defense:
        return {2, {At(Attribute::Dexterity), At(Attribute::Intellect)}, {0.17, 0.035}};
    case FinderGoal::StateResist:
        return {2, {At(Attribute::Intellect), At(Attribute::Hardiness)}, {1.0 / 12, 1.0 / 60}};
    case FinderGoal::CriticalHit:
        return {1, {At(Attribute::Fierceness), 0}, {1.0 / 125, 0.0}};
    case FinderGoal::CriticalSave:
        return {1, {At(Attribute::Dependability), 0}, {1.0 / 125.02, 0.0}};
    case FinderGoal::AggroBonus:
        return {1, {At(Attribute::Courage), 0}, {1.0 / 40, 0.0}};
    case FinderGoal::Damage:
        return {1, {At(Attribute::Power), 0}, {0.807, 0.0}};
    case FinderGoal::Level:
        break;
    }
    return {};
}

FinderModel::FinderModel(const DnaLibrary &library, const FinderSettings &settings)
    : settings_(settings), shape_(ShapeOf(settings.Goal)), startValues_(StartValues().data()) {
    levelWeights_ = {9, 1, 2, 2, 1, 1, 1, 1, 2, 29.999};
    if (settings.Equation == LevelEquation::New1)
        levelWeights_[Index(Attribute::Intellect)] = 2;
    if (settings.Equation == LevelEquation::New2)
        levelWeights_[Index(Attribute::Power)] = 29.459;
    BuildCandidates(library);
    BuildLevels();
}

void FinderModel::BuildCandidates(const DnaLibrary &library) {
    const int count = sampleCount_ = std::clamp<int>(library.Count, 0, kMaxSamples);
    // How much a category moves the goal: the search fills the most telling categories first.
    std::array<double, kCategoryCount> influence{};
    for (int k = 0; k < kCategoryCount; ++k) {
        for (int j = 0; j < shape_.Count; ++j)
            influence[k] += shape_.Weights[j] * CategoryWeights[k][PairOf(shape_.Attributes[j])];
        for (int a = 0; shape_.Count == 0 && a < kAttributeCount; ++a)
            influence[k] += levelWeights_[a] * CategoryWeights[k][PairOf(a)];
    }
    // The level under a limit is reached by a great many templates alike, which the slots then
    // rank: the search goes through the slots in ranking order, and every branch after the last
    // template of a full list is cut at once.
    slotOrdered_ = settings_.Goal == FinderGoal::Level && settings_.MaxLevel.has_value();
    std::iota(order_.begin(), order_.end(), 0);
    std::stable_sort(order_.begin(), order_.end(), [&](int a, int b) {
        const bool fixedA = settings_.FixedSlots[a] != 0;
        const bool fixedB = settings_.FixedSlots[b] != 0;
        if (fixedA != fixedB)
            return fixedA;
        return !slotOrdered_ && influence[a] > influence[b];
    });
    fixedCount_ = static_cast<int>(
        std::count_if(settings_.FixedSlots.begin(), settings_.FixedSlots.end(), [](int s) { return s != 0; }));

    for (int k = 0; k < kCategoryCount; ++k) {
        bySlot_[k].assign(static_cast<std::size_t>(count) + 1, Doubles10{});
        for (int slot = 1; slot <= count; ++slot) {
            const AttributeArray &values = library.Records[static_cast<std::size_t>(slot)].Attributes;
            for (int a = 0; a < kAttributeCount; ++a) {
                // The product the template evaluation forms: a whole value times the weight.
                const Value value = values[a];
                bySlot_[k][static_cast<std::size_t>(slot)][a] = value * CategoryWeights[k][PairOf(a)];
            }
        }
        std::vector<int> &list = candidates_[k];
        if (settings_.FixedSlots[k] != 0) {
            list.assign(1, settings_.FixedSlots[k]);
        } else {
            list.resize(static_cast<std::size_t>(count));
            std::iota(list.begin(), list.end(), 1);
        }
        // A statistic's candidates fall in their contribution to its first (main) current value.
        const auto share = [&](int slot) {
            const Doubles10 &p = bySlot_[k][static_cast<std::size_t>(slot)];
            double sum = shape_.Count > 0 ? p[shape_.Attributes[0]] : 0.0;
            for (int a = 0; shape_.Count == 0 && a < kAttributeCount; ++a)
                sum += levelWeights_[a] * p[a];
            return sum;
        };
        if (!slotOrdered_)
            std::stable_sort(list.begin(), list.end(), [&](int a, int b) { return share(a) > share(b); });
        smallestSlot_[k] = list.empty() ? 0 : *std::min_element(list.begin(), list.end());
        for (int a = 0; a < kAttributeCount; ++a) {
            std::vector<double> &column = products_[k][a];
            column.clear();
            for (int slot : list)
                column.push_back(bySlot_[k][static_cast<std::size_t>(slot)][a]);
            lowest_[k][a] = column.empty() ? 0.0 : *std::min_element(column.begin(), column.end());
            highest_[k][a] = column.empty() ? 0.0 : *std::max_element(column.begin(), column.end());
        }
    }
}

void FinderModel::BuildLevels() {
    ValueArray low{};
    ValueArray high{};
    for (int a = 0; a < kAttributeCount; ++a) {
        double lo = 0.0;
        double hi = 0.0;
        for (int k = 0; k < kCategoryCount; ++k) {
            lo += lowest_[k][a];
            hi += highest_[k][a];
        }
        const auto [curLo, curHi] =
            CurrentRange(a, ToValue(RoundHalfEven(lo - 1e-6)), ToValue(RoundHalfEven(hi + 1e-6)));
        low[a] = curLo;
        high[a] = curHi;
    }
    levels_.emplace(settings_.Equation, WeightedLevelOf(low), WeightedLevelOf(high), settings_.MaxLevel);
}

Value FinderModel::Current(int attribute, Value cap) const {
    Value current = cap;
    if (!settings_.Experimented) {
        current = cap >= kLowestCap && cap <= kHighestCap ? startValues_[cap - kLowestCap] : StartValue(cap);
    }
    if (attribute == At(Attribute::Power) && current < 113)
        current = 113;
    return current;
}

std::pair<Value, Value> FinderModel::CurrentRange(int attribute, Value lo, Value hi) const {
    const Value atLo = Current(attribute, lo);
    const Value atHi = Current(attribute, hi);
    Value lowest = std::min(atLo, atHi);
    if (!settings_.Experimented && lo <= kStartValueBottom && hi >= kStartValueBottom) {
        // The rule is convex; its whole-number minimum lies within a step of the bottom.
        for (Value cap = kStartValueBottom - 1; cap <= kStartValueBottom + 1; ++cap) {
            if (cap >= lo && cap <= hi)
                lowest = std::min(lowest, Current(attribute, cap));
        }
    }
    return {lowest, std::max(atLo, atHi)};
}

double FinderModel::Score(const ValueArray &current) const {
    const auto at = [&current](Attribute a) { return static_cast<double>(current[Index(a)]); };
    switch (settings_.Goal) {
    case FinderGoal::Health:
        return HealthValue(at(Attribute::Hardiness), at(Attribute::Dexterity));
    case FinderGoal::Regen:
        return RegenValue(at(Attribute::Dependability), at(Attribute::Endurance));
    case FinderGoal::Armor:
        return static_cast<double>(6 * static_cast<int64_t>(current[Index(Attribute::Fortitude)]));
    case FinderGoal::ToHit:
        return ToHitValue(at(Attribute::Cleverness));
    case FinderGoal::Defense:
        return DefenseValue(at(Attribute::Dexterity), at(Attribute::Intellect));
    case FinderGoal::StateResist:
        return StateResistValue(at(Attribute::Intellect), at(Attribute::Hardiness));
    case FinderGoal::CriticalHit:
        return CriticalHitValue(at(Attribute::Fierceness));
    case FinderGoal::CriticalSave:
        return CriticalSaveValue(at(Attribute::Dependability));
    case FinderGoal::AggroBonus:
        return AggroBonusValue(at(Attribute::Courage));
    case FinderGoal::Damage:
        return DamageLowValue(at(Attribute::Power)) + DamageHighValue(at(Attribute::Power));
    case FinderGoal::Level:
        break;
    }
    return LevelOf(WeightedLevelOf(current));
}

int64_t FinderModel::WeightedLevelOf(const ValueArray &current) const {
    return static_cast<int64_t>(WeightedLevel(current, PredictionSource::Template, settings_.Equation));
}

double FinderModel::LevelOf(int64_t weightedLevel) const {
    if (weightedLevel >= levels_->First() && weightedLevel <= levels_->Last())
        return levels_->Level(weightedLevel);
    return RoundHalfEven(LevelPolynomial(settings_.Equation, static_cast<double>(weightedLevel)), 2);
}

ValueArray TemplateCaps(const FinderModel &model, const Slots &slots) {
    ValueArray caps{};
    for (int a = 0; a < kAttributeCount; ++a) {
        double sum = 0.0;
        for (int k = 0; k < kCategoryCount; ++k)
            sum += model.ProductsOfSlot(k, slots[k])[a];
        caps[a] = ToValue(RoundHalfEven(sum));
    }
    return caps;
}

} // namespace quorvel::finder
