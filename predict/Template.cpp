#include "Template.h"

#include "Numeric.h"
#include "ReferenceTables.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace quorvel {

const std::array<std::array<double, kCategoryCount>, kCategoryCount> CategoryWeights{{
    {0.4, 0.25, 0.05, 0.09, 0.17},
    {0.25, 0.42, 0.1, 0.05, 0.16},
    {0.05, 0.17, 0.5, 0.26, 0.085},
    {0.05, 0.085, 0.3, 0.43, 0.165},
    {0.25, 0.075, 0.05, 0.17, 0.42},
}};

namespace {

constexpr std::array<const char *, kAttributeCount> kShortLabels{
    "Hrd:", "Frt:", "Dex:", "End:", "Int:", "Clv:", "Dpn:", "Crg:", "Frc:", "Pwr:"};

constexpr const char *kQualityWarning = "CL prediction won't be correct";
constexpr const char *kPowerMinimumText = "113\r\n [Min val]";

bool IsCategory(int category) {
    return category >= 0 && category < kCategoryCount;
}

void ClearFlags(DnaTemplate &t) {
    t.Experimented.fill(false);
}

void EmptySlot(TemplateSlot &slot) {
    slot.Name.assign(1, '-');
    slot.Attributes.fill(0);
    slot.Quality = 0.0f;
}

// Caps and Current of one category's pair from the five slots.
void EvaluatePair(DnaTemplate &t, int category) {
    for (int a = 2 * category; a <= 2 * category + 1; ++a) {
        double sum = 0.0;
        for (int k = 0; k < kCategoryCount; ++k)
            sum += t.Slots[k].Attributes[a] * CategoryWeights[k][category];
        t.Caps[a] = ToValue(RoundHalfEven(sum));
        t.Current[a] = StartValue(t.Caps[a]);
    }
}

// The template quality is the mean of the slots' quality weights. A slot whose quality is no
// table index makes the level prediction unreliable; false then.
bool EvaluateQuality(DnaTemplate &t) {
    double quality = 0.0;
    bool allKnown = true;
    for (const TemplateSlot &slot : t.Slots) {
        const std::optional<int> weight = QualityWeight(slot.Quality);
        allKnown = allKnown && weight.has_value();
        quality += 0.2 * weight.value_or(0);
    }
    t.CurrentQuality = static_cast<float>(quality);
    return allKnown && t.CurrentQuality <= 6.0f;
}

// Two whole numbers with the text around them, written over `text` in one piece:
// "60/70%" for a pair's percentages, "595 [700]" for a value and its cap.
void PutNumberPair(std::string &text, int first, std::string_view between, int second, char last) {
    char buffer[32]; // two 32-bit numbers of at most 11 characters and at most 3 more
    char *end = std::to_chars(buffer, buffer + 11, first).ptr;
    end = std::copy(between.begin(), between.end(), end);
    end = std::to_chars(end, end + 11, second).ptr;
    *end++ = last;
    text.assign(buffer, static_cast<std::size_t>(end - buffer));
}

} // namespace

CategoryView PutDnaInTemplate(DnaTemplate &t, Category which, const DnaRecord &record) {
    const int category = static_cast<int>(which);
    CategoryView view;
    if (!IsCategory(category))
        return view;
    ClearFlags(t);
    TemplateSlot &slot = t.Slots[category];
    slot.Name = record.Name;
    for (int a = 0; a < kAttributeCount; ++a)
        slot.Attributes[a] = record.Attributes[a];
    slot.Quality = record.Quality;

    view.Lines[0] = slot.Name;
    for (int p = 0; p < kCategoryCount; ++p) {
        const Value first = slot.Attributes[2 * p];
        const Value second = slot.Attributes[2 * p + 1];
        const double weight = CategoryWeights[category][p];
        view.Contributions[p] = FormatDouble(std::floor(weight * second + weight * first));
        std::string &line = view.Lines[p + 1];
        line.reserve(32);
        line += kShortLabels[2 * p];
        AppendWhole(line, first);
        line += "  |  ";
        line += kShortLabels[2 * p + 1];
        AppendWhole(line, second);
    }
    view.SelectedLine = category + 1;
    return view;
}

