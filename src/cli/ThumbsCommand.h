#pragma once
// `lumivex thumbs [--raw] [--out DIR] [--verbose] FOLDER`: takes the thumbnails out of a
// folder's pictures into DIR (default: the current folder). By default each is re-encoded as
// body + ".jpg"; with --raw the embedded bytes are written unchanged under the export name.
// An existing file is never replaced, and nothing is written into the source folder.
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace lumivex {

class ThumbsCommand {
  public:
    int Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);

  private:
    struct Options {
        bool raw = false;
        bool verbose = false;
        std::filesystem::path out = ".";
        std::filesystem::path folder;
    };
    static bool Parse(const std::vector<std::string>& args, Options& o, std::FILE* err);
    int Raw(const Options& o, std::FILE* out, std::FILE* err) const;
    int Extract(const Options& o, std::FILE* out, std::FILE* err) const;
};

}  // namespace lumivex
