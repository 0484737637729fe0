#pragma once
// Where export-all puts each thumbnail, and which existing files an export must leave alone.
// An export writes a new file and renames it over the name, so it can never change an
// existing file's bytes; what it can do is take the name of a picture away from its folder.
// The rule: in a folder the pictures came from, an existing entry with a picture's name is
// never replaced. Elsewhere a same-named file is replaced, as export-all always did.
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumivex {

class ExportTargets {
  public:
    ExportTargets() = default;
    // The folders the shown pictures come from; ones that cannot be read are left out.
    explicit ExportTargets(const std::vector<std::filesystem::path>& sourceFolders);

    // The distinct parent folders of `paths`, in first-seen order.
    static std::vector<std::filesystem::path> FoldersOf(const std::vector<std::string>& paths);
    // The name of an item's quality-100 JPEG: the file name's body and ".jpg". Empty when the
    // name has no body to keep (".JPG"), so that the item is skipped.
    static std::string TargetName(std::string_view fname);
    // True when the extension is one a camera or an image program writes.
    static bool IsPictureName(std::string_view name);

    // True when writing `target` would replace one of the source folders' pictures. The
    // folder is compared by identity, so another path to it (a link, a bind mount) and a
    // name that differs only in case on a card's file system are caught as well.
    bool Protects(const std::filesystem::path& target) const;

  private:
    std::vector<std::pair<dev_t, ino_t>> folders_;
};

}  // namespace lumivex
