// The ordered-parallel engine: every result handed out once, in item order and fresh, with
// the workers never further ahead than the look-ahead, and a stop that ends the hand-out.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <limits>
#include <thread>

#include "scan/OrderedParallel.h"

namespace lumivex {
namespace {

TEST(OrderedParallel, InOrderWithinTheLookAheadUntilStopped) {
    constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();
    const struct {
        std::size_t count;
        unsigned threads;
        std::size_t lookAhead, stopAfter;
    } cases[] = {
        {0, 4, 16, kNever},   {1, 4, 16, kNever},  {300, 1, 16, kNever}, {300, 4, 1, kNever},
        {300, 4, 16, kNever}, {300, 8, 5, kNever}, {300, 3, 16, 100},    {300, 3, 16, 300},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.count) + " items, " + std::to_string(c.threads) +
                     " threads, look-ahead " + std::to_string(c.lookAhead));
        std::atomic<std::size_t> emitted{0}, furthest{0}, worked{0};
        std::atomic<bool> stop{false};
        std::size_t next = 0;
        const std::size_t handed = OrderedParallel<std::size_t>::Run(
            c.count, c.threads, c.lookAhead,
            [&](unsigned worker, std::size_t i, std::size_t& result) {
                EXPECT_LT(worker, c.threads);
                const std::size_t ahead = i - std::min(i, emitted.load());
                for (std::size_t f = furthest;
                     ahead > f && !furthest.compare_exchange_weak(f, ahead);)
                    ;
                if (i % 7 == 0) std::this_thread::sleep_for(std::chrono::microseconds(200));
                result = i * 3 + 1;
                ++worked;
            },
            [&](std::size_t i, std::size_t& result) {
                EXPECT_EQ(i, next++);
                EXPECT_EQ(result, i * 3 + 1);
                ++emitted;
                if (emitted == c.stopAfter) stop = true;
            },
            &stop);
        EXPECT_EQ(handed, std::min(c.count, c.stopAfter));
        EXPECT_EQ(next, handed);
        EXPECT_LT(furthest.load(), std::max<std::size_t>(c.lookAhead, 1));
        EXPECT_LE(worked.load(), handed + c.lookAhead);
    }
}

}  // namespace
}  // namespace lumivex
