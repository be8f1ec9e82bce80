// SPDX-License-Identifier: MIT

#include "link/port.h"
#include "link/unique_descriptor.h"
#include "protocol/tcp_address.h"
#include "send/connection.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <optional>
#include <thread>

namespace vantrel::send {
namespace {

using link::PortError;
using link::UniqueDescriptor;
using SteadyClock = std::chrono::steady_clock;

class TcpConnection : public Connection {
 public:
  TcpConnection(std::string address, UniqueDescriptor socket)
      : address_(std::move(address)), socket_(std::move(socket)) {
    const int yes = 1;
    setsockopt(socket_.Get(), IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
  }
  int Descriptor() const override { return socket_.Get(); }
  std::string GoneInWords() const override {
    return "The connection to " + address_ + " has ended.";
  }

 private:
  const std::string address_;
  UniqueDescriptor socket_;
};

PortError NoConnection(const std::string& address, const std::string& reason) {
  return PortError("There is no connection to " + address + ": " + reason + ".");
}

// What a name stands for. The library asks for it in its own time, so it is asked on a thread that
// may outlive the question.
class Lookup {
 public:
  Lookup(const std::string& host, const std::string& port) : state_(std::make_shared<State>()) {
    state_->done.Reset(eventfd(0, EFD_CLOEXEC));
    std::thread([state = state_, host, port] {
      addrinfo hints{};
      hints.ai_socktype = SOCK_STREAM;
      state->error = getaddrinfo(host.c_str(), port.c_str(), &hints, &state->addresses);
      const std::uint64_t once = 1;
      [[maybe_unused]] const ssize_t count = write(state->done.Get(), &once, sizeof once);
    }).detach();
  }
  // Readable when the answer is there.
  int Descriptor() const { return state_->done.Get(); }
  // Takes the answer, which has come. It is read, and not only polled for, since a read is what
  // makes the other thread's writes seen here.
  void Take() const {
    std::uint64_t once = 0;
    [[maybe_unused]] const ssize_t count = read(Descriptor(), &once, sizeof once);
  }
  int Error() const { return state_->error; }
  const addrinfo* Addresses() const { return state_->addresses; }

 private:
  struct State {
    State() = default;
    ~State() {
      if (addresses != nullptr) freeaddrinfo(addresses);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    UniqueDescriptor done;
    int error = 0;
    addrinfo* addresses = nullptr;
  };
  std::shared_ptr<State> state_;
};

class Connector {
 public:
  Connector(std::string address, const WaitFor& wait_for, std::chrono::milliseconds limit)
      : address_(std::move(address)), wait_for_(wait_for), end_(SteadyClock::now() + limit) {}

  std::unique_ptr<Connection> Connect() {
    const protocol::TcpAddress address = protocol::ParseTcpAddress(address_, "");
    const Lookup lookup(address.host, std::to_string(address.port));
    Wait(lookup.Descriptor(), POLLIN);
    lookup.Take();
    if (lookup.Error() != 0) throw NoConnection(address_, gai_strerror(lookup.Error()));
    int error = EHOSTUNREACH;
    for (const addrinfo* one = lookup.Addresses(); one != nullptr; one = one->ai_next) {
      UniqueDescriptor socket = Try(*one, error);
      if (socket.IsOpen()) return std::make_unique<TcpConnection>(address_, std::move(socket));
    }
    throw NoConnection(address_, std::strerror(error));
  }

 private:
  void Wait(int descriptor, short events) const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end_ - SteadyClock::now()).count();
    if (left <= 0 || !wait_for_(descriptor, events, static_cast<int>(left)))
      throw NoConnection(address_, std::strerror(ETIMEDOUT));
  }

  // A socket that is connected; none, and the reason, where there is no connection.
  UniqueDescriptor Try(const addrinfo& address, int& error) const {
    UniqueDescriptor socket(::socket(address.ai_family,
                                     address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC,
                                     address.ai_protocol));
    if (!socket.IsOpen()) {
      error = errno;
      return {};
    }
    if (connect(socket.Get(), address.ai_addr, address.ai_addrlen) == 0) return socket;
    error = errno;
    if (error != EINPROGRESS) return {};
    Wait(socket.Get(), POLLOUT);
    socklen_t size = sizeof error;
    getsockopt(socket.Get(), SOL_SOCKET, SO_ERROR, &error, &size);
    if (error != 0) return {};
    return socket;
  }

  const std::string address_;
  const WaitFor& wait_for_;
  const SteadyClock::time_point end_;
};

}  // namespace

std::unique_ptr<Connection> OpenTcp(const std::string& host_and_port, const WaitFor& wait_for,
                                    std::chrono::milliseconds limit) {
  return Connector(host_and_port, wait_for, limit).Connect();
}

}  // namespace vantrel::send
