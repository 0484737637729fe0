#include "scan/FolderScan.h"

#include <dirent.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "exif/ExifReader.h"

namespace lumivex {
namespace {

std::vector<std::string> ListNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    DIR* dir = ::opendir(folder.c_str());
    if (dir == nullptr) return names;
    while (const dirent* e = ::readdir(dir)) {
        const std::string_view name = e->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    ::closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

SkipReason ReasonOf(ExifReader::Outcome outcome) {
    switch (outcome) {
        case ExifReader::Outcome::Unreadable:
            return SkipReason::Unreadable;
        case ExifReader::Outcome::NoExif:
            return SkipReason::NoExif;
        default:
            return SkipReason::NoThumbnail;
    }
}

}  // namespace

const char* SkipReasonText(SkipReason reason) {
    switch (reason) {
        case SkipReason::NotAnImageName:
            return "画像ファイルの拡張子ではありません";
        case SkipReason::Unreadable:
            return "ファイルを読み込めません";
        case SkipReason::NoExif:
            return "Exif情報がありません";
        case SkipReason::NoThumbnail:
            return "サムネイルがありません";
    }
    return "";
}

// One entry's result, filled by whichever thread took the entry and read by the hand-out.
struct FolderScan::Slot {
    bool done = false;
    bool hit = false;
    SkipReason reason = SkipReason::NoThumbnail;
    ScanItem item;
};

namespace {

// The coordination of one run. The calling thread hands out the results in name order and,
// while the next one is not ready, reads entries itself; it sleeps only when every entry
// within reach is already being read by a helper. Each side wakes the other only when it is
// known to sleep, so that a run costs few context switches rather than one per file.
struct Shared {
    std::mutex m;
    std::condition_variable helperCv;  // a helper waits for room in the look-ahead
    std::condition_variable callerCv;  // the caller waits for the entry it hands out next
    std::size_t next = 0;              // the first entry nobody has taken
    std::size_t handedOut = 0;
    std::size_t helpersWaiting = 0;
    bool callerWaiting = false;
    bool finished = false;
};

}  // namespace

FolderScan::FolderScan(std::filesystem::path folder, ScanOptions options)
    : folder_(std::move(folder)), options_(std::move(options)), names_(ListNames(folder_)) {}

void FolderScan::Read(ExifReader& x, std::size_t i, Slot& slot) const {
    if (!options_.filter.Accepts(names_[i])) {
        slot.reason = SkipReason::NotAnImageName;
        return;
    }
    x.fitem = folder_ / names_[i];
    x.GetThumbNail();
    slot.hit = x.ret;
    if (!x.ret) {
        slot.reason = ReasonOf(x.outcome);
        return;
    }
    slot.item = ScanItem{names_[i], x.fitem.string(), std::move(x.Thumbnail), 0, 0, x.Rotate};
    slot.item.w = slot.item.pict.Width();
    slot.item.h = slot.item.pict.Height();
}

ScanStats FolderScan::Run(const ItemHandler& onItem, const SkipHandler& onSkip) {
    ScanStats stats;
    const std::size_t count = names_.size();
    stats.entries = count;
    std::vector<Slot> slots(count);
    Shared shared;
    unsigned threads = options_.threads ? options_.threads : std::thread::hardware_concurrency();
    threads = std::clamp<unsigned>(threads, 1, 16);
    std::vector<ExifReader> readers(threads);
    for (ExifReader& x : readers) {
        x.Orientation = options_.orientation;
        x.NoThumb = options_.noThumb;
        x.ReadAllTags = false;
    }
    // Takes the next entry within the look-ahead; count when there is none. Needs the lock.
    // The caller's own entry is always within reach, so the caller sleeps only while a helper
    // reads it.
    auto take = [&]() -> std::size_t {
        if (shared.next >= count || shared.next >= shared.handedOut + kLookAhead) return count;
        return shared.next++;
    };

    auto helper = [&](unsigned w) {
        std::unique_lock lock(shared.m);
        for (;;) {
            const std::size_t i = shared.finished || stop_.load() ? count : take();
            if (i == count) {
                if (shared.finished || stop_.load() || shared.next >= count) break;
                ++shared.helpersWaiting;
                shared.helperCv.wait(lock);
                --shared.helpersWaiting;
                continue;
            }
            lock.unlock();
            Read(readers[w], i, slots[i]);
            lock.lock();
            slots[i].done = true;
            if (shared.callerWaiting && i == shared.handedOut) shared.callerCv.notify_one();
        }
    };

    std::vector<std::jthread> helpers;
    for (unsigned w = 1; w < threads; ++w)
        helpers.emplace_back(helper, w);

    for (std::size_t i = 0; i < count; ++i) {
        {
            std::unique_lock lock(shared.m);
            while (!slots[i].done && !stop_.load()) {
                const std::size_t j = take();
                if (j == count) {
                    shared.callerWaiting = true;
                    shared.callerCv.wait(lock);
                    shared.callerWaiting = false;
                    continue;
                }
                lock.unlock();
                Read(readers[0], j, slots[j]);
                lock.lock();
                slots[j].done = true;
            }
        }
        // The stop is looked at before each entry is taken, as a user expects of "stop".
        if (stop_.load()) {
            stats.stopped = true;
            break;
        }
        if (slots[i].hit) {
            ++stats.items;
            // Handed over, not lent: a picture the handler does not keep is freed now and not
            // at the end of the run.
            ScanItem item = std::move(slots[i].item);
            onItem(std::move(item));
        } else if (onSkip) {
            onSkip(names_[i], slots[i].reason);
        }
        ++stats.examined;
        progress_.store(i + 1, std::memory_order_release);
        std::lock_guard lock(shared.m);
        shared.handedOut = i + 1;
        if (shared.helpersWaiting > 0) shared.helperCv.notify_all();
    }
    {
        std::lock_guard lock(shared.m);
        shared.finished = true;
        shared.helperCv.notify_all();
    }
    helpers.clear();
    for (ExifReader& x : readers)
        stats.bytesRead += x.BytesRead();
    return stats;
}

}  // namespace lumivex
