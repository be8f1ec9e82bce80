// SPDX-License-Identifier: MIT

#include "printer/service/printer_script.h"

#include "log/playback_server.h"
#include "log/row_text.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_state.h"
#include "printer/service/script_text.h"
#include "protocol/frame.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// How often the end is looked for, and how long a console may leave what was sent to it.
constexpr auto kFinishStep = 1ms;
constexpr int kPatience = 1000;

// Whether the entry is a whole frame of the console with a good block check.
bool IsGoodCommand(const log::LogEntry& entry) {
  return entry.direction == protocol::Direction::kFromConsole && log::IsWholeFrame(entry) &&
         entry.bytes.size() >= 4 && protocol::PartsOf(log::BytesOf(entry)).CheckIsGood();
}

QByteArray ToQt(const std::string& line) { return QByteArray::fromStdString(line); }

}  // namespace

PrinterScript::PrinterScript(PrinterModel& model, PrinterServer& server,
                             log::LineRecorder& recorder, ScriptStyle style, QObject* parent)
    : PrinterScript(
          {.model = &model, .server = &server, .recorder = recorder, .style = std::move(style)},
          {[&server] { server.HearNoMore(); }, [&model] { return model.IsBusy(); },
           [&server] { return server.IsTaken(); }},
          parent) {
  connect(&server, &PrinterServer::Changed, this, &PrinterScript::LookSoon);
  connect(&server, &PrinterServer::Answered, this, [this](const printer::Answered& answer) {
    answers_[answer.code] = answer;
    LookSoon();
  });
}

PrinterScript::PrinterScript(log::PlaybackServer& server, log::LineRecorder& recorder,
                             ScriptStyle style, QObject* parent)
    : PrinterScript({.playback = &server.Played(), .recorder = recorder, .style = std::move(style)},
                    {[&server] { server.HearNoMore(); },
                     [&server] { return server.Played().NextAdvance().has_value(); },
                     [&server] { return server.IsTaken(); }},
                    parent) {
  connect(&server, &log::PlaybackServer::Advanced, this, &PrinterScript::LookSoon);
}

PrinterScript::PrinterScript(ScriptContext context, Line line, QObject* parent)
    : QObject(parent), context_(std::move(context)), line_(std::move(line)) {
  wait_limit_.setSingleShot(true);
  connect(&wait_limit_, &QTimer::timeout, this, [this]() noexcept { EndWait(WaitHasRunOut()); });
  connect(&context_.recorder, &log::LineRecorder::Recorded, this, &PrinterScript::LookSoon);
  finish_.setInterval(kFinishStep);
  connect(&finish_, &QTimer::timeout, this, [this]() noexcept { LookForFinish(); });
}

void PrinterScript::Feed(std::string_view text) {
  for (const char character : text) {
    if (character != '\n') {
      text_ += character;
      continue;
    }
    if (text_.ends_with('\r')) text_.pop_back();
    lines_.push_back(std::exchange(text_, {}));
  }
  Work();
}

void PrinterScript::End() {
  if (!text_.empty()) lines_.push_back(std::exchange(text_, {}));
  ended_ = true;
  Work();
}

void PrinterScript::Work() {
  // What a command does may come back here.
  if (working_) return;
  working_ = true;
  while (!context_.wait && !context_.is_over && !lines_.empty()) {
    const std::string line = std::move(lines_.front());
    lines_.pop_front();
    const std::string_view word = Split(line).first;
    if (word.empty() || word[0] == '#') continue;
    const bool told_events = context_.events;
    if (const auto answer = DoScriptLine(context_, line)) Answer(*answer);
    if (context_.events && !told_events) {
      // From now on.
      told_ = context_.recorder.Log().Settled();
      if (context_.model != nullptr) state_ = StateInJson(*context_.model);
    }
    if (context_.wait) {
      wait_limit_.start(context_.wait->milliseconds);
      if (const auto answer = WhatHasCome()) {
        context_.wait.reset();
        wait_limit_.stop();
        Answer(*answer);
      }
    }
  }
  working_ = false;
  if (context_.is_over || (!context_.wait && lines_.empty() && ended_)) BeginToFinish();
}

void PrinterScript::LookSoon() {
  // Later, because the printer tells of bytes before it has taken them.
  if (look_is_due_ || (!context_.wait && !context_.events)) return;
  look_is_due_ = true;
  QMetaObject::invokeMethod(
      this, [this]() noexcept { Look(); }, Qt::QueuedConnection);
}

void PrinterScript::Look() {
  look_is_due_ = false;
  if (context_.events) {
    TellRows();
    TellState();
  }
  if (!context_.wait) return;
  if (const auto answer = WhatHasCome()) EndWait(*answer);
}

