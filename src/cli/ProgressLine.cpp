#include "cli/ProgressLine.h"

#include <unistd.h>

namespace lumivex {

namespace {
constexpr std::size_t kLongJob = 200;  // entries below which no progress is worth showing
}

ProgressLine::ProgressLine(std::FILE* to, const char* label, std::size_t total)
    : to_(to), label_(label), total_(total), active_(total >= kLongJob && ::isatty(::fileno(to))) {}

void ProgressLine::Update(std::size_t done) {
    if (!active_) return;
    const auto now = std::chrono::steady_clock::now();
    if (shown_ && now - last_ < std::chrono::milliseconds(100) && done < total_) return;
    last_ = now;
    shown_ = true;
    std::fprintf(to_, "\r%s %zu/%zu", label_, done, total_);
    std::fflush(to_);
}

void ProgressLine::Finish() {
    if (!shown_) return;
    std::fputs("\r\033[K", to_);  // clear the line for what follows
    std::fflush(to_);
    shown_ = false;
}

}  // namespace lumivex
