#include "app/CommandLine.h"

#include <system_error>

#include "core/Version.h"

namespace lumivex {
namespace {

bool IsOption(const std::string& arg) {
    return arg.size() > 1 && arg[0] == '-';
}

// --help or --version before "--", when asked for: they answer whatever else stands there.
CommandLine::Action EarlyAnswer(const std::vector<std::string>& args) {
    for (const std::string& a : args) {
        if (a == "--") break;
        if (a == "--help" || a == "-h") return CommandLine::Action::Help;
        if (a == "--version") return CommandLine::Action::Version;
    }
    return CommandLine::Action::Browse;
}

}  // namespace

CommandLine CommandLine::Parse(const std::vector<std::string>& args) {
    CommandLine c;
    c.action = EarlyAnswer(args);
    if (c.action != Action::Browse) return c;
    bool optionsEnded = false;
    for (const std::string& a : args) {
        if (!optionsEnded && a == "--") {
            optionsEnded = true;
            continue;
        }
        c.error = !optionsEnded && IsOption(a) ? "「" + a + "」は使えないオプションです。"
                                               : CheckFolder(a);
        if (!c.error.empty()) {
            c.action = Action::Error;
            c.folders.clear();
            return c;
        }
        c.folders.emplace_back(a);
    }
    if (!c.folders.empty()) c.action = Action::Extract;
    return c;
}

std::string CommandLine::CheckFolder(const std::string& arg) {
    std::error_code ec;
    const auto status = std::filesystem::status(arg, ec);
    if (arg.empty() || !std::filesystem::exists(status)) return "「" + arg + "」が見つかりません。";
    if (!std::filesystem::is_directory(status))
        return "「" + arg + "」はフォルダではありません。フォルダを指定してください。";
    return {};
}

std::string CommandLine::HelpText() {
    return "使い方: lumivex-plus [フォルダ]\n"
           "  フォルダを指定しないと、ウインドウを開いてサムネールを表示します。\n"
           "  フォルダを指定すると、その中の画像からサムネールを取り出し、\n"
           "  書き出し先のフォルダを尋ねてJPEGで書き出したあと、終了します。\n"
           "  フォルダを複数指定したときは、最初のフォルダだけを取り出します。\n"
           "\n"
           "  -h, --help     この説明を表示して終了します\n"
           "      --version  バージョンを表示して終了します\n";
}

std::string CommandLine::VersionText() {
    return std::string("Lumivex Plus ") + kVersionString + "\n";
}

}  // namespace lumivex