void ClearCategory(DnaTemplate &t, Category which) {
    const int category = static_cast<int>(which);
    if (!IsCategory(category))
        return;
    ClearFlags(t);
    EmptySlot(t.Slots[category]);
    t.Current.fill(0);
    t.CurrentName.assign(1, '-');
    t.CurrentQuality = 0.0f;
}

void ClearWholeTemplate(DnaTemplate &t) {
    for (TemplateSlot &slot : t.Slots)
        EmptySlot(slot);
}

void ToggleExperiment(DnaTemplate &t, Category which) {
    const int category = static_cast<int>(which);
    if (!IsCategory(category))
        return;
    if (t.Experimented[category]) {
        t.Experimented[category] = false;
        return;
    }
    t.Current[2 * category] = t.Caps[2 * category];
    t.Current[2 * category + 1] = t.Caps[2 * category + 1];
    t.Experimented[category] = true;
}

std::optional<Category> FirstFreeCategory(const DnaTemplate &t) {
    for (const Category category : kCategories) {
        if (t.Slots[Index(category)].Name == "-")
            return category;
    }
    return std::nullopt;
}

TemplateNumbers EvaluateTemplateNumbers(DnaTemplate &t) {
    TemplateNumbers numbers;
    for (int i = 0; i < kCategoryCount; ++i) {
        if (!t.Experimented[i])
            EvaluatePair(t, i);
    }
    // The percentages see Power before the minimum raises it.
    for (int i = 0; i < kCategoryCount; ++i) {
        numbers.CurrentPercents[i] = PairPercent(t.Current[2 * i], t.Current[2 * i + 1]);
        numbers.CapPercents[i] = PairPercent(t.Caps[2 * i], t.Caps[2 * i + 1]);
    }
    if (t.Current[Index(Attribute::Power)] < 113) {
        t.Current[Index(Attribute::Power)] = 113;
        numbers.PowerRaised = true;
    }
    numbers.QualityKnown = EvaluateQuality(t);
    return numbers;
}

TemplateEvaluation EvaluateTemplate(DnaTemplate &t) {
    const TemplateNumbers numbers = EvaluateTemplateNumbers(t);
    TemplateEvaluation result;
    for (int i = 0; i < kCategoryCount; ++i)
        PutNumberPair(result.Label42[i], numbers.CurrentPercents[i], "/", numbers.CapPercents[i], '%');
    for (int a = 0; a < kAttributeCount; ++a)
        PutNumberPair(result.Label14[a], t.Current[a], " [", t.Caps[a], ']');
    if (numbers.PowerRaised)
        result.Label14[Index(Attribute::Power)] = kPowerMinimumText;
    result.QualityText = numbers.QualityKnown ? QualityName(t.CurrentQuality).value_or("") : kQualityWarning;
    return result;
}

Value StartValue(Value cap) {
    const double c = cap;
    return ToValue(RoundHalfEven((c / 1000 + 0.15) * c - 0.1));
}

int PairPercent(Value a, Value b) {
    // Int((a + b) / 2 / 10) in doubles is the whole-number quotient of the sum by 20 rounded
    // down: for sums of two 32-bit values no rounding of the quotient reaches a whole number.
    const int64_t sum = static_cast<int64_t>(a) + b;
    const int64_t quotient = sum / 20;
    return static_cast<int>(sum % 20 < 0 ? quotient - 1 : quotient);
}

std::string ValueCapText(Value current, Value cap) {
    std::string text;
    PutNumberPair(text, current, " [", cap, ']');
    return text;
}

std::string PowerCapText(Value &current, Value cap) {
    if (current >= 113)
        return ValueCapText(current, cap);
    current = 113;
    return kPowerMinimumText;
}

} // namespace quorvel
