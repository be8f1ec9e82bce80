// SPDX-License-Identifier: MIT

// Commands whose data an editing form composes.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"

namespace vantrel::console {

void CommandHandlers::SendDataString(const ConsoleCommand& command) {
  Send(command, link::StrToHex(common_.DataString, page_));
}

void CommandHandlers::EditPrintBuffer(const ConsoleCommand& command, bool is_print_data) {
  ShowHelp(command);
  sub_forms_.HideConsole();
  common_.IsPrintData = is_print_data;
  sub_forms_.ShowFrmPrintBuffer();
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd41_Click(const ConsoleCommand& command) { EditPrintBuffer(command, true); }
void CommandHandlers::Cmd42_Click(const ConsoleCommand& command) {
  EditPrintBuffer(command, false);
}

void CommandHandlers::EditExternalImage(const ConsoleCommand& command, bool is_block_mode) {
  ShowHelp(command);
  common_.IsBlockMode = is_block_mode;
  sub_forms_.HideConsole();
  sub_forms_.ShowFrmExternalImage();
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd43_Click(const ConsoleCommand& command) {
  EditExternalImage(command, false);
}
void CommandHandlers::Cmd4D_Click(const ConsoleCommand& command) {
  EditExternalImage(command, true);
}

void CommandHandlers::EditExternalFont(const ConsoleCommand& command, bool is_double_byte_font,
                                       const std::string& caption) {
  ShowHelp(command);
  common_.IsDoubleByteFont = is_double_byte_font;
  sub_forms_.HideConsole();
  sub_forms_.ShowFrmExternalFont(caption);
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd44_Click(const ConsoleCommand& command) {
  EditExternalFont(command, true, "44h Double byte external font register command");
  display_.SetText(link::Field::Panel1,
                   "Expand the registered font to print buffer by command 41h");
  display_.SetText(link::Field::Panel2, "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I");
}

void CommandHandlers::Cmd45_Click(const ConsoleCommand& command) {
  EditExternalFont(command, false, "45h Single byte external font register command");
  ShowPanels(command);
}

void CommandHandlers::Cmd4E_Click(const ConsoleCommand& command) {
  ShowHints(command);
  // Panel 2 keeps the text it has.
  display_.SetText(link::Field::Panel1, std::string(command.panel1));
  sub_forms_.HideConsole();
  sub_forms_.ShowFrm4E("4Eh Barcode Data Setting command");
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd5A_Click(const ConsoleCommand& command) {
  common_.ControlDataString.clear();
  ShowHelp(command);
  // The console stays visible under this form.
  sub_forms_.ShowFrm5A();
  if (common_.ControlDataString.empty()) return;
  Send(command, common_.ControlDataString);
}

}  // namespace vantrel::console
