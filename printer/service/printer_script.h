// SPDX-License-Identifier: MIT
#pragma once

#include "printer/model/answers.h"
#include "printer/service/script_commands.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel::log {
class PlaybackServer;
}

namespace vantrel::printer {

// Takes commands for a software printer, or for a capture that is played back, as lines of text and
// answers each with one line: "ok" or "error" and a text, or a JSON object. A command that waits
// holds up those after it. Empty lines and lines that begin with "#" are no commands and get no
// answer.
class PrinterScript : public QObject {
  Q_OBJECT

 public:
  // All must outlive the script; `server` serves `model`, `recorder` keeps its line.
  PrinterScript(PrinterModel& model, PrinterServer& server, log::LineRecorder& recorder,
                ScriptStyle style = {}, QObject* parent = nullptr);
  // For a capture that is played back. What only a printer can do is answered with an error.
  PrinterScript(log::PlaybackServer& server, log::LineRecorder& recorder, ScriptStyle style = {},
                QObject* parent = nullptr);

  // Takes text in any split; a command ends with its line.
  void Feed(std::string_view text);
  // No more text comes: a last line without an end is taken. After the last answer the line is
  // heard no more, and Finished() follows when all that has been received, and needs no person, is
  // answered too.
  void End();

  // The status that "quit" has asked for.
  std::optional<int> AskedStatus() const { return context_.status; }
  // The status for the program to end with: that one, else 1 where a line was answered with an
  // error, else 0.
  int Status() const { return context_.status.value_or(failed_ ? 1 : 0); }

 signals:
  // One answer, without an end of line.
  void Answered(const QByteArray& answer);
  // One event, without an end of line; none comes inside an answer.
  void Happened(const QByteArray& event);
  // "quit" was answered, or all was after the end, and the console has taken what was sent, or has
  // left it for a second.
  void Finished();

 private:
  // How the script ends with what is served.
  struct Line {
    std::function<void()> hear_no_more;
    // Whether time alone will bring something for the console.
    std::function<bool()> is_busy;
    // Whether the console has taken all that was sent.
    std::function<bool()> is_taken;
  };
  // The latest answer to a code that no wait has told.
  using Answers = std::map<std::optional<std::uint8_t>, printer::Answered>;

  PrinterScript(ScriptContext context, Line line, QObject* parent);

  void Work();
  // Has Look called from the event loop, once however often this is called before.
  void LookSoon();
  // Tells events, and ends the wait if what it is for has come.
  void Look();
  void TellRows();
  void TellState();
  std::optional<ScriptAnswer> WhatHasCome();
  std::optional<ScriptAnswer> FrameThatHasCome();
  std::optional<ScriptAnswer> ReplyThatHasLeft();
  ScriptAnswer WaitHasRunOut() const;
  void EndWait(const ScriptAnswer& answer);
  void Answer(const ScriptAnswer& answer);
  // Ends when nothing is left to be done.
  void BeginToFinish();
  void LookForFinish();

  ScriptContext context_;
  Line line_;
  std::string text_;  // the line that has not ended yet
  std::deque<std::string> lines_;
  QTimer wait_limit_;
  bool look_is_due_ = false;
  // The first entry of the log that no wait has seen, and that no event has told.
  std::size_t seen_ = 0;
  std::size_t told_ = 0;
  // The state that was told last.
  std::optional<log::JsonObject> state_;
  Answers answers_;
  bool ended_ = false;
  bool working_ = false;
  bool failed_ = false;

  QTimer finish_;
  QElapsedTimer finishing_since_;  // since nothing is left but for the console to take
  bool finished_ = false;
};

}  // namespace vantrel::printer
