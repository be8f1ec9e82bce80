// SPDX-License-Identifier: MIT
#pragma once

#include "link/port.h"

#include <string>

namespace vantrel::link {

// The texts of the console that commands write and read back.
enum class Field { TxtCommand, TxtSyntax, TxtResponse, LblHints, Panel1, Panel2 };

// What the console shows, as far as commands and the transaction deal with it. Texts are UTF-8.
class Display {
 public:
  virtual ~Display() = default;
  virtual void SetText(Field field, const std::string& text) = 0;
  virtual std::string Text(Field field) const = 0;
  // Enables or disables the command buttons that must not be pressed while a command waits.
  virtual void EnableCommandButtons(bool enabled) = 0;
  // Tells that the device was lost while no command waited, whose call would report it. Must not
  // throw.
  virtual void ShowLoss(const PortError& loss) = 0;
};

}  // namespace vantrel::link
