#include "console/command_handlers.h"

#include "link/frame.h"

#include <utility>

namespace vantrel {

CommandHandlers::CommandHandlers(Transaction& transaction, Display& display, Dialogs& dialogs,
                                 SubForms& sub_forms, CommonVariables& common,
                                 SystemTime system_time, CodePage page)
    : transaction_(transaction),
      display_(display),
      dialogs_(dialogs),
      sub_forms_(sub_forms),
      common_(common),
      system_time_(std::move(system_time)),
      page_(page) {}

void CommandHandlers::ShowHelp(const ConsoleCommand& command) {
  ShowHints(command);
  ShowPanels(command);
}

void CommandHandlers::ShowHints(const ConsoleCommand& command) {
  // Nine blanks set the send line in under the response line.
  std::string hints(9, ' ');
  hints += command.send;
  hints += "\r\n";
  hints += command.response;
  display_.SetText(Field::LblHints, hints);
}

void CommandHandlers::ShowPanels(const ConsoleCommand& command) {
  display_.SetText(Field::Panel1, std::string(command.panel1));
  display_.SetText(Field::Panel2, std::string(command.panel2));
}

void CommandHandlers::Send(const ConsoleCommand& command, std::string_view data_hex) {
  transaction_.SendCommand(ComposeFrame(command.code, data_hex), command.time_limit);
}

void CommandHandlers::SendFixed(std::string_view code) {
  const ConsoleCommand& command = CommandOf(code);
  ShowHelp(command);
  if (command.written_frame.empty())
    Send(command, {});
  else
    transaction_.SendCommand(command.written_frame, command.time_limit);
}

void CommandHandlers::Cmd21_Click() { SendFixed("21"); }
void CommandHandlers::Cmd22_Click() { SendFixed("22"); }
void CommandHandlers::Cmd23_Click() { SendFixed("23"); }
void CommandHandlers::Cmd25_Click() { SendFixed("25"); }
void CommandHandlers::Cmd26_Click() { SendFixed("26"); }
void CommandHandlers::Cmd27_Click() { SendFixed("27"); }
void CommandHandlers::Cmd29_Click() { SendFixed("29"); }
void CommandHandlers::Cmd2A_Click() { SendFixed("2A"); }
void CommandHandlers::Cmd2B_Click() { SendFixed("2B"); }
void CommandHandlers::Cmd40_Click() { SendFixed("40"); }
void CommandHandlers::Cmd49_Click() { SendFixed("49"); }
void CommandHandlers::Cmd51_Click() { SendFixed("51"); }
void CommandHandlers::cmd52_Click() { SendFixed("52"); }
void CommandHandlers::Cmd53_Click() { SendFixed("53"); }
void CommandHandlers::Cmd54_Click() { SendFixed("54"); }
void CommandHandlers::Cmd55_Click() { SendFixed("55"); }
void CommandHandlers::Cmd58_Click() { SendFixed("58"); }
void CommandHandlers::Cmd59_Click() { SendFixed("59"); }
void CommandHandlers::Cmd5F_Click() { SendFixed("5F"); }
void CommandHandlers::Cmd95_Click() { SendFixed("95"); }
void CommandHandlers::Cmd96_Click() { SendFixed("96"); }

}  // namespace vantrel
