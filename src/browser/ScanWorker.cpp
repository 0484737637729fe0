#include "browser/ScanWorker.h"

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
    std::lock_guard lock(job->m);
    job->scan = nullptr;
    job->end.store(true, std::memory_order_release);
    job->done = true;
    job->ended.notify_all();
}

void ScanWorker::Stop() {
    if (!job_) return;
    job_->stop.store(true);
    std::lock_guard lock(job_->m);
    if (job_->scan != nullptr) job_->scan->Stop();
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
