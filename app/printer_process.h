// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>

#include <string>

namespace vantrel::app {

// A vantrel-printer that runs as long as this object lives, and no longer than this process.
class PrinterProcess {
 public:
  // Starts the program that stands beside this one, with options of its own, and waits until it
  // serves. Throws std::runtime_error with the reason when it does not.
  explicit PrinterProcess(const QStringList& options);
  ~PrinterProcess();

  // Whether the program has ended; waits a moment for a program that is about to.
  bool HasEnded();
  // The device that a console opens.
  const std::string& DevicePath() const { return device_path_; }

 private:
  QProcess process_;
  std::string device_path_;
};

}  // namespace vantrel::app
