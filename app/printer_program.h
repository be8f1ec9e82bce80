// SPDX-License-Identifier: MIT
#pragma once

#include "app/printer_options.h"

#include <QObject>
#include <QStringList>

#include <memory>
#include <string>

namespace vantrel::log {
class LineRecorder;
class PlaybackServer;
class ThroughServer;
}  // namespace vantrel::log
namespace vantrel::printer {
class PrinterModel;
class PrinterServer;
}  // namespace vantrel::printer

namespace vantrel::app {

// The windows of the software printer. Each is returned shown; what it is made of must outlive it,
// and so must this object.
class PrinterWindows {
 public:
  virtual ~PrinterWindows() = default;
  // `missing_fonts` are sentences, one for each font that cards are printed without.
  virtual std::unique_ptr<QObject> ShowPrinter(printer::PrinterModel& model,
                                               printer::PrinterServer& server,
                                               const log::LineRecorder& recorder,
                                               const QStringList& missing_fonts) = 0;
  virtual std::unique_ptr<QObject> ShowPlayback(const log::PlaybackServer& server,
                                                log::LineRecorder& recorder) = 0;
  // It stays when the server has ended, so that its log can be saved.
  virtual std::unique_ptr<QObject> ShowThrough(const log::ThroughServer& server,
                                               log::LineRecorder& recorder) = 0;
};

// What the printer's main functions begin with: the standard descriptors are open, a fault that
// nobody catches is told, and signals wait for RunPrinter.
void BeginPrinter();

// One line on standard error: "vantrel-printer: ERROR".
void ComplainOfPrinter(const std::string& error);

// Runs the software printer until it is asked to end and returns the status to end with. Without
// `windows` it has none. Needs the application object; what keeps the printer from serving is told
// on standard error.
int RunPrinter(const PrinterOptions& options, PrinterWindows* windows);

}  // namespace vantrel::app
