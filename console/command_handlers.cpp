// SPDX-License-Identifier: MIT

#include "console/command_handlers.h"

#include "link/frame.h"

#include <utility>

namespace vantrel::console {

CommandHandlers::CommandHandlers(link::Transaction& transaction, link::Display& display,
                                 dialogs::Dialogs& dialogs, SubForms& sub_forms,
                                 link::CommonVariables& common, SystemTime system_time,
                                 link::CodePage page)
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
  display_.SetText(link::Field::LblHints, hints);
}

void CommandHandlers::ShowPanels(const ConsoleCommand& command) {
  display_.SetText(link::Field::Panel1, std::string(command.panel1));
  display_.SetText(link::Field::Panel2, std::string(command.panel2));
}

void CommandHandlers::Send(const ConsoleCommand& command, std::string_view data_hex) {
  transaction_.SendCommand(link::ComposeFrame(command.code, data_hex), command.time_limit);
}

void CommandHandlers::SendFixed(const ConsoleCommand& command) {
  ShowHelp(command);
  Send(command, {});
}

void CommandHandlers::Cmd21_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd22_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd23_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd25_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd26_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd27_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd29_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd2A_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd2B_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd40_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd49_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd51_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::cmd52_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd53_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd54_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd55_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd58_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd59_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd5F_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd95_Click(const ConsoleCommand& command) { SendFixed(command); }
void CommandHandlers::Cmd96_Click(const ConsoleCommand& command) { SendFixed(command); }

}  // namespace vantrel::console
