// SPDX-License-Identifier: MIT

#include "printdata/esc_prompt.h"

#include "link/typed_number.h"

#include <cstdint>
#include <optional>

namespace vantrel::printdata {
namespace {

bool UserGoesOn(dialogs::Dialogs& dialogs) {
  return dialogs.MsgBox(
             "This command is invalid for the printer with Japan, China, Taiwan & HK version.\r\n"
             "Will you proceed to execute this command?",
             dialogs::Buttons::kYesNo, "Notice") == dialogs::Answer::kYes;
}

int AskNumber(const EscSequence& sequence, EscForm& form, dialogs::Dialogs& dialogs) {
  const EscPrompt& prompt = form.IsVerticalSelected() ? sequence.vertical : sequence.horizontal;
  while (true) {
    const std::optional<std::int16_t> number =
        link::TypedInteger(dialogs.InputBox(prompt.text, sequence.label + form.PanelText(1)));
    if (number && Accepts(prompt, *number)) return *number;
  }
}

}  // namespace

bool RunEscSequence(const EscSequence& sequence, EscForm& form, dialogs::Dialogs& dialogs,
                    std::string& data_string) {
  if (sequence.notice == EscNotice::kNoKeepsData && !UserGoesOn(dialogs)) return false;
  data_string.clear();
  if (sequence.notice == EscNotice::kNoEmptiesData && !UserGoesOn(dialogs)) return false;
  form.SetPanelText(1, sequence.panel1);
  if (!sequence.panel2.empty()) form.SetPanelText(2, sequence.panel2);
  const int number = AskNumber(sequence, form, dialogs);
  data_string = ComposeEscBody(sequence, number, form.PrintText());
  return true;
}

}  // namespace vantrel::printdata
