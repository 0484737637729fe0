#pragma once
// The window's one worker thread: runs a folder scan or an export of every item off the
// main thread and keeps a mailbox that the window polls. The window copies what the job needs
// before the start; the worker touches no widget and reads no shared settings. Complete items wait
// in a guarded queue until the main thread takes them, so an item is never seen half made.
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <filesystem>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

#include "browser/ExportJob.h"
#include "scan/FolderScan.h"
#include "scan/ScanItem.h"
#include "scan/ScanOptions.h"

namespace lumivex {

class ScanWorker {
  public:
    ScanWorker() = default;
    ScanWorker(const ScanWorker&) = delete;
    ScanWorker& operator=(const ScanWorker&) = delete;
    // Stops and waits a little; a worker stuck in a dead device is left to the process end.
    ~ScanWorker();

    // True from Start until Finish: one job at a time.
    bool Running() const { return thread_.joinable(); }
    // Starts the import of `folder`. False, with nothing started, while a job runs.
    bool Start(std::filesystem::path folder, ScanOptions options);
    // The export of `job.count` items into `job.folder` as JPEG files; the pictures follow by
    // FeedExport, in list order. False, with nothing started, while a job runs.
    bool StartExport(ExportJob job);
    // Hands the export the next items; it waits for them, or for Stop.
    void FeedExport(std::vector<ExportEntry> entries);
    // Items fed and not yet written.
    std::size_t ExportBacklog() const;
    // Of the export so far: files written, writes that failed, targets left alone because
    // they are source pictures.
    std::size_t Written() const;
    std::size_t Failed() const;
    std::size_t Protected() const;
    // Stop: asks the job to end; the items found (or files written) so far stay.
    void Stop();
    // End: the job has handed out its last item.
    bool End() const;
    // ProgVal: folder entries examined (items exported) so far; Total: the folder's
    // entry count, 0 until the worker has listed it (the item count of an export).
    std::size_t ProgVal() const;
    std::size_t Total() const;
    // The items completed since the last call, in name order.
    std::vector<ScanItem> TakeItems();
    // After End: joins the thread, so that Running turns false. Waits at most `limit` for a
    // thread that has not ended yet and then lets it go, returning false.
    bool Finish(std::chrono::milliseconds limit);

  private:
    struct Job {
        std::atomic<bool> stop{false};
        std::atomic<bool> end{false};
        std::atomic<std::size_t> progress{0};
        std::atomic<std::size_t> total{0};
        std::mutex m;
        std::condition_variable ended;
        bool done = false;             // the thread function has returned (under m)
        FolderScan* scan = nullptr;    // the running scan, for Stop (under m)
        std::vector<ScanItem> ready;   // complete items not yet taken (under m)
        std::deque<ExportEntry> feed;  // items for the export not yet written (under m)
        std::condition_variable fed;
        std::atomic<std::size_t> written{0};
        std::atomic<std::size_t> failed{0};
        std::atomic<std::size_t> spared{0};
    };
    static void Run(const std::shared_ptr<Job>& job, std::filesystem::path folder,
                    ScanOptions options);
    static void RunExport(const std::shared_ptr<Job>& job, ExportJob order);
    static bool NextEntry(Job& job, ExportEntry& entry);
    static void MarkDone(Job& job);

    std::shared_ptr<Job> job_;
    std::thread thread_;
};

}  // namespace lumivex
