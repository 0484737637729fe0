// The least a folder scan can cost: for each file one open, one 64 KiB read and a close, just
// enough Exif walking to find the IFD1 thumbnail, and a TurboJPEG decode into RGB, on two
// threads. No settings, no ordering of results, no library code: a floor to measure
// `lumivex scan` against, not a reader anyone should use.
// Usage: lumivex_floor_scan FOLDER
#include <dirent.h>
#include <fcntl.h>
#include <turbojpeg.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t kHeadBytes = 64 * 1024;
constexpr unsigned kThreads = 2;
// Far above any real thumbnail; keeps a damaged header from asking for gigabytes.
constexpr long kMaxPixels = 4096L * 4096L;

struct Span {
    const unsigned char* data;
    std::size_t size;
};

struct Tiff {
    Span bytes;  // the APP1 payload from the byte-order mark on, cut at the bytes read
    bool big;
    std::optional<std::uint32_t> U16(std::size_t at) const {
        if (at > bytes.size || bytes.size - at < 2) return std::nullopt;
        const unsigned char* p = bytes.data + at;
        return big ? (p[0] << 8 | p[1]) : (p[1] << 8 | p[0]);
    }
    std::optional<std::uint32_t> U32(std::size_t at) const {
        const auto hi = U16(big ? at : at + 2), lo = U16(big ? at + 2 : at);
        if (!hi || !lo) return std::nullopt;
        return *hi << 16 | *lo;
    }
};

std::vector<std::string> ListFolder(const std::string& folder) {
    std::vector<std::string> names;
    DIR* dir = opendir(folder.c_str());
    if (dir == nullptr) return names;
    while (const dirent* e = readdir(dir)) {
        if (e->d_name[0] == '.') continue;  // ".", ".." and hidden files
        if (e->d_type != DT_REG && e->d_type != DT_UNKNOWN) continue;
        names.emplace_back(e->d_name);
    }
    closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

std::size_t ReadHead(const std::string& path, std::vector<unsigned char>& buf) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return 0;
    const ssize_t n = pread(fd, buf.data(), buf.size(), 0);
    close(fd);
    return n > 0 ? static_cast<std::size_t>(n) : 0;
}

// The APP1 "Exif" payload (TIFF header onwards, up to the segment's end), after an optional
// APP0 right behind the start-of-image marker.
std::optional<Span> ExifPayload(Span head) {
    const unsigned char* p = head.data;
    if (head.size < 4 || p[0] != 0xFF || p[1] != 0xD8) return std::nullopt;
    std::size_t at = 2;
    for (int segment = 0; segment < 2; ++segment) {
        if (head.size - at < 4 || p[at] != 0xFF) return std::nullopt;
        const std::size_t length = p[at + 2] << 8 | p[at + 3];
        if (length < 2) return std::nullopt;
        if (p[at + 1] == 0xE1) {
            const std::size_t end = std::min(head.size, at + 2 + length);
            if (end < at + 10 || std::memcmp(p + at + 4, "Exif\0\0", 6) != 0) return std::nullopt;
            return Span{p + at + 10, end - (at + 10)};
        }
        if (p[at + 1] != 0xE0) return std::nullopt;
        at += 2 + length;
        if (at > head.size) return std::nullopt;
    }
    return std::nullopt;
}

std::optional<Tiff> ReadTiffHeader(Span exif) {
    if (exif.size < 8) return std::nullopt;
    const bool little = std::memcmp(exif.data, "II*\0", 4) == 0;
    const bool big = std::memcmp(exif.data, "MM\0*", 4) == 0;
    if (!little && !big) return std::nullopt;
    return Tiff{exif, big};
}

// Offset of IFD1, taken from the next-IFD pointer behind IFD0's entries.
std::optional<std::uint32_t> Ifd1Offset(const Tiff& t) {
    const auto ifd0 = t.U32(4);
    if (!ifd0) return std::nullopt;
    const auto count = t.U16(*ifd0);
    if (!count) return std::nullopt;
    return t.U32(std::size_t{*ifd0} + 2 + 12 * std::size_t{*count});
}

// The thumbnail's bytes named by IFD1's tags 0x0201 (offset) and 0x0202 (length).
std::optional<Span> Thumbnail(const Tiff& t) {
    const auto ifd1 = Ifd1Offset(t);
    if (!ifd1 || *ifd1 == 0) return std::nullopt;
    const auto count = t.U16(*ifd1);
    if (!count) return std::nullopt;
    std::optional<std::uint32_t> offset, length;
    for (std::size_t i = 0; i < *count; ++i) {
        const std::size_t entry = std::size_t{*ifd1} + 2 + 12 * i;
        const auto tag = t.U16(entry);
        if (!tag) return std::nullopt;  // the entries run past the bytes read
        if (*tag == 0x0201) offset = t.U32(entry + 8);
        if (*tag == 0x0202) length = t.U32(entry + 8);
    }
    if (!offset || !length || *length == 0) return std::nullopt;
    if (*offset > t.bytes.size || t.bytes.size - *offset < *length) return std::nullopt;
    return Span{t.bytes.data + *offset, *length};
}

bool Decode(tjhandle tj, Span jpeg, std::vector<unsigned char>& rgb) {
    int w = 0, h = 0, subsamp = 0, colorspace = 0;
    const unsigned char* data = jpeg.data;
    if (tjDecompressHeader3(tj, data, jpeg.size, &w, &h, &subsamp, &colorspace) != 0) return false;
    if (w <= 0 || h <= 0 || static_cast<long>(w) * h > kMaxPixels) return false;
    rgb.resize(static_cast<std::size_t>(w) * h * 3);
    return tjDecompress2(tj, data, jpeg.size, rgb.data(), w, w * 3, h, TJPF_RGB, 0) == 0;
}

bool ScanFile(const std::string& path, tjhandle tj, std::vector<unsigned char>& head,
              std::vector<unsigned char>& rgb) {
    const std::size_t n = ReadHead(path, head);
    const auto exif = ExifPayload(Span{head.data(), n});
    const auto tiff = exif ? ReadTiffHeader(*exif) : std::nullopt;
    const auto thumb = tiff ? Thumbnail(*tiff) : std::nullopt;
    return thumb && Decode(tj, *thumb, rgb);
}

void Worker(const std::string& folder, const std::vector<std::string>& names,
            std::atomic<std::size_t>& next, std::atomic<std::size_t>& decoded) {
    tjhandle tj = tjInitDecompress();
    if (tj == nullptr) return;
    std::vector<unsigned char> head(kHeadBytes), rgb;
    std::size_t mine = 0;
    while (true) {
        const std::size_t i = next.fetch_add(1, std::memory_order_relaxed);
        if (i >= names.size()) break;
        if (ScanFile(folder + "/" + names[i], tj, head, rgb)) ++mine;
    }
    decoded.fetch_add(mine, std::memory_order_relaxed);
    tjDestroy(tj);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: lumivex_floor_scan FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = argv[1];
    const std::vector<std::string> names = ListFolder(folder);
    std::atomic<std::size_t> next{0}, decoded{0};
    std::vector<std::thread> threads;
    for (unsigned t = 0; t < kThreads; ++t)
        threads.emplace_back(Worker, std::cref(folder), std::cref(names), std::ref(next),
                             std::ref(decoded));
    for (auto& t : threads)
        t.join();
    std::printf("decoded %zu of %zu files\n", decoded.load(), names.size());
    return 0;
}
