// SPDX-License-Identifier: MIT

#include "log/capture_commands.h"

#include "log/capture_writer.h"
#include "log/row_text.h"
#include "tests/log/capture_bytes.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <stdlib.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace vantrel::log {
namespace {

using protocol::Direction;

class CaptureCommandsTest : public testing::Test {
 protected:
  CaptureCommandsTest() {
    setenv("TZ", "UTC", 1);
    tzset();
    std::string name = testing::TempDir() + "captureXXXXXX";
    folder_ = mkdtemp(name.data());
  }
  ~CaptureCommandsTest() override { std::filesystem::remove_all(folder_); }

  std::string Path(const std::string& name) const { return folder_ + '/' + name; }
  std::string Save(const std::string& name, const std::string& bytes) const {
    std::ofstream(Path(name), std::ios::binary) << bytes;
    return Path(name);
  }
  static std::string Load(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  // 2026-01-02 10:20:30.123456: a command with a comment, and its 06h.
  static std::string Sample() {
    std::string capture = CaptureStart({"/dev/pts/7", 9600});
    const WallTime time{std::chrono::microseconds{1767349230123456}};
    AppendPacket(capture,
                 {time, Direction::kFromConsole, FromHex("02210322"), "fault: status 22, \"x\""});
    AppendPacket(capture, {time, Direction::kFromPrinter, FromHex("06"), {}});
    return capture;
  }

  std::string folder_;
  std::ostringstream out_;
  std::ostringstream errors_;
};

TEST_F(CaptureCommandsTest, ShowsRowsAsTheSavedText) {
  EXPECT_EQ(ShowCapture(Save("a.pcapng", Sample()), false, out_, errors_), 0);
  EXPECT_EQ(out_.str(),
            "2026-01-02 10:20:30.123  received  02 21 03 22  21h first track read\n"
            "2026-01-02 10:20:30.123  sent      06  06h acknowledge\n");
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(CaptureCommandsTest, ShowsRowsAsJson) {
  EXPECT_EQ(ShowCapture(Save("a.pcapng", Sample()), true, out_, errors_), 0);
  EXPECT_EQ(out_.str(),
            "{\"time\":\"2026-01-02T10:20:30.123456Z\",\"direction\":\"to printer\","
            "\"kind\":\"frame\",\"hex\":\"02 21 03 22\",\"code\":\"21\",\"status\":null,"
            "\"checkIsGood\":true,\"meaning\":\"21h first track read\","
            "\"comment\":\"fault: status 22, \\\"x\\\"\"}\n"
            "{\"time\":\"2026-01-02T10:20:30.123456Z\",\"direction\":\"from printer\","
            "\"kind\":\"control\",\"hex\":\"06\",\"code\":null,\"status\":null,"
            "\"checkIsGood\":null,\"meaning\":\"06h acknowledge\",\"comment\":null}\n");
}

TEST_F(CaptureCommandsTest, ShowsWhatWasWholeOfACutFile) {
  const std::string path = Save("a.pcapng", Sample().substr(0, Sample().size() - 1));
  EXPECT_EQ(ShowCapture(path, false, out_, errors_), 1);
  EXPECT_EQ(out_.str(), "2026-01-02 10:20:30.123  received  02 21 03 22  21h first track read\n");
  EXPECT_TRUE(
      errors_.str().starts_with("vantrel-log: " + path + " ends within the block at byte "));
}

TEST_F(CaptureCommandsTest, SaysWhyNothingIsShown) {
  EXPECT_EQ(ShowCapture(Path("missing"), false, out_, errors_), 1);
  EXPECT_EQ(errors_.str(),
            "vantrel-log: " + Path("missing") + " cannot be read: No such file or directory.\n");
  EXPECT_EQ(out_.str(), "");
}

TEST_F(CaptureCommandsTest, ConvertsToCsvAndBack) {
  const std::string capture = Save("a.pcapng", Sample());
  ASSERT_EQ(ConvertCapture(capture, Path("a.CSV"), errors_), 0) << errors_.str();
  EXPECT_EQ(Load(Path("a.CSV")),
            "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n"
            "2026-01-02,10:20:30.123,received,02 21 03 22,\".!.\"\"\",21h first track read,"
            "2026-01-02T10:20:30.123456Z,\"fault: status 22, \"\"x\"\"\"\r\n"
            "2026-01-02,10:20:30.123,sent,06,.,06h acknowledge,2026-01-02T10:20:30.123456Z,\r\n");
  ASSERT_EQ(ConvertCapture(Path("a.CSV"), Path("b.pcapng"), errors_), 0) << errors_.str();
  EXPECT_EQ(ShowCapture(capture, true, out_, errors_), 0);
  std::ostringstream again;
  EXPECT_EQ(ShowCapture(Path("b.pcapng"), true, again, errors_), 0);
  EXPECT_EQ(again.str(), out_.str());
  EXPECT_EQ(errors_.str(), "");
}

TEST_F(CaptureCommandsTest, ReadsCsvWithoutTheLastColumnsByLocalTime) {
  const std::string csv = Save("a.csv",
                               "Date,Time,Direction,Hex,Characters,Meaning\r\n"
                               "2026-01-02,10:20:30.123,sent,06,.,06h acknowledge\r\n");
  ASSERT_EQ(ConvertCapture(csv, Path("b.pcapng"), errors_), 0) << errors_.str();
  EXPECT_EQ(ShowCapture(Path("b.pcapng"), false, out_, errors_), 0);
  EXPECT_EQ(out_.str(), "2026-01-02 10:20:30.123  sent      06  06h acknowledge\n");
}

// No file can tell of the year 10000, to which the leap second leads.
TEST_F(CaptureCommandsTest, TakesNoMomentFromCsvThatIsPastTheLastYear) {
  const auto status = [this](const std::string& utc) {
    const std::string heading = "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n";
    return ConvertCapture(Save("a.csv", heading + ",,sent,06,,," + utc + ",\r\n"), Path("b.csv"),
                          errors_);
  };
  EXPECT_EQ(status("9999-12-31T23:59:59.999999Z"), 0) << errors_.str();
  EXPECT_EQ(status("2016-12-31T23:59:60.000000Z"), 0) << errors_.str();
  EXPECT_EQ(status("9999-12-31T23:59:60.000000Z"), 1);
  EXPECT_THAT(errors_.str(), testing::EndsWith("a.csv has no row of a log in line 2.\n"));
}

TEST_F(CaptureCommandsTest, WritesNothingOfWhatItCannotReadWhole) {
  const std::string cut = Save("a.pcapng", Sample().substr(0, Sample().size() - 1));
  EXPECT_EQ(ConvertCapture(cut, Save("b.txt", "kept"), errors_), 1);
  EXPECT_EQ(Load(Path("b.txt")), "kept");
  const std::string csv = Save("a.csv",
                               "Date,Time,Direction,Hex,Characters,Meaning\r\n"
                               "2026-01-02,10:20:30.123,sent,0G,.,06h acknowledge\r\n");
  errors_.str("");
  EXPECT_EQ(ConvertCapture(csv, Path("b.txt"), errors_), 1);
  EXPECT_EQ(errors_.str(), "vantrel-log: " + csv + " has no row of a log in line 2.\n");
  EXPECT_EQ(Load(Path("b.txt")), "kept");
  EXPECT_EQ(ConvertCapture(csv, Path("b.doc"), errors_), 2);
}

TEST_F(CaptureCommandsTest, CountsTheLinesInsideQuotesWhereACsvRowIsBad) {
  const std::string csv =
      Save("a.csv",
           "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n"
           "2026-01-02,10:20:30.123,sent,06,.,x,2026-01-02T10:20:30.123456Z,\"two\nlines\"\r\n"
           "2026-01-02,10:20:30.123,sent,0G,.,x,2026-01-02T10:20:30.123456Z,\r\n");
  EXPECT_EQ(ConvertCapture(csv, Path("b.txt"), errors_), 1);
  EXPECT_EQ(errors_.str(), "vantrel-log: " + csv + " has no row of a log in line 4.\n");
}

TEST_F(CaptureCommandsTest, TakesACsvWithAByteOrderMark) {
  const std::string csv = Save("a.csv",
                               "\xEF\xBB\xBF"
                               "Date,Time,Direction,Hex,Characters,Meaning\r\n"
                               "2026-01-02,10:20:30.123,sent,06,.,06h acknowledge\r\n");
  EXPECT_EQ(ConvertCapture(csv, Path("b.txt"), errors_), 0) << errors_.str();
  EXPECT_EQ(Load(Path("b.txt")), "2026-01-02 10:20:30.123  sent      06  06h acknowledge\n");
}

TEST_F(CaptureCommandsTest, TakesNoTimeThatThereIsNot) {
  for (const char* time : {"24:00:00", "10:60:00", "10:20:61", "1a:20:30"}) {
    const std::string utc = std::string("2026-01-02T") + time + ".000000Z";
    const std::string csv = Save("a.csv",
                                 "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n"
                                 "2026-01-02,10:20:30.123,sent,06,.,x," +
                                     utc + ",\r\n");
    EXPECT_EQ(ConvertCapture(csv, Path("b.txt"), errors_), 1) << time;
  }
}

TEST_F(CaptureCommandsTest, CountsAFileThatIsNotWholeAsWrongToCompare) {
  const std::string whole = Save("a.pcapng", Sample());
  const std::string cut = Save("b.pcapng", Sample().substr(0, Sample().size() - 1));
  EXPECT_EQ(CompareCaptures(whole, whole, false, out_, errors_), 0);
  EXPECT_EQ(CompareCaptures(whole, cut, false, out_, errors_), 2);
  EXPECT_EQ(out_.str(), "");
}

TEST_F(CaptureCommandsTest, SaysWhereItComparedInStep) {
  const auto capture = [](const char* command) {
    std::string bytes = CaptureStart({});
    for (int i = 0; i < 4000; ++i)
      AppendPacket(bytes, {WallTime{}, Direction::kFromConsole, FromHex(command), {}});
    return bytes;
  };
  EXPECT_EQ(CompareCaptures(Save("a.pcapng", capture("02210322")),
                            Save("b.pcapng", capture("02220321")), false, out_, errors_),
            1);
  EXPECT_EQ(errors_.str(),
            "vantrel-log: the captures differ so much that part of them was compared in step, one "
            "exchange with one.\n");
}

TEST_F(CaptureCommandsTest, SaysThatAComparisonCannotBeWritten) {
  const std::string a = Save("a.pcapng", Sample());
  out_.setstate(std::ios::badbit);
  EXPECT_EQ(CompareCaptures(a, a, false, out_, errors_), 2);
  EXPECT_EQ(errors_.str(), "vantrel-log: standard output cannot be written.\n");
}

// 4,000 rows are more than are written at once.
TEST_F(CaptureCommandsTest, ConvertsManyRowsToCsvAndBack) {
  std::string capture = CaptureStart({"/dev/pts/7", 9600});
  for (int i = 0; i < 4000; ++i)
    AppendPacket(capture, {WallTime{std::chrono::seconds{i}}, Direction::kFromPrinter, "\x06", {}});
  ASSERT_EQ(ConvertCapture(Save("a.pcapng", capture), Path("a.csv"), errors_), 0) << errors_.str();
  const std::string csv = Load(Path("a.csv"));
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 4001);
  EXPECT_THAT(csv, testing::EndsWith("\r\n1970-01-01,01:06:39.000,sent,06,.,06h acknowledge,"
                                     "1970-01-01T01:06:39.000000Z,\r\n"));
  ASSERT_EQ(ConvertCapture(Path("a.csv"), Path("b.pcapng"), errors_), 0) << errors_.str();
  EXPECT_EQ(ShowCapture(Path("b.pcapng"), false, out_, errors_), 0);
  const std::string shown = out_.str();
  EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 4000);
}

TEST_F(CaptureCommandsTest, SaysHowALogAsCsvBecomesACapture) {
  ASSERT_EQ(ConvertCapture(Save("a.pcapng", Sample()), Path("a.csv"), errors_), 0);
  EXPECT_EQ(ShowCapture(Path("a.csv"), false, out_, errors_), 1);
  EXPECT_EQ(errors_.str(), "vantrel-log: " + Path("a.csv") +
                               " is no capture but a log as CSV, of which 'vantrel-log convert " +
                               Path("a.csv") + " OUT.pcapng' makes one.\n");
}

TEST_F(CaptureCommandsTest, ShowsACommentThatIsNoUtf8AsValidJson) {
  std::string capture = CaptureStart({});
  AppendPacket(capture, {WallTime{}, Direction::kFromPrinter, "\x06", "caf\xE9 \"x\" \u00E9"});
  EXPECT_EQ(ShowCapture(Save("a.pcapng", capture), true, out_, errors_), 0);
  EXPECT_TRUE(out_.str().ends_with("\"comment\":\"caf\uFFFD \\\"x\\\" \u00E9\"}\n")) << out_.str();
}

TEST(UtcInWords, HasAllItsDigits) {
  using namespace std::chrono_literals;
  EXPECT_EQ(UtcInWords(WallTime(0us)), "1970-01-01T00:00:00.000000Z");
  EXPECT_EQ(UtcInWords(WallTime(1767349230123456us)), "2026-01-02T10:20:30.123456Z");
  EXPECT_EQ(UtcInWords(WallTime(-1us)), "1969-12-31T23:59:59.999999Z");
  EXPECT_EQ(UtcInWords(std::chrono::sys_days(std::chrono::year{9} / 2 / 3) + 1us),
            "0009-02-03T00:00:00.000001Z");
  EXPECT_EQ(UtcInWords(std::chrono::sys_days(std::chrono::year{10000} / 1 / 1) - 1us),
            "9999-12-31T23:59:59.999999Z");
}

}  // namespace
}  // namespace vantrel::log
