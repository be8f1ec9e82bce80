// SPDX-License-Identifier: MIT

#include "tests/support/device_user.h"

#include "link/frame.h"
#include "tests/support/patience.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>

namespace vantrel::support {

DeviceUser::DeviceUser(const std::string& path)
    : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {}

DeviceUser::~DeviceUser() {
  if (IsOpen()) close(descriptor_);
}

void DeviceUser::Write(const std::string& hex) const {
  std::string digits = hex;
  std::erase(digits, ' ');
  const link::Bytes bytes = link::BytesOf(digits);
  // What is not written is missed by the read that follows.
  [[maybe_unused]] const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
}

std::string DeviceUser::Read(std::size_t count) const {
  // A byte is two digits and, but for the last, a blank.
  return ReadUntil([count](const std::string& hex) { return hex.size() >= 3 * count - 1; },
                   kPatience);
}

std::string DeviceUser::ReadNow() const {
  return ReadUntil([](const std::string&) { return false; }, 0);
}

bool DeviceUser::ReadsTo(const std::string& tail, int milliseconds) const {
  const auto ends = [&tail](const std::string& hex) { return hex.ends_with(tail); };
  return ends(ReadUntil(ends, milliseconds));
}

std::string DeviceUser::ReadUntil(const std::function<bool(const std::string&)>& enough,
                                  int milliseconds) const {
  using Clock = std::chrono::steady_clock;
  const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
  std::string hex;
  while (!enough(hex)) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd ready{descriptor_, POLLIN, 0};
    if (poll(&ready, 1, static_cast<int>(std::max<decltype(left)>(left, 0))) <= 0) break;
    std::uint8_t part[4096];
    const ssize_t got = read(descriptor_, part, sizeof part);
    if (got <= 0) break;
    if (!hex.empty()) hex += ' ';
    hex += link::SpacedPairs(link::HexTextOf(link::Bytes(part, part + got)));
    hex.pop_back();
  }
  return hex;
}

}  // namespace vantrel::support
