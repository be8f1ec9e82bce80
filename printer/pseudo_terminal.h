#pragma once

#include "link/frame.h"

#include <cstddef>
#include <optional>
#include <string>

namespace vantrel {

// A pseudo-terminal, of which this side is the printer's and the other is a serial device that a
// console opens. It is raw before anyone can open it, and lives until it is destroyed, whoever
// opens and closes the device.
class PseudoTerminal {
 public:
  // Throws std::system_error when the system gives none.
  PseudoTerminal();
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  // The device to open, "/dev/pts/7".
  const std::string& DevicePath() const { return device_path_; }
  // For waiting until there is something to read.
  int Descriptor() const { return master_; }

  // What has come, at most 64 KiB a call; empty when there is nothing. Never blocks.
  Bytes Read();
  // Writes and returns how many bytes the line took. What does not fit, because nobody reads, is
  // lost as on a line with nobody at its end. Never blocks.
  std::size_t Write(const Bytes& bytes);
  // The speed in bits a second that the console has set; nothing when it has set none that can be.
  std::optional<int> ConsoleSpeed() const;
  // Ends exclusive use of the device. A console that was killed leaves it behind, and the next one
  // could not open the device.
  void ClearExclusiveUse();

 private:
  void Open();
  void Close();

  int master_ = -1;
  int slave_ = -1;
  std::string device_path_;
};

}  // namespace vantrel
