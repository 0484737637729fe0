#pragma once
// A scratch folder tree for sidebar tests, removed when the case ends.
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "ExifJpegBuilder.h"
#include "ScratchDir.h"

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
    // A camera picture, with or without its embedded thumbnail.
    void Picture(const std::string& rel, bool thumbnail = true) const {
        std::filesystem::create_directories(Path(rel).parent_path());
        fixtures::ExifJpegBuilder b;
        b.Ifd0().Ascii(0x010F, "Canon");
        if (thumbnail) b.JpegThumbnail(32, 24);
        b.Write(Path(rel));
    }
    void Link(const std::filesystem::path& target, const std::string& rel) const {
        std::filesystem::create_symlink(target, Path(rel));
    }
};

}  // namespace lumivex::test
