// The progress line: only on a terminal and for a long job, at most ten redraws a second,
// always the last count, and a clean line for what follows.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "cli/ProgressLine.h"

namespace lumivex {
namespace {

// What reached the terminal: everything up to a mark written after it, since a pseudo
// terminal passes bytes on in its own time.
std::string Drain(int master, int slave) {
    EXPECT_EQ(::write(slave, "#", 1), 1);
    std::string got;
    char buf[256];
    while (got.empty() || got.back() != '#') {
        pollfd p{master, POLLIN, 0};
        const ssize_t n = ::poll(&p, 1, 2000) > 0 ? ::read(master, buf, sizeof buf) : -1;
        if (n <= 0) break;
        got.append(buf, static_cast<std::size_t>(n));
    }
    if (!got.empty()) got.pop_back();
    return got;
}

TEST(ProgressLine, OnATerminalForLongJobsOnly) {
    int master = -1, slave = -1;
    ASSERT_EQ(::openpty(&master, &slave, nullptr, nullptr, nullptr), 0);
    std::FILE* tty = ::fdopen(slave, "w");
    std::FILE* file = std::tmpfile();
    const struct {
        std::FILE* to;
        std::size_t total;
        const char* expect;
    } cases[] = {
        {tty, 1000, "\r読み込み中... 1/1000\r読み込み中... 1000/1000\r\033[K"},
        {tty, 199, ""},
        {file, 1000, ""},
    };
    for (const auto& c : cases) {
        {
            ProgressLine line(c.to, "読み込み中...", c.total);
            for (const std::size_t done : {std::size_t{1}, std::size_t{2}, std::size_t{3}, c.total})
                line.Update(done);  // far quicker than a tenth of a second
        }
        std::fflush(c.to);
        EXPECT_EQ(c.to == tty ? Drain(master, slave) : "", c.expect) << c.total;
    }
    EXPECT_EQ(std::ftell(file), 0);  // a file never gets the line
    std::fclose(tty);
    std::fclose(file);
    ::close(master);
}

}  // namespace
}  // namespace lumivex
