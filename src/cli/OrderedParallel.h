#pragma once
// Runs a job over many items on a few threads and hands the results back in item order, so
// that output stays in the order of the command line however the work was shared.
#include <atomic>
#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace lumivex {

template <typename Result>
class OrderedParallel {
  public:
    // work(worker, item, result) runs on worker threads 0..threads-1 (0 is the caller's thread);
    // emit(item, result) runs on the caller's thread in item order.
    using Work = std::function<void(unsigned, std::size_t, Result&)>;
    using Emit = std::function<void(std::size_t, Result&)>;

    static void Run(std::size_t count, unsigned threads, const Work& work, const Emit& emit) {
        constexpr std::size_t kBlock = 512;  // bounds the results held at once
        if (threads == 0) threads = 1;
        std::vector<Result> results(std::min(count, kBlock));
        for (std::size_t base = 0; base < count; base += kBlock) {
            const std::size_t n = std::min(kBlock, count - base);
            std::atomic<std::size_t> next{0};
            auto loop = [&](unsigned worker) {
                for (std::size_t i; (i = next.fetch_add(1)) < n;)
                    work(worker, base + i, results[i]);
            };
            std::vector<std::jthread> helpers;
            for (unsigned w = 1; w < threads && w < n; ++w)
                helpers.emplace_back(loop, w);
            loop(0);
            helpers.clear();  // joins
            for (std::size_t i = 0; i < n; ++i)
                emit(base + i, results[i]);
        }
    }
};

}  // namespace lumivex
