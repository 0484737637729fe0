// A folder question to a mount that stopped answering: the caller gets no answer after the
// limit instead of waiting, stuck questions are bounded, and a scan is then refused as for a
// folder that is gone.
#include <gtest/gtest.h>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "ScratchDir.h"
#include "model/ScanController.h"
#include "platform/FolderProbe.h"

namespace lumivex {
namespace {

using namespace std::chrono_literals;

// A file system that answers only when the test opens the gate. The threads the probe leaves
// behind hold it, so it outlives them.
struct Gate {
    std::mutex m;
    std::condition_variable cv;
    bool open = false;
    int asked = 0;
    void Open() {
        std::lock_guard lock(m);
        open = true;
        cv.notify_all();
    }
};

FolderProbe::Check Through(std::shared_ptr<Gate> gate) {
    return [gate](const std::string&) {
        std::unique_lock lock(gate->m);
        ++gate->asked;
        gate->cv.wait(lock, [&] { return gate->open; });
        return true;
    };
}

TEST(FolderProbe, AnswersWhatTheFileSystemSaysAndGivesUpOnAStuckOne) {
    fixtures::ScratchDir dir;
    FolderProbe probe;
    EXPECT_EQ(probe.IsFolder(dir.path().string()), std::optional<bool>(true));
    EXPECT_EQ(probe.IsFolder((dir.path() / "gone").string()), std::optional<bool>(false));

    auto gate = std::make_shared<Gate>();
    FolderProbe stuck(20ms, Through(gate));
    for (int i = 0; i < FolderProbe::kMaxStuck; ++i)
        EXPECT_EQ(stuck.IsFolder("/dead"), std::nullopt);
    // No more threads are left behind once the bound is reached, and a scan is refused.
    EXPECT_EQ(stuck.IsFolder("/dead"), std::nullopt);
    ScanController scan;
    scan.SetFolderProbe(stuck);
    EXPECT_FALSE(scan.Begin(dir.path().string(), 320, false));
    gate->Open();
    for (int i = 0; i < 400 && stuck.Stuck() > 0; ++i)
        std::this_thread::sleep_for(5ms);
    EXPECT_EQ(gate->asked, FolderProbe::kMaxStuck);  // read after the threads counted down
    EXPECT_EQ(stuck.IsFolder("/back"), std::optional<bool>(true));
}

}  // namespace
}  // namespace lumivex
