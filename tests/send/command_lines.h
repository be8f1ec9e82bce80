// SPDX-License-Identifier: MIT
#pragma once

#include "commandline/parse.h"
#include "send/job.h"
#include "send/table.h"

#include <string>
#include <vector>

namespace vantrel::send {

using Words = std::vector<std::string>;

// The command of a command line as the program composes it.
inline Job Composed(const Words& words, const Means& means = {}) {
  return Compose(commandline::Parse(SendTable(), words), means);
}

// The sentence with which a command line is refused; "" where it is taken.
inline std::string Refusal(const Words& words, const Means& means = {}) {
  try {
    Composed(words, means);
    return "";
  } catch (const commandline::WrongUse& error) {
    return error.what();
  }
}

}  // namespace vantrel::send
