#pragma once
// One row of the sidebar: a string-valued record in the shape the rest of the program reads
// ("kind", "vofo", "path", "exif", "alias", "isLeaf", "expand"; flags are "true"/"false"),
// owning the rows below it once they have been loaded. A row keeps its address while it is
// listed, because the view refers to rows by address.
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace lumivex {

struct RowRecord {
    using Rows = std::vector<std::unique_ptr<RowRecord>>;

    std::string kind;  // "group" or "item"
    std::string vofo;  // "volume" or "folder"; the header text on the group row
    std::string path;  // "" on the group row
    std::string exif;  // "true" when the folder directly holds a picture with a thumbnail
    std::string alias = "false";
    // Until the folder has been looked into, a row offers no disclosure and is not coloured.
    std::string isLeaf = "true";
    std::string expand = "false";
    // Absent until the rows below are first asked for; never refreshed after that.
    std::optional<Rows> children;

    // What the row shows: the folder's name, a volume's label, the header text.
    std::string name;
    RowRecord* parent = nullptr;  // nullptr at the top level
    // Names the row to answers that come back from another thread, which may find it gone.
    std::uint64_t serial = 0;
    bool marked = false;         // "isLeaf" and "exif" hold the folder's answers
    bool childrenAsked = false;  // the listing of the rows below is on its way

    bool IsGroup() const { return kind == "group"; }
    bool IsExpandable() const { return kind == "item" && isLeaf != "true"; }
};

}  // namespace lumivex
