// Commands whose data an editing form composes.

#include "console/command_handlers.h"
#include "link/common.h"
#include "link/frame.h"

namespace vantrel {

void CommandHandlers::SendDataString(const ConsoleCommand& command) {
  Send(command, StrToHex(common_.DataString, page_));
}

void CommandHandlers::EditPrintBuffer(std::string_view code, bool is_print_data) {
  const ConsoleCommand& command = CommandOf(code);
  ShowHelp(command);
  sub_forms_.HideConsole();
  common_.IsPrintData = is_print_data;
  sub_forms_.ShowFrmPrintBuffer();
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd41_Click() { EditPrintBuffer("41", true); }
void CommandHandlers::Cmd42_Click() { EditPrintBuffer("42", false); }

void CommandHandlers::EditExternalImage(std::string_view code, bool is_block_mode) {
  const ConsoleCommand& command = CommandOf(code);
  ShowHelp(command);
  common_.IsBlockMode = is_block_mode;
  sub_forms_.HideConsole();
  sub_forms_.ShowFrmExternalImage();
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd43_Click() { EditExternalImage("43", false); }
void CommandHandlers::Cmd4D_Click() { EditExternalImage("4D", true); }

void CommandHandlers::EditExternalFont(std::string_view code, bool is_double_byte_font,
                                       const std::string& caption) {
  const ConsoleCommand& command = CommandOf(code);
  ShowHelp(command);
  common_.IsDoubleByteFont = is_double_byte_font;
  sub_forms_.HideConsole();
  sub_forms_.ShowFrmExternalFont(caption);
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd44_Click() {
  EditExternalFont("44", true, "44h Double byte external font register command");
  display_.SetText(Field::Panel1, "Expand the registered font to print buffer by command 41h");
  display_.SetText(Field::Panel2, "24 dot Double byte -> ESC G; 16 dot Double byte -> ESC I");
}

void CommandHandlers::Cmd45_Click() {
  EditExternalFont("45", false, "45h Single byte external font register command");
  ShowPanels(CommandOf("45"));
}

void CommandHandlers::Cmd4E_Click() {
  const ConsoleCommand& command = CommandOf("4E");
  ShowHints(command);
  // Panel 2 keeps the text it has.
  display_.SetText(Field::Panel1, std::string(command.panel1));
  sub_forms_.HideConsole();
  sub_forms_.ShowFrm4E("4Eh Barcode Data Setting command");
  sub_forms_.ShowConsole();
  SendDataString(command);
}

void CommandHandlers::Cmd5A_Click() {
  const ConsoleCommand& command = CommandOf("5A");
  common_.ControlDataString.clear();
  ShowHelp(command);
  // The console stays visible under this form.
  sub_forms_.ShowFrm5A();
  if (common_.ControlDataString.empty()) return;
  Send(command, common_.ControlDataString);
}

}  // namespace vantrel
