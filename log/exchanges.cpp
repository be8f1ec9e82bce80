#include "log/exchanges.h"

#include "protocol/frame.h"

namespace vantrel::log {
namespace {

std::string TextOf(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

}  // namespace

void ExchangeReader::Add(const LogEntry& row) {
  const bool to_printer = row.direction == protocol::Direction::kFromConsole;
  const protocol::GroupKind kind = protocol::KindOf(row.direction, BytesOf(row));
  if (to_printer && IsWholeFrame(row)) {
    AddCommand(row);
  } else if (!to_printer && kind == protocol::GroupKind::kFrame) {
    AddReply(row);
  } else if (kind == protocol::GroupKind::kControl) {
    Exchange& exchange = exchanges_.back();
    const auto control = static_cast<std::uint8_t>(row.bytes.front());
    exchange.controls += row.bytes;
    resend_is_asked_ = control == protocol::kResend;
    // A command that was rejected gets no reply.
    if (control == protocol::kReject && exchange.code) {
      auto& waiting = waiting_[*exchange.code];
      if (!waiting.empty() && waiting.back() + 1 == exchanges_.size()) waiting.pop_back();
    }
  }
}

void ExchangeReader::AddCommand(const LogEntry& row) {
  const protocol::FrameParts parts = protocol::PartsOf(BytesOf(row));
  const std::optional<std::uint8_t> code =
      parts.content.empty() ? std::optional<std::uint8_t>() : parts.content.front();
  const bool is_bad = !parts.CheckIsGood();
  Exchange& last = exchanges_.back();
  const bool is_resend = resend_is_asked_ && exchanges_.size() > 1 &&
                         (last.code == code || last.has_bad_check || is_bad);
  resend_is_asked_ = false;
  if (is_resend) {
    last.has_bad_check = last.has_bad_check || is_bad;
    return;
  }
  Exchange& exchange = exchanges_.emplace_back();
  exchange.code = code;
  if (!parts.content.empty()) exchange.data = TextOf(parts.content.subspan(1));
  exchange.has_bad_check = is_bad;
  if (code) waiting_[*code].push_back(static_cast<std::uint32_t>(exchanges_.size() - 1));
}

void ExchangeReader::AddReply(const LogEntry& row) {
  const protocol::FrameParts parts = protocol::PartsOf(BytesOf(row));
  std::size_t number = exchanges_.size() - 1;
  if (!parts.content.empty()) {
    auto& waiting = waiting_[parts.content.front()];
    if (!waiting.empty()) {
      number = waiting.back();
      waiting.pop_back();
    }
  }
  Exchange& exchange = exchanges_[number];
  if (parts.content.size() > 1) {
    exchange.statuses += static_cast<char>(parts.content[1]);
    exchange.reply_data += TextOf(parts.content.subspan(2));
  }
  if (parts.check && !parts.CheckIsGood()) exchange.has_bad_check = true;
}

}  // namespace vantrel::log
