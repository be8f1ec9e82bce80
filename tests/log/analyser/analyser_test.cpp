// SPDX-License-Identifier: MIT

// The analyser's plugin in tshark, on captures written by hand. A start of tshark takes a good part
// of a second, so each case looks at many packets.

#include "protocol/frame_words.h"
#include "tests/log/analyser/analyser_run.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

constexpr std::uint16_t kRtac = 250;
constexpr std::uint8_t kToPrinter = 1;
constexpr std::uint8_t kFromPrinter = 2;
constexpr const char* kOurs = "vantrel card printer line";

constexpr const char* kFields =
    "-T fields -E separator='|' -E occurrence=a -e cardprinter.kind -e cardprinter.code"
    " -e cardprinter.status -e cardprinter.data -e cardprinter.check -e cardprinter.check.good"
    " -e _ws.expert.message -e cardprinter.meaning";

WrittenCapture OurCapture() {
  WrittenCapture capture;
  capture.AddInterface(kRtac, kOurs);
  return capture;
}

TEST(AnalyserTest, TellsTheFieldsOfEveryKindOfRow) {
  WrittenCapture capture = OurCapture();
  capture.AddPacket(0, kToPrinter, "\x02\x21\x03\x22");
  capture.AddPacket(0, kFromPrinter, "\x06");
  capture.AddPacket(0, kFromPrinter, "\x02\x21\x20\x41\x22\x42\\\x03\x7F");
  capture.AddPacket(0, kFromPrinter, "\x15");
  capture.AddPacket(0, kFromPrinter, "\x10");
  capture.AddPacket(0, kToPrinter,
                    "\x02\x41\x32,0,47,A\x1B\x45\x32\x32\r\n\x93\xFA\r\n\r\x80\x03\x94");
  capture.AddPacket(0, kFromPrinter, "\x02\x21\x20\x03\xFF");  // bad check, 02h would be right
  capture.AddPacket(0, kToPrinter, "abc");
  capture.AddPacket(0, kToPrinter, "\x06");  // no control character on its way to the printer
  capture.AddPacket(0, kToPrinter, "\x02");
  capture.AddPacket(0, kToPrinter, "\x02\x35\x41\x42");
  capture.AddPacket(0, kFromPrinter, "\x02\x21\x22\x03");  // without its check
  capture.AddPacket(0, kFromPrinter, "\x02\x21");
  capture.AddPacket(0, kToPrinter, "\x02\x03\x03");
  const AnalyserRun run = RunAnalyser(capture.Bytes(), kFields);
  EXPECT_THAT(
      run.lines,
      ElementsAre("frame|0x21|||0x22|1||21h first track read", "control|||||||06h acknowledge",
                  R"(frame|0x21|0x20|4122425c|0x7f|1||reply 21h: 20h normal status, "A\"B\\")",
                  "control|||||||15h resend", "control|||||||10h reject",
                  "frame|0x41||322c302c34372c411b4532320d0a93fa0d0a0d80|0x94|1||"
                  "41h print data: \"2,0,47,A\", ESC, \"E22\", CR LF, bytes 93 FA, CR LF, CR, 80h",
                  "frame|0x21|0x20||0xff|0|Bad block check|"
                  "bad block check FFh instead of 02h: reply 21h: 20h normal status",
                  "bytes|||||||noise, 3 bytes", "bytes|||||||noise, 1 byte",
                  "frame|||||||cut short after 1 byte",
                  "frame|0x35||4142||||cut short after 4 bytes: "
                  "35h first track data set, reverse 7-bit: \"AB\"",
                  "frame|0x21|0x22|||||cut short after 4 bytes: reply 21h: 22h no targeted Card",
                  "frame|0x21||||||cut short after 2 bytes: reply 21h: no status",
                  "frame||||0x03|1||empty frame"));
}

TEST(AnalyserTest, TellsARowInTheInfoColumnAndPrintsNothing) {
  WrittenCapture capture = OurCapture();
  capture.AddPacket(0, kToPrinter, "\x02\x21\x03\x22");
  capture.AddPacket(0, kFromPrinter, "\x06");
  capture.AddPacket(0, kToPrinter, "\x02\x46\x31\x03\x74");
  const AnalyserRun run =
      RunAnalyser(capture.Bytes(),
                  "-T fields -E separator='|' -e _ws.col.Source -e _ws.col.Protocol"
                  " -e _ws.col.Info");
  EXPECT_THAT(run.lines, ElementsAre("console|Card Printer|21h first track read",
                                     "printer|Card Printer|06h acknowledge",
                                     "console|Card Printer|46h erase and print: \"1\""));
  EXPECT_EQ(run.errors, "");
}

