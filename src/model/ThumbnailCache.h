#pragma once
// Decoded pictures of the items the pane draws, kept up to a bound in bytes: the items hold
// only their stored thumbnails, and the visible band and what was shown last stay decoded, so
// a repaint in place decodes nothing. The least recently drawn picture goes first. Qt-free;
// used on the main thread only.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <vector>

#include "core/Picture.h"
#include "model/ItemRecord.h"

namespace lumivex {

class ThumbnailCache {
  public:
    // About 290 thumbnails of 160 x 120: three screens of a window of ordinary size, while the
    // stored thumbnails of a big card take several hundred megabytes already. A larger pane
    // raises the bound through Prefetch, up to kCeilingBytes.
    static constexpr std::size_t kDefaultBytes = 16u << 20;
    static constexpr std::size_t kCeilingBytes = 256u << 20;

    explicit ThumbnailCache(std::size_t maxBytes = kDefaultBytes,
                            std::size_t ceiling = kCeilingBytes)
        : baseBytes_(maxBytes), maxBytes_(maxBytes), ceiling_(std::max(ceiling, maxBytes)) {}

    // The shown picture of item `index` of the list: decoded on a miss, or when the item was
    // turned since. Valid until the next Get or Clear. A picture larger than the bound is
    // handed out but not kept.
    const Picture& Get(std::size_t index, const ItemRecord& item);
    // Decodes up to `limit` pictures of items [first, last) that are not held, for a band the
    // pane is likely to show next; the number decoded, 0 when the band is complete. The bound
    // follows the band: twice its bytes, never below the bound the cache was made with nor
    // above the ceiling, so that a pane of any size keeps what it shows and its neighbours. A
    // band larger than half the bound even then is left alone, so that it never pushes out
    // what is shown.
    std::size_t Prefetch(const std::vector<ItemRecord>& items, std::size_t first, std::size_t last,
                         std::size_t limit);
    // A new list: every picture is forgotten.
    void Clear();

    std::size_t Bytes() const { return bytes_; }
    std::size_t Count() const { return lru_.size(); }
    std::size_t MaxBytes() const { return maxBytes_; }
    // Whether item `index` is held as decoded with `turns`, without touching its age.
    bool Holds(std::size_t index, int turns) const;

  private:
    struct Entry {
        std::size_t index = 0;
        int turns = 0;
        Picture pict;
    };
    using Order = std::list<Entry>;  // most recently drawn first

    static std::size_t SizeOf(const Picture& pict);
    void Drop(Order::iterator it);
    void MakeRoom(std::size_t bytes);

    std::size_t baseBytes_;
    std::size_t maxBytes_;
    std::size_t ceiling_;
    std::size_t bytes_ = 0;
    Order lru_;
    std::unordered_map<std::size_t, Order::iterator> byIndex_;
    Picture oversize_;  // the last picture too large to keep
};

}  // namespace lumivex
