// SPDX-License-Identifier: MIT

// What the software printer's command line makes of where its window is to be.

#include "app/printer_options.h"

#include "app/demo_table.h"
#include "app/printer_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vantrel::app {
namespace {

const commandline::Program& Printer() {
  static const commandline::Program kProgram = MakePrinterProgram();
  return kProgram;
}

ParsedPrinterOptions Parse(const commandline::Program& program,
                           std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), program.name.c_str());
  return ParsePrinterOptions(program, static_cast<int>(arguments.size()), arguments.data());
}

// The line that wrong use leaves on standard error, with status 2.
std::string Refusal(const commandline::Program& program, std::vector<const char*> arguments) {
  testing::internal::CaptureStderr();
  const auto parsed = Parse(program, std::move(arguments));
  EXPECT_EQ(parsed.end, 2);
  return testing::internal::GetCapturedStderr();
}

TEST(Geometry, IsTheWindowsSizeAndPlace) {
  const auto parsed = Parse(Printer(), {"--geometry", "1000x700+20+30"});
  ASSERT_FALSE(parsed.end);
  ASSERT_TRUE(parsed.options.geometry);
  EXPECT_EQ(parsed.options.geometry->width, 1000);
  EXPECT_EQ(parsed.options.geometry->height, 700);
  EXPECT_EQ(parsed.options.geometry->x, 20);
  EXPECT_EQ(parsed.options.geometry->y, 30);
}

TEST(Geometry, MayLieLeftOfTheFirstScreenAndAboveIt) {
  const auto parsed = Parse(Printer(), {"--geometry=960x640+-1920+-27"});
  ASSERT_TRUE(parsed.options.geometry);
  EXPECT_EQ(parsed.options.geometry->x, -1920);
  EXPECT_EQ(parsed.options.geometry->y, -27);
}

TEST(Geometry, IsAPlaceOnlyWhereItIsAskedFor) {
  EXPECT_FALSE(Parse(Printer(), {}).options.geometry);
}

class BadGeometry : public testing::TestWithParam<const char*> {};

TEST_P(BadGeometry, IsRefusedInWords) {
  EXPECT_EQ(Refusal(Printer(), {"--geometry", GetParam()}),
            "vantrel-printer: --geometry needs a place such as 1000x700+0+0. Try "
            "'vantrel-printer --help'.\n");
}

INSTANTIATE_TEST_SUITE_P(All, BadGeometry,
                         testing::Values("", "here", "1000x700", "1000x700+0", "1000x700+0+0+0",
                                         "1000x700+0+0 ", "0x700+0+0", "1000x0+0+0", "-5x700+0+0",
                                         "1000x700+a+0", "1000,700,0,0", "100000x700+0+0"));

TEST(Geometry, HasNoMeaningWithoutAWindow) {
  EXPECT_EQ(Refusal(Printer(), {"--headless", "--geometry", "1000x700+0+0"}),
            "vantrel-printer: --geometry has no meaning with --headless: there is no window. Try "
            "'vantrel-printer --help'.\n");
}

TEST(DemoOptions, AreThoseOfThePrinterWithAWindowOnALineOfItsOwn) {
  const auto parsed = Parse(DemoProgram(), {"--card", "--series", "ql8", "--speed", "19200",
                                            "--instant", "--case-parts"});
  ASSERT_FALSE(parsed.end);
  EXPECT_TRUE(parsed.options.card);
  EXPECT_EQ(parsed.options.series, printer::Series::kQl8);
  EXPECT_EQ(parsed.options.speed, 19200);
  EXPECT_TRUE(parsed.options.instant);
  EXPECT_TRUE(parsed.options.case_parts);
  for (const char* option :
       {"headless", "script", "json", "through", "tcp", "socket", "link", "geometry"}) {
    EXPECT_EQ(
        Refusal(DemoProgram(), {(std::string("--") + option).c_str()}),
        "vantrel-demo: Unknown option '" + std::string(option) + "'. Try 'vantrel-demo --help'.\n");
  }
}

}  // namespace
}  // namespace vantrel::app
