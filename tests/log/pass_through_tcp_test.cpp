// SPDX-License-Identifier: MIT

#include "log/pass_through.h"
#include "printer/line/pseudo_terminal.h"
#include "printer/line/socket_line.h"
#include "tests/support/device_user.h"
#include "tests/support/patience.h"
#include "tests/support/socket_user.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <sys/file.h>

#include <future>
#include <memory>
#include <stdexcept>
#include <string>

namespace vantrel::log {
namespace {

link::Bytes ReadSome(protocol::LineEnd& line) {
  link::Bytes bytes;
  pollfd ready{line.Descriptor(), POLLIN, 0};
  while (bytes.empty() && poll(&ready, 1, support::kPatience) > 0) bytes = line.Read();
  return bytes;
}

std::string ErrorOf(const std::string& device) {
  try {
    const PassThrough pass(device, printer::MakePseudoTerminal(), {});
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "";
}

TEST(PassThroughTcp, ReachesAPrinterOverTheNetwork) {
  auto printer = printer::TcpLines({"127.0.0.1", 0})();
  std::promise<std::string> end;
  PassThrough pass("tcp:" + printer->Address(), printer::MakePseudoTerminal(),
                   {{}, [&end](const std::string& reason) { end.set_value(reason); }});
  const support::DeviceUser console(pass.DevicePath());
  console.Write("02 95 03 96");
  EXPECT_EQ(ReadSome(*printer), (link::Bytes{0x02, 0x95, 0x03, 0x96}));
  printer->Write({0x06});
  EXPECT_EQ(console.Read(1), "06");
  const std::string address = printer->Address();
  printer.reset();
  EXPECT_EQ(end.get_future().get(), "The device tcp:" + address + " is gone.");
}

TEST(PassThroughTcp, ServesAConsoleOverTheNetwork) {
  printer::PseudoTerminal printer;
  const PassThrough pass(printer.DevicePath(), printer::TcpLines({"127.0.0.1", 0})(), {});
  const auto port = protocol::ParseTcpAddress(pass.DevicePath(), "").port;
  const auto console = support::SocketUser::OnTcp(port);
  console.Write({0x02, 0x95});
  EXPECT_EQ(ReadSome(printer), (link::Bytes{0x02, 0x95}));
  printer.Write({0x06});
  EXPECT_EQ(console.Read(1), link::Bytes{0x06});
}

TEST(PassThroughTcp, KeepsNothingForAConsoleThatIsNotThere) {
  printer::PseudoTerminal printer;
  std::promise<void> heard;
  const PassThrough pass(printer.DevicePath(), printer::TcpLines({"127.0.0.1", 0})(),
                         {[&heard](protocol::Direction, const link::Bytes& bytes, WallTime) {
                            if (bytes == link::Bytes{0x15}) heard.set_value();
                          },
                          {}});
  printer.Write({0x15});
  // It has been read, and there was nobody to give it to.
  heard.get_future().wait();
  const auto console =
      support::SocketUser::OnTcp(protocol::ParseTcpAddress(pass.DevicePath(), "").port);
  console.Write({0x02});
  EXPECT_EQ(ReadSome(printer), link::Bytes{0x02});
  printer.Write({0x06});
  EXPECT_EQ(console.Read(1), link::Bytes{0x06});
}

TEST(PassThroughTcp, SaysWhatCannotBeReached) {
  auto printer = printer::TcpLines({"127.0.0.1", 0})();
  const std::string address = printer->Address();
  printer.reset();
  EXPECT_EQ(ErrorOf("tcp:" + address),
            "The printer at " + address + " cannot be reached: Connection refused.");
  EXPECT_EQ(ErrorOf("tcp:nowhere"),
            "'nowhere' is no address: a host and a port are needed, as in localhost:4000.");
}

TEST(PassThrough, RefusesADeviceThatAnotherProgramHasLocked) {
  const printer::PseudoTerminal printer;
  const support::DeviceUser other(printer.DevicePath());
  ASSERT_EQ(flock(other.Descriptor(), LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(ErrorOf(printer.DevicePath()),
            "The device " + printer.DevicePath() + " is in use by another program.");
}

}  // namespace
}  // namespace vantrel::log
