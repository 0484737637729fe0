#pragma once
// A scratch folder tree for sidebar tests, removed when the case ends.
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <string>

#include "ScratchDir.h"
#include "model/FolderLister.h"

namespace lumivex::test {

class ScratchTree : public fixtures::ScratchDir {
  public:
    std::filesystem::path Path(const std::string& rel = "") const {
        return rel.empty() ? path() : path() / rel;
    }
    std::string Str(const std::string& rel = "") const { return Path(rel).string(); }

    void Dirs(std::initializer_list<const char*> rels) const {
        for (const char* rel : rels)
            std::filesystem::create_directories(Path(rel));
    }
    void Text(const std::string& rel, const std::string& text = "x") const {
        std::filesystem::create_directories(Path(rel).parent_path());
        std::ofstream(Path(rel)) << text;
    }
};

// Reads the disk, except below `stuck`, where every read waits until Release: a card that
// stopped answering, as long as the test wants.
class GateLister : public FolderLister {
  public:
    // `once`: only the first read below `stuck` waits, as when a card is put in again.
    explicit GateLister(std::string stuck, bool once = false)
        : stuck_(std::move(stuck)), once_(once) {}
    std::vector<ShownFolder> Folders(const std::string& folder) const override {
        Gate(folder);
        return FolderLister::Folders(folder);
    }
    bool HasSubFolder(const std::string& path) const override {
        Gate(path);
        return FolderLister::HasSubFolder(path);
    }
    void Release() {
        std::lock_guard lock(m_);
        open_ = true;
        cv_.notify_all();
    }
    bool Waiting() const {
        std::lock_guard lock(m_);
        return waiting_ > 0;
    }

  private:
    void Gate(const std::string& path) const {
        if (!path.starts_with(stuck_)) return;
        std::unique_lock lock(m_);
        if (once_ && taken_) return;
        taken_ = true;
        ++waiting_;
        cv_.wait(lock, [&] { return open_; });
        --waiting_;
    }
    std::string stuck_;
    bool once_;
    mutable bool taken_ = false;
    mutable std::mutex m_;
    mutable std::condition_variable cv_;
    mutable int waiting_ = 0;
    bool open_ = false;
};

}  // namespace lumivex::test