void PrinterScript::TellRows() {
  const log::LineLog& log = context_.recorder.Log();
  for (told_ = std::max(told_, log.First()); told_ < log.Settled(); ++told_) {
    const log::LogEntry& row = log.At(told_);
    const bool received = row.direction == protocol::Direction::kFromConsole;
    const auto comment = row.comment.empty() ? std::nullopt : std::optional(row.comment);
    emit Happened(ToQt(log::JsonObject()
                           .Add("event", received ? "received" : "sent")
                           .Add("time", log::UtcInWords(row.time))
                           .Append(RowInJson(row))
                           .Add("comment", comment)
                           .Text()));
  }
}

void PrinterScript::TellState() {
  if (context_.model == nullptr) return;
  log::JsonObject state = StateInJson(*context_.model);
  if (state == state_) return;
  state_ = std::move(state);
  emit Happened(ToQt(log::JsonObject()
                         .Add("event", "state")
                         .Add("time", log::UtcInWords(log::WallNow()))
                         .Append(*state_)
                         .Text()));
}

std::optional<ScriptAnswer> PrinterScript::WhatHasCome() {
  switch (context_.wait->what) {
    case ScriptWait::For::kFrame:
      return FrameThatHasCome();
    case ScriptWait::For::kReply:
      return ReplyThatHasLeft();
    case ScriptWait::For::kActivity:
      if (context_.model->CurrentActivity() == context_.wait->activity) return ScriptAnswer::Ok();
      break;
    case ScriptWait::For::kEnd:
      if (context_.playback->HasEnded()) return ScriptAnswer::Ok();
      break;
  }
  return std::nullopt;
}

std::optional<ScriptAnswer> PrinterScript::FrameThatHasCome() {
  const log::LineLog& log = context_.recorder.Log();
  const auto code = context_.wait->code;
  for (seen_ = std::max(seen_, log.First()); seen_ < log.Settled(); ++seen_) {
    const log::LogEntry& entry = log.At(seen_);
    if (!IsGoodCommand(entry) || (code && log::BytesOf(entry)[1] != *code)) continue;
    ++seen_;
    return ScriptAnswer::Ok(log::MeaningOf(entry), RowInJson(entry));
  }
  return std::nullopt;
}

std::optional<ScriptAnswer> PrinterScript::ReplyThatHasLeft() {
  const auto code = context_.wait->code;
  const std::size_t last = code ? context_.model->LastHeard(*code) : context_.model->LastHeard();
  const auto found = std::find_if(answers_.begin(), answers_.end(),
                                  [last](const auto& each) { return each.second.number == last; });
  if (found == answers_.end()) return std::nullopt;
  const printer::Answered answer = std::move(found->second);
  answers_.erase(found);
  return ScriptAnswer::Ok(AnswerInWords(answer), AnswerInJson(answer));
}

ScriptAnswer PrinterScript::WaitHasRunOut() const {
  const std::string limit = " in " + std::to_string(context_.wait->milliseconds) + " milliseconds";
  switch (context_.wait->what) {
    case ScriptWait::For::kReply:
      return ScriptAnswer::Error("no such reply left" + limit);
    case ScriptWait::For::kActivity:
      if (context_.wait->activity == Activity::kIdle)
        return ScriptAnswer::Error("the printer was not idle" + limit);
      return ScriptAnswer::Error("no command waited for " +
                                 std::string(context_.wait->activity == Activity::kCardWait
                                                 ? "a card"
                                                 : "the removal of a card") +
                                 limit);
    case ScriptWait::For::kEnd:
      return ScriptAnswer::Error(context_.playback->Summary() + limit);
    default:
      return ScriptAnswer::Error("no such frame came" + limit);
  }
}

void PrinterScript::EndWait(const ScriptAnswer& answer) {
  context_.wait.reset();
  wait_limit_.stop();
  Answer(answer);
  Work();
}

void PrinterScript::Answer(const ScriptAnswer& answer) {
  failed_ = failed_ || !answer.ok;
  if (context_.style.json) {
    log::JsonObject line;
    line.Add("ok", std::optional(answer.ok));
    if (answer.ok)
      line.Append(answer.members);
    else
      line.Add("error", answer.text);
    emit Answered(ToQt(line.Text()));
  } else {
    emit Answered(
        ToQt((answer.ok ? "ok" : "error") + (answer.text.empty() ? "" : ' ' + answer.text)));
  }
}

void PrinterScript::BeginToFinish() {
  if (finished_ || finish_.isActive()) return;
  // Who says "quit" wants no more of what is still at work.
  if (!context_.is_over) line_.hear_no_more();
  finish_.start();
  LookForFinish();
}

void PrinterScript::LookForFinish() {
  if (!context_.is_over && line_.is_busy()) return;
  if (!finishing_since_.isValid()) finishing_since_.start();
  if (!line_.is_taken() && finishing_since_.elapsed() < kPatience) return;
  finish_.stop();
  finished_ = true;
  // What has happened last.
  if (context_.events) Look();
  emit Finished();
}

}  // namespace vantrel::printer
