// Card handling and maintenance commands that ask something: 5Bh and 91h.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"

namespace vantrel {

bool CommandHandlers::AcceptsMemoryWear(std::string_view code) {
  return dialogs_.MsgBox(
             "The volatile memory writing life is approximately one million times.\r\n"
             "The expected life will be reached by frequent use of " +
                 std::string(code) +
                 "h command which can cause problems in the operation of the rewrite card R/W.\r\n"
                 "Will you continuously proceed this command?",
             Buttons::kYesNo, "Warning Message") == Answer::kYes;
}

void CommandHandlers::Cmd5B_Click() {
  const ConsoleCommand& command = CommandOf("5B");
  if (!AcceptsMemoryWear(command.code)) return;
  ShowHelp(command);
  const Answer choice = dialogs_.MsgBox(
      "Press 'Yes' to enable the cleaning button OR\r\n"
      "Press 'NO' to disable the cleaning button",
      Buttons::kYesNo, "Please select");
  // Yes is answer code 6 and No 7, so Yes sends "1" and No sends "0".
  Send(command, StrToHex(std::to_string(7 - static_cast<int>(choice)), page_));
  // Only enabling reminds of the restart; this asymmetry is meant.
  if (choice == Answer::kYes)
    dialogs_.MsgBox(
        "Please turn off the power and restart the printer to initialize the new setting!",
        Buttons::kOk, "Reset Printer", Icon::kExclamation);
}

void CommandHandlers::Cmd91_Click() {
  const ConsoleCommand& command = CommandOf("91");
  if (!AcceptsMemoryWear(command.code)) return;
  ShowHelp(command);
  const std::string reply = dialogs_.InputBox("Input the paremeter", "91h Command");
  // The number 2 is meant as the way out, although it is also the answer code of a Cancel button.
  if (EqualsTwo(reply)) return;
  Send(command, StrToHex(reply, page_));
}

}  // namespace vantrel
