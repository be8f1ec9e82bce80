#include "app/console_program.h"
#include "app/console_table.h"
#include "commandline/parse.h"

#include <iostream>

int main(int argc, char** argv) {
  using namespace vantrel;
  const auto [parsed, end] =
      commandline::Begin(app::ConsoleTable(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  return app::ConsoleProgram("vantrel", argc, argv).Run(link::SystemDevice);
}
