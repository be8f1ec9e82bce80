// SPDX-License-Identifier: MIT

#include "tests/reliability/line.h"

#include "tests/reliability/console_commands.h"

#include <gtest/gtest.h>

namespace vantrel::reliability {

std::string ExclusiveOr(const std::string& hex) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  unsigned long check = 0;
  for (std::size_t i = 0; i < hex.size(); i += 2)
    check ^= std::stoul(hex.substr(i, 2), nullptr, 16);
  return {kDigits[check / 16], kDigits[check % 16]};
}

std::string ReplyWith(const std::string& code_status_data) {
  return "0602" + code_status_data + "03" + ExclusiveOr(code_status_data + "03");
}

std::string Line::Good() const { return CommandOf(Code()).reply; }
std::string Line::Jammed() const { return ReplyWith(Code() + "38"); }

void Line::Take(const std::string& bytes) {
  if (bytes.size() > 2) {
    frame_ = bytes;
    repeated_.clear();
    repetition_ = 0;
    ++number_;
    time_limit_ = clock_.IsRunning(link::Timer::TimeOut)
                      ? clock_.DueAt(link::Timer::TimeOut) - clock_.Now()
                      : 0;
  } else {
    repeated_ += bytes;
    if (repeated_.size() < frame_.size()) return;
    EXPECT_EQ(std::exchange(repeated_, ""), frame_);
    ++repetition_;
  }
  strike_(*this);
}

}  // namespace vantrel::reliability
