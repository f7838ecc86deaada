// Evaluating a full template and predicting its pet with all three level equations on.
// "numbers": the values, caps, percentages and the three levels from predict/'s numeric
// functions, no text; "texts": EvaluateTemplate and PredictPetStats as the main window calls
// them, every label text formatted.
#include "Numeric.h"
#include "PetStats.h"
#include "Template.h"

#include <benchmark/benchmark.h>

#include <cstdint>

using namespace quorvel;

namespace {

DnaTemplate FullTemplate() {
    DnaTemplate t;
    for (int k = 0; k < kCategoryCount; ++k) {
        DnaRecord record;
        record.Name = "Sample " + std::to_string(k);
        for (int a = 0; a < kAttributeCount; ++a)
            record.Attributes[a] = static_cast<int16_t>(300 + 37 * k + 53 * a);
        record.Quality = static_cast<float>(k % 7);
        PutDnaInTemplate(t, k, record);
    }
    return t;
}

// The template's evaluation and the three level polynomials on numbers only.
double EvaluateNumbers(const DnaTemplate &t, ValueArray &current, ValueArray &caps) {
    int percents = 0;
    for (int c = 0; c < kCategoryCount; ++c) {
        for (int a = 2 * c; a <= 2 * c + 1; ++a) {
            double sum = 0.0;
            for (int k = 0; k < kCategoryCount; ++k)
                sum += t.Slots[k].Attributes[a] * CategoryWeights[k][c];
            caps[a] = ToValue(RoundHalfEven(sum));
            current[a] = StartValue(caps[a]);
        }
        percents += PairPercent(current[2 * c], current[2 * c + 1]) + PairPercent(caps[2 * c], caps[2 * c + 1]);
    }
    if (current[Power] < 113)
        current[Power] = 113;
    double sum = 0.0;
    for (int a = 0; a < kAttributeCount; ++a)
        sum += current[a];
    const double level = RoundHalfEven((current[Power] * 29.999 + sum) / 100);
    return percents + RoundHalfEven(LevelPolynomial(LevelEquation::Old, level), 2) +
           RoundHalfEven(LevelPolynomial(LevelEquation::New1, level), 2) +
           RoundHalfEven(LevelPolynomial(LevelEquation::New2, level), 2);
}

void Numbers(benchmark::State &state) {
    const DnaTemplate t = FullTemplate();
    ValueArray current{};
    ValueArray caps{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(EvaluateNumbers(t, current, caps));
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}

void Texts(benchmark::State &state) {
    DnaTemplate t = FullTemplate();
    const LevelEquations all{true, true, true};
    for (auto _ : state) {
        const TemplateEvaluation evaluation = EvaluateTemplate(t);
        const PetPrediction prediction = PredictPetStats(t.Current, PredictionSource::Template, all);
        benchmark::DoNotOptimize(evaluation.label14.data());
        benchmark::DoNotOptimize(prediction.labels.data());
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(Numbers);
BENCHMARK(Texts);
BENCHMARK_MAIN();
