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

namespace vantrel {

// What happens when a command button is pressed: help text and guidance, questions, the frame, the
// exchange. A handler returns when its exchanges have ended; it lets through what SendCommand
// throws, and then does nothing more.
class CommandHandlers {
 public:
  // All references must outlive the handlers.
  CommandHandlers(Transaction& transaction, Display& display, Dialogs& dialogs, SubForms& sub_forms,
                  CommonVariables& common, SystemTime system_time, CodePage page);

  void Cmd21_Click();
  void Cmd22_Click();
  void Cmd23_Click();
  void Cmd25_Click();
  void Cmd26_Click();
  void Cmd27_Click();
  void Cmd29_Click();
  void Cmd2A_Click();
  void Cmd2B_Click();
  void Cmd31_Click();
  void Cmd32_Click();
  void Cmd35_Click();
  void Cmd36_Click();
  void Cmd37_Click();
  void Cmd38_Click();
  void Cmd39_Click();
  void Cmd3A_Click();
  void Cmd3B_Click();
  void Cmd3C_Click();
  void Cmd3D_Click();
  void Cmd40_Click();
  void Cmd41_Click();
  void Cmd42_Click();
  void Cmd43_Click();
  void Cmd44_Click();
  void Cmd45_Click();
  void Cmd46_Click();
  void Cmd47_Click();
  void Cmd48_Click();
  void Cmd49_Click();
  void Cmd4A_Click();
  void Cmd4B_Click();
  void Cmd4D_Click();
  void Cmd4E_Click();
  void Cmd50_Click();
  void Cmd51_Click();
  void cmd52_Click();
  void Cmd53_Click();
  void Cmd54_Click();
  void Cmd55_Click();
  void Cmd58_Click();
  void Cmd59_Click();
  void Cmd5A_Click();
  void Cmd5B_Click();
  void Cmd5F_Click();
  void Cmd91_Click();
  void Cmd95_Click();
  void Cmd96_Click();

 private:
  // Writes the help text, set in by nine blanks, and then the guidance of both panels.
  void ShowHelp(const ConsoleCommand& command);
  void ShowHints(const ConsoleCommand& command);
  void ShowPanels(const ConsoleCommand& command);
  // Composes the command's frame around `data_hex` and sends it.
  void Send(const ConsoleCommand& command, std::string_view data_hex);
  // The whole of a command without parameters.
  void SendFixed(std::string_view code);

  // Magnetic stripe.
  void SetTrackData(std::string_view code);
  std::string InputMagneticData(const std::string& title, std::string_view range_text,
                                const std::string& default_data);
  // Asks which tracks to write and sends the choice; nothing is sent for the choice 0.
  void WriteTracks(const ConsoleCommand& command);

  // Print, erase, discharge.
  void DischargeByMethod(std::string_view code);

  // Card handling. Whether the user goes on despite the wear of the printer's memory.
  bool AcceptsMemoryWear(std::string_view code);

  // Sub-forms.
  void SendDataString(const ConsoleCommand& command);
  void EditExternalImage(std::string_view code, bool is_block_mode);
  void EditExternalFont(std::string_view code, bool is_double_byte_font,
                        const std::string& caption);
  void EditPrintBuffer(std::string_view code, bool is_print_data);

  Transaction& transaction_;
  Display& display_;
  Dialogs& dialogs_;
  SubForms& sub_forms_;
  CommonVariables& common_;
  const SystemTime system_time_;
  const CodePage page_;
};

}  // namespace vantrel