TEST(AnalyserTest, LeavesOtherPacketsAlone) {
  WrittenCapture capture;
  capture.AddInterface(kRtac, "a line of others");
  capture.AddInterface(kRtac, kOurs);
  capture.AddInterface(147, kOurs);
  capture.AddInterface(1, "a network");
  capture.AddPacket(0, kToPrinter, "\x02\x21\x03\x22");
  capture.AddPacket(1, kToPrinter, "");
  capture.AddPacket(1, 0, "\x02\x21\x03\x22");
  capture.AddPacket(1, 3, "\x02\x21\x03\x22");
  capture.AddBare(1, "\x01\x02\x03");
  capture.AddBare(2, "\x02\x21\x03\x22");
  capture.AddBare(3, "\x02\x21\x03\x22");
  capture.AddPacket(1, kToPrinter, "\x02\x21\x03\x22");
  const AnalyserRun run = RunAnalyser(
      capture.Bytes(), "-Y cardprinter -T fields -e frame.number -e cardprinter.meaning");
  EXPECT_THAT(run.lines, ElementsAre("8\t21h first track read"));
}

TEST(AnalyserTest, DecodesOthersPacketsWhereTheUserSaysSo) {
  WrittenCapture capture;
  capture.AddInterface(kRtac, "a line of others");
  capture.AddInterface(kRtac, kOurs);
  capture.AddPacket(0, kToPrinter, "\x02\x21\x03\x22");
  // Several rows in one packet: a run of other bytes, a control character, a frame, one cut short.
  capture.AddPacket(0, kFromPrinter, "ab\x06\x02\x21\x20\x41\x03\x43\x02\x21");
  capture.AddPacket(0, kToPrinter, "");
  capture.AddPacket(0, 5, "\x02\x21\x03\x22");
  capture.AddPacket(1, kFromPrinter, "\x06");
  const AnalyserRun run =
      RunAnalyser(capture.Bytes(), "-d rtacser.data,cardprinter_payload -Y cardprinter " +
                                       std::string(kFields) + " -e _ws.col.Info");
  EXPECT_THAT(run.lines,
              ElementsAre("frame|0x21|||0x22|1||21h first track read|21h first track read",
                          "bytes,control,frame,frame|0x21,0x21|0x20|41|0x43|1||"
                          "noise, 2 bytes,06h acknowledge,reply 21h: 20h normal status, \"A\","
                          "cut short after 2 bytes: reply 21h: no status|"
                          "noise, 2 bytes; 06h acknowledge; reply 21h: 20h normal status, \"A\"; "
                          "cut short after 2 bytes: reply 21h: no status",
                          "control|||||||06h acknowledge|06h acknowledge"));
}

// The frame of a content, with its block check.
std::string FrameOf(const std::string& content) {
  char check = 0x03;
  for (const char byte : content) check = static_cast<char>(check ^ byte);
  return "\x02" + content + "\x03" + check;
}

// Where the plugin is to read as the log does, both say the same of every code and status.
TEST(AnalyserTest, ReadsEveryCommandAndStatusAsTheLogDoes) {
  WrittenCapture capture = OurCapture();
  std::vector<std::string> meanings;
  const auto add = [&](std::uint8_t event, const std::string& bytes) {
    capture.AddPacket(0, event, bytes);
    meanings.push_back(protocol::MeaningInWords(
        event == kToPrinter ? protocol::Direction::kFromConsole : protocol::Direction::kFromPrinter,
        {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}));
  };
  std::string data;
  for (int code = 0; code < 256; ++code) {
    if (code == 2 || code == 3) continue;
    const auto byte = static_cast<char>(code);
    data += byte;
    add(kToPrinter, FrameOf(std::string(1, byte)));
    add(kToPrinter, FrameOf(std::string(1, byte)).substr(0, 2));
    add(kFromPrinter, FrameOf("!"s + byte));
    add(kFromPrinter, FrameOf("! "s + byte + byte));
    add(kFromPrinter, std::string(1, byte));
  }
  add(kFromPrinter, FrameOf("! " + data));         // every byte, in one line of words
  add(kFromPrinter, FrameOf("! " + data + data));  // too long to be told whole
  add(kToPrinter, FrameOf("\x3B" + data));
  const AnalyserRun run = RunAnalyser(capture.Bytes(), "-T fields -e cardprinter.meaning");
  EXPECT_EQ(run.lines, meanings);
}

}  // namespace
}  // namespace vantrel::log
