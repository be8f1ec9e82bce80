// SPDX-License-Identifier: MIT

#include "printer/line/socket_line.h"

#include <linux/sockios.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace vantrel::printer {
namespace {

constexpr std::size_t kMostPerRead = 65536;

void Watch(int events, int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  if (epoll_ctl(events, EPOLL_CTL_ADD, descriptor, &event) != 0)
    throw std::system_error(errno, std::generic_category(), "The socket cannot be waited for");
}

void StopWatching(int events, int descriptor) {
  epoll_ctl(events, EPOLL_CTL_DEL, descriptor, nullptr);
}

}  // namespace

SocketLine::SocketLine(link::UniqueDescriptor listener, std::string address,
                       std::function<void()> at_end)
    : address_(std::move(address)),
      at_end_(std::move(at_end)),
      events_(epoll_create1(EPOLL_CLOEXEC)),
      listener_(std::move(listener)) {
  Watch(events_.Get(), listener_.Get());
}

SocketLine::~SocketLine() {
  if (at_end_) at_end_();
}

link::Bytes SocketLine::Read() {
  link::Bytes bytes;
  // First who is there: one that has gone makes room.
  ReadConsole(bytes);
  Welcome(bytes);
  ReadConsole(bytes);
  return bytes;
}

void SocketLine::Welcome(link::Bytes& bytes) {
  for (;;) {
    link::UniqueDescriptor console(
        accept4(listener_.Get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
    if (!console.IsOpen() && (errno == EINTR || errno == ECONNABORTED)) continue;
    if (!console.IsOpen()) return;
    // The one that is there may have gone since it was looked at.
    ReadConsole(bytes);
    if (console_.IsOpen() && !console_has_ended_) continue;
    // Small frames are not to wait for each other; a Unix socket has no such setting.
    const int at_once = 1;
    setsockopt(console.Get(), IPPROTO_TCP, TCP_NODELAY, &at_once, sizeof at_once);
    CloseConsole();
    console_ = std::move(console);
    Watch(events_.Get(), console_.Get());
  }
}

void SocketLine::ReadConsole(link::Bytes& bytes) {
  std::array<std::uint8_t, 4096> part{};
  while (console_.IsOpen() && !console_has_ended_ && bytes.size() < kMostPerRead) {
    const ssize_t count = recv(console_.Get(), part.data(), part.size(), 0);
    if (count > 0) {
      bytes.insert(bytes.end(), part.begin(), part.begin() + count);
    } else if (count == 0) {
      // It may still read.
      console_has_ended_ = true;
      StopWatching(events_.Get(), console_.Get());
    } else if (errno == EAGAIN) {
      return;
    } else if (errno != EINTR) {
      CloseConsole();
    }
  }
}

std::size_t SocketLine::Write(const link::Bytes& bytes) {
  std::size_t written = 0;
  while (console_.IsOpen() && written < bytes.size()) {
    const ssize_t count =
        send(console_.Get(), bytes.data() + written, bytes.size() - written, MSG_NOSIGNAL);
    if (count > 0)
      written += static_cast<std::size_t>(count);
    else if (count < 0 && errno == EAGAIN)
      break;
    else if (count < 0 && errno != EINTR)
      CloseConsole();
  }
  return written;
}

bool SocketLine::IsTaken() const {
  // On TCP what its system has not acknowledged, on a Unix socket what it has not read.
  int unread = 0;
  return !console_.IsOpen() || ioctl(console_.Get(), SIOCOUTQ, &unread) != 0 || unread == 0;
}

void SocketLine::CloseConsole() {
  if (!console_.IsOpen()) return;
  if (!console_has_ended_) StopWatching(events_.Get(), console_.Get());
  console_.Reset();
  console_has_ended_ = false;
}

}  // namespace vantrel::printer
