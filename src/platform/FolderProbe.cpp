#include "platform/FolderProbe.h"

#include <filesystem>
#include <future>
#include <system_error>
#include <thread>

namespace lumivex {
namespace {

bool IsDirectory(const std::string& path) {
    std::error_code ec;
    return std::filesystem::is_directory(path, ec);
}

}  // namespace

FolderProbe::FolderProbe(std::chrono::milliseconds limit, Check check)
    : limit_(limit), check_(check ? std::move(check) : Check(IsDirectory)) {}

std::optional<bool> FolderProbe::IsFolder(const std::string& path) {
    if (busy_->load() >= kMaxStuck) return std::nullopt;
    ++*busy_;
    auto answer = std::make_shared<std::promise<bool>>();
    std::future<bool> result = answer->get_future();
    std::thread([answer, busy = busy_, check = check_, path] {
        answer->set_value(check(path));
        --*busy;
    }).detach();
    if (result.wait_for(limit_) != std::future_status::ready) return std::nullopt;
    return result.get();
}

}  // namespace lumivex
