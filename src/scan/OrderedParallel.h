#pragma once
// Runs a job over many items on a few threads and hands the results out in item order on the
// calling thread, so that output keeps the order of its input however the work was shared.
// The caller's thread hands out the results and, while the next one is not ready, does work
// itself; it sleeps only when every item within reach is already taken by a helper. Each side
// wakes the other only when it is known to sleep, so a run costs few context switches rather
// than one per item. Helpers run at most `lookAhead` items ahead of the hand-out, which bounds
// the results held at once to a ring of that many.
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace lumivex {

template <typename Result>
class OrderedParallel {
  public:
    // work(worker, item, result) runs on workers 0..threads-1 (0 is the caller's thread) and
    // finds `result` as the last item of that slot left it; emit(item, result) runs on the
    // caller's thread in item order.
    using Work = std::function<void(unsigned, std::size_t, Result&)>;
    using Emit = std::function<void(std::size_t, Result&)>;

    // Returns the number of items handed out: all of them, or fewer when `stop` was set (it is
    // looked at before each hand-out).
    static std::size_t Run(std::size_t count, unsigned threads, std::size_t lookAhead,
                           const Work& work, const Emit& emit,
                           const std::atomic<bool>* stop = nullptr) {
        OrderedParallel run(count, std::max<std::size_t>(lookAhead, 1), work, stop);
        std::vector<std::jthread> helpers;
        for (unsigned w = 1; w < std::max(threads, 1u) && w < count; ++w)
            helpers.emplace_back([&run, w] { run.Helper(w); });
        std::size_t i = 0;
        for (; i < count; ++i) {
            if (!run.AwaitOrWork(i)) break;
            emit(i, run.results_[i % run.ring_]);
            run.HandedOut(i);
        }
        run.Finish();
        return i;
    }

  private:
    OrderedParallel(std::size_t count, std::size_t ring, const Work& work,
                    const std::atomic<bool>* stop)
        : count_(count),
          ring_(std::min(ring, std::max<std::size_t>(count, 1))),
          work_(work),
          stop_(stop),
          results_(ring_),
          done_(ring_, false) {}

    bool Stopped() const { return stop_ != nullptr && stop_->load(std::memory_order_acquire); }

    // Takes the next item within the look-ahead; count_ when there is none. Needs the lock.
    std::size_t Take() {
        if (next_ >= count_ || next_ >= handedOut_ + ring_) return count_;
        return next_++;
    }

    void Do(unsigned worker, std::size_t i, std::unique_lock<std::mutex>& lock) {
        lock.unlock();
        work_(worker, i, results_[i % ring_]);
        lock.lock();
        done_[i % ring_] = true;
    }

    void Helper(unsigned w) {
        std::unique_lock lock(m_);
        for (;;) {
            const std::size_t i = finished_ || Stopped() ? count_ : Take();
            if (i == count_) {
                if (finished_ || Stopped() || next_ >= count_) break;
                ++helpersWaiting_;
                helperCv_.wait(lock);
                --helpersWaiting_;
                continue;
            }
            Do(w, i, lock);
            if (callerWaiting_ && i == handedOut_) callerCv_.notify_one();
        }
    }

    // Until item i is ready: works on whatever is within reach, else sleeps. The caller's own
    // item is always within reach, so it sleeps only while a helper works on it.
    bool AwaitOrWork(std::size_t i) {
        std::unique_lock lock(m_);
        while (!done_[i % ring_] && !Stopped()) {
            const std::size_t j = Take();
            if (j == count_) {
                callerWaiting_ = true;
                callerCv_.wait(lock);
                callerWaiting_ = false;
                continue;
            }
            Do(0, j, lock);
        }
        return !Stopped();
    }

    void HandedOut(std::size_t i) {
        std::lock_guard lock(m_);
        done_[i % ring_] = false;
        handedOut_ = i + 1;
        if (helpersWaiting_ > 0) helperCv_.notify_all();
    }

    void Finish() {
        std::lock_guard lock(m_);
        finished_ = true;
        helperCv_.notify_all();
    }

    const std::size_t count_;
    const std::size_t ring_;
    const Work& work_;
    const std::atomic<bool>* stop_;
    std::vector<Result> results_;
    std::vector<bool> done_;
    std::mutex m_;
    std::condition_variable helperCv_;  // a helper waits for room in the look-ahead
    std::condition_variable callerCv_;  // the caller waits for the item it hands out next
    std::size_t next_ = 0;              // the first item nobody has taken
    std::size_t handedOut_ = 0;
    std::size_t helpersWaiting_ = 0;
    bool callerWaiting_ = false;
    bool finished_ = false;
};

}  // namespace lumivex
