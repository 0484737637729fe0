#pragma once
// What lumivex-plus was asked to do by its arguments: browse (none), extract a folder (what a
// file manager's "open with" runs), or answer --help or --version. Qt's own options are taken
// out by QApplication before the arguments come here; --help and --version are also looked
// for before that, so that they need no display.
#include <filesystem>
#include <string>
#include <vector>

namespace lumivex {

class CommandLine {
  public:
    enum class Action { Browse, Extract, Help, Version, Error };

    // `args` without the program's name. --help and --version win over anything else before
    // "--"; otherwise every argument must be a folder that exists.
    static CommandLine Parse(const std::vector<std::string>& args);

    static std::string HelpText();     // for stdout
    static std::string VersionText();  // for stdout, e.g. "Lumivex Plus 4.3a1"

    Action action = Action::Browse;
    std::vector<std::filesystem::path> folders;  // Extract: in the order given
    std::string error;                           // Error: one Japanese sentence for the user

  private:
    // Error text for an argument that is not an existing folder; empty when it is one.
    static std::string CheckFolder(const std::string& arg);
};

}  // namespace lumivex
