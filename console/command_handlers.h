// SPDX-License-Identifier: MIT
#pragma once

#include "console/command_table.h"
#include "console/sample_data.h"
#include "console/sub_forms.h"
#include "dialogs/dialogs.h"
#include "link/common.h"
#include "link/display.h"
#include "link/transaction.h"

#include <string>
#include <string_view>

namespace vantrel::console {

struct TrackData;

// What happens when a command button is pressed: help text and guidance, questions, the frame, the
// exchange. A handler is given its row of the table. It returns when its exchanges have ended; it
// lets through what SendCommand throws, and then does nothing more.
class CommandHandlers {
 public:
  // All references must outlive the handlers.
  CommandHandlers(link::Transaction& transaction, link::Display& display, dialogs::Dialogs& dialogs,
                  SubForms& sub_forms, link::CommonVariables& common, SystemTime system_time,
                  link::CodePage page);

  void Cmd21_Click(const ConsoleCommand& command);
  void Cmd22_Click(const ConsoleCommand& command);
  void Cmd23_Click(const ConsoleCommand& command);
  void Cmd25_Click(const ConsoleCommand& command);
  void Cmd26_Click(const ConsoleCommand& command);
  void Cmd27_Click(const ConsoleCommand& command);
  void Cmd29_Click(const ConsoleCommand& command);
  void Cmd2A_Click(const ConsoleCommand& command);
  void Cmd2B_Click(const ConsoleCommand& command);
  void Cmd31_Click(const ConsoleCommand& command);
  void Cmd32_Click(const ConsoleCommand& command);
  void Cmd35_Click(const ConsoleCommand& command);
  void Cmd36_Click(const ConsoleCommand& command);
  void Cmd37_Click(const ConsoleCommand& command);
  void Cmd38_Click(const ConsoleCommand& command);
  void Cmd39_Click(const ConsoleCommand& command);
  void Cmd3A_Click(const ConsoleCommand& command);
  void Cmd3B_Click(const ConsoleCommand& command);
  void Cmd3C_Click(const ConsoleCommand& command);
  void Cmd3D_Click(const ConsoleCommand& command);
  void Cmd40_Click(const ConsoleCommand& command);
  void Cmd41_Click(const ConsoleCommand& command);
  void Cmd42_Click(const ConsoleCommand& command);
  void Cmd43_Click(const ConsoleCommand& command);
  void Cmd44_Click(const ConsoleCommand& command);
  void Cmd45_Click(const ConsoleCommand& command);
  void Cmd46_Click(const ConsoleCommand& command);
  void Cmd47_Click(const ConsoleCommand& command);
  void Cmd48_Click(const ConsoleCommand& command);
  void Cmd49_Click(const ConsoleCommand& command);
  void Cmd4A_Click(const ConsoleCommand& command);
  void Cmd4B_Click(const ConsoleCommand& command);
  void Cmd4D_Click(const ConsoleCommand& command);
  void Cmd4E_Click(const ConsoleCommand& command);
  void Cmd50_Click(const ConsoleCommand& command);
  void Cmd51_Click(const ConsoleCommand& command);
  void cmd52_Click(const ConsoleCommand& command);
  void Cmd53_Click(const ConsoleCommand& command);
  void Cmd54_Click(const ConsoleCommand& command);
  void Cmd55_Click(const ConsoleCommand& command);
  void Cmd58_Click(const ConsoleCommand& command);
  void Cmd59_Click(const ConsoleCommand& command);
  void Cmd5A_Click(const ConsoleCommand& command);
  void Cmd5B_Click(const ConsoleCommand& command);
  void Cmd5F_Click(const ConsoleCommand& command);
  void Cmd91_Click(const ConsoleCommand& command);
  void Cmd95_Click(const ConsoleCommand& command);
  void Cmd96_Click(const ConsoleCommand& command);

 private:
  // Writes the help text, set in by nine blanks, and then the guidance of both panels.
  void ShowHelp(const ConsoleCommand& command);
  void ShowHints(const ConsoleCommand& command);
  void ShowPanels(const ConsoleCommand& command);
  // Composes the command's frame around `data_hex` and sends it.
  void Send(const ConsoleCommand& command, std::string_view data_hex);
  // The whole of a command without parameters.
  void SendFixed(const ConsoleCommand& command);

  // Magnetic stripe.
  void SetTrackData(const ConsoleCommand& command, const TrackData& track);
  // Asks for the data, or takes `default_data`; returns hex text.
  std::string InputMagneticData(const TrackData& track, const std::string& default_data);
  // Asks which tracks to write and sends the choice; nothing is sent for the choice 0.
  void WriteTracks(const ConsoleCommand& command);

  // Print, erase, discharge.
  void DischargeByMethod(const ConsoleCommand& command);

  // Card handling. Whether the user goes on despite the wear of the printer's memory.
  bool AcceptsMemoryWear(const ConsoleCommand& command);

  // Sub-forms.
  void SendDataString(const ConsoleCommand& command);
  void EditExternalImage(const ConsoleCommand& command, bool is_block_mode);
  void EditExternalFont(const ConsoleCommand& command, bool is_double_byte_font,
                        const std::string& caption);
  void EditPrintBuffer(const ConsoleCommand& command, bool is_print_data);

  link::Transaction& transaction_;
  link::Display& display_;
  dialogs::Dialogs& dialogs_;
  SubForms& sub_forms_;
  link::CommonVariables& common_;
  const SystemTime system_time_;
  const link::CodePage page_;
};

}  // namespace vantrel::console
