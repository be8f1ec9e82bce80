// SPDX-License-Identifier: MIT
#pragma once

#include "send/interrupts.h"

#include <stdexcept>
#include <string>

namespace vantrel::send {

// Standard output takes no more. what() is one sentence.
class OutputClosed : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Standard output, written at once and watched for signals while nobody reads it.
class StandardOutput {
 public:
  explicit StandardOutput(Interrupts& interrupts) : interrupts_(interrupts) {}

  // Throws OutputClosed; also after a second signal.
  void Write(const std::string& text);

 private:
  Interrupts& interrupts_;
};

// Makes sure that no file opened later takes the place of standard input, output or error; what is
// closed stays as good as closed.
void OccupyStandardDescriptors();

}  // namespace vantrel::send
