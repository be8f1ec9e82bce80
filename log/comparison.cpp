#include "log/comparison.h"

#include "link/frame.h"
#include "log/alignment.h"
#include "log/json_object.h"
#include "log/line_log.h"
#include "protocol/frame_words.h"

#include <array>
#include <unordered_map>
#include <utility>

namespace vantrel::log {
namespace {

using Field = FieldDifference::Field;

constexpr std::size_t kMostApart = 1500;

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
    const std::vector<std::uint32_t> keys_a = KeysOf(a_);
    const std::vector<std::uint32_t> keys_b = KeysOf(b_);
    Alignment alignment = Align(keys_a, keys_b, kMostApart);
    in_step_ = alignment.went_in_step;
    alignment.runs.push_back({keys_a.size(), keys_b.size(), 0});
    std::size_t a = 0;
    std::size_t b = 0;
    // The keys begin with exchange 1.
    for (const Alignment::Run& run : alignment.runs) {
      Gap(a + 1, run.a + 1, b + 1, run.b + 1);
      for (std::size_t i = 0; i < run.length; ++i) Pair(run.a + 1 + i, run.b + 1 + i);
      a = run.a + run.length;
      b = run.b + run.length;
    }
    return !in_step_;
  }

 private:
  // A number for each command with its data, the same where they are.
  std::vector<std::uint32_t> KeysOf(const std::vector<Exchange>& exchanges) {
    std::vector<std::uint32_t> keys;
    keys.reserve(exchanges.size() - 1);
    for (std::size_t i = 1; i < exchanges.size(); ++i) {
      const Exchange& exchange = exchanges[i];
      const std::string key = CodeOf(exchange).value_or("") + exchange.data;
      keys.push_back(
          numbers_.try_emplace(key, static_cast<std::uint32_t>(numbers_.size())).first->second);
    }
    return keys;
  }

  static std::vector<std::uint32_t> CodesOf(const std::vector<Exchange>& exchanges,
                                            std::size_t begin, std::size_t end) {
    std::vector<std::uint32_t> codes;
    for (; begin < end; ++begin)
      codes.push_back(exchanges[begin].code.value_or(0) + (exchanges[begin].code ? 1U : 0U));
    return codes;
  }

  // Exchanges that nothing was found for by command and data.
  void Gap(std::size_t a, std::size_t end_a, std::size_t b, std::size_t end_b) {
    if (a == end_a && b == end_b) return;
    Alignment alignment = Align(CodesOf(a_, a, end_a), CodesOf(b_, b, end_b), kMostApart);
    in_step_ = in_step_ || alignment.went_in_step;
    alignment.runs.push_back({end_a - a, end_b - b, 0});
    const std::size_t first_a = a;
    const std::size_t first_b = b;
    for (const Alignment::Run& run : alignment.runs) {
      for (; a < first_a + run.a; ++a)
        Tell(a, a_[a].code, Field::kExchange, CodeOf(a_[a]).value_or(""), {});
      for (; b < first_b + run.b; ++b)
        Tell(a, b_[b].code, Field::kExchange, {}, CodeOf(b_[b]).value_or(""));
      for (std::size_t i = 0; i < run.length; ++i) Pair(a++, b++);
    }
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
  std::unordered_map<std::string, std::uint32_t> numbers_;
  bool in_step_ = false;
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
