// SPDX-License-Identifier: MIT

#include "printer/line/socket_line.h"

#include <netdb.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <system_error>
#include <utility>

namespace vantrel::printer {
namespace {

using link::UniqueDescriptor;

constexpr int kBacklog = 16;

[[noreturn]] void Fail(const std::string& what, int error) {
  throw std::system_error(error, std::generic_category(), what + " cannot be listened on");
}

struct AddressList {
  explicit AddressList(const protocol::TcpAddress& address) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
    const int error =
        getaddrinfo(address.host.c_str(), std::to_string(address.port).c_str(), &hints, &first);
    if (error != 0) {
      throw std::runtime_error(TextOf(address) + " cannot be listened on: " + gai_strerror(error));
    }
  }
  ~AddressList() { freeaddrinfo(first); }
  AddressList(const AddressList&) = delete;
  AddressList& operator=(const AddressList&) = delete;

  addrinfo* first = nullptr;
};

// Where an open socket is bound, in numbers.
protocol::TcpAddress BoundTo(int descriptor) {
  sockaddr_storage bound{};
  socklen_t size = sizeof bound;
  std::array<char, NI_MAXHOST> host{};
  std::array<char, NI_MAXSERV> port{};
  if (getsockname(descriptor, reinterpret_cast<sockaddr*>(&bound), &size) != 0 ||
      getnameinfo(reinterpret_cast<sockaddr*>(&bound), size, host.data(), host.size(), port.data(),
                  port.size(), NI_NUMERICHOST | NI_NUMERICSERV) != 0)
    throw std::system_error(EINVAL, std::generic_category(), "The socket has no address");
  return {host.data(), static_cast<std::uint16_t>(std::strtoul(port.data(), nullptr, 10))};
}

UniqueDescriptor ListenOnTcp(const protocol::TcpAddress& address) {
  const AddressList list(address);
  int error = EADDRNOTAVAIL;
  for (const addrinfo* each = list.first; each != nullptr; each = each->ai_next) {
    UniqueDescriptor listener(
        socket(each->ai_family, each->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // A line that is plugged in again has its old address, whatever its last console left behind.
    const int again = 1;
    if (listener.IsOpen() &&
        setsockopt(listener.Get(), SOL_SOCKET, SO_REUSEADDR, &again, sizeof again) == 0 &&
        bind(listener.Get(), each->ai_addr, each->ai_addrlen) == 0 &&
        listen(listener.Get(), kBacklog) == 0)
      return listener;
    error = errno;
  }
  Fail(TextOf(address), error);
}

UniqueDescriptor UnixSocket() {
  return UniqueDescriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
}

// Removes a socket that nobody listens on; anything else stays.
void RemoveLeftover(const sockaddr_un& address) {
  struct stat there {};
  if (lstat(address.sun_path, &there) != 0) return;
  if (!S_ISSOCK(there.st_mode)) Fail(address.sun_path, EEXIST);
  const UniqueDescriptor probe = UnixSocket();
  const bool dead =
      connect(probe.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
      errno == ECONNREFUSED;
  if (!dead) Fail(address.sun_path, EADDRINUSE);
  unlink(address.sun_path);
}

std::unique_ptr<protocol::LineEnd> ListenOnSocket(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.empty() || path.size() >= sizeof address.sun_path) Fail(path, ENAMETOOLONG);
  path.copy(address.sun_path, path.size());
  RemoveLeftover(address);
  UniqueDescriptor listener = UnixSocket();
  struct stat made {};
  if (!listener.IsOpen() ||
      bind(listener.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
      lstat(path.c_str(), &made) != 0 || listen(listener.Get(), kBacklog) != 0)
    Fail(path, errno);
  const auto remove = [path, made] {
    struct stat there {};
    if (lstat(path.c_str(), &there) == 0 && there.st_dev == made.st_dev &&
        there.st_ino == made.st_ino)
      unlink(path.c_str());
  };
  return std::make_unique<SocketLine>(std::move(listener), path, remove);
}

}  // namespace

std::function<std::unique_ptr<protocol::LineEnd>()> TcpLines(protocol::TcpAddress address) {
  return [address = std::move(address)]() mutable -> std::unique_ptr<protocol::LineEnd> {
    UniqueDescriptor listener = ListenOnTcp(address);
    const protocol::TcpAddress bound = BoundTo(listener.Get());
    address.port = bound.port;
    return std::make_unique<SocketLine>(std::move(listener), TextOf(bound),
                                        std::function<void()>());
  };
}

std::function<std::unique_ptr<protocol::LineEnd>()> SocketLines(std::string path) {
  return [path = std::move(path)] { return ListenOnSocket(path); };
}

}  // namespace vantrel::printer
