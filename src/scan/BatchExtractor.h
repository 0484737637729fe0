#pragma once
// Takes the Exif thumbnail out of every image directly in a folder and writes each, re-encoded
// as JPEG at the highest quality, as body + ".jpg" into a target folder. A thumbnail never
// takes the place of a source image, nor of any other file: a target name that already exists
// is left alone and reported, and a target folder that is the source folder is refused.
// Records hold thumbnails in their stored form; each is decoded only while it is written.
#include <atomic>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "core/StoredThumbnail.h"
#include "scan/ScanOptions.h"
#include "scan/SkipReason.h"

namespace lumivex {

class ExifReader;
class FolderScan;

class BatchExtractor {
  public:
    // One candidate file of the source folder, in name order.
    struct Record {
        std::string fname;
        bool ifd1 = false;  // a thumbnail was extracted
        StoredThumbnail thumb;
        int rotate = 0;                               // quarter turns from the orientation tag
        SkipReason reason = SkipReason::NoThumbnail;  // why not, when ifd1 is false
    };
    struct Skipped {
        std::string fname;
        std::string reason;   // Japanese, for the user
        bool failed = false;  // a write that went wrong, not a file deliberately left alone
    };
    struct Report {
        std::size_t written = 0;
        std::vector<Skipped> skipped;
    };

    // Shared between the thread that does the work and the one that shows its progress.
    struct Control {
        std::atomic<std::size_t> total{0};  // entries (Collect) or records (Write) to handle
        std::atomic<std::size_t> done{0};
        std::atomic<bool> stop{false};  // set by the other thread: end soon, keep what is done
    };

    // Reads the folder; the scan goes no deeper. Candidates without a thumbnail are kept with
    // ifd1 false so that they can be reported.
    // onProgress gets the number of entries examined so far.
    static std::vector<Record> Collect(
        const std::filesystem::path& folder, ScanOptions options,
        const std::function<void(std::size_t)>& onProgress = nullptr);
    // The same, reporting through `control` and ending early when it says stop.
    static std::vector<Record> Collect(const std::filesystem::path& folder, ScanOptions options,
                                       Control& control);

    static bool HasThumbnail(const std::vector<Record>& records);
    // The file name a record is written under: the name without its last extension + ".jpg".
    static std::string TargetName(const std::string& fname);

    // Writes every record that has a thumbnail; progress counts records handled.
    static Report Write(const std::vector<Record>& records, const std::filesystem::path& source,
                        const std::filesystem::path& target,
                        std::atomic<std::size_t>* progress = nullptr);
    // The same, reporting through `control`; a stop leaves the remaining records unwritten.
    static Report Write(const std::vector<Record>& records, const std::filesystem::path& source,
                        const std::filesystem::path& target, Control& control);

    // Reads the folder and writes each thumbnail as soon as it is read, so nothing piles up:
    // the way for folders too large to hold. Pictures are decoded and encoded on several
    // threads; the files are written in name order. `report` grows as the writes go, and onRecord
    // gets each candidate after its write (at once when it has no thumbnail), in name order;
    // onProgress gets the entries examined.
    static void Extract(const std::filesystem::path& folder, ScanOptions options,
                        const std::filesystem::path& target, Report& report,
                        const std::function<void(const Record&)>& onRecord,
                        const std::function<void(std::size_t)>& onProgress = nullptr);

    static constexpr int kQuality = 100;

  private:
    static std::vector<Record> CollectFrom(FolderScan& scan,
                                           const std::function<void(std::size_t)>& onProgress,
                                           const std::atomic<bool>* stop);
    static Report WriteAll(const std::vector<Record>& records, const std::filesystem::path& source,
                           const std::filesystem::path& target, std::atomic<std::size_t>* progress,
                           const std::atomic<bool>* stop);
    struct Encoded;
    // Reads `file` with `x` into `e`: its record and, when `encode`, its picture as JPEG.
    static void EncodeOne(ExifReader& x, const std::filesystem::path& file, bool encode,
                          Encoded& e);
    // Writes the thumbnail of `fname`, encoded as `jpeg`, into `target`, noting a failure or a
    // skip in `report`.
    static void WriteOne(const std::string& fname, const std::vector<std::uint8_t>& jpeg,
                         const std::filesystem::path& target, bool sameFolder, Report& report);
};

}  // namespace lumivex
