#include "model/FrameFit.h"

#include <gtest/gtest.h>

#include <climits>

namespace lumivex {
namespace {

TEST(FrameFit, FramesOffEveryScreenComeBackOntoOne) {
    const FrameRect laptop{0, 0, 1280, 800};
    const FrameRect right{1280, 0, 1920, 1080};  // a second monitor to the right
    struct Case {
        const char* what;
        FrameRect frame;
        std::vector<FrameRect> screens;
        FrameRect expected;
    } cases[] = {
        // clang-format off
        {"inside stays", {100, 120, 725, 524}, {laptop}, {100, 120, 725, 524}},
        {"no screens known", {3000, 2000, 725, 524}, {}, {3000, 2000, 725, 524}},
        {"monitor unplugged", {3000, 2000, 725, 524}, {laptop}, {555, 276, 725, 524}},
        {"left and above", {-900, -700, 725, 524}, {laptop}, {0, 0, 725, 524}},
        {"larger than the screen", {10, 10, 2000, 1500}, {laptop}, {0, 0, 1280, 800}},
        {"most overlap wins", {1200, 100, 725, 524}, {laptop, right}, {1280, 100, 725, 524}},
        {"off both: the primary", {9000, 3000, 725, 524}, {laptop, right}, {555, 276, 725, 524}},
        {"second monitor kept", {2000, 300, 725, 524}, {laptop, right}, {2000, 300, 725, 524}},
        {"near the integer limits", {INT_MAX - 600, INT_MAX - 10, 725, 524}, {laptop}, {555, 276, 725, 524}},
        // clang-format on
    };
    for (const Case& c : cases)
        EXPECT_EQ(FitFrameOnScreens(c.frame, c.screens), c.expected) << c.what;
}

}  // namespace
}  // namespace lumivex
