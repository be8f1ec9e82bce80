// SPDX-License-Identifier: MIT

#include "editors/control_settings.h"

namespace vantrel::editors {
namespace {

// The codes are those of the characters blank and "0" to "4".
constexpr ControlOption kLedOperations[] = {{"Keep Current Setting", "20"},
                                            {"Turn OFF LED", "30"},
                                            {"Turn ON LED", "31"},
                                            {"Flashing", "32"},
                                            {"1 Cycle", "33"},
                                            {"3 Cycles", "34"}};
// Not in the order of the codes: the printer's red is "2" and its orange "3".
constexpr ControlOption kLedColors[] = {{"Green", "31"}, {"Orange", "33"}, {"Red", "32"}};
constexpr ControlOption kBuzzers[] = {{"Keep Current Setting", "20"},
                                      {"Turn OFF buzzer", "30"},
                                      {"Turn ON buzzer", "31"},
                                      {"Buzzling", "32"},
                                      {"1 Cycle", "33"},
                                      {"3 Cycles", "34"}};

constexpr ControlGroup kGroups[] = {
    {"FraLED", "LED - Alert Cycle", "OptLED", kLedOperations, "20", -1,
     "Error found in the option of LED Operation", "LED Operation Frame"},
    {"FraLEDColor", "LED Color", "OptLEDColor", kLedColors, "31", 0,
     "Error found in the option of LED Color", "LED Color Frame"},
    {"FraBuzzer", "Buzzer - Alert Cycles", "OptBuzzer", kBuzzers, "20", -1,
     "Error found in the option of Buzzer", "Buzzer Frame"}};

}  // namespace

const ControlGroup& GroupOf(Control control) { return kGroups[static_cast<std::size_t>(control)]; }

ControlSettings::ControlSettings() {
  for (const Control control : kControls) Code(control) = GroupOf(control).initial_code;
}

bool ControlSettings::Choose(Control control, int index) {
  const auto options = GroupOf(control).options;
  if (index < 0 || index >= static_cast<int>(options.size())) return false;
  Code(control) = options[static_cast<std::size_t>(index)].code;
  return true;
}

std::string ControlSettings::ControlData() const {
  return Code(Control::kBuzzer) + Code(Control::kLedColor) + Code(Control::kLedOperation);
}

}  // namespace vantrel::editors
