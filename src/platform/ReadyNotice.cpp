#include "platform/ReadyNotice.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string>

namespace lumivex {

bool ReadyNotice::Send() {
    const char* env = std::getenv("NOTIFY_SOCKET");
    if (env == nullptr || env[0] == '\0') return false;
    std::string path = env;
    ::unsetenv("NOTIFY_SOCKET");
    sockaddr_un addr{};
    addr.sun_family = AF_UNIX;
    if (path.size() >= sizeof(addr.sun_path)) return false;
    std::memcpy(addr.sun_path, path.data(), path.size());
    if (path[0] == '@') addr.sun_path[0] = '\0';  // the abstract namespace
    const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return false;
    static constexpr char kReady[] = "READY=1";
    const auto len = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size());
    const bool sent = ::sendto(fd, kReady, sizeof(kReady) - 1, MSG_NOSIGNAL,
                               reinterpret_cast<const sockaddr*>(&addr), len) >= 0;
    ::close(fd);
    return sent;
}

}  // namespace lumivex
