#include "tests/support/pty_peer.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <stdexcept>

namespace vantrel {

PtyPeer::PtyPeer() {
  char name[256] = {};
  termios settings = {};
  cfmakeraw(&settings);
  settings.c_cflag |= CREAD | CLOCAL;
  cfsetspeed(&settings, B9600);
  if (openpty(&master_, &slave_, name, &settings, nullptr) != 0)
    throw std::runtime_error("no pseudo-terminal");
  device_ = name;
  fcntl(master_, F_SETFL, O_NONBLOCK);
  notifier_ = std::make_unique<QSocketNotifier>(master_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { Read(); });
}

PtyPeer::~PtyPeer() { Vanish(); }

void PtyPeer::Vanish() {
  notifier_.reset();
  for (int* descriptor : {&slave_, &master_}) {
    if (*descriptor >= 0) close(*descriptor);
    *descriptor = -1;
  }
}

void PtyPeer::Read() {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  unsigned char bytes[4096];
  const ssize_t count = read(master_, bytes, sizeof bytes);
  for (ssize_t i = 0; i < count; ++i) {
    received_ += kDigits[bytes[i] >> 4];
    received_ += kDigits[bytes[i] & 0x0F];
  }
  // A frame ends one byte after ETX; no byte before it is 03h.
  for (std::size_t at = 0; at + 4 <= received_.size(); at += 2) {
    if (received_.compare(at, 2, "03") != 0) continue;
    const std::string frame = received_.substr(0, at + 4);
    received_.erase(0, at + 4);
    at = static_cast<std::size_t>(-2);
    frames_.push_back(frame);
    // The answer may set another one.
    if (const auto answer = answer_) answer(frame);
  }
}

void PtyPeer::Send(const std::string& hex) {
  std::string bytes;
  std::string pair;
  for (const char digit : hex) {
    if (digit == ' ') continue;
    pair += digit;
    if (pair.size() < 2) continue;
    bytes += static_cast<char>(std::stoi(pair, nullptr, 16));
    pair.clear();
  }
  EXPECT_EQ(write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

std::string PtyPeer::Reply(const std::string& command, const std::string& data_hex,
                           const std::string& status) {
  const std::string checked = command + status + data_hex + "03";
  int check = 0;
  for (std::size_t i = 0; i < checked.size(); i += 2)
    check ^= std::stoi(checked.substr(i, 2), nullptr, 16);
  static constexpr char kDigits[] = "0123456789ABCDEF";
  return "0602" + checked + kDigits[check >> 4] + kDigits[check & 0x0F];
}

}  // namespace vantrel
