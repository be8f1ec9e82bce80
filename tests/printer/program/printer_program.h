// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/patience.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <string>

namespace vantrel::printer {

// The built program, as a process of its own.
class PrinterProgram : public testing::Test {
 protected:
  PrinterProgram() {
    // A window leaves its settings here and not with whoever runs the test.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_CONFIG_HOME", folder_.path());
    program_.setProcessEnvironment(environment);
  }
  ~PrinterProgram() override {
    if (program_.state() == QProcess::NotRunning) return;
    program_.kill();
    program_.waitForFinished();
  }

  void Start(const QStringList& options) { program_.start(VANTREL_PRINTER_PROGRAM, options); }

  // Starts it without a window and returns the device that its first line names.
  std::string Serve(const QStringList& options = {}) {
    Start(QStringList{"--headless"} + options);
    return ReadLine();
  }

  // The next line of its output without its end; empty when none comes.
  std::string ReadLine() {
    while (!program_.canReadLine() && program_.waitForReadyRead(support::kPatience)) continue;
    return program_.readLine().trimmed().toStdString();
  }

  // Waits for its end and returns its status; -1 when it does not end of itself, and is killed.
  int End() {
    if (program_.state() != QProcess::NotRunning && !program_.waitForFinished(support::kPatience)) {
      program_.kill();
      program_.waitForFinished();
    }
    return program_.exitStatus() == QProcess::NormalExit ? program_.exitCode() : -1;
  }

  QProcess program_;
  QTemporaryDir folder_;
};

}  // namespace vantrel::printer
