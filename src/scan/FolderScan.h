#pragma once
// Reads the thumbnails of every candidate file in one folder. The entries are taken in name
// order; the files are read and decoded on a few threads at once, and the results are handed
// out in name order on the thread that runs the scan. Progress and stop are atomics that any
// thread may read or set.
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "scan/ScanItem.h"
#include "scan/ScanOptions.h"

namespace lumivex {

class ExifReader;

struct ScanStats {
    std::size_t entries = 0;      // entries of the folder
    std::size_t examined = 0;     // entries taken before the end or a stop
    std::size_t items = 0;        // entries that gave a thumbnail
    std::uint64_t bytesRead = 0;  // bytes read from files
    bool stopped = false;
};

class FolderScan {
  public:
    using ItemHandler = std::function<void(ScanItem&&)>;
    using SkipHandler = std::function<void(const std::string& name, SkipReason reason)>;

    // Lists the folder's entries (a missing or unreadable folder has none).
    FolderScan(std::filesystem::path folder, ScanOptions options);

    // Why the folder could not be listed, or not to its end, as an errno value; 0 when it was.
    int ListError() const { return listError_; }

    // The entry names in scan order: ascending by bytes, the default string order.
    const std::vector<std::string>& Entries() const { return names_; }
    std::size_t EntryCount() const { return names_.size(); }

    // Runs the scan on the calling thread and its helpers. onItem and onSkip are called on
    // the calling thread, in name order.
    ScanStats Run(const ItemHandler& onItem, const SkipHandler& onSkip = nullptr);

    // Asks a running scan to end; the items handed out so far stay valid.
    void Stop() { stop_.store(true, std::memory_order_release); }
    // Entries handed out so far, for a progress bar.
    std::size_t Progress() const { return progress_.load(std::memory_order_acquire); }

    // How far the decoding threads may run ahead of the hand-out, bounding the pictures held.
    // A few per thread keep them busy; more only spreads the pictures over more memory, which
    // then has to be faulted in (64 cost a scan a tenth of its time in page faults).
    static constexpr std::size_t kLookAhead = 16;

    // The readers of a scan with `options`: one per file read at once, each set up as asked.
    static std::vector<ExifReader> Readers(const ScanOptions& options);

  private:
    struct Slot;
    // Reads entry i with reader x into its slot.
    void Read(ExifReader& x, std::size_t i, Slot& slot) const;

    std::filesystem::path folder_;
    ScanOptions options_;
    int listError_ = 0;
    std::vector<std::string> names_;
    std::atomic<bool> stop_{false};
    std::atomic<std::size_t> progress_{0};
};

}  // namespace lumivex
