#include "cli/ScanCommand.h"

#include <charconv>
#include <chrono>
#include <optional>

#include "cli/CliSettings.h"
#include "cli/CommandLine.h"
#include "cli/FolderCheck.h"
#include "cli/ProgressLine.h"
#include "cli/TerminalText.h"
#include "scan/FolderScan.h"

namespace lumivex {
namespace {

constexpr unsigned kMaxThreads = 16;

std::optional<unsigned> Threads(const std::string& text) {
    unsigned n = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), n);
    if (ec != std::errc() || end != text.data() + text.size() || n < 1 || n > kMaxThreads)
        return std::nullopt;
    return n;
}

}  // namespace

int ScanCommand::Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err) {
    CommandLine line;
    const char* usage = "lumivex scan [--verbose] [--threads N] FOLDER";
    if (!line.Parse(args, {{"--verbose"}, {"--threads"}, 1, 1, usage}, err)) return 2;
    ScanOptions options = ScanOptions::FromSettings(CliSettings::Load());
    if (const auto threads = line.Value("--threads")) {
        const auto n = Threads(*threads);
        if (!n) {
            std::fprintf(err, "usage: %s (N from 1 to %u)\n", usage, kMaxThreads);
            return 2;
        }
        options.threads = *n;
    }
    const bool verbose = line.Has("--verbose");
    const std::vector<std::string>& folders = line.Operands();
    if (!FolderCheck::Exists(folders[0], err)) return 1;
    const auto start = std::chrono::steady_clock::now();
    FolderScan scan(folders[0], std::move(options));
    if (!FolderCheck::Listed(scan, folders[0], err)) return 1;
    ProgressLine progress(err, "読み込み中...", scan.EntryCount());
    std::size_t seen = 0;
    const ScanStats stats = scan.Run(
        [&](ScanItem&& item) {
            progress.Finish();
            std::fprintf(out, "%s %dx%d %d\n", TerminalText(item.fname).c_str(), item.w, item.h,
                         item.rotate);
            progress.Update(++seen);
        },
        [&](const std::string& name, SkipReason reason) {
            if (verbose) {
                progress.Finish();
                std::fprintf(err, "skip: %s: %s\n", TerminalText(name).c_str(),
                             SkipText(folders[0] / std::filesystem::path(name), reason).c_str());
            }
            progress.Update(++seen);
        });
    progress.Finish();
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::fprintf(out, "files %zu, items %zu, bytes read %llu, %.3f s, %.0f files/s\n",
                 stats.entries, stats.items, static_cast<unsigned long long>(stats.bytesRead),
                 seconds, seconds > 0 ? static_cast<double>(stats.entries) / seconds : 0.0);
    return 0;
}

}  // namespace lumivex
