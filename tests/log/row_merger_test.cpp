// SPDX-License-Identifier: MIT

#include "log/row_merger.h"

#include "tests/log/log_rows.h"

#include <gtest/gtest.h>

#include <array>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

class RowMergerTest : public testing::Test {
 protected:
  // A byte of a line to the printer, so long after the beginning.
  void Add(std::size_t line, std::chrono::milliseconds time, std::uint8_t byte) {
    merger_.Add(line, protocol::Direction::kFromConsole, std::array{byte}, To(time, "").time, "",
                rows_);
  }

  RowMerger merger_;
  std::vector<LogEntry> rows_;
};

TEST_F(RowMergerTest, ARowThatIsOpenHoldsBackThoseOfOtherLines) {
  Add(0, 0ms, 0x02);
  Add(0, 1ms, 0x21);
  merger_.Add(To(2ms, "whole"), rows_);
  EXPECT_TRUE(rows_.empty());
  Add(0, 3ms, 0x03);
  Add(0, 4ms, 0x22);
  ASSERT_EQ(rows_.size(), 2U);
  EXPECT_EQ(rows_[0].bytes, "\x02\x21\x03\x22");
  EXPECT_EQ(rows_[1].bytes, "whole");
}

TEST_F(RowMergerTest, ARowWhoseLineWasSilentHoldsNothingBack) {
  Add(0, 0ms, 0x02);
  Add(0, 1ms, 0x21);
  // A minute later, far beyond the silence that ends a frame.
  merger_.Add(To(60s, "whole"), rows_);
  ASSERT_EQ(rows_.size(), 2U);
  EXPECT_EQ(rows_[0].bytes, "\x02\x21");
  EXPECT_EQ(rows_[1].bytes, "whole");
}

}  // namespace
}  // namespace vantrel::log
