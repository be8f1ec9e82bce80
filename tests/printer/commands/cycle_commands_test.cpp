// SPDX-License-Identifier: MIT

#include "tests/support/printer_bench.h"

#include <gtest/gtest.h>

namespace vantrel::printer {
namespace {

// Frames and replies are written by hand: STX, code, data, ETX and the exclusive-or of all after
// STX.
class CycleCommands : public testing::Test {
 protected:
  CycleCommands() { bench_.model.SetInstantWork(true); }

  CardPlace Place() const { return bench_.model.State().place; }

  support::PrinterBench bench_;
};

// A card with one dot at (1, 1), a print expansion buffer with one at (2, 2).
PrinterState PrinterWithOneDotEach() {
  PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
  state.place = CardPlace::kFront;
  state.card.face.Set(1, 1, true);
  state.print_image.Set(2, 2, true);
  return state;
}

// Does the work of a command whose data is one digit.
Reply Work(PrinterState& state, std::uint8_t code, char digit) {
  const auto command = Prepare(state, link::Bytes{code, static_cast<std::uint8_t>(digit)});
  return command.value().Work(state);
}

TEST(CycleCommand, 46hErasesAndPrints) {
  PrinterState state = PrinterWithOneDotEach();
  EXPECT_EQ(Work(state, 0x46, '1').status, 0x20);
  EXPECT_FALSE(state.card.face.At(1, 1));
  EXPECT_TRUE(state.card.face.At(2, 2));
  EXPECT_EQ(state.prints, 1U);
}

TEST(CycleCommand, 47hPrintsOverWhatIsThere) {
  PrinterState state = PrinterWithOneDotEach();
  EXPECT_EQ(Work(state, 0x47, '1').status, 0x20);
  EXPECT_TRUE(state.card.face.At(1, 1));
  EXPECT_TRUE(state.card.face.At(2, 2));
  EXPECT_EQ(state.prints, 1U);
}

TEST(CycleCommand, 48hErasesAndPrintsNothing) {
  PrinterState state = PrinterWithOneDotEach();
  EXPECT_EQ(Work(state, 0x48, '1').status, 0x20);
  EXPECT_EQ(state.card.face, Bitmap(kFaceWidth, kFaceHeight));
  EXPECT_EQ(state.prints, 0U);
}

TEST(CycleCommand, PrintsEveryDotToTheCorners) {
  PrinterState state(support::InstalledFonts(), link::CodePage::kWestern);
  state.print_image.Set(0, 0, true);
  state.print_image.Set(479, 0, true);
  state.print_image.Set(0, 319, true);
  state.print_image.Set(479, 319, true);
  Work(state, 0x47, '0');
  EXPECT_EQ(state.card.face, state.print_image);
}

TEST(CycleCommand, KeepsThePrintExpansionBufferForTheNextCard) {
  PrinterState state = PrinterWithOneDotEach();
  const Bitmap image = state.print_image;
  for (const std::uint8_t code : std::initializer_list<std::uint8_t>{0x46, 0x47, 0x48}) {
    Work(state, code, '0');
    EXPECT_EQ(state.print_image, image);
  }
}

TEST(CycleCommand, LeavesACleaningCardsFaceAsItIs) {
  PrinterState state = PrinterWithOneDotEach();
  state.card.kind = CardKind::kCleaning;
  EXPECT_EQ(Work(state, 0x46, '1').status, 0x20);
  EXPECT_TRUE(state.card.face.At(1, 1));
  EXPECT_FALSE(state.card.face.At(2, 2));
}

TEST_F(CycleCommands, StopTheCardAtTheFrontWithMethod0) {
  bench_.InsertCard();
  for (const auto& [frame, reply] : {std::pair("02 46 30 03 75", "06 02 46 20 03 65"),
                                     std::pair("02 47 30 03 74", "06 02 47 20 03 64"),
                                     std::pair("02 48 30 03 7B", "06 02 48 20 03 6B")}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{reply});
    EXPECT_EQ(Place(), CardPlace::kFront);
    EXPECT_TRUE(bench_.model.State().HasTargetCard());
  }
  // Three passes and three moves.
  EXPECT_EQ(bench_.model.State().transports, 6U);
  // Two prints: "2".
  EXPECT_EQ(bench_.Send("02 96 03 95"), support::Chunks{"06 02 96 20 32 03 87"});
}

TEST_F(CycleCommands, DischargeTheCardWithMethod1) {
  for (const auto& [frame, reply] : {std::pair("02 46 31 03 74", "06 02 46 20 03 65"),
                                     std::pair("02 47 31 03 75", "06 02 47 20 03 64"),
                                     std::pair("02 48 31 03 7A", "06 02 48 20 03 6B")}) {
    bench_.InsertCard();
    EXPECT_EQ(bench_.Send(frame), support::Chunks{reply});
    EXPECT_EQ(Place(), CardPlace::kExit);
    EXPECT_FALSE(bench_.model.State().HasTargetCard());
    bench_.PullOutCard();
  }
}

TEST_F(CycleCommands, DischargeTheCardToTheBackWithMethod2) {
  for (const auto& [frame, reply] : {std::pair("02 46 32 03 77", "06 02 46 20 03 65"),
                                     std::pair("02 47 32 03 76", "06 02 47 20 03 64"),
                                     std::pair("02 48 32 03 79", "06 02 48 20 03 6B")}) {
    bench_.InsertCard();
    EXPECT_EQ(Place(), CardPlace::kFront);
    EXPECT_EQ(bench_.Send(frame), support::Chunks{reply});
    EXPECT_EQ(Place(), CardPlace::kOutside);
    EXPECT_FALSE(bench_.model.State().HasTargetCard());
  }
  // Pass under the head and discharge, three times over.
  EXPECT_EQ(bench_.model.State().transports, 6U);
}

TEST_F(CycleCommands, WaitForANewCardAfterADischargeToTheBack) {
  bench_.InsertCard();
  bench_.Send("02 48 32 03 79");
  EXPECT_EQ(bench_.Send("02 51 03 52"), support::Chunks{"06"});
  EXPECT_EQ(bench_.model.State().wait, CardWait::kInsertion);
  bench_.Pass(kReplyGap);
  EXPECT_EQ(bench_.InsertCard(), support::Chunks{"02 51 20 03 72"});
}

TEST_F(CycleCommands, RejectMethod2WithTheCasePartsFitted) {
  bench_.model.SetCaseParts(true);
  bench_.InsertCard();
  for (const char* frame : {"02 46 32 03 77", "02 47 32 03 76", "02 48 32 03 79"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
  EXPECT_EQ(Place(), CardPlace::kFront);
  EXPECT_EQ(bench_.Send("02 46 31 03 74"), support::Chunks{"06 02 46 20 03 65"});
}

TEST_F(CycleCommands, TakeOnlyMethods0To2) {
  for (const char* frame : {"02 46 33 03 76", "02 46 03 45", "02 46 31 31 03 45", "02 47 33 03 77",
                            "02 47 03 44", "02 48 33 03 78", "02 48 03 4B"}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"10"}) << frame;
  }
}

TEST_F(CycleCommands, WaitForACard) {
  for (const auto& [frame, reply] : {std::pair("02 46 31 03 74", "02 46 20 03 65"),
                                     std::pair("02 47 31 03 75", "02 47 20 03 64"),
                                     std::pair("02 48 31 03 7A", "02 48 20 03 6B")}) {
    EXPECT_EQ(bench_.Send(frame), support::Chunks{"06"});
    bench_.Pass(kReplyGap);
    EXPECT_EQ(bench_.InsertCard(), support::Chunks{reply});
    bench_.PullOutCard();
  }
}

TEST_F(CycleCommands, TakeTimeToEraseAndToPrint) {
  using std::chrono::milliseconds;
  bench_.model.SetInstantWork(false);
  bench_.InsertCard();
  bench_.Send("02 46 30 03 75");
  EXPECT_EQ(bench_.Pass(milliseconds(3999)), support::Chunks{});
  EXPECT_EQ(bench_.Pass(milliseconds(1)), support::Chunks{"02 46 20 03 65"});
  bench_.Send("02 47 30 03 74");
  EXPECT_EQ(bench_.Pass(milliseconds(2499)), support::Chunks{});
  EXPECT_EQ(bench_.Pass(milliseconds(1)), support::Chunks{"02 47 20 03 64"});
  bench_.Send("02 48 30 03 7B");
  EXPECT_EQ(bench_.Pass(milliseconds(1499)), support::Chunks{});
  EXPECT_EQ(bench_.Pass(milliseconds(1)), support::Chunks{"02 48 20 03 6B"});
}

TEST_F(CycleCommands, FillTheTrackBuffersAsTheCardPasses) {
  bench_.model.SetTrack(0, "AB");
  bench_.InsertCard();
  bench_.Send("02 48 31 03 7A");
  EXPECT_EQ(bench_.Send("02 29 03 2A"), support::Chunks{"06 02 29 20 41 42 03 09"});
}

}  // namespace
}  // namespace vantrel::printer
