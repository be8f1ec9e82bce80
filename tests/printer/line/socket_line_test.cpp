// SPDX-License-Identifier: MIT

#include "printer/line/socket_line.h"

#include "tests/support/file_folder.h"
#include "tests/support/patience.h"
#include "tests/support/socket_user.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

namespace fs = std::filesystem;
using protocol::LineEnd;
using support::SocketUser;

const link::Bytes kQuestion{0x02, 0x95, 0x03, 0x96};

// Waits until there is something to do, and reads.
link::Bytes ReadFrom(LineEnd& line) {
  pollfd ready{line.Descriptor(), POLLIN, 0};
  return poll(&ready, 1, support::kPatience) > 0 ? line.Read() : link::Bytes{};
}

// The port of "127.0.0.1:4000".
std::uint16_t PortOf(const LineEnd& line) {
  return protocol::ParseTcpAddress(line.Address(), "").port;
}

class TcpLine : public testing::Test {
 protected:
  // A console that the line has taken in.
  SocketUser Console() {
    SocketUser console = SocketUser::OnTcp(PortOf(*line_));
    EXPECT_EQ(ReadFrom(*line_), link::Bytes{});
    return console;
  }

  std::function<std::unique_ptr<LineEnd>()> lines_ = TcpLines({"127.0.0.1", 0});
  std::unique_ptr<LineEnd> line_ = lines_();
};

TEST_F(TcpLine, TellsWhereItIs) {
  EXPECT_TRUE(line_->Address().starts_with("127.0.0.1:"));
  EXPECT_GT(PortOf(*line_), 0);
  EXPECT_FALSE(line_->ConsoleSpeed());
}

TEST_F(TcpLine, CarriesEveryByteUnchanged) {
  const SocketUser console = Console();
  link::Bytes every(256);
  for (std::size_t i = 0; i < every.size(); ++i) every[i] = static_cast<std::uint8_t>(i);
  console.Write(every);
  EXPECT_EQ(ReadFrom(*line_), every);
  EXPECT_EQ(line_->Write(every), 256U);
  EXPECT_EQ(console.Read(256), every);
}

TEST_F(TcpLine, LosesWhatIsWrittenToNobody) {
  EXPECT_EQ(line_->WriteDescriptor(), -1);
  EXPECT_EQ(line_->Write(kQuestion), 0U);
  const SocketUser console = Console();
  EXPECT_GE(line_->WriteDescriptor(), 0);
  line_->Write({0x06});
  EXPECT_EQ(console.Read(1), link::Bytes{0x06});
}

TEST_F(TcpLine, ClosesAFurtherConsoleAtOnce) {
  const SocketUser first = Console();
  const SocketUser second = Console();
  EXPECT_TRUE(second.IsClosed());
  first.Write(kQuestion);
  EXPECT_EQ(ReadFrom(*line_), kQuestion);
}

TEST_F(TcpLine, TakesTheNextConsoleWhenOneHasGone) {
  Console().Close();
  EXPECT_EQ(ReadFrom(*line_), link::Bytes{});
  const SocketUser next = Console();
  next.Write(kQuestion);
  EXPECT_EQ(ReadFrom(*line_), kQuestion);
  line_->Write({0x06});
  EXPECT_EQ(next.Read(1), link::Bytes{0x06});
}

TEST_F(TcpLine, AnswersAConsoleThatHasEndedWhatItSends) {
  const SocketUser console = SocketUser::OnTcp(PortOf(*line_));
  console.Write(kQuestion);
  console.EndSending();
  link::Bytes read;
  while (read.size() < kQuestion.size()) {
    const link::Bytes part = ReadFrom(*line_);
    read.insert(read.end(), part.begin(), part.end());
  }
  EXPECT_EQ(read, kQuestion);
  EXPECT_EQ(line_->Write({0x06}), 1U);
  EXPECT_EQ(console.Read(1), link::Bytes{0x06});
}

