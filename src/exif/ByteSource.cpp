#include "exif/ByteSource.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace lumivex {

ByteSource::~ByteSource() {
    Close();
}

bool ByteSource::OpenFile(const std::filesystem::path& file) {
    Close();
    // O_NONBLOCK keeps the open of a FIFO from waiting for a writer; it is refused below.
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0) return false;
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return false;
    }
    // Read-ahead would fetch tens of KB past the few that a thumbnail needs.
    ::posix_fadvise(fd, 0, 0, POSIX_FADV_RANDOM);
    fd_ = fd;
    open_ = true;
    size_ = static_cast<std::uint64_t>(st.st_size);
    if (!head_) head_ = std::make_unique<std::uint8_t[]>(kHeadSize);
    const auto want = static_cast<std::size_t>(std::min<std::uint64_t>(size_, kFirstRead));
    headLen_ = ReadAt(0, head_.get(), want);
    // A file that shrank since fstat ends where the read ended.
    if (headLen_ < want) size_ = headLen_;
    return true;
}

void ByteSource::OpenMemory(std::span<const std::uint8_t> bytes) {
    Close();
    mem_ = bytes.data();
    size_ = bytes.size();
    open_ = true;
}

void ByteSource::Close() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
    mem_ = nullptr;
    open_ = false;
    size_ = 0;
    headLen_ = 0;
    expected_ = 0;
    for (Page& p : pages_)
        p.len = 0;
}

std::size_t ByteSource::ReadAt(std::uint64_t pos, std::uint8_t* out, std::size_t n) {
    std::size_t done = 0;
    while (done < n) {
        const ssize_t r = ::pread(fd_, out + done, n - done, static_cast<off_t>(pos + done));
        if (r < 0 && errno == EINTR) continue;
        if (r <= 0) break;  // end of file, or a card that went away: the rest reads as zero
        done += static_cast<std::size_t>(r);
    }
    bytesRead_ += done;
    return done;
}

void ByteSource::Reach(std::uint64_t first, std::uint64_t last) {
    if (mem_ != nullptr || last < headLen_ || first >= kHeadSize) return;
    // Whole pages: the kernel fetches them anyway. Past the expected end the hint was wrong,
    // and the rest of the head comes at once rather than value by value.
    std::uint64_t end = last < expected_ ? expected_ : kHeadSize;
    end = (end + kPageSize - 1) & ~std::uint64_t{kPageSize - 1};
    const auto want = static_cast<std::size_t>(std::min<std::uint64_t>({size_, kHeadSize, end}));
    if (want <= headLen_) return;
    headLen_ += ReadAt(headLen_, head_.get() + headLen_, want - headLen_);
    if (headLen_ < want) size_ = headLen_;
}

const ByteSource::Page& ByteSource::PageFor(std::uint64_t pos) {
    const std::uint64_t start = pos & ~std::uint64_t{kPageSize - 1};
    for (const Page& p : pages_)
        if (p.len > 0 && p.pos == start) return p;
    Page& p = pages_[nextPage_];
    nextPage_ = (nextPage_ + 1) % kPages;
    if (!p.data) p.data = std::make_unique<std::uint8_t[]>(kPageSize);
    p.pos = start;
    p.len = ReadAt(start, p.data.get(),
                   static_cast<std::size_t>(std::min<std::uint64_t>(kPageSize, size_ - start)));
    return p;
}

std::uint8_t ByteSource::At(std::uint64_t pos) {
    if (pos >= size_) return 0;
    if (mem_) return mem_[pos];
    if (pos < headLen_) return head_[pos];
    Reach(pos, pos);
    if (pos < headLen_) return head_[pos];
    if (pos >= size_) return 0;
    const Page& p = PageFor(pos);
    return pos - p.pos < p.len ? p.data[pos - p.pos] : 0;
}

void ByteSource::Copy(std::uint64_t pos, std::uint8_t* out, std::size_t n) {
    // An empty block has no buffer, and memcpy wants a real pointer even for no bytes.
    if (n == 0) return;
    std::size_t done = 0;
    if (pos < size_) Reach(pos, pos + std::min<std::uint64_t>(n, size_ - pos) - 1);
    if (pos < size_) {
        const auto avail = static_cast<std::size_t>(std::min<std::uint64_t>(n, size_ - pos));
        if (mem_) {
            std::memcpy(out, mem_ + pos, avail);
            done = avail;
        } else if (pos + avail <= headLen_) {
            std::memcpy(out, head_.get() + pos, avail);
            done = avail;
        } else if (avail <= 16) {
            for (; done < avail; ++done)
                out[done] = At(pos + done);
        } else {
            done = ReadAt(pos, out, avail);
        }
    }
    std::fill(out + done, out + n, std::uint8_t{0});
}

std::vector<std::uint8_t> ByteSource::Block(std::uint64_t pos, std::uint64_t n, std::uint64_t cap) {
    if (pos < size_ && n > 0 && cap > 0) Reach(pos, pos + std::min({n, size_ - pos, cap}) - 1);
    if (pos >= size_) return {};
    const std::uint64_t len = std::min({n, size_ - pos, cap});
    std::vector<std::uint8_t> out(static_cast<std::size_t>(len));
    if (mem_ || pos + len <= headLen_) {
        Copy(pos, out.data(), out.size());
    } else {
        out.resize(ReadAt(pos, out.data(), out.size()));
    }
    return out;
}

}  // namespace lumivex
