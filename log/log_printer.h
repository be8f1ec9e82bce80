// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <cstddef>

namespace vantrel::log {

class LineOutput;
class LineRecorder;

// Writes each entry of a recorder's log as a line of text, when it is complete.
class LogPrinter : public QObject {
  Q_OBJECT

 public:
  // Both must outlive the printer.
  LogPrinter(LineRecorder& recorder, LineOutput& output, QObject* parent = nullptr);

 private:
  void Print();

  LineRecorder& recorder_;
  LineOutput& output_;
  std::size_t printed_ = 0;
};

}  // namespace vantrel::log
