// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
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
  FullListener() : listener_(Socket()) {
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address_;
    auto* address = reinterpret_cast<sockaddr*>(&address_);
    EXPECT_EQ(bind(listener_.Get(), address, size), 0);
    EXPECT_EQ(listen(listener_.Get(), 0), 0);
    EXPECT_EQ(getsockname(listener_.Get(), address, &size), 0);
    // Nobody accepts what waits.
    constexpr int kMost = 16;
    for (int i = 0; i < kMost && !is_full_; ++i) {
      waiting_.push_back(Socket());
      is_full_ = connect(waiting_.back().Get(), address, size) != 0 && errno == EINPROGRESS &&
                 !IsConnected(waiting_.back().Get());
    }
    EXPECT_TRUE(is_full_);
  }

  std::string HostAndPort() const {
    return "127.0.0.1:" + std::to_string(ntohs(address_.sin_port));
  }

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

  link::UniqueDescriptor listener_;
  sockaddr_in address_{};
  std::vector<link::UniqueDescriptor> waiting_;
  bool is_full_ = false;
};

}  // namespace vantrel::send
