// SPDX-License-Identifier: MIT
#pragma once

#include "tests/printer/program/printer_program.h"

#include <QByteArray>
#include <QJsonObject>

#include <memory>
#include <vector>

namespace vantrel::send {

// How a run of vantrel-send ended.
struct Ended {
  int status = -1;
  QByteArray out;
  QByteArray errors;
};

// The built program, with the built software printer at the other end of the line.
class SendProgram : public printer::PrinterProgram {
 protected:
  // Starts the printer with these options; `--instant` in most cases.
  void Begin(const QStringList& options = {"--instant"});
  // The same, with the printer on a TCP port.
  void BeginOnTcp(const QStringList& options = {"--instant"});
  // Sends a line to the printer's script and returns the answer.
  std::string Ask(const std::string& line);

  // Runs vantrel-send on the printer's device to its end.
  Ended Send(const QStringList& words, const QByteArray& input = {});
  // Runs it without a device of this fixture.
  static Ended SendTo(const QStringList& words, const QByteArray& input = {});
  // Starts it on the printer's device and leaves it running.
  std::unique_ptr<QProcess> StartSending(const QStringList& words);
  // Waits for the end of one that was started.
  static Ended EndOf(QProcess& process);

  // The objects of an output of one object a line; a line that is none fails the test.
  static std::vector<QJsonObject> Objects(const QByteArray& out);

  QString device_;
};

}  // namespace vantrel::send
