// SPDX-License-Identifier: MIT

// Captures as they are written: what is in the file at each moment.

#include "log/capture_sink.h"

#include "log/capture_file.h"
#include "log/capture_writer.h"
#include "tests/support/file_folder.h"
#include "tests/support/file_limits.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using protocol::Direction;

const CapturedLine kLine{"/dev/pts/7", 9600};

LogEntry RowOf(const std::string& bytes) {
  return {WallTime(1795266005s), Direction::kFromPrinter, bytes};
}

std::string PacketOf(const LogEntry& row) {
  std::string packet;
  AppendPacket(packet, row);
  return packet;
}

const LogEntry kRow = RowOf("\x06");
const std::string kStart = CaptureStart(kLine);
const std::string kPacket = PacketOf(kRow);

class CaptureSinkTest : public testing::Test {
 protected:
  // As the program does.
  CaptureSinkTest() { std::signal(SIGPIPE, SIG_IGN); }

  std::string Path(const std::string& name) const { return folder_.Path(name); }
  std::string MakePipe() const {
    std::string path = Path("pipe");
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    return path;
  }
  static std::string RefusalOf(const std::string& path) {
    try {
      const CaptureSink sink(path);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return {};
  }

  support::FileFolder folder_;
};

// Reads a pipe without waiting.
class PipeReader {
 public:
  explicit PipeReader(const std::string& path)
      : descriptor_(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}

  // What is in the pipe, at most so many bytes.
  std::string Read(std::size_t most = 1 << 20) const {
    std::string text(most, '\0');
    const ssize_t count = read(descriptor_.Get(), text.data(), text.size());
    text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return text;
  }

