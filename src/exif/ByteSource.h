#pragma once
// The bytes of one image file as the Exif engine sees them: the head is read into memory
// with one small read and, when a value lies beyond it, grown with one more read to the end
// the caller expects (the Exif segment's), or else to kHeadSize; positions beyond that are
// fetched a page or a block at a time, and every byte past the end of the file reads as zero.
// The kernel's read-ahead is off for the file: on a card reader each byte fetched beyond
// what is asked for costs time. A damaged or vanished file thus costs at most a few reads and
// never fails loudly.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <vector>

namespace lumivex {

class ByteSource {
  public:
    // Cameras write an Exif segment of some 8 to 64 KiB with the thumbnail at its end. The
    // first read covers the segment's header and the smallest segments; the rest follows in
    // one read once the segment's length is known, so that no byte beyond it is fetched.
    static constexpr std::size_t kFirstRead = 8 * 1024;
    static constexpr std::size_t kHeadSize = 64 * 1024;

    ByteSource() = default;
    ~ByteSource();
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    // Only regular files open; a FIFO or device would block or never end.
    bool OpenFile(const std::filesystem::path& file);
    // Reads from bytes the caller keeps alive until Close.
    void OpenMemory(std::span<const std::uint8_t> bytes);
    void Close();
    bool IsOpen() const { return open_; }

    std::uint64_t Size() const { return size_; }
    std::uint8_t At(std::uint64_t pos);
    // Copies n bytes from pos; bytes past the end are zero.
    void Copy(std::uint64_t pos, std::uint8_t* out, std::size_t n);
    // The bytes that the file really holds of [pos, pos + n), at most `cap` of them.
    std::vector<std::uint8_t> Block(std::uint64_t pos, std::uint64_t n, std::uint64_t cap);
    // The bytes up to `end` are likely to be asked for: a growth of the head reads up to
    // there at once. Forgotten at the next open.
    void Expect(std::uint64_t end) { expected_ = end; }
    // Bytes fetched from the file so far, for scan statistics.
    std::uint64_t BytesRead() const { return bytesRead_; }

  private:
    static constexpr std::size_t kPageSize = 4096;
    static constexpr std::size_t kPages = 8;
    struct Page {
        std::uint64_t pos = 0;
        std::size_t len = 0;
        std::unique_ptr<std::uint8_t[]> data;
    };

    std::size_t ReadAt(std::uint64_t pos, std::uint8_t* out, std::size_t n);
    // Grows the head when [first, last] starts within kHeadSize but ends past the bytes read
    // so far: to the expected end when that covers `last`, else to kHeadSize.
    void Reach(std::uint64_t first, std::uint64_t last);
    const Page& PageFor(std::uint64_t pos);

    bool open_ = false;
    int fd_ = -1;
    const std::uint8_t* mem_ = nullptr;
    std::uint64_t size_ = 0;
    std::unique_ptr<std::uint8_t[]> head_;
    std::size_t headLen_ = 0;
    std::uint64_t expected_ = 0;
    // A few small pages for values that lie beyond the head, so that a file whose pointers
    // jump around costs one small read per page and not one per value.
    Page pages_[kPages];
    std::size_t nextPage_ = 0;
    std::uint64_t bytesRead_ = 0;
};

}  // namespace lumivex
