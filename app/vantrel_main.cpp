#include "app/console_program.h"

// The console. It has no options.
int main(int argc, char** argv) {
  return vantrel::app::ConsoleProgram(argc, argv).Run(vantrel::link::SystemDevice);
}
