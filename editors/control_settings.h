// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

namespace vantrel::editors {

// A setting of 5Ah: its caption and its byte in hex text.
struct ControlOption {
  std::string_view caption;
  std::string_view code;
};

// One byte of the control data of 5Ah and the option buttons that choose it. No button stands for
// `initial_code` at the start, except where `initial_index` says which.
struct ControlGroup {
  std::string_view frame_name;
  std::string_view frame_caption;
  std::string_view option_name;
  std::span<const ControlOption> options;
  std::string_view initial_code;
  int initial_index;  // -1 for none
  std::string_view error_prompt;
  std::string_view error_title;
};

// The groups in the order in which the form shows them.
enum class Control { kLedOperation, kLedColor, kBuzzer };
inline constexpr std::array kControls = {Control::kLedOperation, Control::kLedColor,
                                         Control::kBuzzer};
const ControlGroup& GroupOf(Control control);

// The LED and buzzer settings of 5Ah.
class ControlSettings {
 public:
  // Starts with the LED operation and the buzzer kept as they are and the colour green.
  ControlSettings();

  // Chooses option `index` of a group; false, and nothing changes, when the group has none such.
  bool Choose(Control control, int index);
  // Buzzer, LED colour and LED operation, in this order: three bytes in hex text.
  std::string ControlData() const;

 private:
  std::string& Code(Control control) { return codes_[static_cast<std::size_t>(control)]; }
  const std::string& Code(Control control) const {
    return codes_[static_cast<std::size_t>(control)];
  }

  std::array<std::string, kControls.size()> codes_;
};

}  // namespace vantrel::editors
