#pragma once

#include "printer/line_recorder.h"

#include <QObject>
#include <QTimer>

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

class PrinterModel;
class PrinterServer;

// Takes commands for a software printer as lines of text and answers each with one line that begins
// with "ok" or "error". A command that waits holds up those after it. Empty lines and lines that
// begin with "#" are no commands and get no answer.
class PrinterScript : public QObject {
  Q_OBJECT

 public:
  // Makes the printer have a fault, given in words; false, with the reason in `error`, for a text
  // that names none.
  using FaultSetter = std::function<bool(const std::string& text, std::string& error)>;

  // All must outlive the script; `server` serves `model`, `recorder` keeps its line.
  PrinterScript(PrinterModel& model, PrinterServer& server, LineRecorder& recorder,
                QObject* parent = nullptr);

  // Without one, the command "fault" is answered with an error.
  void SetFaultSetter(FaultSetter setter) { set_fault_ = std::move(setter); }

  // Takes text in any split; a command ends with its line.
  void Feed(std::string_view text);
  // No more text comes: a last line without an end is taken, and Finished() follows the last
  // answer.
  void End();

 signals:
  // One answer, without an end of line.
  void Answered(const QString& answer);
  // "quit" was answered, or all was after the end.
  void Finished();

 private:
  // A wait for a frame of the console that is under way.
  struct Wait {
    std::optional<std::uint8_t> code;
    int milliseconds = 0;
  };

  void Work();
  // Each returns the answer.
  std::string Do(const std::string& line);
  std::string Insert(std::string_view rest);
  std::string PullOut(std::string_view rest);
  std::string WriteTrack(std::string_view rest);
  std::string ReadTrack(std::string_view rest);
  std::string State() const;
  std::string SaveFace(std::string_view rest) const;
  std::string Log(std::string_view rest) const;
  std::string Fault(std::string_view rest);
  std::string Power(std::string_view rest);
  std::string ChangeSeries(std::string_view rest);
  std::string ChangeSpeed(std::string_view rest);
  std::string BeginWait(std::string_view rest);
  // Ends the wait if the frame has come.
  void LookForFrame();
  void Answer(const std::string& answer);

  PrinterModel& model_;
  PrinterServer& server_;
  LineRecorder& recorder_;
  FaultSetter set_fault_;
  std::string text_;  // the line that has not ended yet
  std::deque<std::string> lines_;
  std::optional<Wait> wait_;
  QTimer wait_limit_;
  // The first entry of the log that no wait has seen.
  std::size_t seen_ = 0;
  bool ended_ = false;
  bool finished_ = false;
  bool working_ = false;
};

}  // namespace vantrel
