#include "platform/DiskLabels.h"

#include <system_error>

namespace lumivex {
namespace {

namespace fs = std::filesystem;

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// The device a path names after every link is followed; the path itself when that fails.
fs::path DeviceOf(const fs::path& path) {
    std::error_code ec;
    fs::path real = fs::canonical(path, ec);
    return ec ? path : real;
}

}  // namespace

DiskLabels::DiskLabels(const fs::path& folder) {
    std::error_code ec;
    fs::directory_iterator it(folder, ec);
    for (; !ec && it != fs::directory_iterator() && labels_.size() < kMaxLabels; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        labels_.emplace_back(Decode(name), DeviceOf(it->path()));
    }
}

std::string DiskLabels::LabelOf(const std::string& device) const {
    if (device.empty() || device.front() != '/') return "";
    const fs::path wanted = DeviceOf(device);
    for (const auto& [label, dev] : labels_)
        if (dev == wanted) return label;
    return "";
}

std::string DiskLabels::Decode(std::string_view name) {
    std::string out;
    out.reserve(name.size());
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '\\' && i + 3 < name.size() && name[i + 1] == 'x' &&
            HexDigit(name[i + 2]) >= 0 && HexDigit(name[i + 3]) >= 0) {
            out.push_back(static_cast<char>(HexDigit(name[i + 2]) * 16 + HexDigit(name[i + 3])));
            i += 3;
        } else {
            out.push_back(name[i]);
        }
    }
    return out;
}

}  // namespace lumivex
