#pragma once
// `lumivex [--help | --version | COMMAND ARGS...]`: the program's own switches, and the hand-off
// to the command named first.
#include <cstdio>
#include <string>
#include <vector>

namespace lumivex {

class TopCommand {
  public:
    // The exit status: the command's, 0 for --help and --version, 2 on bad usage.
    int Run(std::vector<std::string> args, std::FILE* out, std::FILE* err);

  private:
    static void Usage(std::FILE* to);
    static int Switches(const std::vector<std::string>& args, std::FILE* out, std::FILE* err);
};

}  // namespace lumivex
