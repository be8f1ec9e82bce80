// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"

#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <string>

namespace vantrel::send {

// A TCP port on this machine, of a number that is free, at which so many may wait to be accepted.
class LocalListener {
 public:
  explicit LocalListener(int waiting) : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    address_.sin_family = AF_INET;
    address_.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address_;
    auto* address = reinterpret_cast<sockaddr*>(&address_);
    EXPECT_EQ(bind(listener_.Get(), address, size), 0);
    EXPECT_EQ(listen(listener_.Get(), waiting), 0);
    EXPECT_EQ(getsockname(listener_.Get(), address, &size), 0);
  }

  int Descriptor() const { return listener_.Get(); }
  const sockaddr_in& Address() const { return address_; }
  std::string HostAndPort() const {
    return "127.0.0.1:" + std::to_string(ntohs(address_.sin_port));
  }

 private:
  link::UniqueDescriptor listener_;
  sockaddr_in address_{};
};

}  // namespace vantrel::send
