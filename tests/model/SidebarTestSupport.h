#pragma once
// A scratch folder tree for sidebar tests, removed when the case ends.
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

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

// Makes `tree` the user's home (its "config" the settings folder) until the object goes.
class ScopedHome {
  public:
    explicit ScopedHome(const ScratchTree& tree) {
        for (const char* name : {"HOME", "XDG_CONFIG_HOME"})
            if (const char* v = ::getenv(name)) saved_.emplace_back(name, v);
        ::setenv("HOME", tree.Str().c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", tree.Str("config").c_str(), 1);
    }
    ~ScopedHome() {
        ::unsetenv("XDG_CONFIG_HOME");
        for (const auto& [name, value] : saved_)
            ::setenv(name.c_str(), value.c_str(), 1);
    }
    ScopedHome(const ScopedHome&) = delete;
    ScopedHome& operator=(const ScopedHome&) = delete;

  private:
    std::vector<std::pair<std::string, std::string>> saved_;
};

}  // namespace lumivex::test
