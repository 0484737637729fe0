#pragma once
// A question the sidebar puts to the disk about one row, and its answer. Questions are plain
// data, copied into a worker with everything they need; an answer names its row by serial, so
// that a row gone in the meantime (a pulled card, a rebuilt tree) simply finds no taker. No Qt.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "model/FolderLister.h"
#include "model/FolderTreeOptions.h"

namespace lumivex {

struct FolderQuestion {
    enum class Kind {
        Marks,     // does the row offer to open, does it hold pictures
        Children,  // the rows below
        Camera,    // a "DCIM" folder with a numbered folder on this volume
    };
    Kind kind = Kind::Marks;
    std::uint64_t serial = 0;  // the row asked about
    std::string path;          // its folder
    std::uint64_t round = 0;   // the tree's build (or camera search) the question belongs to
    std::string lane;          // questions of one lane are answered one after another
    FolderTreeOptions options;
};

struct FolderAnswer {
    FolderQuestion::Kind kind = FolderQuestion::Kind::Marks;
    std::uint64_t serial = 0;
    std::string path;
    std::uint64_t round = 0;
    bool hasSubFolder = false;          // Marks
    std::string exif;                   // Marks
    std::vector<ShownFolder> folders;   // Children; Camera: the volume's rows
    std::string dcim, folder;           // Camera: what was found ("" for nothing)
    std::vector<ShownFolder> dcimRows;  // Camera: the rows below the found "DCIM"

    // Reads the disk through `lister`; this is what runs on a worker.
    static FolderAnswer To(const FolderQuestion& q, const FolderLister& lister);
};

}  // namespace lumivex
