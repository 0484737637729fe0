#include "scan/BatchExtractor.h"

#include <cerrno>

#include "core/ErrorText.h"
#include "core/Globals.h"
#include "core/JpegCodec.h"
#include "core/OutputFile.h"
#include "exif/ExifReader.h"
#include "scan/FolderScan.h"
#include "scan/OrderedParallel.h"

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
    std::size_t examined = 0;
    // Handed-out entries come in name order on this thread, so this is where a stop is heard.
    auto tick = [&] {
        if (onProgress) onProgress(++examined);
        if (stop != nullptr && stop->load(std::memory_order_acquire)) scan.Stop();
    };
    scan.Run(
        [&](ScanItem&& item) {
            records.push_back(Record{item.fname, true, std::move(item.thumb), item.rotate});
            tick();
        },
        [&](const std::string& name, SkipReason reason) {
            if (reason != SkipReason::NotAnImageName)
                records.push_back(Record{name, false, {}, 0, reason});
            tick();
        });
    return records;
}

// One entry as a reading thread leaves it: the record, and the encoded picture to write.
struct BatchExtractor::Encoded {
    bool candidate = false;  // an image file name
    Record record;
    std::vector<std::uint8_t> jpeg;
};

void BatchExtractor::Extract(const std::filesystem::path& folder, ScanOptions options,
                             const std::filesystem::path& target, Report& report,
                             const std::function<void(const Record&)>& onRecord,
                             const std::function<void(std::size_t)>& onProgress) {
    std::error_code ec;
    const bool sameFolder = std::filesystem::equivalent(folder, target, ec);
    options.noThumb = false;  // a placeholder is no thumbnail to extract
    const FolderScan listing(folder, options);
    const auto& names = listing.Entries();
    std::vector<ExifReader> readers = FolderScan::Readers(options);
    const auto threads = static_cast<unsigned>(readers.size());
    // Reading, decoding and encoding run on every thread; the files are written here, in name
    // order, so that of two sources with one target name the first still wins.
    OrderedParallel<Encoded>::Run(
        names.size(), threads, FolderScan::kLookAhead,
        [&](unsigned w, std::size_t i, Encoded& e) {
            e = Encoded{};
            if (!options.filter.Accepts(names[i])) return;
            e.candidate = true;
            EncodeOne(readers[w], folder / names[i], !sameFolder, e);
        },
        [&](std::size_t i, Encoded& e) {
            if (e.record.ifd1) WriteOne(e.record.fname, e.jpeg, target, sameFolder, report);
            if (e.candidate && onRecord) onRecord(e.record);
            if (onProgress) onProgress(i + 1);
            e.jpeg = {};  // the slot waits for its next entry without the picture
        });
}

void BatchExtractor::EncodeOne(ExifReader& x, const std::filesystem::path& file, bool encode,
                               Encoded& e) {
    x.fitem = file;
    x.GetThumbNail();
    e.record.fname = file.filename().string();
    e.record.ifd1 = x.ret;
    if (!x.ret) {
        e.record.reason = SkipReasonOf(x.Opened(), x.outcome != ExifReader::Outcome::NoExif);
        return;
    }
    if (encode) e.jpeg = JpegCodec::Encode(x.Thumbnail, kQuality);
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
        if (r.ifd1)
            WriteOne(r.fname,
                     sameFolder ? std::vector<std::uint8_t>{}
                                : JpegCodec::Encode(r.thumb.Decode(r.rotate), kQuality),
                     target, sameFolder, report);
    }
    return report;
}

void BatchExtractor::WriteOne(const std::string& fname, const std::vector<std::uint8_t>& jpeg,
                              const std::filesystem::path& target, bool sameFolder,
                              Report& report) {
    const std::string name = TargetName(fname);
    if (sameFolder) {
        report.skipped.push_back({fname, "取り出し先が元のフォルダと同じです"});
        return;
    }
    if (jpeg.empty()) {
        report.skipped.push_back({fname, "JPEGに変換できません", true});
        return;
    }
    switch (OutputFile::CreateNew(target / name, jpeg)) {
        case OutputFile::Result::Written:
            ++report.written;
            break;
        case OutputFile::Result::Exists:
            report.skipped.push_back({fname, "同じ名前のファイル " + name + " があります"});
            break;
        case OutputFile::Result::Failed:
            report.skipped.push_back(
                {fname, name + " を書き込めません（" + ErrorText(errno) + "）", true});
            break;
    }
}

}  // namespace lumivex
