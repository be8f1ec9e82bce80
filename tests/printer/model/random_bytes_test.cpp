// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

#include <random>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t kRandomBytes = 200000;

// Random bytes in random splits, always the same ones. A quarter of them are 02h and 03h, so that
// much looks like frames; every other split is followed by a good frame of a random code with a
// random parameter, so that commands begin, too.
class RandomBytes : public testing::Test {
 protected:
  link::Bytes Some() {
    link::Bytes bytes(1 + random_() % 300);
    for (auto& byte : bytes)
      byte = static_cast<std::uint8_t>(random_() % 4 == 0 ? 2 + random_() % 2 : random_() % 256);
    return bytes;
  }

  link::Bytes Command() {
    constexpr const char* kCodes[] = {"21", "25", "29", "31", "32", "38", "3D", "46",
                                      "47", "48", "50", "51", "52", "53", "54", "55",
                                      "58", "59", "5A", "5B", "5F", "91", "95", "96"};
    const char* const code = kCodes[random_() % std::size(kCodes)];
    const std::string digit = link::HexOf(static_cast<std::uint8_t>('0' + random_() % 5));
    std::string data;
    for (auto count = random_() % 4; count > 0; --count) data += digit;
    return link::BytesOf(link::ComposeFrame(code, data));
  }

  // Gives all of them and calls `between` after each split.
  template <typename Between>
  void Give(Between between) {
    for (std::size_t given = 0; given < kRandomBytes;) {
      const link::Bytes bytes = Some();
      given += bytes.size();
      bench_.model.Receive(bytes, bench_.now);
      if (random_() % 2 == 0) bench_.model.Receive(Command(), bench_.now);
      between();
    }
  }

  void MoveCardsAtRandom() {
    if (random_() % 4 == 0) bench_.InsertCard();
    if (random_() % 4 == 0) bench_.PullOutCard();
    bench_.Pass(std::chrono::milliseconds(random_() % 900));
  }

  // The first good frame after them.
  void ExpectThatAResetIsUnderstood() {
    bench_.Pass(protocol::kFrameSilence);
    const support::Chunks at_once = bench_.Send("02 5F 03 5C");
    ASSERT_FALSE(at_once.empty());
    EXPECT_EQ(at_once.back(), "06");
    EXPECT_EQ(bench_.Pass(2s), support::Chunks{"02 5F 20 03 7C"});
    EXPECT_EQ(bench_.Send("02 54 03 57"), support::Chunks{"06 02 54 20 03 77"});
  }

  std::mt19937 random_{20240607};
  support::PrinterBench bench_;
};

TEST_F(RandomBytes, AreSurvived) {
  Give([this] { MoveCardsAtRandom(); });
  ExpectThatAResetIsUnderstood();
}

TEST_F(RandomBytes, AreSurvivedWithFaults) {
  Give([this] {
    const FaultRow& row = FaultRows()[random_() % FaultRows().size()];
    Fault fault = ParseFault("silence until cleared");
    fault.kind = row.kind;
    fault.value = row.least + static_cast<unsigned>(random_() % 9);
    fault.bytes = {0x02, 0xFF};
    if (random_() % 2 == 0) fault.strikes = 3;
    if (random_() % 4 == 0) fault.every = 2;
    fault.percent = 50;
    fault.choices = {ParseFault("resend 2"), ParseFault("drop 1")};
    if (random_() % 64 == 0) bench_.model.ClearFaults();
    if (random_() % 8 == 0 && bench_.model.Faults().List().size() < 8) bench_.model.AddFault(fault);
    MoveCardsAtRandom();
  });
  bench_.model.ClearFaults();
  ExpectThatAResetIsUnderstood();
}

TEST_F(RandomBytes, AreSurvivedAtEverySpeedAndPower) {
  Give([this] {
    bench_.model.SetPacing(random_() % 2 == 0);
    bench_.model.SetConsoleSpeed(random_() % 2 == 0 ? 9600
                                                    : static_cast<int>(50 + random_() % 99999));
    bench_.model.SetPower(random_() % 8 != 0, bench_.now);
    MoveCardsAtRandom();
  });
  bench_.model.SetPacing(false);
  bench_.model.SetPower(true, bench_.now);
  ExpectThatAResetIsUnderstood();
}

TEST_F(RandomBytes, LeaveNothingWithoutBound) {
  bench_.model.SetPacing(true);
  bench_.model.ReplaceFaults(ParseFault("split 1000 until cleared"));
  // No time passes, so nothing gets out.
  Give([] {});
  for (int i = 0; i < 2000; ++i) bench_.Send("02 59 03 5A");
  std::size_t bytes = 0;
  while (bench_.model.NextAdvance()) {
    for (const std::string& chunk : bench_.Pass(1h)) bytes += (chunk.size() + 1) / 3;
  }
  // What waits to go out, and the replies of one command at work and sixteen in line.
  EXPECT_GE(bytes, kMostUnsent);
  EXPECT_LE(bytes, kMostUnsent + 17 * 120);
  bench_.model.ClearFaults();
  bench_.Send("02 54 03 57");
  EXPECT_EQ(bench_.Pass(1s), support::Chunks{"06 02 54 20 03 77"});
}

}  // namespace
}  // namespace vantrel::printer
