// SPDX-License-Identifier: MIT

#include "tests/support/socket_user.h"

#include "tests/support/patience.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <array>

namespace vantrel::support {
namespace {

link::UniqueDescriptor Connected(int family, const sockaddr* address, socklen_t size) {
  link::UniqueDescriptor descriptor(socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0));
  if (connect(descriptor.Get(), address, size) != 0) descriptor.Reset();
  return descriptor;
}

}  // namespace

SocketUser SocketUser::OnTcp(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  SocketUser user;
  user.socket_ = Connected(AF_INET, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  return user;
}

SocketUser SocketUser::OnPath(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  path.copy(address.sun_path, sizeof address.sun_path - 1);
  SocketUser user;
  user.socket_ = Connected(AF_UNIX, reinterpret_cast<const sockaddr*>(&address), sizeof address);
  return user;
}

void SocketUser::Write(const link::Bytes& bytes) const {
  // What is not sent is missed by who reads.
  [[maybe_unused]] const ssize_t sent =
      send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

link::Bytes SocketUser::Read(std::size_t count) const {
  link::Bytes bytes;
  pollfd ready{socket_.Get(), POLLIN, 0};
  while (bytes.size() < count && poll(&ready, 1, kPatience) > 0) {
    std::array<std::uint8_t, 4096> part{};
    const ssize_t got = recv(socket_.Get(), part.data(), part.size(), 0);
    if (got <= 0) break;
    bytes.insert(bytes.end(), part.begin(), part.begin() + got);
  }
  return bytes;
}

bool SocketUser::IsClosed() const {
  pollfd ready{socket_.Get(), POLLIN, 0};
  std::uint8_t byte = 0;
  return poll(&ready, 1, kPatience) > 0 && recv(socket_.Get(), &byte, 1, 0) <= 0;
}

void SocketUser::EndSending() const { shutdown(socket_.Get(), SHUT_WR); }

}  // namespace vantrel::support