 private:
  link::UniqueDescriptor descriptor_;
};

TEST_F(CaptureSinkTest, HasEachRowInTheFileAtOnce) {
  CaptureSink sink(Path("line.pcapng"));
  EXPECT_EQ(folder_.Contents("line.pcapng"), "");
  sink.Start(kLine);
  EXPECT_EQ(folder_.Contents("line.pcapng"), kStart);
  sink.Add(kRow);
  EXPECT_EQ(folder_.Contents("line.pcapng"), kStart + kPacket);
  sink.Add(kRow);
  EXPECT_EQ(folder_.Contents("line.pcapng"), kStart + kPacket + kPacket);
  EXPECT_FALSE(sink.IsPipe());
  EXPECT_EQ(sink.Problem(), "");
}

TEST_F(CaptureSinkTest, EmptiesAFileAndFollowsALink) {
  folder_.Make("line.pcapng", std::string(1000, 'x'));
  folder_.Link("line.pcapng", "link");
  CaptureSink sink(Path("link"));
  EXPECT_EQ(folder_.Contents("line.pcapng"), "");
  sink.Start(kLine);
  EXPECT_EQ(folder_.Contents("line.pcapng"), kStart);
  EXPECT_TRUE(fs::is_symlink(Path("link")));
}

TEST_F(CaptureSinkTest, RefusesWhatIsNeitherFileNorPipe) {
  EXPECT_EQ(RefusalOf("/dev/null"),
            "the capture /dev/null cannot be written: It is no regular file.");
  EXPECT_EQ(RefusalOf(Path("")),
            "the capture " + Path("") + " cannot be written: It is no regular file.");
  EXPECT_EQ(
      RefusalOf(Path("none/line.pcapng")),
      "the capture " + Path("none/line.pcapng") + " cannot be written: No such file or directory.");
}

TEST_F(CaptureSinkTest, RefusesAFolderThatTakesNoFile) {
  const std::string folder = Path("read-only");
  ASSERT_TRUE(fs::create_directory(folder));
  folder_.Make("read-only/file", "kept");
  chmod(folder.c_str(), 0555);
  chmod((folder + "/file").c_str(), 0444);
  {
    const support::OtherUser user;
    EXPECT_EQ(RefusalOf(folder + "/line.pcapng"),
              "the capture " + folder + "/line.pcapng cannot be written: Permission denied.");
    EXPECT_EQ(RefusalOf(folder + "/file"),
              "the capture " + folder + "/file cannot be written: Permission denied.");
  }
  EXPECT_EQ(folder_.Contents("read-only/file"), "kept");
  chmod(folder.c_str(), 0755);
}

TEST_F(CaptureSinkTest, IsCutBackToItsLastWholePacketWhereNoMoreCanBeWritten) {
  const std::string path = Path("line.pcapng");
  CaptureSink sink(path);
  sink.Start(kLine);
  const support::SizeLimit limit(kStart.size() + 2 * kPacket.size() + 7);
  for (int i = 0; i < 5; ++i) sink.Add(kRow);
  EXPECT_EQ(folder_.Contents("line.pcapng"), kStart + kPacket + kPacket);
  EXPECT_EQ(sink.Problem(), "the capture " + path + " has ended: File too large.");
  std::vector<std::string> damage;
  EXPECT_EQ(ReadCapture(path, damage).size(), 2U);
  EXPECT_TRUE(damage.empty());
}

TEST_F(CaptureSinkTest, IsLeftEmptyWhereNotEvenItsStartCanBeWritten) {
  CaptureSink sink(Path("line.pcapng"));
  const support::SizeLimit limit(kStart.size() - 1);
  sink.Start(kLine);
  sink.Add(kRow);
  EXPECT_EQ(folder_.Contents("line.pcapng"), "");
  EXPECT_NE(sink.Problem(), "");
}

TEST_F(CaptureSinkTest, WaitsForNoReaderOfAPipe) {
  const std::string path = MakePipe();
  CaptureSink sink(path);
  EXPECT_TRUE(sink.IsPipe());
  sink.Start(kLine);
  sink.Add(kRow);
  sink.Flush();
  sink.Drain(10s);  // nobody to wait for
  const PipeReader reader(path);
  EXPECT_EQ(reader.Read(), "");
  sink.Flush();
  EXPECT_EQ(reader.Read(), kStart + kPacket);
  sink.Add(kRow);
  sink.Flush();
  EXPECT_EQ(reader.Read(), kPacket);
  EXPECT_EQ(sink.Problem(), "");
}

TEST_F(CaptureSinkTest, GoesOnWhereAReaderHasLeft) {
  const std::string path = MakePipe();
  CaptureSink sink(path);
  sink.Start(kLine);
  {
    const PipeReader reader(path);
    sink.Add(kRow);
    sink.Flush();
    EXPECT_EQ(reader.Read(), kStart + kPacket);
  }
  const LogEntry next = RowOf("\x10");
  sink.Add(next);
  sink.Flush();
  sink.Flush();
  EXPECT_EQ(sink.Problem(), "");
  // Whoever comes next gets a capture that can be read by itself.
  const PipeReader reader(path);
  sink.Flush();
  EXPECT_EQ(reader.Read(), kStart + PacketOf(next));
}

TEST_F(CaptureSinkTest, GivesTheNextReaderThePacketThatTheLastLeftHalfTaken) {
  const std::string path = MakePipe();
  CaptureSink sink(path);
  sink.Start(kLine);
  // More than a pipe holds.
  const LogEntry large = RowOf("\x02" + std::string(100000, 'A'));
  {
    const PipeReader reader(path);
    sink.Add(large);
    sink.Flush();
    EXPECT_EQ(reader.Read(100), (kStart + PacketOf(large)).substr(0, 100));
  }
  sink.Flush();
  const PipeReader reader(path);
  std::string all;
  for (int i = 0; i < 10; ++i) {
    sink.Flush();
    all += reader.Read();
  }
  EXPECT_EQ(all, kStart + PacketOf(large));
}

TEST_F(CaptureSinkTest, EndsWhereAPipesReaderLeaves16Megabytes) {
  const std::string path = MakePipe();
  CaptureSink sink(path);
  sink.Start(kLine);
  const LogEntry large = RowOf(std::string(65536, 'A'));
  const std::size_t size = PacketOf(large).size();
  std::size_t packets = CaptureSink::kMostPending / size;
  for (std::size_t i = 0; i < packets; ++i) sink.Add(large);
  EXPECT_EQ(sink.Problem(), "");
  sink.Add(large);
  EXPECT_EQ(sink.Problem(), "the capture " + path + " has ended: nobody reads it.");
  // That was all; a reader who comes now gets nothing.
  const PipeReader reader(path);
  sink.Add(kRow);
  sink.Flush();
  EXPECT_EQ(reader.Read(), "");
}

TEST_F(CaptureSinkTest, GoesOnPast16MegabytesThatAreTaken) {
  const std::string path = MakePipe();
  CaptureSink sink(path);
  sink.Start(kLine);
  const PipeReader reader(path);
  const LogEntry large = RowOf(std::string(32768, 'A'));
  const std::size_t packets = CaptureSink::kMostPending / 32768 + 10;
  std::size_t taken = 0;
  for (std::size_t i = 0; i < packets; ++i) {
    sink.Add(large);
    sink.Flush();
    taken += reader.Read().size();
  }
  EXPECT_EQ(sink.Problem(), "");
  EXPECT_EQ(taken, kStart.size() + packets * PacketOf(large).size());
}

}  // namespace
}  // namespace vantrel::log
