// SPDX-License-Identifier: MIT

#include "log/capture_recorder.h"

#include "log/capture_file.h"
#include "log/line_recorder.h"
#include "tests/support/file_folder.h"
#include "tests/support/file_limits.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;

class CaptureRecorderTest : public testing::Test {
 protected:
  CaptureRecorderTest() {
    recorder_.SetLine({"/dev/pts/7", 9600});
    std::signal(SIGPIPE, SIG_IGN);
  }

  std::string Path() const { return folder_.Path("line.pcapng"); }
  void Console(const char* hex) {
    recorder_.Record(Direction::kFromConsole, QByteArray::fromHex(hex));
  }
  void Printer(const char* hex) {
    recorder_.Record(Direction::kFromPrinter, QByteArray::fromHex(hex));
  }
  // The bytes of the rows that are in the file, which is whole at any moment.
  std::vector<std::string> Written() const {
    std::vector<std::string> damage;
    std::vector<std::string> rows;
    for (const LogEntry& row : ReadCapture(Path(), damage)) rows.push_back(HexOf(row));
    EXPECT_TRUE(damage.empty()) << damage.front();
    return rows;
  }
  bool Writes(const std::vector<std::string>& rows) const {
    return support::WaitFor([&] { return Written() == rows; });
  }

  support::FileFolder folder_;
  LineRecorder recorder_;
};

static_assert(CaptureRecorder::kDelay < 100ms);

TEST_F(CaptureRecorderTest, WritesACompleteRowByItself) {
  CaptureSink sink(Path());
  const CaptureRecorder writer(recorder_, sink);
  EXPECT_TRUE(Writes({}));
  Console("02210322");
  EXPECT_TRUE(Writes({"02 21 03 22"}));
  Printer("06");
  EXPECT_TRUE(Writes({"02 21 03 22", "06"}));
}

TEST_F(CaptureRecorderTest, KeepsARowBackWhileOneBeforeItIsOpen) {
  CaptureSink sink(Path());
  const CaptureRecorder writer(recorder_, sink);
  Printer("0221");
  Console("02220321");
  // Half a second of silence completes it; what is in the file first is both.
  EXPECT_TRUE(support::WaitFor([this] { return !Written().empty(); }));
  EXPECT_EQ(Written(), (std::vector<std::string>{"02 21", "02 22 03 21"}));
}

TEST_F(CaptureRecorderTest, WritesOpenRowsAtTheEndAsTheyAre) {
  CaptureSink sink(Path());
  CaptureRecorder writer(recorder_, sink);
  Printer("0221");
  Console("0222");
  writer.Finish();
  EXPECT_EQ(Written(), (std::vector<std::string>{"02 21", "02 22"}));
}

TEST_F(CaptureRecorderTest, WritesWhatAClearedLogHeld) {
  CaptureSink sink(Path());
  CaptureRecorder writer(recorder_, sink);
  Console("02210322");
  recorder_.Clear();
  Console("02220321");
  writer.Finish();
  EXPECT_EQ(Written(), (std::vector<std::string>{"02 21 03 22", "02 22 03 21"}));
}

TEST_F(CaptureRecorderTest, WritesCommentsAndNoRemarks) {
  CaptureSink sink(Path());
  CaptureRecorder writer(recorder_, sink);
  Console("02210322");
  recorder_.Comment("fault: status 22");
  recorder_.Remark("what else there is to say");
  writer.Finish();
  std::vector<std::string> damage;
  const std::vector<LogEntry> rows = ReadCapture(Path(), damage);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].comment, "fault: status 22");
  EXPECT_EQ(rows[0].remark, "");
}

TEST_F(CaptureRecorderTest, TellsOnceWhyItHasEnded) {
  CaptureSink sink(Path());
  QStringList told;
  CaptureRecorder writer(recorder_, sink);
  QObject::connect(&writer, &CaptureRecorder::Ended,
                   [&told](const QString& reason) { told << reason; });
  const support::SizeLimit limit(folder_.Contents("line.pcapng").size() + 10);
  Console("02210322");
  Console("02220321");
  EXPECT_TRUE(support::WaitFor([&told] { return !told.isEmpty(); }));
  Console("02230320");
  writer.Finish();
  EXPECT_EQ(told, QStringList(QString::fromStdString("the capture " + Path() +
                                                     " has ended: File too large.")));
  EXPECT_TRUE(Written().empty());
}

TEST_F(CaptureRecorderTest, LooksForAPipesReaderByItself) {
  ASSERT_EQ(mkfifo(Path().c_str(), 0600), 0);
  CaptureSink sink(Path());
  CaptureRecorder writer(recorder_, sink);
  Console("02210322");
  const link::UniqueDescriptor reader(open(Path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  std::string taken;
  std::vector<std::string> damage;
  EXPECT_TRUE(support::WaitFor([&] {
    std::array<char, 4096> part{};
    const ssize_t count = read(reader.Get(), part.data(), part.size());
    if (count > 0) taken.append(part.data(), static_cast<std::size_t>(count));
    folder_.Make("copy.pcapng", taken);
    return !taken.empty() && ReadCapture(folder_.Path("copy.pcapng"), damage).size() == 1;
  }));
  EXPECT_TRUE(damage.empty());
}

}  // namespace
}  // namespace vantrel::log
