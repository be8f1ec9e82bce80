#pragma once

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

// Puts rows together to exchanges. The first holds what came before the first whole frame to the
// printer; each such frame begins another, unless it is sent again after 15h. A reply that echoes
// an earlier command that still waits for one belongs to that.
class ExchangeReader {
 public:
  ExchangeReader() : exchanges_(1), waiting_(256) {}

  void Add(const LogEntry& row);
  std::vector<Exchange> Take() { return std::move(exchanges_); }

 private:
  void AddCommand(const LogEntry& row);
  void AddReply(const LogEntry& row);

  std::vector<Exchange> exchanges_;
  // By code: the numbers of the exchanges that wait for a reply.
  std::vector<std::vector<std::uint32_t>> waiting_;
  bool resend_is_asked_ = false;
};

}  // namespace vantrel::log
