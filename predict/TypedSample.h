#pragma once

#include "PetStats.h"

#include <array>
#include <string>

namespace quorvel {

struct TypedEvaluation {
    StatTexts Labels;    // Label23 0..10 of the Add DNA window
    bool AnyRan = false; // when true, LastCreatureLevel is the program's new last level
    float LastCreatureLevel = 0.0f;
};

// The Add DNA window's live prediction from the typed values as doubles (unrounded L,
// level lines joined by CR LF, Armor with the level armor in brackets).
TypedEvaluation EvaluateTypedSample(const std::array<double, 10> &v, LevelEquations eq);

} // namespace quorvel
