// SPDX-License-Identifier: MIT

#include "app/console_program.h"
#include "app/console_table.h"
#include "commandline/parse.h"
#include "dialogs/window_dialogs.h"

#include <iostream>

int main(int argc, char** argv) {
  using namespace vantrel;
  const auto [parsed, end] =
      commandline::Begin(app::ConsoleTable(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  dialogs::WindowDialogs dialogs;
  return app::ConsoleProgram("vantrel", argc, argv, dialogs).Run(link::SystemDevice);
}
