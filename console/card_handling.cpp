// SPDX-License-Identifier: MIT

// Card handling and maintenance commands that ask something: 5Bh and 91h.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"

namespace vantrel::console {

bool CommandHandlers::AcceptsMemoryWear(const ConsoleCommand& command) {
  return dialogs_.MsgBox(
             "The volatile memory writing life is approximately one million times.\r\n"
             "The expected life will be reached by frequent use of " +
                 std::string(command.code) +
                 "h command which can cause problems in the operation of the rewrite card R/W.\r\n"
                 "Will you continuously proceed this command?",
             dialogs::Buttons::kYesNo, "Warning Message") == dialogs::Answer::kYes;
}

void CommandHandlers::Cmd5B_Click(const ConsoleCommand& command) {
  if (!AcceptsMemoryWear(command)) return;
  ShowHelp(command);
  const dialogs::Answer choice = dialogs_.MsgBox(
      "Press 'Yes' to enable the cleaning button OR\r\n"
      "Press 'NO' to disable the cleaning button",
      dialogs::Buttons::kYesNo, "Please select");
  // Yes is answer code 6 and No 7, so Yes sends "1" and No sends "0".
  Send(command, link::StrToHex(std::to_string(7 - static_cast<int>(choice)), page_));
  // Only enabling reminds of the restart; this asymmetry is meant.
  if (choice == dialogs::Answer::kYes)
    dialogs_.MsgBox(
        "Please turn off the power and restart the printer to initialize the new setting!",
        dialogs::Buttons::kOk, "Reset Printer", dialogs::Icon::kExclamation);
}

void CommandHandlers::Cmd91_Click(const ConsoleCommand& command) {
  if (!AcceptsMemoryWear(command)) return;
  ShowHelp(command);
  const std::string reply = dialogs_.InputBox("Input the paremeter", "91h Command");
  // The number 2 is meant as the way out, although it is also the answer code of a Cancel button.
  if (link::EqualsTwo(reply)) return;
  Send(command, link::StrToHex(reply, page_));
}

}  // namespace vantrel::console
