// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace vantrel::log {
class LineOutput;
}

namespace vantrel::printer {

class PrinterScript;

// Hands what comes on a descriptor to a script and writes its answers. While a reader does not take
// the answers, no more commands are read.
class ScriptConsole : public QObject {
  Q_OBJECT

 public:
  // `input` stays its owner's and open. Script and output must outlive the console.
  ScriptConsole(PrinterScript& script, int input, log::LineOutput& output,
                QObject* parent = nullptr);

 private:
  void Read();

  PrinterScript& script_;
  log::LineOutput& output_;
  QSocketNotifier input_;
  bool ended_ = false;
};

}  // namespace vantrel::printer
