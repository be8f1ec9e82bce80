// SPDX-License-Identifier: MIT

// Print, erase and discharge commands that ask something or send more than one frame.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"
#include "link/typed_number.h"

namespace vantrel::console {

void CommandHandlers::DischargeByMethod(const ConsoleCommand& command) {
  ShowHelp(command);
  std::optional<std::int16_t> method;
  do {
    // The prompt speaks of erase + print for 47h and 48h as well; that is meant.
    method = link::TypedInteger(dialogs_.InputBox(
        "'0': Card after erase + print is stopped at front idling position and held."
        "Card becomes a process target card."
        "\r\n\r\n"
        "'1': Card after erase + print is discharged."
        "Cards waits to be pulled out and is not a process target card."
        "\r\n\r\n"
        "'2': Card after erase + print is discharged to back side."
        "Cannot be used with case accessory parts. Reject response is issued.",
        "Discharge method", "1"));
  } while (!method || *method < 0 || *method > 2);
  Send(command, link::StrToHex(std::to_string(*method), page_));
}

void CommandHandlers::Cmd46_Click(const ConsoleCommand& command) { DischargeByMethod(command); }
void CommandHandlers::Cmd47_Click(const ConsoleCommand& command) { DischargeByMethod(command); }
void CommandHandlers::Cmd48_Click(const ConsoleCommand& command) { DischargeByMethod(command); }

void CommandHandlers::Cmd4A_Click(const ConsoleCommand& command) {
  // The console only documents this command's syntax; nothing is sent and the panels stay.
  display_.SetText(link::Field::LblHints, std::string(command.send));
}

void CommandHandlers::Cmd4B_Click(const ConsoleCommand& command) {
  ShowHelp(command);
  // The start of a monochrome BMP file of 203 x 264 dots: a sample of how blocks are chained, not
  // the whole image.
  Send(command,
       link::StrToHex(
           "0,424D1E1D0000000000003E00000028000000CB000000080100000100010000000000E01C0000C4"
           "0E0000C40E00000000000000000000FFFFFF00000000000000000000000000000007FFFFFF000000"
           "0000000000000000000000000000000000000000001FFFFFFFC00000000000000000000000000000"
           "0000000000000000017FFFFFFFFFE000000000000000000000000000000000000000000001FF80FF"
           "FF",
           page_));
  // The second block follows whatever the printer said to the first.
  Send(command,
       link::StrToHex(
           "+,FFFC00000000000000000000000000000000000000000FFFFC10801FFFFFC000000000000000000"
           "000000000000000000007FFFFF8442420FFFFFF800000000000000000000000000000000001FFFFFFE"
           "2000100017FFFC000000000000000000000000000000001FFFFFFFF801244121007FFFC00000000000"
           "00000000000000000003FFFFFFA80048000408490FFFE000000000000000000000000000003FF",
           page_));
}

void CommandHandlers::Cmd50_Click(const ConsoleCommand& command) {
  ShowHelp(command);
  const dialogs::Answer answer = dialogs_.MsgBox(
      "Press 'Y' to discharge the card completely => Non-Target Card\r\n"
      "Press 'N' to discharge the card at front side => Target Card\r\n"
      "Press 'Cancel' to cancel this command",
      dialogs::Buttons::kYesNoCancel, "Card Discharge Method");
  if (answer == dialogs::Answer::kCancel) return;
  Send(command, link::StrToHex(answer == dialogs::Answer::kYes ? "1" : "0", page_));
}

}  // namespace vantrel::console
