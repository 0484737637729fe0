// Feeds arbitrary bytes to every entry point of the Exif engine, as a file's head would reach
// it, and checks the bounds the rest of the program relies on. A broken bound aborts, so that
// libFuzzer keeps the input like any crash.
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <span>
#include <string>

#include "exif/ExifReader.h"
#include "exif/ExifReport.h"

namespace {

using lumivex::ExifDict;
using lumivex::ExifReader;

void Require(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "broken bound: %s\n", what);
    std::abort();
}

std::size_t Lines(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\r'));
}

// No directory can hold more entries than the bytes it stands on, plus the one zero entry
// that stands for all the entries past the end of the file.
void CheckDirectories(const ExifReader& x, std::size_t size) {
    const std::size_t bound = size / 12 + 1;
    for (const auto* dir : {&x.IFD0_Dir, &x.IFD1_Dir, &x.IFDe_Dir, &x.IFDg_Dir})
        Require(dir->size() <= bound, "a directory table larger than the input");
    Require(x.IFD0_Dir.size() <= x.IFD0_Max, "IFD0 holds more entries than its count");
}

// Every key renders; a text can only hold bytes of the input (a JIS comment grows at most by
// half when it turns into UTF-8, and the GPS texts are short).
void WalkKeys(const ExifDict& d, std::size_t size) {
    for (const auto& item : d) {
        const auto text = lumivex::ExifReport::Value(d, item.key);
        Require(text.has_value(), "a stored key without a value text");
        Require(text->size() <= 2 * size + 64, "a value text longer than the input allows");
    }
}

void FuzzGetExif(ExifReader& x, std::span<const std::uint8_t> bytes) {
    x.fbytes = bytes;
    x.GetExif();
    CheckDirectories(x, bytes.size());
    if (!x.ret) {
        Require(x.IFD0.Empty() && x.IFD1.Empty() && x.IFDe.Empty() && x.IFDg.Empty(),
                "tags left behind by a failed load");
        return;
    }
    std::string s1, s2, s3, s4, s5, s6;
    x.GetInfo(s1, s2, s3, s4, s5, s6);
    // Texts 3 and 4 hold numbers and table words only; the others may quote a CR of the file.
    Require(Lines(s3) == 6 && Lines(s4) == 6, "a summary with the wrong number of lines");
    Require(Lines(s1) >= 4 && Lines(s2) >= 3 && Lines(s5) >= 30 && Lines(s6) >= 56,
            "a report missing lines");
    for (const ExifDict* d : {&x.IFD0, &x.IFD1, &x.IFDe, &x.IFDg})
        WalkKeys(*d, bytes.size());
}

void FuzzGetThumbNail(ExifReader& x, std::span<const std::uint8_t> bytes, bool flags) {
    x.fbytes = bytes;
    x.Orientation = flags;
    x.NoThumb = flags;
    x.GetThumbNail();
    Require(x.Rotate >= 0 && x.Rotate <= 3, "a turn out of range");
    if (!x.ret) return;
    const lumivex::Picture& p = x.Thumbnail;
    Require(!p.IsNull(), "success without a picture");
    Require(p.Pixels().size() == static_cast<std::size_t>(p.Width()) * p.Height() * 3,
            "pixels that do not match the size");
    Require(lumivex::Picture::SizeAllowed(p.Width(), p.Height()), "a picture beyond the cap");
    if (!flags) Require(x.Rotate == 0, "a turn with the switch off");
}

void FuzzSaveThumbNail(ExifReader& x, std::span<const std::uint8_t> bytes) {
    x.fbytes = bytes;
    bool asked = false;
    // Cancels every time: the fuzzer never writes a file.
    x.SaveThumbNail(
        [&](const lumivex::ThumbnailBlock& block) -> std::optional<std::filesystem::path> {
            Require(block.bytes.size() <= ExifReader::kMaxThumbnailBytes,
                    "an export block beyond the cap");
            Require(block.bytes.size() <= bytes.size(), "an export block longer than the input");
            asked = true;
            return std::nullopt;
        });
    if (asked) Require(x.ret, "a cancelled export that failed");
    const auto block = x.ReadThumbnailBlock();
    if (block) Require(block->bytes.size() <= bytes.size(), "a block longer than the input");
}

// The same bytes through a file, which is read in stretches (a first read, the head grown
// once, pages and blocks beyond it): everything must come out as it does from memory. The file
// is a memory file, so the fuzzer writes nothing to disk.
void FuzzFileMatchesMemory(std::span<const std::uint8_t> bytes, bool flags) {
    static const int fd = ::memfd_create("lumivex-fuzz", MFD_CLOEXEC);
    if (bytes.empty() || fd < 0 || ::ftruncate(fd, 0) != 0) return;
    // A memory file takes every byte in one write.
    if (::pwrite(fd, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) return;
    ExifReader file, memory;
    file.fitem = "/proc/self/fd/" + std::to_string(fd);
    memory.fbytes = bytes;
    file.GetExif();
    memory.GetExif();
    Require(file.ret == memory.ret, "a file and its bytes in memory load differently");
    if (file.ret) {
        std::string f[6], m[6];
        file.GetInfo(f[0], f[1], f[2], f[3], f[4], f[5]);
        memory.GetInfo(m[0], m[1], m[2], m[3], m[4], m[5]);
        for (int k = 0; k < 6; ++k)
            Require(f[k] == m[k], "a file and its bytes in memory give different reports");
    }
    for (ExifReader* x : {&file, &memory}) {
        x->Orientation = flags;
        x->NoThumb = flags;
        x->GetThumbNail();
    }
    Require(file.ret == memory.ret && file.Rotate == memory.Rotate &&
                file.Thumbnail == memory.Thumbnail,
            "a file and its bytes in memory give different thumbnails");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    // The first byte is never looked at by the walk, so its low bit can pick the switches
    // without changing what the engine reads.
    const bool flags = size > 0 && (data[0] & 1) != 0;
    ExifReader x;  // one object for all calls, as a scan reuses it file after file
    FuzzGetExif(x, bytes);
    FuzzGetThumbNail(x, bytes, flags);
    FuzzSaveThumbNail(x, bytes);
    FuzzFileMatchesMemory(bytes, flags);
    return 0;
}
