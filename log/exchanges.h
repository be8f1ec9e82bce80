// SPDX-License-Identifier: MIT
#pragma once

#include "log/exchange_starts.h"
#include "log/line_log.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::log {

// A command and all that it was answered with, as far as captures are compared. Texts hold one
// character a byte.
struct Exchange {
  std::optional<std::uint8_t> code;  // nothing for what came before the first frame
  std::string data;                  // of the command
  std::string controls;              // the printer's control characters
  std::string statuses;              // of the replies, one byte each
  std::string reply_data;
  bool has_bad_check = false;

  friend bool operator==(const Exchange&, const Exchange&) = default;
};

// Puts rows together to exchanges, which begin where ExchangeStarts tells; the first holds what
// came before. A command that was spoilt on the line is what it was meant to be when it is sent
// again. A reply that echoes an earlier command that still waits for one belongs to that.
class ExchangeReader {
 public:
  ExchangeReader() : exchanges_(1), waiting_(256) {}

  void Add(const LogEntry& row);
  std::vector<Exchange> Take() { return std::move(exchanges_); }

 private:
  // Makes a frame the command of the latest exchange.
  void SetCommand(const LogEntry& row);
  // The latest command waits for a reply no more.
  void ForgetLatest();
  void AddReply(const LogEntry& row);

  std::vector<Exchange> exchanges_;
  // By code: the numbers of the exchanges that wait for a reply.
  std::vector<std::vector<std::uint32_t>> waiting_;
  ExchangeStarts starts_;
};

}  // namespace vantrel::log
