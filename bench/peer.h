// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace vantrel::bench {

// The printer's side of a pseudo-terminal, in a thread of its own: answers 58h at once and nothing
// else. Ends the program when the system gives no pseudo-terminal or does not take an answer.
class Peer {
 public:
  using Clock = std::chrono::steady_clock;

  Peer() {
    termios settings = {};
    cfmakeraw(&settings);
    char name[256] = {};
    if (openpty(&master_, &slave_, name, &settings, nullptr) != 0) std::abort();
    device_ = name;
    thread_ = std::thread([this] { Serve(); });
  }
  ~Peer() {
    stop_ = true;
    thread_.join();
    close(slave_);
    close(master_);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  const std::string& Device() const { return device_; }
  // When the first byte of the latest frame came.
  Clock::time_point Heard() const { return Clock::time_point(heard_.load()); }

 private:
  void Serve() {
    static constexpr std::array<unsigned char, 6> kReply = {0x06, 0x02, 0x58, 0x20, 0x03, 0x7B};
    while (!stop_) {
      pollfd descriptor = {master_, POLLIN, 0};
      if (poll(&descriptor, 1, 200) <= 0) continue;
      heard_ = Clock::now().time_since_epoch();
      std::array<unsigned char, 64> bytes{};
      const ssize_t count = read(master_, bytes.data(), bytes.size());
      if (count > 1 && bytes[1] == 0x58 && write(master_, kReply.data(), kReply.size()) != 6)
        std::abort();
    }
  }

  int master_ = -1;
  int slave_ = -1;
  std::string device_;
  std::atomic<bool> stop_{false};
  std::atomic<Clock::duration> heard_{};
  std::thread thread_;
};

}  // namespace vantrel::bench
