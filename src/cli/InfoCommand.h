#pragma once
// `lumivex info [--json] FILE...`: the report texts, or every stored tag as JSON, per file.
#include <cstdio>
#include <string>
#include <vector>

namespace lumivex {

class ExifReader;

class InfoCommand {
  public:
    // Returns the exit status: 0 when every file could be read, 1 otherwise, 2 on bad usage.
    int Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);

  private:
    void AppendJson(const std::string& file, const ExifReader& x, std::string& out) const;
    void AppendText(const std::string& file, const ExifReader& x, std::string& out) const;
};

}  // namespace lumivex
