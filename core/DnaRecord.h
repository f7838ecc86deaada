#pragma once

#include "EnumIndex.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace quorvel {

constexpr int kAttributeCount = 10;
constexpr int kMaxSamples = 500;

// Hardiness, Fortitude, Dexterity, Endurance, Intellect, Cleverness,
// Dependability, Courage, Fierceness, Power: every table, line and row uses this order.
enum class Attribute : int {
    Hardiness,
    Fortitude,
    Dexterity,
    Endurance,
    Intellect,
    Cleverness,
    Dependability,
    Courage,
    Fierceness,
    Power
};

using AttributeArray = std::array<int16_t, kAttributeCount>;

// One DNA sample. Names are held as UTF-8; files carry them as Windows-1252.
struct DnaRecord {
    std::string Name;
    AttributeArray Attributes{};
    int16_t Planet = 0;
    int16_t Origin = 0;
    int16_t Level = 0;
    float Quality = 0.0f;
};

// The program's one collection of samples: slots 1..Count hold samples, slot 0 never does.
// Slots above Count keep what they held when Count goes down.
struct DnaLibrary {
    std::array<DnaRecord, kMaxSamples + 1> Records{};
    int16_t Count = 0;
    int16_t SelectedRecord = 1;
    int16_t SelectedRow = 1;

    void ClearLibrary() { Count = 0; }
    // Adds one to Count and returns the new slot; nothing when the library is full.
    std::optional<int> AppendRecord();
    bool IsFull() const { return Count >= kMaxSamples; }
    // The record SelectedRecord names, kept inside slots 0..500.
    const DnaRecord &Selected() const;
    DnaRecord &Selected();

    // The first slot whose sample has this name and these ten values (and this quality, when
    // one is given); nothing when no sample does. Any array of ten whole numbers will do.
    template <typename Values>
    std::optional<int> FindSample(const std::string &name, const Values &values,
                                  std::optional<float> quality = std::nullopt) const {
        for (int slot = 1; slot <= Count; ++slot) {
            const DnaRecord &record = Records[static_cast<std::size_t>(slot)];
            if (record.Name == name && (!quality || record.Quality == *quality) &&
                std::equal(record.Attributes.begin(), record.Attributes.end(), values.begin()))
                return slot;
        }
        return std::nullopt;
    }
};

} // namespace quorvel
