#include "FinderRanking.h"

#include <algorithm>

namespace quorvel::finder {

// The list is a heap whose front is the template that ranks last, so that a full list takes a
// better template in logarithmic time however long it is.
void RankedList::Offer(const FoundTemplate &t) {
    const std::lock_guard lock(mutex_);
    if (size_ == 0 || (list_.size() >= size_ && !RanksBefore(t, list_.front())))
        return;
    if (list_.size() >= size_) {
        std::pop_heap(list_.begin(), list_.end(), RanksBefore);
        list_.pop_back();
    }
    list_.push_back(t);
    std::push_heap(list_.begin(), list_.end(), RanksBefore);
    version_.fetch_add(1, std::memory_order_release);
}

Threshold RankedList::Current() const {
    const std::lock_guard lock(mutex_);
    Threshold threshold;
    threshold.Full = size_ > 0 && list_.size() >= size_;
    if (threshold.Full)
        threshold.Last = list_.front();
    return threshold;
}

std::vector<FoundTemplate> RankedList::Take() {
    const std::lock_guard lock(mutex_);
    std::sort_heap(list_.begin(), list_.end(), RanksBefore);
    return std::move(list_);
}

} // namespace quorvel::finder
