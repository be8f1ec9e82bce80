#include "printer/service/printer_script.h"

#include "log/playback_server.h"
#include "printer/service/script_text.h"

#include <algorithm>
#include <utility>

namespace vantrel::printer {
namespace {

// Whether the entry is a whole frame of the console with a good block check.
bool IsGoodCommand(const log::LogEntry& entry) {
  const std::string& bytes = entry.bytes;
  if (entry.direction != protocol::Direction::kFromConsole || bytes.size() < 4 ||
      bytes[0] != '\x02' || bytes[bytes.size() - 2] != '\x03')
    return false;
  char check = 0;
  for (std::size_t i = 1; i < bytes.size(); ++i) check = static_cast<char>(check ^ bytes[i]);
  return check == 0;
}

}  // namespace

PrinterScript::PrinterScript(PrinterModel& model, PrinterServer& server,
                             log::LineRecorder& recorder, QObject* parent)
    : PrinterScript({&model, &server, nullptr, recorder, {}, false}, parent) {}

PrinterScript::PrinterScript(log::PlaybackServer& server, log::LineRecorder& recorder,
                             QObject* parent)
    : PrinterScript({nullptr, nullptr, &server.Played(), recorder, {}, false}, parent) {
  connect(&server, &log::PlaybackServer::Advanced, this, &PrinterScript::LookForEnd,
          Qt::QueuedConnection);
}

PrinterScript::PrinterScript(ScriptContext context, QObject* parent)
    : QObject(parent), context_(std::move(context)) {
  wait_limit_.setSingleShot(true);
  connect(&wait_limit_, &QTimer::timeout, this, [this] {
    const std::string limit = std::to_string(context_.wait->milliseconds) + " milliseconds";
    EndWait(ScriptAnswer::Error(context_.wait->for_end
                                    ? context_.playback->Summary() + " in " + limit
                                    : "no such frame came in " + limit));
  });
  // Later, because the printer tells of bytes before it has taken them.
  connect(&context_.recorder, &log::LineRecorder::Recorded, this, &PrinterScript::LookForFrame,
          Qt::QueuedConnection);
}

void PrinterScript::Feed(std::string_view text) {
  for (const char character : text) {
    if (character == '\n')
      lines_.push_back(std::exchange(text_, {}));
    else if (character != '\r')
      text_ += character;
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
    if (const auto answer = DoScriptLine(context_, line)) Answer(*answer);
    if (context_.wait) {
      wait_limit_.start(context_.wait->milliseconds);
      LookForFrame();
      LookForEnd();
    }
  }
  working_ = false;
  if (!context_.wait && lines_.empty() && ended_) context_.is_over = true;
  if (context_.is_over) emit Finished();
}

void PrinterScript::LookForFrame() {
  if (!context_.wait || context_.wait->for_end) return;
  const log::LineLog& log = context_.recorder.Log();
  for (seen_ = std::max(seen_, log.First()); seen_ < log.Settled(); ++seen_) {
    const log::LogEntry& entry = log.At(seen_);
    if (!IsGoodCommand(entry)) continue;
    const auto code = context_.wait->code;
    if (code && static_cast<std::uint8_t>(entry.bytes[1]) != *code) continue;
    ++seen_;
    EndWait(ScriptAnswer::Ok(log::MeaningOf(entry)));
    return;
  }
}

void PrinterScript::LookForEnd() {
  if (context_.wait && context_.wait->for_end && context_.playback->HasEnded())
    EndWait(ScriptAnswer::Ok());
}

void PrinterScript::EndWait(const ScriptAnswer& answer) {
  context_.wait.reset();
  wait_limit_.stop();
  Answer(answer);
  Work();
}

void PrinterScript::Answer(const ScriptAnswer& answer) {
  const std::string line =
      (answer.ok ? "ok" : "error") + (answer.text.empty() ? "" : ' ' + answer.text);
  emit Answered(QByteArray::fromStdString(line));
}

}  // namespace vantrel::printer
