#include "core/FolderItemEx.h"

#include <system_error>

namespace lumivex::FolderItemEx {
namespace {

bool IsFolder(const std::filesystem::path& item) {
    std::error_code ec;
    return std::filesystem::is_directory(item, ec);
}

}  // namespace

std::string gGetCreator(const std::filesystem::path& item) {
    return IsFolder(item) ? "MACS" : "";
}

std::string gGetType(const std::filesystem::path& item) {
    return IsFolder(item) ? "fold" : "";
}

}  // namespace lumivex::FolderItemEx
