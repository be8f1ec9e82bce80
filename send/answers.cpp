// SPDX-License-Identifier: MIT

#include "send/answers.h"

#include "link/frame.h"
#include "log/json_object.h"
#include "log/json_text.h"

namespace vantrel::send {
namespace {

// Control characters as \xHH.
std::string Visible(const std::string& utf8) {
  std::string visible;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    const auto code = static_cast<unsigned char>(utf8[i]);
    const auto next = static_cast<unsigned char>(i + 1 < utf8.size() ? utf8[i + 1] : 0);
    if (code < 0x20 || code == 0x7F) {
      visible += "\\x" + link::HexOf(code);
    } else if (code == 0xC2 && next >= 0x80 && next < 0xA0) {
      visible += "\\x" + link::HexOf(next);
      ++i;
    } else {
      visible += utf8[i];
    }
  }
  return visible;
}

std::string Block(const Exchange& exchange) {
  // A refusal repeats what was in the line.
  if (exchange.outcome == Outcome::kRefused)
    return "refused   " + Visible(log::ValidUtf8(exchange.meaning)) + "\n";
  std::string text = "sent      " + Pairs(exchange.sent) + "\n";
  if (!exchange.received.empty()) text += "received  " + Pairs(exchange.received) + "\n";
  text += exchange.meaning + "\n";
  if (!exchange.data.empty()) text += exchange.label + Visible(exchange.text) + "\n";
  return text;
}

std::string Object(const Exchange& exchange) {
  log::JsonObject object;
  if (exchange.place.line) object.Add("line", *exchange.place.line);
  if (exchange.place.round) object.Add("round", *exchange.place.round);
  if (exchange.command.empty())
    object.AddNull("command");
  else
    object.Add("command", exchange.command);
  if (exchange.status)
    object.Add("status", StatusDigits(*exchange.status));
  else
    object.AddNull("status");
  if (exchange.outcome == Outcome::kRefused)
    return object.Add("outcome", NameOf(exchange.outcome)).Add("error", exchange.meaning).Text();
  object.Add("sent", Pairs(exchange.sent))
      .Add("received", Pairs(exchange.received))
      .Add("outcome", NameOf(exchange.outcome))
      .Add("meaning", exchange.meaning)
      .Add("label", exchange.label)
      .Add("text", exchange.text)
      .Add("milliseconds", exchange.milliseconds)
      .Add("resends", static_cast<long>(exchange.resends));
  return object.Text();
}

}  // namespace

std::string Pairs(const std::string& hex) {
  std::string pairs = link::SpacedPairs(hex);
  if (!pairs.empty()) pairs.pop_back();
  return pairs;
}

std::string StatusDigits(unsigned status) { return link::HexOf(static_cast<std::uint8_t>(status)); }

std::string Told(const Exchange& exchange, Format format) {
  switch (format) {
    case Format::kText:
      return Block(exchange);
    case Format::kJson:
      return Object(exchange) + "\n";
    case Format::kQuiet:
      return exchange.outcome == Outcome::kReply ? exchange.data + "\n" : "";
  }
  return "";
}

std::string ToldDry(const std::string& code, const std::string& frame, Format format) {
  if (format != Format::kJson) return Pairs(frame) + "\n";
  return log::JsonObject().Add("command", code).Add("sent", Pairs(frame)).Text() + "\n";
}

}  // namespace vantrel::send
