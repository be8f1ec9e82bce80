// SPDX-License-Identifier: MIT

#include "printer/service/log_file.h"

#include "log/line_recorder.h"
#include "tests/support/file_folder.h"
#include "tests/support/file_limits.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class LogFileTest : public testing::Test {
 protected:
  std::string Refusal(const std::string& path) {
    try {
      const LogFile log(path, {});
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "was opened";
  }
  void Receive(const QByteArray& hex) {
    recorder_.Record(protocol::Direction::kFromConsole, QByteArray::fromHex(hex));
  }

  support::FileFolder folder_;
  log::LineRecorder recorder_;
};

TEST_F(LogFileTest, IsWrittenAsTheLogGrows) {
  folder_.Make("line.txt", "what was there");
  LogFile file(folder_.Path("line.txt"), {});
  file.Begin(recorder_);
  Receive("02950396");
  EXPECT_TRUE(support::WaitFor(
      [&] { return folder_.Contents("line.txt").find("02 95 03 96") != std::string::npos; }));
  const std::string line = folder_.Contents("line.txt");
  EXPECT_TRUE(line.ends_with("received  02 95 03 96  95h card transport count request\n") ||
              line.ends_with("95h card transport count request\n"))
      << line;
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
}

TEST_F(LogFileTest, IsCsvWhereItsEndingSaysSo) {
  LogFile file(folder_.Path("line.csv"), {});
  file.Begin(recorder_);
  Receive("0295");
  file.Finish();
  const std::string text = folder_.Contents("line.csv");
  EXPECT_THAT(text, StartsWith("Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n"));
  // The open row as it stands.
  EXPECT_THAT(text, HasSubstr(",received,02 95,"));
}

TEST_F(LogFileTest, EndsAtItsLimitWithWholeRowsAndSaysSoOnce) {
  LogFile file(folder_.Path("line.txt"), 1000);
  QStringList told;
  QObject::connect(&file, &LogFile::Ended, [&told](const QString& reason) { told << reason; });
  file.Begin(recorder_);
  for (int i = 0; i < 100; ++i) Receive("02950396");
  file.Finish();
  for (int i = 0; i < 100; ++i) Receive("02950396");
  file.Finish();
  const std::string text = folder_.Contents("line.txt");
  EXPECT_LE(text.size(), 1000U);
  EXPECT_GT(text.size(), 900U);
  EXPECT_TRUE(text.ends_with("count request\n"));
  ASSERT_EQ(told.size(), 1);
  EXPECT_EQ(told[0].toStdString(),
            "the log " + folder_.Path("line.txt") + " has reached its limit and ends there.");
  EXPECT_FALSE(file.HasFailed());
}

TEST_F(LogFileTest, EndsWithAWholeRowWhereTheDiskIsFullAndSaysWhy) {
  LogFile file(folder_.Path("line.txt"), {});
  QStringList told;
  QObject::connect(&file, &LogFile::Ended, [&told](const QString& reason) { told << reason; });
  file.Begin(recorder_);
  for (int i = 0; i < 2; ++i) Receive("02950396");
  file.Finish();
  const std::string whole = folder_.Contents("line.txt");
  EXPECT_EQ(std::count(whole.begin(), whole.end(), '\n'), 2);
  {
    const support::SizeLimit limit(whole.size() + 7);
    for (int i = 0; i < 2; ++i) Receive("02950396");
    file.Finish();
  }
  EXPECT_EQ(folder_.Contents("line.txt"), whole);
  EXPECT_EQ(told, QStringList(QString::fromStdString("the log " + folder_.Path("line.txt") +
                                                     " has ended: File too large.")));
  EXPECT_TRUE(file.HasFailed());
}

TEST_F(LogFileTest, FollowsALink) {
  folder_.Make("kept.txt", "");
  folder_.Link("kept.txt", "link.txt");
  LogFile file(folder_.Path("link.txt"), {});
  file.Begin(recorder_);
  Receive("02950396");
  file.Finish();
  EXPECT_EQ(folder_.LinkTarget("link.txt"), "kept.txt");
  EXPECT_THAT(folder_.Contents("kept.txt"), HasSubstr("02 95 03 96"));
}

TEST_F(LogFileTest, RefusesWhatIsNoRegularFile) {
  ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  EXPECT_THAT(Refusal(folder_.Path("pipe")),
              HasSubstr("cannot be written: It is no regular file."));
  EXPECT_THAT(Refusal("/dev/null"), HasSubstr("cannot be written: It is no regular file."));
  EXPECT_THAT(Refusal(folder_.Path("")), HasSubstr("cannot be written: Is a directory."));
  EXPECT_THAT(Refusal(folder_.Path("no/line.txt")),
              HasSubstr("cannot be written: No such file or directory."));
}

}  // namespace
}  // namespace vantrel::printer
