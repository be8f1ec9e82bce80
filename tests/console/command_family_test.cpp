// SPDX-License-Identifier: MIT

#include "console/command_family.h"

#include "console/command_table.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vantrel::console {
namespace {

TEST(CommandFamily, EveryCommandHasItsFamily) {
  std::map<Family, std::string> codes;
  for (const ConsoleCommand& command : Commands())
    codes[FamilyOf(command.code)] += std::string(command.code) + " ";
  EXPECT_EQ(codes[Family::kTrackReads], "21 22 23 25 26 27 29 2A 2B ");
  EXPECT_EQ(codes[Family::kTrackWrites], "31 32 35 36 37 38 39 3A 3B 3C 3D ");
  EXPECT_EQ(codes[Family::kPrintData], "40 41 42 43 44 45 46 47 48 49 4A 4B 4D 4E ");
  EXPECT_EQ(codes[Family::kCard], "50 51 53 54 55 ");
  EXPECT_EQ(codes[Family::kMaintenance], "52 58 59 5A 5B 5F 91 95 96 ");
}

}  // namespace
}  // namespace vantrel::console
