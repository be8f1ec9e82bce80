// SPDX-License-Identifier: MIT
#pragma once

#include "tests/endurance/dice.h"

#include <array>
#include <string>

namespace vantrel::endurance {

// The text of a fault of the printer, of any kind and aimed in any way.
inline std::string AnyFault(Dice& dice) {
  static constexpr std::array kKinds = {"status 22",
                                        "status 38",
                                        "status 7F",
                                        "silence",
                                        "mute",
                                        "delay 300",
                                        "delay 3000",
                                        "late",
                                        "late 2000",
                                        "bad-bcc",
                                        "bad-bcc zero",
                                        "bad-bcc others",
                                        "wrong-echo",
                                        "truncate",
                                        "drop 1",
                                        "drop 2",
                                        "drop 5",
                                        "extra FF0003",
                                        "extra 0610",
                                        "resend 1",
                                        "resend 3",
                                        "resend 1000",
                                        "reject",
                                        "noise FF00",
                                        "noise 02",
                                        "unknown-control 55",
                                        "unknown-control 02",
                                        "split 3",
                                        "split 200",
                                        "join",
                                        "vanish",
                                        "random 5 50 silence,status 22,truncate,resend 2,vanish"};
  static constexpr std::array kAims = {"",         " next",          " for 2",
                                       " every 3", " until cleared", " after 2"};
  const std::string kind = dice.OneOf(kKinds);
  return kind + dice.OneOf(kAims);
}

}  // namespace vantrel::endurance
