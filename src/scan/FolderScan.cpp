#include "scan/FolderScan.h"

#include <dirent.h>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "exif/exifGPS.h"

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

SkipReason ReasonOf(exifGPS::Outcome outcome) {
    switch (outcome) {
        case exifGPS::Outcome::Unreadable:
            return SkipReason::Unreadable;
        case exifGPS::Outcome::NoExif:
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

// One entry's result, filled by a worker and taken by the hand-out.
struct FolderScan::Slot {
    bool done = false;
    bool hit = false;
    SkipReason reason = SkipReason::NoThumbnail;
    ScanItem item;
};

namespace {

// The coordination of one run: which entry is next to read, how far the hand-out has come.
struct Shared {
    std::mutex m;
    std::condition_variable cv;
    std::size_t next = 0;
    std::size_t handedOut = 0;
    bool finished = false;
};

}  // namespace

FolderScan::FolderScan(std::filesystem::path folder, ScanOptions options)
    : folder_(std::move(folder)), options_(std::move(options)), names_(ListNames(folder_)) {}

ScanStats FolderScan::Run(const ItemHandler& onItem, const SkipHandler& onSkip) {
    ScanStats stats;
    stats.entries = names_.size();
    std::vector<Slot> slots(names_.size());
    Shared shared;
    unsigned threads = options_.threads ? options_.threads : std::thread::hardware_concurrency();
    threads = std::clamp<unsigned>(threads, 1, 16);
    std::vector<std::uint64_t> bytes(threads, 0);

    auto worker = [&](unsigned w) {
        exifGPS x;
        x.Orientation = options_.orientation;
        x.NoThumb = options_.noThumb;
        x.ReadAllTags = false;
        for (;;) {
            std::size_t i;
            {
                std::unique_lock lock(shared.m);
                shared.cv.wait(lock, [&] {
                    return shared.finished || stop_.load() || shared.next >= names_.size() ||
                           shared.next < shared.handedOut + kLookAhead;
                });
                if (shared.finished || stop_.load() || shared.next >= names_.size()) break;
                i = shared.next++;
            }
            Slot& slot = slots[i];
            if (!options_.filter.Accepts(names_[i])) {
                slot.reason = SkipReason::NotAnImageName;
            } else {
                x.fitem = folder_ / names_[i];
                x.GetThumbNail();
                slot.hit = x.ret;
                if (x.ret) {
                    slot.item = ScanItem{names_[i], x.fitem.string(), std::move(x.Thumbnail), 0,
                                         0,         x.Rotate};
                    slot.item.w = slot.item.pict.Width();
                    slot.item.h = slot.item.pict.Height();
                } else {
                    slot.reason = ReasonOf(x.outcome);
                }
            }
            {
                std::lock_guard lock(shared.m);
                slot.done = true;
            }
            shared.cv.notify_all();
        }
        bytes[w] = x.Source().BytesRead();
    };

    std::vector<std::jthread> helpers;
    for (unsigned w = 1; w < threads; ++w)
        helpers.emplace_back(worker, w);
    std::jthread first(worker, 0u);

    for (std::size_t i = 0; i < slots.size(); ++i) {
        {
            std::unique_lock lock(shared.m);
            shared.cv.wait(lock, [&] { return slots[i].done || stop_.load(); });
        }
        // The stop is looked at before each entry is taken, as a user expects of "stop".
        if (stop_.load()) {
            stats.stopped = true;
            break;
        }
        if (slots[i].hit) {
            ++stats.items;
            onItem(std::move(slots[i].item));
        } else if (onSkip) {
            onSkip(names_[i], slots[i].reason);
        }
        ++stats.examined;
        progress_.store(i + 1, std::memory_order_release);
        {
            std::lock_guard lock(shared.m);
            shared.handedOut = i + 1;
        }
        shared.cv.notify_all();
    }
    {
        std::lock_guard lock(shared.m);
        shared.finished = true;
    }
    shared.cv.notify_all();
    helpers.clear();
    first.join();
    for (const auto b : bytes)
        stats.bytesRead += b;
    return stats;
}

}  // namespace lumivex
