#include "browser/ScanWorker.h"

#include "core/JpegCodec.h"
#include "core/OutputFile.h"
#include "scan/ExportTargets.h"

namespace lumivex {

ScanWorker::~ScanWorker() {
    if (!Running()) return;
    Stop();
    Finish(std::chrono::seconds(2));
}

bool ScanWorker::Start(std::filesystem::path folder, ScanOptions options) {
    if (Running()) return false;
    job_ = std::make_shared<Job>();
    thread_ = std::thread(&ScanWorker::Run, job_, std::move(folder), std::move(options));
    return true;
}

void ScanWorker::Run(const std::shared_ptr<Job>& job, std::filesystem::path folder,
                     ScanOptions options) {
    FolderScan scan(std::move(folder), std::move(options));
    job->total.store(scan.EntryCount(), std::memory_order_release);
    {
        std::lock_guard lock(job->m);
        job->scan = &scan;
        if (job->stop.load()) scan.Stop();
    }
    std::size_t examined = 0;
    auto onItem = [&](ScanItem&& item) {
        {
            std::lock_guard lock(job->m);
            job->ready.push_back(std::move(item));
        }
        job->progress.store(++examined, std::memory_order_release);
    };
    auto onSkip = [&](const std::string&, SkipReason) {
        job->progress.store(++examined, std::memory_order_release);
    };
    scan.Run(onItem, onSkip);
    {
        std::lock_guard lock(job->m);
        job->scan = nullptr;
    }
    MarkDone(*job);
}

void ScanWorker::MarkDone(Job& job) {
    std::lock_guard lock(job.m);
    job.end.store(true, std::memory_order_release);
    job.done = true;
    job.ended.notify_all();
}

bool ScanWorker::StartExport(ExportJob order) {
    if (Running()) return false;
    job_ = std::make_shared<Job>();
    job_->total.store(order.count);
    thread_ = std::thread(&ScanWorker::RunExport, job_, std::move(order));
    return true;
}

void ScanWorker::FeedExport(std::vector<ExportEntry> entries) {
    if (!job_ || entries.empty()) return;
    {
        std::lock_guard lock(job_->m);
        for (auto& e : entries)
            job_->feed.push_back(std::move(e));
    }
    job_->fed.notify_one();
}

std::size_t ScanWorker::ExportBacklog() const {
    if (!job_) return 0;
    std::lock_guard lock(job_->m);
    return job_->feed.size();
}

std::size_t ScanWorker::Written() const {
    return job_ ? job_->written.load() : 0;
}

std::size_t ScanWorker::Failed() const {
    return job_ ? job_->failed.load() : 0;
}

std::size_t ScanWorker::Protected() const {
    return job_ ? job_->spared.load() : 0;
}

// Waits for the next fed item; false when the job is to stop instead.
bool ScanWorker::NextEntry(Job& job, ExportEntry& entry) {
    std::unique_lock lock(job.m);
    job.fed.wait(lock, [&] { return job.stop.load() || !job.feed.empty(); });
    if (job.stop.load()) return false;
    entry = std::move(job.feed.front());
    job.feed.pop_front();
    return true;
}

void ScanWorker::RunExport(const std::shared_ptr<Job>& job, ExportJob order) {
    // Built here: the source folders are looked up on this thread, not the window's.
    const ExportTargets targets(order.sourceFolders);
    for (std::size_t i = 0; i < order.count; ++i) {
        ExportEntry entry;
        if (!NextEntry(*job, entry)) break;
        const std::string name = ExportTargets::TargetName(entry.fname);
        if (entry.ifd1 && !entry.thumb.IsNull() && !name.empty()) {
            const std::filesystem::path target = order.folder / name;
            if (targets.Protects(target)) {
                job->spared.fetch_add(1);
            } else {
                const auto bytes =
                    JpegCodec::Encode(entry.thumb.Decode(entry.turns), order.quality);
                const bool ok = !bytes.empty() &&
                                OutputFile::Replace(target, bytes) == OutputFile::Result::Written;
                (ok ? job->written : job->failed).fetch_add(1);
            }
        }
        job->progress.store(i + 1, std::memory_order_release);
    }
    MarkDone(*job);
}

void ScanWorker::Stop() {
    if (!job_) return;
    job_->stop.store(true);
    {
        std::lock_guard lock(job_->m);
        if (job_->scan != nullptr) job_->scan->Stop();
    }
    job_->fed.notify_all();
}

bool ScanWorker::End() const {
    return job_ && job_->end.load(std::memory_order_acquire);
}

std::size_t ScanWorker::ProgVal() const {
    return job_ ? job_->progress.load(std::memory_order_acquire) : 0;
}

std::size_t ScanWorker::Total() const {
    return job_ ? job_->total.load(std::memory_order_acquire) : 0;
}

std::vector<ScanItem> ScanWorker::TakeItems() {
    std::vector<ScanItem> out;
    if (!job_) return out;
    std::lock_guard lock(job_->m);
    out.swap(job_->ready);
    return out;
}

bool ScanWorker::Finish(std::chrono::milliseconds limit) {
    if (!Running()) return true;
    bool done;
    {
        std::unique_lock lock(job_->m);
        done = job_->ended.wait_for(lock, limit, [&] { return job_->done; });
    }
    // The job object is shared with the thread, so a thread let go still finds it alive.
    if (done)
        thread_.join();
    else
        thread_.detach();
    return done;
}

}  // namespace lumivex
