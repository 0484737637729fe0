#pragma once
// The arguments of one `lumivex` command: switches ("--json"), options with a value
// ("--out DIR") and operands, checked against what the command accepts. "--" ends the
// switches, so that a file named "--raw" can still be given.
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace lumivex {

class CommandLine {
  public:
    struct Grammar {
        std::vector<std::string> switches;
        std::vector<std::string> options;  // each takes the argument after it
        std::size_t minOperands = 1;
        std::size_t maxOperands = 1;
        const char* usage = "";  // the line printed on a mistake
    };

    // False, with the usage line on `err`, for an unknown switch, an option without its value
    // or a wrong number of operands.
    bool Parse(const std::vector<std::string>& args, const Grammar& grammar, std::FILE* err);

    bool Has(const std::string& name) const;
    std::optional<std::string> Value(const std::string& name) const;
    const std::vector<std::string>& Operands() const { return operands_; }

  private:
    bool Accept(const std::vector<std::string>& args, const Grammar& grammar);

    std::vector<std::string> switches_;
    std::vector<std::pair<std::string, std::string>> values_;
    std::vector<std::string> operands_;
};

}  // namespace lumivex
