// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/test_terminal.h"

#include <QSocketNotifier>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::support {

// The printer's end of a pseudo-terminal, driven by a test from the event loop.
class PtyPeer {
 public:
  PtyPeer();

  // The path of the device that the console opens.
  const std::string& Device() const { return terminal_.Device(); }
  // Every whole frame received, as hex text from STX to block check.
  const std::vector<std::string>& Frames() const { return frames_; }
  // Runs `answer` for each frame from now on, when it has been received whole.
  void OnFrame(std::function<void(const std::string& frame)> answer) {
    answer_ = std::move(answer);
  }
  // Sends bytes given as hex text; blanks between them do not count.
  void Send(std::string hex);
  // The device disappears.
  void Vanish();

  // A good reply to a command in hex text: 06h and the frame with the given status and data. The
  // block check is worked out here, not by the code under test.
  static std::string Reply(const std::string& command, const std::string& data_hex = "",
                           const std::string& status = "20");

 private:
  void Read();

  TestTerminal terminal_;
  std::string received_;
  std::vector<std::string> frames_;
  std::function<void(const std::string&)> answer_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace vantrel::support
