#pragma once

#include "DnaRecord.h"
#include "Values.h"

#include <array>
#include <optional>
#include <string>

namespace quorvel {

// CategoryWeights[k][p]: the weight of the sample in category slot k on both attributes of pair p.
extern const std::array<std::array<double, kCategoryCount>, kCategoryCount> CategoryWeights;

struct TemplateSlot {
    std::string Name; // "-" marks an emptied slot; empty at program start
    ValueArray Attributes{};
    float Quality = 0.0f;
};

struct DnaTemplate {
    std::array<TemplateSlot, kCategoryCount> Slots{};
    ValueArray Current{};
    float CurrentQuality = 0.0f;
    std::string CurrentName;
    ValueArray Caps{};
    std::array<bool, kCategoryCount> Experimented{};
};

// What a category box shows once a sample is in it.
struct CategoryView {
    std::array<std::string, 6> Lines;         // name, "Hrd:512  |  Frt:340", ...
    std::array<std::string, 5> Contributions; // pair 0..4
    int SelectedLine = 0;                     // category + 1
};

// Copies name, attributes and quality into slot `category` and clears every Experimented flag.
// The caller then evaluates.
CategoryView PutDnaInTemplate(DnaTemplate &t, Category category, const DnaRecord &record);

// Empties one category: slot and Current to zero with name "-", flags cleared.
void ClearCategory(DnaTemplate &t, Category category);

// Empties every slot (name "-", zeros); Current, Caps and flags stay.
void ClearWholeTemplate(DnaTemplate &t);

// Switches a category between not experimented and experimented (Current pair := Caps pair).
void ToggleExperiment(DnaTemplate &t, Category category);

// First category whose slot name is exactly "-", if any.
std::optional<Category> FirstFreeCategory(const DnaTemplate &t);

// The Label14 index 0..9 and Label42 texts after an evaluation.
struct TemplateEvaluation {
    std::array<std::string, 5> Label42;  // "60/70%"
    std::array<std::string, 10> Label14; // "595 [700]"; Power below 113: "113\r\n [Min val]"
    std::string QualityText;             // Label14(10)
};

// The numbers of an evaluation, before any text.
struct TemplateNumbers {
    std::array<int, 5> CurrentPercents{}; // per pair, Power as it was before the minimum
    std::array<int, 5> CapPercents{};
    bool PowerRaised = false;  // Current Power was below 113 and now is 113
    bool QualityKnown = false; // every slot's quality is a table index and the mean is at most 6
};

// Recomputes Caps and Current of the categories not experimented, raises Power to 113,
// averages the qualities into CurrentQuality.
TemplateNumbers EvaluateTemplateNumbers(DnaTemplate &t);

// EvaluateTemplateNumbers and the texts of its results. The caller then predicts from t.Current.
TemplateEvaluation EvaluateTemplate(DnaTemplate &t);

// The start-value rule: ((cap / 1000 + 0.15) * cap - 0.1) rounded half to even.
Value StartValue(Value cap);

// Int((a + b) / 2 / 10): the percentage figure of a pair.
int PairPercent(Value a, Value b);

// "current [cap]" of one attribute; for Power a current below 113 is raised in `current`
// and shown as "113\r\n [Min val]".
std::string ValueCapText(Value current, Value cap);
std::string PowerCapText(Value &current, Value cap);

} // namespace quorvel
