// lumivex: the headless command over the core library.

#include <cstdio>
#include <string>
#include <vector>

#include "cli/InfoCommand.h"
#include "cli/ScanCommand.h"
#include "cli/ThumbsCommand.h"
#include "core/HeapTuning.h"

namespace {

void Usage(std::FILE* to) {
    std::fputs(
        "usage: lumivex COMMAND [ARGS]\n"
        "  info [--json] FILE...   the Exif report of each file, or its tags as JSON lines\n"
        "  thumbs [--raw] [--out DIR] [--verbose] FOLDER\n"
        "                          the thumbnails of a folder's pictures into DIR (default: .),\n"
        "                          as body.jpg re-encoded, or with --raw the embedded bytes\n"
        "  scan [--verbose] FOLDER the folder's thumbnails as the browser reads them, timed\n"
        "Text output shows control characters escaped (\\x1b, \\u009b) and bytes that are not\n"
        "UTF-8 as \\xHH. In JSON such a byte of a file name is \\udcHH (U+DC80..U+DCFF); the\n"
        "name's bytes come back with Python's os.fsencode(name), or by taking each such\n"
        "character as the byte 0xHH and encoding the rest as UTF-8.\n",
        to);
}

}  // namespace

int main(int argc, char** argv) {
    lumivex::TuneHeapForScans();
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "--help" || args[0] == "-h") {
        Usage(args.empty() ? stderr : stdout);
        return args.empty() ? 2 : 0;
    }
    const std::string command = args[0];
    args.erase(args.begin());
    if (command == "info") return lumivex::InfoCommand().Run(args, stdout, stderr);
    if (command == "thumbs") return lumivex::ThumbsCommand().Run(args, stdout, stderr);
    if (command == "scan") return lumivex::ScanCommand().Run(args, stdout, stderr);
    std::fprintf(stderr, "lumivex: unknown command '%s'\n", command.c_str());
    Usage(stderr);
    return 2;
}
