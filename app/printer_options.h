#pragma once

#include "printer/printer_state.h"

#include <QString>
#include <QStringList>

#include <optional>

// The command line of the software printer.
struct PrinterOptions {
  bool headless = false;
  bool script = false;
  bool card = false;
  bool instant = false;
  QString link;
  QString through;
  vantrel::Series series = vantrel::Series::kQl7;
  int speed = 9600;  // bits a second
  bool pacing = true;
  bool case_parts = false;
};

// The options, or the status with which the program ends now; what is to be said has been said.
struct ParsedPrinterOptions {
  PrinterOptions options;
  std::optional<int> end;
};

ParsedPrinterOptions ParsePrinterOptions(const QStringList& arguments);
