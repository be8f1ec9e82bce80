// SPDX-License-Identifier: MIT

#include "log/exchange_starts.h"

#include "protocol/frame.h"

namespace vantrel::log {

bool ExchangeStarts::Add(const LogEntry& row) {
  if (row.direction == protocol::Direction::kFromPrinter) {
    asked_again_ = row.bytes.size() == 1 && row.bytes.front() == char{protocol::kResend};
    return false;
  }
  if (!IsWholeFrame(row)) return false;
  const bool spoilt = !protocol::PartsOf(BytesOf(row)).CheckIsGood();
  const bool begins = !IsSentAgain(row, spoilt);
  frame_ = row.bytes;
  was_spoilt_ = spoilt;
  if (begins) asked_again_ = false;
  return begins;
}

bool ExchangeStarts::IsSentAgain(const LogEntry& row, bool spoilt) const {
  return !frame_.empty() && asked_again_ && (was_spoilt_ || spoilt || frame_ == row.bytes);
}

}  // namespace vantrel::log
