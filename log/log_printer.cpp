// SPDX-License-Identifier: MIT

#include "log/log_printer.h"

#include "log/line_output.h"
#include "log/line_recorder.h"

#include <algorithm>

namespace vantrel::log {

LogPrinter::LogPrinter(LineRecorder& recorder, LineOutput& output, QObject* parent)
    : QObject(parent), recorder_(recorder), output_(output) {
  connect(&recorder_, &LineRecorder::Recorded, this, &LogPrinter::Print);
}

void LogPrinter::Print() {
  const LineLog& log = recorder_.Log();
  for (printed_ = std::max(printed_, log.First()); printed_ < log.Settled(); ++printed_)
    output_.Write(TextLineOf(log.At(printed_)));
}

}  // namespace vantrel::log
