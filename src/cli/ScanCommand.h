#pragma once
// `lumivex scan [--verbose] FOLDER`: reads every thumbnail of a folder as the browser does and
// prints one line per item, then what it cost.
#include <cstdio>
#include <string>
#include <vector>

namespace lumivex {

class ScanCommand {
  public:
    int Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
};

}  // namespace lumivex
