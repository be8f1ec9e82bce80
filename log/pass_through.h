// SPDX-License-Identifier: MIT
#pragma once

#include "link/unique_descriptor.h"
#include "log/line_log.h"
#include "log/printer_end.h"
#include "protocol/line_end.h"

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace vantrel::log {

// Stands between a console and a real printer: what the console writes to its end of the line goes
// to the printer's device and back, byte for byte, both ways at once, on a thread of its own so
// that nothing else delays it. The device follows the speed that the console sets on its end.
class PassThrough {
 public:
  // Told of bytes that have come and gone on, and of the end, in words, when the printer's device
  // is gone; both on the thread of the pass-through. After the end nothing more is told.
  struct Listener {
    std::function<void(protocol::Direction direction, const link::Bytes& bytes, WallTime now)>
        on_bytes;
    std::function<void(const std::string& reason)> on_end;
  };

  // Opens the device, see OpenPrinter, and begins; `console` is not null. Throws
  // std::runtime_error, in words, where it is no device that can be used.
  PassThrough(const std::string& device, std::unique_ptr<protocol::LineEnd> console,
              Listener listener);
  // Ends, and leaves the device's settings as they were found.
  ~PassThrough();
  PassThrough(const PassThrough&) = delete;
  PassThrough& operator=(const PassThrough&) = delete;

  // Where the console finds its end, "/dev/pts/7".
  const std::string& DevicePath() const { return console_->Address(); }

 private:
  // Bytes under way to the console or the printer that it has not taken yet, by direction.
  link::Bytes& Pending(protocol::Direction direction) {
    return pending_.at(static_cast<std::size_t>(direction));
  }
  void Run();
  // What has come from the console or the printer, on its way at once and then told to the
  // listener.
  void PassOn(protocol::Direction direction, const link::Bytes& bytes);
  // Each sets `end_` when the printer's device is gone.
  void ReadPrinter();
  void GiveToPrinter();
  void GiveToConsole();
  void FollowSpeed();

  Listener listener_;
  std::unique_ptr<protocol::LineEnd> console_;
  std::unique_ptr<PrinterEnd> printer_;
  link::UniqueDescriptor stop_;
  std::array<link::Bytes, 2> pending_;
  std::string end_;
  std::thread thread_;
};

}  // namespace vantrel::log
