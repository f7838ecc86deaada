// Evaluating a full template and predicting its pet with all three level equations on.
// "numbers": the values, caps, percentages, quality and the three levels from predict/'s
// numeric functions, no text; "texts": EvaluateTemplate and PredictPetStats as the main window calls
// them, every label text formatted.
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
        PutDnaInTemplate(t, static_cast<Category>(k), record);
    }
    return t;
}

void Numbers(benchmark::State &state) {
    DnaTemplate t = FullTemplate();
    const LevelEquations all{true, true, true};
    for (auto _ : state) {
        const TemplateNumbers evaluation = EvaluateTemplateNumbers(t);
        const CreatureLevelNumbers level = PredictCreatureLevelNumbers(t.Current, PredictionSource::Template, all);
        benchmark::DoNotOptimize(evaluation);
        benchmark::DoNotOptimize(level);
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
        benchmark::DoNotOptimize(evaluation.Label14.data());
        benchmark::DoNotOptimize(prediction.Labels.data());
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(Numbers);
BENCHMARK(Texts);
BENCHMARK_MAIN();
