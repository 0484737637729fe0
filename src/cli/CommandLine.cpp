#include "cli/CommandLine.h"

#include <algorithm>

namespace lumivex {
namespace {

bool Contains(const std::vector<std::string>& list, const std::string& s) {
    return std::find(list.begin(), list.end(), s) != list.end();
}

}  // namespace

bool CommandLine::Accept(const std::vector<std::string>& args, const Grammar& grammar) {
    bool operandsOnly = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        if (operandsOnly || a.size() < 2 || a[0] != '-') {
            operands_.push_back(a);
        } else if (a == "--") {
            operandsOnly = true;
        } else if (Contains(grammar.switches, a)) {
            switches_.push_back(a);
        } else if (Contains(grammar.options, a) && i + 1 < args.size()) {
            values_.emplace_back(a, args[++i]);
        } else {
            return false;
        }
    }
    return operands_.size() >= grammar.minOperands && operands_.size() <= grammar.maxOperands;
}

bool CommandLine::Parse(const std::vector<std::string>& args, const Grammar& grammar,
                        std::FILE* err) {
    switches_.clear();
    values_.clear();
    operands_.clear();
    if (Accept(args, grammar)) return true;
    std::fprintf(err, "usage: %s\n", grammar.usage);
    return false;
}

bool CommandLine::Has(const std::string& name) const {
    return Contains(switches_, name);
}

std::optional<std::string> CommandLine::Value(const std::string& name) const {
    std::optional<std::string> last;  // a repeated option counts as given last
    for (const auto& [key, value] : values_)
        if (key == name) last = value;
    return last;
}

}  // namespace lumivex
