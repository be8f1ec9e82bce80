// SPDX-License-Identifier: MIT

#include "log/exchanges.h"

#include "protocol/frame.h"

namespace vantrel::log {
namespace {

std::string TextOf(std::span<const std::uint8_t> bytes) { return {bytes.begin(), bytes.end()}; }

}  // namespace

void ExchangeReader::Add(const LogEntry& row) {
  const bool to_printer = row.direction == protocol::Direction::kFromConsole;
  const protocol::GroupKind kind = protocol::KindOf(row.direction, BytesOf(row));
  const bool before_was_spoilt = starts_.WasSpoilt();
  const bool begins = starts_.Add(row);
  if (begins) {
    exchanges_.emplace_back();
    SetCommand(row);
  } else if (to_printer && IsWholeFrame(row)) {
    exchanges_.back().has_bad_check |= starts_.WasSpoilt();
    if (before_was_spoilt && !starts_.WasSpoilt()) SetCommand(row);
  } else if (!to_printer && kind == protocol::GroupKind::kFrame) {
    AddReply(row);
  } else if (kind == protocol::GroupKind::kControl) {
    Exchange& exchange = exchanges_.back();
    exchange.controls += row.bytes;
    // A command that was rejected gets no reply.
    if (row.bytes.front() == char{protocol::kReject}) ForgetLatest();
  }
}

void ExchangeReader::SetCommand(const LogEntry& row) {
  const protocol::FrameParts parts = protocol::PartsOf(BytesOf(row));
  Exchange& exchange = exchanges_.back();
  ForgetLatest();
  exchange.code.reset();
  exchange.data.clear();
  exchange.has_bad_check |= !parts.CheckIsGood();
  if (parts.content.empty()) return;
  exchange.code = parts.content.front();
  exchange.data = TextOf(parts.content.subspan(1));
  waiting_[*exchange.code].push_back(static_cast<std::uint32_t>(exchanges_.size() - 1));
}

void ExchangeReader::ForgetLatest() {
  const Exchange& exchange = exchanges_.back();
  if (!exchange.code) return;
  auto& waiting = waiting_[*exchange.code];
  if (!waiting.empty() && waiting.back() + 1 == exchanges_.size()) waiting.pop_back();
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
