// SPDX-License-Identifier: MIT

#include "log/tcp_printer_end.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace vantrel::log {
namespace {

constexpr int kPatience = 10000;  // milliseconds

using AddressList = std::unique_ptr<addrinfo, decltype(&freeaddrinfo)>;

[[noreturn]] void Fail(const protocol::TcpAddress& address, const std::string& reason) {
  throw std::runtime_error("The printer at " + TextOf(address) + " cannot be reached: " + reason +
                           ".");
}

AddressList AddressesOf(const protocol::TcpAddress& address) {
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_NUMERICSERV;
  addrinfo* first = nullptr;
  const int error =
      getaddrinfo(address.host.c_str(), std::to_string(address.port).c_str(), &hints, &first);
  if (error != 0) Fail(address, gai_strerror(error));
  return {first, &freeaddrinfo};
}

// Connects a socket that does not block; returns 0 or an error.
int Connect(int descriptor, const addrinfo& address) {
  if (connect(descriptor, address.ai_addr, address.ai_addrlen) == 0) return 0;
  if (errno != EINPROGRESS) return errno;
  pollfd line{descriptor, POLLOUT, 0};
  if (poll(&line, 1, kPatience) <= 0) return ETIMEDOUT;
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size);
  return error;
}

}  // namespace

TcpPrinterEnd::TcpPrinterEnd(const protocol::TcpAddress& address)
    : name_("tcp:" + TextOf(address)) {
  const AddressList list = AddressesOf(address);
  int error = EADDRNOTAVAIL;
  for (const addrinfo* each = list.get(); each != nullptr && error != 0; each = each->ai_next) {
    socket_.Reset(socket(each->ai_family, each->ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    error = socket_.IsOpen() ? Connect(Descriptor(), *each) : errno;
  }
  if (error != 0) Fail(address, std::strerror(error));
  const int on = 1;
  // Small frames are not to wait for each other; a server that has died is to be found out.
  setsockopt(Descriptor(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  setsockopt(Descriptor(), SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
}

ssize_t TcpPrinterEnd::Read(link::Bytes& room) {
  return recv(Descriptor(), room.data(), room.size(), 0);
}

ssize_t TcpPrinterEnd::Write(const link::Bytes& bytes) {
  return send(Descriptor(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

}  // namespace vantrel::log
