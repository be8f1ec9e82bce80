// SPDX-License-Identifier: MIT

#include "send/sender.h"

#include "link/reply.h"
#include "link/status_text.h"

namespace vantrel::send {
namespace {

std::string Trimmed(std::string text) {
  while (!text.empty() && text.back() == ' ') text.pop_back();
  return text;
}

Outcome OutcomeOf(link::Judgement judgement) {
  switch (judgement) {
    case link::Judgement::kComplete:
      return Outcome::kReply;
    case link::Judgement::kReject:
      return Outcome::kReject;
    case link::Judgement::kUnknown:
      return Outcome::kUnknown;
    default:
      // The transaction goes on with both of the others until the time is up.
      return Outcome::kTimeUp;
  }
}

}  // namespace

std::string_view NameOf(Outcome outcome) {
  switch (outcome) {
    case Outcome::kReply:
      return "reply";
    case Outcome::kReject:
      return "reject";
    case Outcome::kUnknown:
      return "unknown";
    case Outcome::kTimeUp:
      return "time-up";
    case Outcome::kCancelled:
      return "cancelled";
    case Outcome::kFailed:
      return "failed";
    case Outcome::kRefused:
      return "refused";
  }
  return "";
}

void Sender::Shown::SetText(link::Field field, const std::string& text) {
  if (field != link::Field::TxtResponse) return;
  response_ = text;
  if (text.starts_with("&H15")) ++resends_;
}

std::string Sender::Shown::Text(link::Field field) const {
  return field == link::Field::TxtResponse ? response_ : "";
}

void Sender::Shown::Clear() {
  response_.clear();
  resends_ = 0;
}

Sender::Sender(link::Port& port, link::Clock& clock, link::CodePage page, LineWatch* watch)
    : port_(port, watch), transaction_(port_, shown_, clock, page), page_(page) {}

Exchange Sender::Send(const std::string& frame, int time_limit) {
  Exchange exchange;
  exchange.command = frame.substr(2, 2);
  exchange.sent = frame;
  shown_.Clear();
  port_.Begin();
  try {
    transaction_.SendCommand(frame, time_limit);
    exchange.outcome = OutcomeOf(link::JudgeReply(transaction_.ReceiveBuffer(), frame));
    exchange.meaning = Trimmed(shown_.Text(link::Field::TxtResponse));
  } catch (const link::PortError& error) {
    // A reply that was whole before the line went counts. What stands there before this frame was
    // sent is an earlier one's.
    const bool is_whole = HasSent() && link::JudgeReply(transaction_.ReceiveBuffer(), frame) ==
                                           link::Judgement::kComplete;
    exchange.outcome = is_whole ? Outcome::kReply : Outcome::kFailed;
    exchange.meaning = error.what();
  } catch (const link::ExchangeEnded&) {
    exchange.outcome = Outcome::kCancelled;
    exchange.meaning = "The command was cancelled by a signal.";
  }
  exchange.milliseconds = port_.MillisecondsSinceSent();
  if (HasSent()) exchange.received = transaction_.ReceiveBuffer();
  exchange.resends = shown_.Resends();
  if (exchange.outcome != Outcome::kReply) return exchange;
  exchange.status = link::ReplyStatus(exchange.received);
  exchange.meaning = link::StatusText(*exchange.status);
  exchange.label = link::ReplyLabel(exchange.command);
  exchange.data = link::ReplyData(exchange.received);
  exchange.text = link::DecodeBytes(exchange.data, page_);
  return exchange;
}

}  // namespace vantrel::send
