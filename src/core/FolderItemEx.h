#pragma once
// Type and creator codes of a file-system entry. Linux keeps no such codes, so only a folder
// has them: creator "MACS" and type "fold", the codes the rest of the program tests for.
#include <filesystem>
#include <string>

namespace lumivex::FolderItemEx {

// "MACS" for a folder (a symbolic link to one counts), "" for anything else or a missing item.
std::string gGetCreator(const std::filesystem::path& item);
// "fold" for a folder (a symbolic link to one counts), "" for anything else or a missing item.
std::string gGetType(const std::filesystem::path& item);

}  // namespace lumivex::FolderItemEx
