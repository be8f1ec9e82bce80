// SPDX-License-Identifier: MIT

// Writes docs/commands.md to standard output.

#include "tour/command_reference.h"

#include <exception>
#include <iostream>

int main() {
  try {
    vantrel::printer::Fonts fonts(vantrel::printer::SystemFontFolder());
    std::cout << vantrel::tour::CommandReference(fonts) << std::flush;
  } catch (const std::exception& error) {
    std::cerr << "write-command-reference: " << error.what() << '\n';
    return 1;
  }
  return std::cout ? 0 : 1;
}