TEST_F(TcpLine, SurvivesAConsoleThatDoesNotRead) {
  const SocketUser console = Console();
  const link::Bytes much(std::size_t{1} << 22U, 0x41);
  std::size_t written = 1;
  for (int i = 0; i < 16 && written > 0; ++i) written = line_->Write(much);
  EXPECT_EQ(written, 0U);
}

TEST_F(TcpLine, IsRefusedAndGoneWhenUnpluggedAndThereAgainInTheSamePlace) {
  const SocketUser console = Console();
  const std::string address = line_->Address();
  const std::uint16_t port = PortOf(*line_);
  line_.reset();
  EXPECT_TRUE(console.IsClosed());
  EXPECT_FALSE(SocketUser::OnTcp(port).IsOpen());
  line_ = lines_();
  EXPECT_EQ(line_->Address(), address);
  EXPECT_TRUE(SocketUser::OnTcp(port).IsOpen());
}

TEST_F(TcpLine, SaysInWordsWhereItCannotListen) {
  try {
    TcpLines({"127.0.0.1", PortOf(*line_)})();
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), line_->Address() + " cannot be listened on: Address already in use");
  }
  EXPECT_THROW(TcpLines({"no such host", 1})(), std::runtime_error);
}

class UnixSocketLine : public testing::Test {
 protected:
  UnixSocketLine() { fs::create_directories(folder_); }
  ~UnixSocketLine() override { fs::remove_all(folder_); }

  const fs::path folder_ =
      fs::temp_directory_path() / ("vantrel-socket-" + std::to_string(::getpid()));
  const std::string path_ = folder_ / "printer";
};

TEST_F(UnixSocketLine, CarriesBytesAndGoesWithItself) {
  {
    const auto line = SocketLines(path_)();
    EXPECT_EQ(line->Address(), path_);
    const SocketUser console = SocketUser::OnPath(path_);
    console.Write(kQuestion);
    link::Bytes read = ReadFrom(*line);
    if (read.empty()) read = ReadFrom(*line);
    EXPECT_EQ(read, kQuestion);
    line->Write({0x06});
    EXPECT_EQ(console.Read(1), link::Bytes{0x06});
  }
  EXPECT_FALSE(fs::exists(path_));
}

TEST_F(UnixSocketLine, ReplacesALeftover) {
  {
    const auto killed = SocketLines(path_)();
    // Under another name it outlives its line, as if that had no time to remove it.
    fs::rename(path_, folder_ / "left");
  }
  fs::rename(folder_ / "left", path_);
  ASSERT_FALSE(SocketUser::OnPath(path_).IsOpen());
  const auto line = SocketLines(path_)();
  EXPECT_TRUE(SocketUser::OnPath(path_).IsOpen());
}

TEST_F(UnixSocketLine, LeavesALivingOneAndAnythingElseAlone) {
  const auto living = SocketLines(path_)();
  EXPECT_THROW(SocketLines(path_)(), std::runtime_error);
  EXPECT_TRUE(SocketUser::OnPath(path_).IsOpen());
  const std::string file = folder_ / "file";
  std::ofstream(file) << "precious";
  EXPECT_THROW(SocketLines(file)(), std::runtime_error);
  EXPECT_EQ(fs::file_size(file), 8U);
  EXPECT_THROW(SocketLines(std::string(200, 'x'))(), std::runtime_error);
  EXPECT_THROW(SocketLines(folder_ / "missing" / "printer")(), std::runtime_error);
}

TEST(SocketLine, TellsWhetherAConsoleHasTakenAll) {
  const support::FileFolder folder;
  const auto line = SocketLines(folder.Path("printer"))();
  EXPECT_TRUE(line->IsTaken());
  const SocketUser console = SocketUser::OnPath(folder.Path("printer"));
  ReadFrom(*line);
  line->Write(kQuestion);
  EXPECT_FALSE(line->IsTaken());
  EXPECT_EQ(console.Read(kQuestion.size()), kQuestion);
  EXPECT_TRUE(line->IsTaken());
}

}  // namespace
}  // namespace vantrel::printer
