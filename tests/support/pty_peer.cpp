// SPDX-License-Identifier: MIT

#include "tests/support/pty_peer.h"

#include <algorithm>

namespace vantrel::support {

PtyPeer::PtyPeer() {
  notifier_ = std::make_unique<QSocketNotifier>(terminal_.Descriptor(), QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this] { Read(); });
}

void PtyPeer::Vanish() {
  notifier_.reset();
  terminal_.Vanish();
}

void PtyPeer::Read() {
  received_ += terminal_.Received(1);
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

void PtyPeer::Send(std::string hex) {
  hex.erase(std::remove(hex.begin(), hex.end(), ' '), hex.end());
  terminal_.Send(hex);
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

}  // namespace vantrel::support
