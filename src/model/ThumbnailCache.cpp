#include "model/ThumbnailCache.h"

#include <algorithm>
#include <utility>

namespace lumivex {

const Picture& ThumbnailCache::Get(std::size_t index, const ItemRecord& item) {
    const int turns = item.Turns();
    const auto found = byIndex_.find(index);
    if (found != byIndex_.end()) {
        if (found->second->turns == turns) {
            lru_.splice(lru_.begin(), lru_, found->second);
            return found->second->pict;
        }
        Drop(found->second);  // turned since it was decoded
    }
    Picture pict = item.Shown();
    const std::size_t size = SizeOf(pict);
    oversize_ = Picture();
    if (size > maxBytes_) {
        oversize_ = std::move(pict);
        return oversize_;
    }
    MakeRoom(size);
    lru_.push_front(Entry{index, turns, std::move(pict)});
    byIndex_[index] = lru_.begin();
    bytes_ += size;
    return lru_.front().pict;
}

std::size_t ThumbnailCache::Prefetch(const std::vector<ItemRecord>& items, std::size_t first,
                                     std::size_t last, std::size_t limit) {
    last = std::min(last, items.size());
    std::size_t band = 0;
    for (std::size_t i = first; i < last; ++i)
        if (!items[i].thumb.IsNull())
            band += static_cast<std::size_t>(std::max(0, items[i].w)) *
                    static_cast<std::size_t>(std::max(0, items[i].h)) * 3;
    maxBytes_ = std::clamp(2 * band, baseBytes_, ceiling_);
    MakeRoom(0);
    if (band > maxBytes_ / 2) return 0;
    std::size_t decoded = 0;
    for (std::size_t i = first; i < last && decoded < limit; ++i) {
        if (items[i].thumb.IsNull() || Holds(i, items[i].Turns())) continue;
        Get(i, items[i]);
        ++decoded;
    }
    return decoded;
}

void ThumbnailCache::Clear() {
    lru_.clear();
    byIndex_.clear();
    bytes_ = 0;
    oversize_ = Picture();
}

bool ThumbnailCache::Holds(std::size_t index, int turns) const {
    const auto found = byIndex_.find(index);
    return found != byIndex_.end() && found->second->turns == turns;
}

std::size_t ThumbnailCache::SizeOf(const Picture& pict) {
    return pict.Pixels().size();
}

void ThumbnailCache::Drop(Order::iterator it) {
    bytes_ -= SizeOf(it->pict);
    byIndex_.erase(it->index);
    lru_.erase(it);
}

void ThumbnailCache::MakeRoom(std::size_t bytes) {
    while (!lru_.empty() && bytes_ + bytes > maxBytes_)
        Drop(std::prev(lru_.end()));
}

}  // namespace lumivex
