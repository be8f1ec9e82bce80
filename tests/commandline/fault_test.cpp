// SPDX-License-Identifier: MIT

#include "commandline/fault.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>

namespace vantrel::commandline {
namespace {

void CallAsAnEventLoopDoes(const std::function<void()>& work) noexcept { work(); }

TEST(EndOnFaultsDeathTest, TellsWhatWasThrownAndEndsWithStatus1) {
  EXPECT_EXIT(
      {
        EndOnFaults("vantrel-x");
        CallAsAnEventLoopDoes([] { throw std::out_of_range("row 7"); });
      },
      testing::ExitedWithCode(EXIT_FAILURE), "^vantrel-x: a fault of the program: row 7\n$");
}

TEST(EndOnFaultsDeathTest, TellsOfWhatIsNoStandardException) {
  EXPECT_EXIT(
      {
        EndOnFaults("vantrel-x");
        CallAsAnEventLoopDoes([] { throw 7; });
      },
      testing::ExitedWithCode(EXIT_FAILURE), "an exception of an unknown kind");
}

}  // namespace
}  // namespace vantrel::commandline
