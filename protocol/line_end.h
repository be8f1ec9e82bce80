// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"

#include <cstddef>
#include <optional>
#include <string>

namespace vantrel::protocol {

// The end of a line that a console is, or will be, at the other end of: a pseudo-terminal, or a
// socket that one console at a time may connect to. Nothing of it ever blocks.
class LineEnd {
 public:
  LineEnd() = default;
  virtual ~LineEnd() = default;
  LineEnd(const LineEnd&) = delete;
  LineEnd& operator=(const LineEnd&) = delete;

  // Where a console finds it: "/dev/pts/7".
  virtual const std::string& Address() const = 0;
  // Becomes readable when Read should be called.
  virtual int Descriptor() const = 0;
  // Becomes writable when the line takes more; -1 while nobody is at its other end and what is
  // written is lost.
  virtual int WriteDescriptor() const { return Descriptor(); }
  // What has come, at most 64 KiB a call; empty when there is nothing.
  virtual link::Bytes Read() = 0;
  // Writes and returns how many bytes the line took, from the first one on.
  virtual std::size_t Write(const link::Bytes& bytes) = 0;
  // Whether whoever is at the other end has taken all that was written; true where nobody can tell.
  virtual bool IsTaken() const { return true; }
  // The speed in bits a second that the console has set; nothing when it has set none, or the line
  // has none.
  virtual std::optional<int> ConsoleSpeed() const { return std::nullopt; }
  // Ends exclusive use of the device, where it can have such. A console that was killed leaves it
  // behind, and the next one could not open the device.
  virtual void ClearExclusiveUse() {}
};

}  // namespace vantrel::protocol
