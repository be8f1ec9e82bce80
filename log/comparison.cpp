// SPDX-License-Identifier: MIT

#include "log/comparison.h"

#include "link/frame.h"
#include "log/command_alignment.h"
#include "log/json_object.h"
#include "log/line_log.h"
#include "protocol/frame_words.h"

#include <array>
#include <utility>

namespace vantrel::log {
namespace {

using Field = FieldDifference::Field;

std::string_view NameOf(Field field) {
  constexpr std::array<std::string_view, 7> kNames{"exchange", "command",   "data", "controls",
                                                   "status",   "replyData", "check"};
  return kNames.at(static_cast<std::size_t>(field));
}

std::string CodeInWords(std::uint8_t code) { return link::HexOf(code) + 'h'; }

std::string ValueInWords(Field field, const std::optional<std::string>& value) {
  if (!value) return "none";
  if (field == Field::kCheck) return *value;
  if (field == Field::kData || field == Field::kReplyData) return protocol::DataInWords(*value);
  std::string words;
  for (const char byte : *value)
    words += (words.empty() ? "" : " ") + CodeInWords(static_cast<std::uint8_t>(byte));
  return words;
}

std::optional<std::string> ValueInJson(Field field, const std::optional<std::string>& value) {
  if (!value || field == Field::kCheck) return value;
  LogEntry entry;
  entry.bytes = *value;
  return HexOf(entry);
}

std::optional<std::string> Unless(const std::string& value) {
  return value.empty() ? std::nullopt : std::optional(value);
}

std::optional<std::string> CodeOf(const Exchange& exchange) {
  if (!exchange.code) return std::nullopt;
  return std::string(1, static_cast<char>(*exchange.code));
}

class Comparison {
 public:
  Comparison(const std::vector<Exchange>& a, const std::vector<Exchange>& b,
             const std::function<void(const FieldDifference&)>& tell)
      : a_(a), b_(b), tell_(tell) {}

  bool Run() {
    if (a_.empty() || b_.empty()) return true;
    Pair(0, 0);
    Alignment alignment = AlignCommands(CommandsOf(a_), CommandsOf(b_));
    alignment.runs.push_back({a_.size() - 1, b_.size() - 1, 0});
    std::size_t a = 1;
    std::size_t b = 1;
    // The commands begin with exchange 1.
    for (const Alignment::Run& run : alignment.runs) {
      for (; a < run.a + 1; ++a)
        Tell(a, a_[a].code, Field::kExchange, CodeOf(a_[a]).value_or(""), {});
      for (; b < run.b + 1; ++b)
        Tell(a, b_[b].code, Field::kExchange, {}, CodeOf(b_[b]).value_or(""));
      for (std::size_t i = 0; i < run.length; ++i) Pair(a++, b++);
    }
    return !alignment.gave_up;
  }

 private:
  static std::vector<CommandKey> CommandsOf(const std::vector<Exchange>& exchanges) {
    std::vector<CommandKey> commands;
    commands.reserve(exchanges.size() - 1);
    for (std::size_t i = 1; i < exchanges.size(); ++i)
      commands.push_back({exchanges[i].code, exchanges[i].data});
    return commands;
  }

  void Pair(std::size_t number, std::size_t other) {
    const Exchange& a = a_[number];
    const Exchange& b = b_[other];
    if (a == b) return;
    if (a.code != b.code) Tell(number, a.code, Field::kCommand, CodeOf(a), CodeOf(b));
    const auto field = [&](Field name, const std::string& in_a, const std::string& in_b) {
      if (in_a != in_b) Tell(number, a.code, name, Unless(in_a), Unless(in_b));
    };
    field(Field::kData, a.data, b.data);
    field(Field::kControls, a.controls, b.controls);
    field(Field::kStatus, a.statuses, b.statuses);
    field(Field::kReplyData, a.reply_data, b.reply_data);
    if (b.has_bad_check && !a.has_bad_check)
      Tell(number, a.code, Field::kCheck, std::string("good"), std::string("bad"));
  }

  void Tell(std::size_t number, std::optional<std::uint8_t> code, Field field,
            std::optional<std::string> in_a, std::optional<std::string> in_b) {
    tell_({number, code, field, std::move(in_a), std::move(in_b)});
  }

  const std::vector<Exchange>& a_;
  const std::vector<Exchange>& b_;
  const std::function<void(const FieldDifference&)>& tell_;
};

}  // namespace

std::string TextOf(const FieldDifference& difference) {
  std::string text = "exchange " + std::to_string(difference.exchange);
  if (difference.code) text += ", " + CodeInWords(*difference.code);
  text += ": ";
  if (difference.field == Field::kExchange)
    return text + (difference.b ? "only in B" : "missing in B");
  text += difference.field == Field::kReplyData ? "reply data" : NameOf(difference.field);
  return text + ' ' + ValueInWords(difference.field, difference.b) + " instead of " +
         ValueInWords(difference.field, difference.a);
}

std::string JsonOf(const FieldDifference& difference) {
  std::optional<std::string> command;
  if (difference.code) command = link::HexOf(*difference.code);
  return JsonObject()
      .Add("exchange", static_cast<long>(difference.exchange))
      .Add("command", command)
      .Add("field", NameOf(difference.field))
      .Add("a", ValueInJson(difference.field, difference.a))
      .Add("b", ValueInJson(difference.field, difference.b))
      .Text();
}

bool Compare(const std::vector<Exchange>& a, const std::vector<Exchange>& b,
             const std::function<void(const FieldDifference&)>& tell) {
  return Comparison(a, b, tell).Run();
}

}  // namespace vantrel::log
