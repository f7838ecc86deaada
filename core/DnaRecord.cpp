#include "DnaRecord.h"

#include <algorithm>

namespace quorvel {

std::optional<int> DnaLibrary::AppendRecord() {
    if (IsFull())
        return std::nullopt;
    ++Count;
    return Count;
}

namespace {

int SelectedSlot(int16_t selectedRecord) {
    return std::clamp<int>(selectedRecord, 0, kMaxSamples);
}

} // namespace

const DnaRecord &DnaLibrary::Selected() const {
    return Records[SelectedSlot(SelectedRecord)];
}

DnaRecord &DnaLibrary::Selected() {
    return Records[SelectedSlot(SelectedRecord)];
}

} // namespace quorvel
