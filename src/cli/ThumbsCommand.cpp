#include "cli/ThumbsCommand.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "cli/CliSettings.h"
#include "cli/CommandLine.h"
#include "cli/FolderCheck.h"
#include "cli/ProgressLine.h"
#include "cli/TerminalText.h"
#include "core/ErrorText.h"
#include "core/OutputFile.h"
#include "exif/ExifReader.h"
#include "scan/BatchExtractor.h"
#include "scan/FolderScan.h"
#include "scan/OrderedParallel.h"

namespace lumivex {
namespace {

using Clock = std::chrono::steady_clock;

void Summary(std::FILE* out, std::size_t entries, std::size_t written, std::size_t skipped,
             Clock::time_point start) {
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::fprintf(out, "files %zu, written %zu, skipped %zu, %.3f s, %.0f files/s\n", entries,
                 written, skipped, seconds,
                 seconds > 0 ? static_cast<double>(entries) / seconds : 0.0);
}

// A failed write is an error of the run; a skip is only news when asked for.
void Report(std::FILE* err, bool failed, const std::string& name, const std::string& why) {
    std::fprintf(err, "%s: %s: %s\n", failed ? "lumivex" : "skip", TerminalText(name).c_str(),
                 TerminalText(why).c_str());
}

}  // namespace

bool ThumbsCommand::Parse(const std::vector<std::string>& args, Options& o, std::FILE* err) {
    CommandLine line;
    if (!line.Parse(args,
                    {{"--raw", "--verbose"},
                     {"--out"},
                     1,
                     1,
                     "lumivex thumbs [--raw] [--out DIR] [--verbose] FOLDER"},
                    err))
        return false;
    o.raw = line.Has("--raw");
    o.verbose = line.Has("--verbose");
    o.out = line.Value("--out").value_or(".");
    o.folder = line.Operands()[0];
    return true;
}

int ThumbsCommand::Run(const std::vector<std::string>& args, std::FILE* out, std::FILE* err) {
    Options o;
    if (!Parse(args, o, err)) return 2;
    if (!FolderCheck::Exists(o.folder, err)) return 1;
    std::error_code ec;
    std::filesystem::create_directories(o.out, ec);
    if (!ec && !std::filesystem::is_directory(o.out, ec) && !ec)
        ec = std::make_error_code(std::errc::not_a_directory);
    if (ec) {
        std::fprintf(err, "lumivex: %s: 書き出し先のフォルダを作れません（%s）。\n",
                     TerminalText(o.out.string()).c_str(), ErrorText(ec.value()).c_str());
        return 1;
    }
    // Either mode: a card's folder only ever gets read.
    if (FolderCheck::Same(o.folder, o.out)) {
        std::fprintf(err, "lumivex: %s: 取り出し先が元のフォルダと同じです。\n",
                     TerminalText(o.out.string()).c_str());
        return 1;
    }
    return o.raw ? Raw(o, out, err) : Extract(o, out, err);
}

// The embedded blocks, written as they stand; files are read and written on a few threads,
// and the verbose lines still come in name order.
int ThumbsCommand::Raw(const Options& o, std::FILE* out, std::FILE* err) const {
    const auto start = Clock::now();
    const ScanOptions scanOptions = ScanOptions::FromSettings(CliSettings::Load());
    const FolderScan listing(o.folder, scanOptions);
    if (!FolderCheck::Listed(listing, o.folder, err)) return 1;
    const auto& names = listing.Entries();
    struct Result {
        bool written = false;
        bool failed = false;  // a write that went wrong, reported whether verbose or not
        std::string why;
    };
    const unsigned threads = std::max(1u, std::min(4u, std::thread::hardware_concurrency()));
    std::vector<ExifReader> readers(threads);
    for (auto& x : readers)
        x.ReadAllTags = false;
    std::size_t written = 0, skipped = 0;
    bool failed = false;
    // The target folder is opened once and every file is created in it by name.
    const int outFd = ::open(o.out.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (outFd < 0) {
        std::fprintf(err, "lumivex: %s: 書き出し先のフォルダを開けません（%s）。\n",
                     TerminalText(o.out.string()).c_str(), ErrorText(errno).c_str());
        return 1;
    }
    ProgressLine progress(err, "書き出し中...", names.size());
    OrderedParallel<Result>::Run(
        names.size(), threads, FolderScan::kLookAhead,
        [&](unsigned w, std::size_t i, Result& r) {
            r = Result{};
            if (!scanOptions.filter.Accepts(names[i])) {
                r.why = SkipReasonText(SkipReason::NotAnImageName);
                return;
            }
            ExifReader& x = readers[w];
            x.fitem = o.folder / names[i];
            const auto block = x.ReadThumbnailBlock();
            if (!block) {
                r.why = SkipText(x.fitem, SkipReasonOf(x.Opened(), x.ret));
                return;
            }
            switch (OutputFile::CreateNewIn(outFd, block->suggestedName.c_str(), block->bytes)) {
                case OutputFile::Result::Written:
                    r.written = true;
                    break;
                case OutputFile::Result::Exists:
                    r.why = "同じ名前のファイルがあります";
                    break;
                case OutputFile::Result::Failed:
                    r.failed = true;
                    r.why = block->suggestedName + " を書き込めません（" + ErrorText(errno) + "）";
                    break;
            }
        },
        [&](std::size_t i, Result& r) {
            if (r.written) {
                ++written;
            } else {
                ++skipped;
                failed = failed || r.failed;
                if (o.verbose || r.failed) {
                    progress.Finish();
                    Report(err, r.failed, names[i], r.why);
                }
            }
            progress.Update(i + 1);
        });
    progress.Finish();
    ::close(outFd);
    Summary(out, names.size(), written, skipped, start);
    return failed ? 1 : 0;
}

// Each thumbnail is written as soon as it is read; lines about skips come in name order.
int ThumbsCommand::Extract(const Options& o, std::FILE* out, std::FILE* err) const {
    const auto start = Clock::now();
    ScanOptions scanOptions = ScanOptions::FromSettings(CliSettings::Load());
    const FolderScan listing(o.folder, scanOptions);
    if (!FolderCheck::Listed(listing, o.folder, err)) return 1;
    const std::size_t entries = listing.EntryCount();
    ProgressLine progress(err, "書き出し中...", entries);
    std::size_t skipped = 0, reported = 0;
    bool failed = false;
    BatchExtractor::Report report;
    BatchExtractor::Extract(
        o.folder, std::move(scanOptions), o.out, report,
        [&](const BatchExtractor::Record& r) {
            if (!r.ifd1) {
                ++skipped;
                if (o.verbose) {
                    progress.Finish();
                    Report(err, false, r.fname, SkipText(o.folder / r.fname, r.reason));
                }
            }
            // The write just made may have added a skip of its own.
            for (; reported < report.skipped.size(); ++reported) {
                const auto& s = report.skipped[reported];
                failed = failed || s.failed;
                if (o.verbose || s.failed) {
                    progress.Finish();
                    Report(err, s.failed, s.fname, s.reason);
                }
            }
        },
        [&](std::size_t n) { progress.Update(n); });
    progress.Finish();
    Summary(out, entries, report.written, skipped + report.skipped.size(), start);
    return failed ? 1 : 0;
}

}  // namespace lumivex
