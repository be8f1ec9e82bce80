// SPDX-License-Identifier: MIT

#include "protocol/tcp_address.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace vantrel::protocol {
namespace {

TEST(TcpAddress, IsReadFromItsText) {
  EXPECT_EQ(ParseTcpAddress("printer.lan:4000", ""), (TcpAddress{"printer.lan", 4000}));
  EXPECT_EQ(ParseTcpAddress("0.0.0.0:0", "127.0.0.1"), (TcpAddress{"0.0.0.0", 0}));
  EXPECT_EQ(ParseTcpAddress("[::1]:65535", ""), (TcpAddress{"::1", 65535}));
  EXPECT_EQ(ParseTcpAddress("4000", "127.0.0.1"), (TcpAddress{"127.0.0.1", 4000}));
}

TEST(TcpAddress, IsWrittenAsItsText) {
  EXPECT_EQ(TextOf(TcpAddress{"127.0.0.1", 4000}), "127.0.0.1:4000");
  EXPECT_EQ(TextOf(TcpAddress{"::1", 4000}), "[::1]:4000");
}

TEST(TcpAddress, IsRefusedInWords) {
  for (const char* text : {"", "4000", ":4000", "host:", "host:x", "host:65536", "host:-1",
                           "::1:4000", "[]:4000", "[::1:4000", "host:4000 "})
    EXPECT_THROW(ParseTcpAddress(text, ""), std::invalid_argument) << text;
  try {
    ParseTcpAddress("host:99999", "");
  } catch (const std::invalid_argument& error) {
    EXPECT_STREQ(error.what(), "'host:99999' is no address: the port is a number from 0 to 65535.");
  }
}

}  // namespace
}  // namespace vantrel::protocol
