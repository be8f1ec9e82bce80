// SPDX-License-Identifier: MIT

#include "log/capture_writer.h"

#include "log/save_log.h"
#include "tests/log/capture_bytes.h"

#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;

// 2026-01-02 10:20:30.123456 UTC: 69579BEEh seconds and 1E240h microseconds, 000647650F0E39C0h
// microseconds in all.
constexpr WallTime kTime =
    std::chrono::sys_days{std::chrono::year{2026} / 1 / 2} + 10h + 20min + 30s + 123456us;

const std::string kSection = FromHex(
    "0A0D0D0A 30000000 4D3C2B1A 0100 0000 FFFFFFFF FFFFFFFF"
    "0400 0C00 76616E74 72656C20 312E3031"  // vantrel 1.01
    "00000000 30000000");

// "vantrel card printer line", 25 bytes.
const std::string kDescription =
    "0300 1900 76616E74 72656C20 63617264 20707269 6E746572 206C696E 65000000";

TEST(CaptureWriter, BeginsWithSectionAndInterface) {
  EXPECT_EQ(CaptureStart({"/dev/pts/7", 9600}),
            kSection + FromHex("01000000 5C000000 FA00 0000 00000000"
                               "0200 0A00 2F646576 2F707473 2F370000" +
                               kDescription +
                               "0800 0800 80250000 00000000"
                               "0900 0100 06000000"
                               "00000000 5C000000"));
}

TEST(CaptureWriter, LeavesOutWhatIsNotKnownOfTheLine) {
  EXPECT_EQ(CaptureStart({}),
            kSection + FromHex("01000000 40000000 FA00 0000 00000000" + kDescription +
                               "0900 0100 06000000"
                               "00000000 40000000"));
}

TEST(CaptureWriter, WritesAPacketToThePrinter) {
  std::string packet;
  AppendPacket(packet, {kTime, Direction::kFromConsole, FromHex("02210322"), {}});
  EXPECT_EQ(packet, FromHex("06000000 3C000000 00000000 65470600 C0390E0F"
                            "10000000 10000000"
                            "69579BEE 0001E240 01 00 0000 02210322"
                            "0200 0400 02000000 00000000 3C000000"));
}

TEST(CaptureWriter, WritesAPacketFromThePrinterWithItsComment) {
  std::string packet;
  AppendPacket(packet, {kTime, Direction::kFromPrinter, FromHex("06"), "fault: status 22"});
  EXPECT_EQ(packet, FromHex("06000000 50000000 00000000 65470600 C0390E0F"
                            "0D000000 0D000000"
                            "69579BEE 0001E240 02 00 0000 06 000000"
                            "0200 0400 01000000"
                            "0100 1000 6661756C 743A2073 74617475 73203232"
                            "00000000 50000000"));
}

TEST(CaptureWriter, CutsACommentThatIsTooLong) {
  std::string packet;
  AppendPacket(packet, {kTime, Direction::kFromPrinter, FromHex("06"), std::string(70000, 'x')});
  // The option's length, and the block's: 48 bytes without comment, 4 and 65536 for it.
  EXPECT_EQ(packet.substr(52, 4), FromHex("0100 FFFF"));
  EXPECT_EQ(packet.size(), 60U + 65540U);
  EXPECT_EQ(packet.substr(4, 4), FromHex("40000100"));
}

TEST(CaptureWriter, WritesTheRowsOfALogInTheirOrder) {
  LineLog log;
  log.Append(Direction::kFromConsole, link::Bytes{0x02, 0x21}, kTime);
  log.Append(Direction::kFromPrinter, link::Bytes{0x06}, kTime);
  log.Comment(0, "fault: status 22");
  std::ostringstream out;
  WriteLog(out, LogFormat::kCapture, log);
  std::string expected = CaptureStart({});
  AppendPacket(expected, {kTime, Direction::kFromConsole, FromHex("0221"), "fault: status 22"});
  AppendPacket(expected, {kTime, Direction::kFromPrinter, FromHex("06"), {}});
  EXPECT_EQ(out.str(), expected);
}

}  // namespace
}  // namespace vantrel::log
