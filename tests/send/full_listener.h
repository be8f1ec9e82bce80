// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "tests/send/local_listener.h"

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>

#include <cerrno>
#include <string>
#include <vector>

namespace vantrel::send {

// A TCP port on this machine that takes no further connection and refuses none: whoever connects
// waits.
class FullListener {
 public:
  FullListener() {
    const auto* address = reinterpret_cast<const sockaddr*>(&listener_.Address());
    // Nobody accepts what waits.
    constexpr int kMost = 16;
    for (int i = 0; i < kMost && !is_full_; ++i) {
      waiting_.push_back(Socket());
      is_full_ = connect(waiting_.back().Get(), address, sizeof(sockaddr_in)) != 0 &&
                 errno == EINPROGRESS && !IsConnected(waiting_.back().Get());
    }
    EXPECT_TRUE(is_full_);
  }

  std::string HostAndPort() const { return listener_.HostAndPort(); }

 private:
  static link::UniqueDescriptor Socket() {
    return link::UniqueDescriptor(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
  }
  // Whether it connects; what connects at all does so within the time.
  static bool IsConnected(int socket) {
    constexpr int kLongest = 100;  // milliseconds
    pollfd one{socket, POLLOUT, 0};
    return poll(&one, 1, kLongest) > 0;
  }

  const LocalListener listener_{0};
  std::vector<link::UniqueDescriptor> waiting_;
  bool is_full_ = false;
};

}  // namespace vantrel::send
