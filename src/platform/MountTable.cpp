#include "platform/MountTable.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>

namespace lumivex {
namespace {

std::vector<std::string_view> SplitBlanks(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t pos = 0;
    while (pos < line.size()) {
        const std::size_t end = std::min(line.find(' ', pos), line.size());
        if (end > pos) fields.push_back(line.substr(pos, end - pos));
        pos = end + 1;
    }
    return fields;
}

template <typename T>
bool ToNumber(std::string_view text, T& out) {
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), out);
    return ec == std::errc() && end == text.data() + text.size();
}

bool IsOctal(char c) {
    return c >= '0' && c <= '7';
}

// The whole file, read in pieces: /proc reports a size of 0, so a stat cannot size it.
std::string ReadBounded(const std::filesystem::path& file, std::size_t limit) {
    std::string text;
    const int fd = ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) return text;
    char buffer[16384];
    while (text.size() < limit) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) break;
        text.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(fd);
    if (text.size() > limit) text.resize(limit);
    return text;
}

}  // namespace

std::string MountTable::Unescape(std::string_view field) {
    std::string out;
    out.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
            IsOctal(field[i + 2]) && IsOctal(field[i + 3])) {
            out.push_back(static_cast<char>(((field[i + 1] - '0') << 6) |
                                            ((field[i + 2] - '0') << 3) | (field[i + 3] - '0')));
            i += 3;
        } else {
            out.push_back(field[i]);
        }
    }
    return out;
}

bool MountTable::ParseLine(std::string_view line, MountEntry& entry) {
    const std::vector<std::string_view> f = SplitBlanks(line);
    const auto dash = std::find(f.begin() + std::min<std::size_t>(f.size(), 6), f.end(), "-");
    if (f.size() < 10 || dash == f.end() || f.end() - dash < 3) return false;
    const std::string_view device = f[2];
    const std::size_t colon = device.find(':');
    if (colon == std::string_view::npos || !ToNumber(f[0], entry.mountId) ||
        !ToNumber(device.substr(0, colon), entry.major) ||
        !ToNumber(device.substr(colon + 1), entry.minor))
        return false;
    entry.root = Unescape(f[3]);
    entry.mountPoint = Unescape(f[4]);
    entry.fsType = Unescape(dash[1]);
    entry.source = Unescape(dash[2]);
    return !entry.mountPoint.empty() && entry.mountPoint.front() == '/';
}

MountTable MountTable::Parse(std::string_view text) {
    MountTable table;
    std::size_t pos = 0;
    while (pos < text.size() && table.entries_.size() < kMaxEntries) {
        const std::size_t end = std::min(text.find('\n', pos), text.size());
        MountEntry entry;
        if (ParseLine(text.substr(pos, end - pos), entry)) table.entries_.push_back(entry);
        pos = end + 1;
    }
    return table;
}

MountTable MountTable::Read(const std::filesystem::path& file) {
    return Parse(ReadBounded(file, kMaxBytes));
}

const MountEntry* MountTable::Find(std::string_view mountPoint) const {
    const auto it = std::find_if(entries_.rbegin(), entries_.rend(),
                                 [&](const MountEntry& e) { return e.mountPoint == mountPoint; });
    return it == entries_.rend() ? nullptr : &*it;
}

}  // namespace lumivex
