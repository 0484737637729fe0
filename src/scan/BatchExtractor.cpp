#include "scan/BatchExtractor.h"

#include <cerrno>

#include "core/ErrorText.h"
#include "core/Globals.h"
#include "core/JpegCodec.h"
#include "core/OutputFile.h"
#include "scan/FolderScan.h"

namespace lumivex {

std::vector<BatchExtractor::Record> BatchExtractor::Collect(
    const std::filesystem::path& folder, ScanOptions options,
    const std::function<void(std::size_t)>& onProgress) {
    options.noThumb = false;  // a placeholder is no thumbnail to extract
    FolderScan scan(folder, std::move(options));
    return CollectFrom(scan, onProgress, nullptr);
}

std::vector<BatchExtractor::Record> BatchExtractor::Collect(const std::filesystem::path& folder,
                                                            ScanOptions options, Control& control) {
    options.noThumb = false;
    FolderScan scan(folder, std::move(options));
    control.total.store(scan.EntryCount(), std::memory_order_release);
    return CollectFrom(
        scan, [&control](std::size_t n) { control.done.store(n, std::memory_order_release); },
        &control.stop);
}

std::vector<BatchExtractor::Record> BatchExtractor::CollectFrom(
    FolderScan& scan, const std::function<void(std::size_t)>& onProgress,
    const std::atomic<bool>* stop) {
    std::vector<Record> records;
    Scan(
        scan, [&](Record&& r) { records.push_back(std::move(r)); }, onProgress, stop);
    return records;
}

void BatchExtractor::Scan(FolderScan& scan, const std::function<void(Record&&)>& onRecord,
                          const std::function<void(std::size_t)>& onProgress,
                          const std::atomic<bool>* stop) {
    std::size_t examined = 0;
    // Handed-out entries come in name order on this thread, so this is where a stop is heard.
    auto tick = [&] {
        if (onProgress) onProgress(++examined);
        if (stop != nullptr && stop->load(std::memory_order_acquire)) scan.Stop();
    };
    scan.Run(
        [&](ScanItem&& item) {
            onRecord(Record{std::move(item.fname), true, std::move(item.thumb), item.rotate});
            tick();
        },
        [&](const std::string& name, SkipReason reason) {
            if (reason != SkipReason::NotAnImageName) onRecord(Record{name, false, {}, 0, reason});
            tick();
        });
}

void BatchExtractor::Extract(const std::filesystem::path& folder, ScanOptions options,
                             const std::filesystem::path& target, Report& report,
                             const std::function<void(const Record&)>& onRecord,
                             const std::function<void(std::size_t)>& onProgress) {
    options.noThumb = false;
    std::error_code ec;
    const bool sameFolder = std::filesystem::equivalent(folder, target, ec);
    FolderScan scan(folder, std::move(options));
    Scan(
        scan,
        [&](Record&& r) {
            if (r.ifd1) WriteOne(r, target, sameFolder, report);
            if (onRecord) onRecord(r);
        },
        onProgress, nullptr);
}

bool BatchExtractor::HasThumbnail(const std::vector<Record>& records) {
    for (const Record& r : records)
        if (r.ifd1) return true;
    return false;
}

std::string BatchExtractor::TargetName(const std::string& fname) {
    std::string body, extn;
    gExtractBodyAndExtn(fname, body, extn);
    return body + ".jpg";
}

BatchExtractor::Report BatchExtractor::Write(const std::vector<Record>& records,
                                             const std::filesystem::path& source,
                                             const std::filesystem::path& target,
                                             std::atomic<std::size_t>* progress) {
    return WriteAll(records, source, target, progress, nullptr);
}

BatchExtractor::Report BatchExtractor::Write(const std::vector<Record>& records,
                                             const std::filesystem::path& source,
                                             const std::filesystem::path& target,
                                             Control& control) {
    control.total.store(records.size(), std::memory_order_release);
    return WriteAll(records, source, target, &control.done, &control.stop);
}

BatchExtractor::Report BatchExtractor::WriteAll(const std::vector<Record>& records,
                                                const std::filesystem::path& source,
                                                const std::filesystem::path& target,
                                                std::atomic<std::size_t>* progress,
                                                const std::atomic<bool>* stop) {
    Report report;
    std::error_code ec;
    const bool sameFolder = std::filesystem::equivalent(source, target, ec);
    std::size_t handled = 0;
    for (const Record& r : records) {
        if (stop != nullptr && stop->load(std::memory_order_acquire)) break;
        if (progress) progress->store(++handled, std::memory_order_release);
        if (r.ifd1) WriteOne(r, target, sameFolder, report);
    }
    return report;
}

void BatchExtractor::WriteOne(const Record& r, const std::filesystem::path& target, bool sameFolder,
                              Report& report) {
    const std::string name = TargetName(r.fname);
    if (sameFolder) {
        report.skipped.push_back({r.fname, "取り出し先が元のフォルダと同じです"});
        return;
    }
    const auto jpeg = JpegCodec::Encode(r.thumb.Decode(r.rotate), kQuality);
    if (jpeg.empty()) {
        report.skipped.push_back({r.fname, "JPEGに変換できません", true});
        return;
    }
    switch (OutputFile::CreateNew(target / name, jpeg)) {
        case OutputFile::Result::Written:
            ++report.written;
            break;
        case OutputFile::Result::Exists:
            report.skipped.push_back({r.fname, "同じ名前のファイル " + name + " があります"});
            break;
        case OutputFile::Result::Failed:
            report.skipped.push_back(
                {r.fname, name + " を書き込めません（" + ErrorText(errno) + "）", true});
            break;
    }
}

}  // namespace lumivex
