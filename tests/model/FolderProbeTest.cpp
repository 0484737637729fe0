// A folder question to a mount that stopped answering: the caller gets no answer after the
// limit instead of waiting, stuck questions are bounded, and a scan is then refused as for a
// folder that is gone.
#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <memory>
#include <thread>

#include "ScratchDir.h"
#include "model/ScanController.h"
#include "platform/FolderProbe.h"

namespace lumivex {
namespace {

using namespace std::chrono_literals;

TEST(FolderProbe, AnswersWhatTheFileSystemSaysAndGivesUpOnAStuckOne) {
    fixtures::ScratchDir dir;
    FolderProbe probe;
    EXPECT_EQ(probe.IsFolder(dir.path().string()), std::optional<bool>(true));
    EXPECT_EQ(probe.IsFolder((dir.path() / "gone").string()), std::optional<bool>(false));

    // A file system that answers only once the gate opens. The threads the probe leaves behind
    // hold the gate's future and the count, so both outlive them.
    std::promise<void> gate;
    auto asked = std::make_shared<std::atomic<int>>(0);
    FolderProbe stuck(20ms, [open = gate.get_future().share(), asked](const std::string&) {
        ++*asked;
        open.wait();
        return true;
    });
    for (int i = 0; i < FolderProbe::kMaxStuck; ++i)
        EXPECT_EQ(stuck.IsFolder("/dead"), std::nullopt);
    // No more threads are left behind once the bound is reached, and a scan is refused.
    EXPECT_EQ(stuck.IsFolder("/dead"), std::nullopt);
    ScanController scan;
    scan.SetFolderProbe(stuck);
    EXPECT_FALSE(scan.Begin(dir.path().string(), 320, false));
    gate.set_value();
    for (int i = 0; i < 400 && stuck.Stuck() > 0; ++i)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(*asked, FolderProbe::kMaxStuck);
    EXPECT_EQ(stuck.IsFolder("/back"), std::optional<bool>(true));
}

}  // namespace
}  // namespace lumivex
