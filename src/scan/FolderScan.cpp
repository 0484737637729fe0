#include "scan/FolderScan.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <thread>

#include "exif/ExifReader.h"
#include "scan/OrderedParallel.h"

namespace lumivex {
namespace {

// The folder's entry names; `error` is set when the folder could not be listed to its end.
std::vector<std::string> ListNames(const std::filesystem::path& folder, int& error) {
    std::vector<std::string> names;
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) {
        error = errno;
        return names;
    }
    for (;;) {
        errno = 0;  // readdir tells the end from a failure (a pulled card) only this way
        const dirent* e = ::readdir(dir);
        if (e == nullptr) break;
        const std::string_view name = e->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    error = errno;
    ::closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

// One entry's result, filled by whichever thread took the entry and read by the hand-out.
struct FolderScan::Slot {
    bool hit = false;
    SkipReason reason = SkipReason::NoThumbnail;
    ScanItem item;
};

FolderScan::FolderScan(std::filesystem::path folder, ScanOptions options)
    : folder_(std::move(folder)),
      options_(std::move(options)),
      names_(ListNames(folder_, listError_)) {}

void FolderScan::Read(ExifReader& x, std::size_t i, Slot& slot) const {
    slot = Slot{};
    if (!options_.filter.Accepts(names_[i])) {
        slot.reason = SkipReason::NotAnImageName;
        return;
    }
    x.fitem = folder_ / names_[i];
    x.GetThumbNail();
    slot.hit = x.ret;
    if (!x.ret) {
        slot.reason = SkipReasonOf(x.Opened(), x.outcome != ExifReader::Outcome::NoExif);
        return;
    }
    // Only the stored form travels on: the decoded picture is the reader's to reuse.
    slot.item = ScanItem{names_[i],           x.fitem.string(),     std::move(x.Stored),
                         x.Thumbnail.Width(), x.Thumbnail.Height(), x.Rotate};
}

std::vector<ExifReader> FolderScan::Readers(const ScanOptions& options) {
    // At least two files in flight even on one core: on a cold card one thread's read then
    // overlaps the other's parsing, which halves the scan; more than the cores measured no
    // faster cold at 25 MB/s and slower warm.
    const unsigned threads = std::clamp<unsigned>(
        options.threads ? options.threads : std::max(2u, std::thread::hardware_concurrency()), 1,
        16);
    std::vector<ExifReader> readers(threads);
    for (ExifReader& x : readers) {
        x.Orientation = options.orientation;
        x.NoThumb = options.noThumb;
        x.ReadAllTags = false;
    }
    return readers;
}

ScanStats FolderScan::Run(const ItemHandler& onItem, const SkipHandler& onSkip) {
    ScanStats stats;
    stats.entries = names_.size();
    std::vector<ExifReader> readers = Readers(options_);
    const auto threads = static_cast<unsigned>(readers.size());
    stats.examined = OrderedParallel<Slot>::Run(
        names_.size(), threads, kLookAhead,
        [&](unsigned w, std::size_t i, Slot& slot) { Read(readers[w], i, slot); },
        [&](std::size_t i, Slot& slot) {
            if (slot.hit) {
                ++stats.items;
                // Handed over, not lent: a picture the handler does not keep is freed now and
                // not when its slot comes round again.
                ScanItem item = std::move(slot.item);
                onItem(std::move(item));
            } else if (onSkip) {
                onSkip(names_[i], slot.reason);
            }
            progress_.store(i + 1, std::memory_order_release);
        },
        &stop_);
    stats.stopped = stats.examined < names_.size();
    for (ExifReader& x : readers)
        stats.bytesRead += x.BytesRead();
    return stats;
}

}  // namespace lumivex
