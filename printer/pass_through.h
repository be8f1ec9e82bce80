#pragma once

#include "printer/line_log.h"
#include "printer/pseudo_terminal.h"

#include <termios.h>

#include <array>
#include <functional>
#include <string>
#include <thread>

namespace vantrel {

// Stands between a console and a real printer: what the console writes to a pseudo-terminal goes to
// the printer's device and back, byte for byte, both ways at once, on a thread of its own so that
// nothing else delays it. The device is raw, of 8 bits without parity, and follows the speed that
// the console sets on the pseudo-terminal.
class PassThrough {
 public:
  // Told of bytes that have come and gone on, and of the end, in words, when the printer's device
  // is gone; both on the thread of the pass-through. After the end nothing more is told.
  struct Listener {
    std::function<void(Direction direction, const Bytes& bytes, WallTime now)> on_bytes;
    std::function<void(const std::string& reason)> on_end;
  };

  // Opens the device and begins. Throws std::runtime_error, in words, where it is no device that
  // can be used.
  PassThrough(const std::string& device, Listener listener);
  // Ends, and leaves the device's settings as they were found.
  ~PassThrough();
  PassThrough(const PassThrough&) = delete;
  PassThrough& operator=(const PassThrough&) = delete;

  // The device for the console to open, "/dev/pts/7".
  const std::string& DevicePath() const { return terminal_.DevicePath(); }

 private:
  // Bytes under way from one side to the other that the other has not taken yet.
  struct Way {
    int from = -1;
    int to = -1;
    Bytes pending;
  };

  void Run();
  // Each returns false when the printer's device is gone; `end_` says why.
  bool Take(Direction direction);
  bool Give(Direction direction);
  void FollowSpeed();

  Listener listener_;
  std::string device_name_;
  PseudoTerminal terminal_;
  int device_ = -1;
  int stop_ = -1;
  termios found_{};          // the settings to leave
  termios settings_{};       // the settings in force
  std::array<Way, 2> ways_;  // by direction
  std::string end_;
  std::thread thread_;
};

}  // namespace vantrel
