#include "cli/TopCommand.h"

#include "cli/CommandLine.h"
#include "cli/InfoCommand.h"
#include "cli/ScanCommand.h"
#include "cli/TerminalText.h"
#include "cli/ThumbsCommand.h"
#include "core/Version.h"

namespace lumivex {

void TopCommand::Usage(std::FILE* to) {
    std::fputs(
        "usage: lumivex COMMAND [ARGS]\n"
        "  info [--json] FILE...   the Exif report of each file, or its tags as JSON lines\n"
        "  thumbs [--raw] [--out DIR] [--verbose] FOLDER\n"
        "                          the thumbnails of a folder's pictures into DIR (default: .),\n"
        "                          as body.jpg re-encoded, or with --raw the embedded bytes\n"
        "  scan [--verbose] [--threads N] FOLDER\n"
        "                          the folder's thumbnails as the browser reads them, timed;\n"
        "                          N files read at once (default: what suits a card reader)\n"
        "  --version               the program's version\n"
        "Text output shows control characters escaped (\\x1b, \\u009b) and bytes that are not\n"
        "UTF-8 as \\xHH. In JSON such a byte of a file name is \\udcHH (U+DC80..U+DCFF); the\n"
        "name's bytes come back with Python's os.fsencode(name), or by taking each such\n"
        "character as the byte 0xHH and encoding the rest as UTF-8.\n",
        to);
}

int TopCommand::Switches(const std::vector<std::string>& args, std::FILE* out, std::FILE* err) {
    CommandLine line;
    if (!line.Parse(args, {{"--help", "-h", "--version"}, {}, 0, 0, "lumivex --help | --version"},
                    err))
        return 2;
    if (line.Has("--version")) {
        std::fprintf(out, "lumivex %s\n", kVersionString);
    } else {
        Usage(out);
    }
    return 0;
}

int TopCommand::Run(std::vector<std::string> args, std::FILE* out, std::FILE* err) {
    if (args.empty()) {
        Usage(err);
        return 2;
    }
    if (args[0].starts_with('-')) return Switches(args, out, err);
    const std::string command = args[0];
    args.erase(args.begin());
    if (command == "info") return InfoCommand().Run(args, out, err);
    if (command == "thumbs") return ThumbsCommand().Run(args, out, err);
    if (command == "scan") return ScanCommand().Run(args, out, err);
    std::fprintf(err, "lumivex: unknown command '%s'\n", TerminalText(command).c_str());
    Usage(err);
    return 2;
}

}  // namespace lumivex
