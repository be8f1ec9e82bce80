#include "app/console_program.h"
#include "app/printer_process.h"

#include <cstring>
#include <exception>
#include <iostream>

// Starts a software printer and a console whose COM 1 is that printer.
int main(int argc, char** argv) {
  if (argc > 1 && (std::strcmp(argv[1], "--help") == 0 || std::strcmp(argv[1], "-h") == 0)) {
    std::cout << "Usage: vantrel-demo\n"
                 "Starts a software printer (vantrel-printer) and the console (vantrel) with that\n"
                 "printer at COM 1. Put a card in, then press a button of the console.\n";
    return 0;
  }
  vantrel::app::ConsoleProgram console(argc, argv);
  try {
    const vantrel::app::PrinterProcess printer;
    return console.Run([&printer](int port_number) {
      return port_number == 1 ? printer.DevicePath() : vantrel::link::SystemDevice(port_number);
    });
  } catch (const std::exception& error) {
    std::cerr << "vantrel-demo: " << error.what() << "\n";
    return 1;
  }
}
