#include "app/console_program.h"
#include "app/demo_table.h"
#include "app/printer_options.h"
#include "app/printer_process.h"

#include <exception>
#include <iostream>

// Starts a software printer and a console whose COM 1 is that printer.
int main(int argc, char** argv) {
  using namespace vantrel;
  if (const auto end = app::ParsePrinterOptions(app::DemoProgram(), argc, argv).end) return *end;
  const QStringList options = [&] {
    QStringList list;
    for (int i = 1; i < argc; ++i) list += QString::fromLocal8Bit(argv[i]);
    return list;
  }();
  app::ConsoleProgram console("vantrel-demo", argc, argv);
  try {
    const app::PrinterProcess printer(options);
    return console.Run([&printer](int port_number) {
      return port_number == 1 ? printer.DevicePath() : link::SystemDevice(port_number);
    });
  } catch (const std::exception& error) {
    std::cerr << "vantrel-demo: " << error.what() << "\n";
    return 1;
  }
}
