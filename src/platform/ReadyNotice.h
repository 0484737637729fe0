#pragma once
// Tells whoever started the program that it is ready, by the service manager's readiness
// protocol: when NOTIFY_SOCKET names a Unix datagram socket, "READY=1" is sent to it. A
// supervisor (a systemd unit of Type=notify, a test) then needs no guess of how long the start
// takes. Without the variable nothing happens.
namespace lumivex {

class ReadyNotice {
  public:
    // Sends the notice once and forgets the variable, so that child processes do not repeat
    // it. True when it was sent.
    static bool Send();
};

}  // namespace lumivex
