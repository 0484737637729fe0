#pragma once
// One row of the sidebar: a string-valued record in the shape the rest of the program reads
// ("kind", "vofo", "path", "exif", "alias", "isLeaf", "expand"; flags are "true"/"false"),
// owning the rows below it once they have been loaded. A row keeps its address while it is
// listed, because the view refers to rows by address.
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
    std::string isLeaf = "false";
    std::string expand = "false";
    // Absent until the rows below are first asked for; never refreshed after that.
    std::optional<Rows> children;

    // What the row shows: the folder's name, a volume's label, the header text.
    std::string name;
    RowRecord* parent = nullptr;  // nullptr at the top level

    bool IsGroup() const { return kind == "group"; }
    bool IsExpandable() const { return kind == "item" && isLeaf != "true"; }
};

}  // namespace lumivex
