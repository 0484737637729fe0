#pragma once
// A one-line progress display on a terminal ("読み込み中... 120/2000"), redrawn at most ten
// times a second; silent when the stream is not a terminal or the job is short.
#include <chrono>
#include <cstddef>
#include <cstdio>

namespace lumivex {

class ProgressLine {
  public:
    ProgressLine(std::FILE* to, const char* label, std::size_t total);
    ~ProgressLine() { Finish(); }
    void Update(std::size_t done);
    void Finish();

  private:
    std::FILE* to_;
    const char* label_;
    std::size_t total_;
    bool active_;
    bool shown_ = false;
    std::chrono::steady_clock::time_point last_{};
};

}  // namespace lumivex
