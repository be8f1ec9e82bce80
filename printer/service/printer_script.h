#pragma once

#include "printer/service/script_commands.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>

namespace vantrel::log {
class PlaybackServer;
}

namespace vantrel::printer {

// Takes commands for a software printer, or for a capture that is played back, as lines of text and
// answers each with one line that begins with "ok" or "error". A command that waits holds up those
// after it. Empty lines and lines that begin with "#" are no commands and get no answer.
class PrinterScript : public QObject {
  Q_OBJECT

 public:
  // All must outlive the script; `server` serves `model`, `recorder` keeps its line.
  PrinterScript(PrinterModel& model, PrinterServer& server, log::LineRecorder& recorder,
                QObject* parent = nullptr);
  // For a capture that is played back. What only a printer can do is answered with an error.
  PrinterScript(log::PlaybackServer& server, log::LineRecorder& recorder,
                QObject* parent = nullptr);

  // Takes text in any split; a command ends with its line.
  void Feed(std::string_view text);
  // No more text comes: a last line without an end is taken, and Finished() follows the last
  // answer.
  void End();

 signals:
  // One answer, without an end of line.
  void Answered(const QByteArray& answer);
  // "quit" was answered, or all was after the end.
  void Finished();

 private:
  PrinterScript(ScriptContext context, QObject* parent);

  void Work();
  // Ends the wait if what it is for has come.
  void LookForFrame();
  void LookForEnd();
  void EndWait(const ScriptAnswer& answer);
  void Answer(const ScriptAnswer& answer);

  ScriptContext context_;
  std::string text_;  // the line that has not ended yet
  std::deque<std::string> lines_;
  QTimer wait_limit_;
  // The first entry of the log that no wait has seen.
  std::size_t seen_ = 0;
  bool ended_ = false;
  bool working_ = false;
};

}  // namespace vantrel::printer
