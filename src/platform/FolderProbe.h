#pragma once
// Asks whether a path is a folder without letting the caller wait on a mount that stopped
// answering: the question runs on a thread of its own, and the caller gives up after a short
// while. A thread stuck in the kernel cannot be ended, so it is left behind; only a few may be
// left at once, after which further questions on that probe get no answer at all until one of
// them returns. No Qt.
#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace lumivex {

class FolderProbe {
  public:
    using Check = std::function<bool(const std::string& path)>;

    static constexpr std::chrono::milliseconds kDefaultLimit{250};
    static constexpr int kMaxStuck = 4;

    // `check` runs on the probe's threads; by default it asks the file system.
    explicit FolderProbe(std::chrono::milliseconds limit = kDefaultLimit, Check check = {});

    // True or false as the file system says, or nothing when it did not answer in time.
    std::optional<bool> IsFolder(const std::string& path);
    // Questions still waiting for the file system.
    int Stuck() const { return busy_->load(); }

  private:
    std::chrono::milliseconds limit_;
    Check check_;
    // Shared with the threads, which may outlive the probe.
    std::shared_ptr<std::atomic<int>> busy_ = std::make_shared<std::atomic<int>>(0);
};

}  // namespace lumivex
