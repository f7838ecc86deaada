#pragma once

#include "Finder.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <vector>

namespace quorvel::finder {

// What a template must beat to enter the list: anything while the list is not full, else the
// last of the list.
struct Threshold {
    bool Full = false;
    FoundTemplate Last;

    bool Admits(const FoundTemplate &t) const { return !Full || RanksBefore(t, Last); }
};

// The best templates found so far by every search thread. The threads read the threshold
// often and offer templates rarely: a version number tells them when to read it again.
class RankedList final {
public:
    explicit RankedList(std::size_t size) : size_(size) {}

    void Offer(const FoundTemplate &t);
    uint64_t Version() const { return version_.load(std::memory_order_acquire); }
    Threshold Current() const;
    std::vector<FoundTemplate> Take();

private:
    std::size_t size_;
    mutable std::mutex mutex_;
    std::vector<FoundTemplate> list_;
    std::atomic<uint64_t> version_{0};
};

} // namespace quorvel::finder
