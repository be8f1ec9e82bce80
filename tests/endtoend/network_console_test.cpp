// SPDX-License-Identifier: MIT

// The console and a printer on the network: what carries the bytes between them changes nothing.

#include "printer/line/socket_line.h"
#include "tests/endtoend/all_commands.h"
#include "tests/support/file_folder.h"
#include "tests/support/wait_for.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace vantrel::endtoend {
namespace {

class NetworkConsole : public AllCommandsTest {
 protected:
  ~NetworkConsole() override {
    socat_.terminate();
    socat_.waitForFinished();
  }

  support::FileFolder folder_;
  QProcess socat_;
};

TEST_F(NetworkConsole, ReachesAPrinterWithEveryCommandThroughSocat) {
  const std::vector<std::string> beside_it = [this] {
    AttendedPrinter printer;
    return Session(printer.Server().DevicePath());
  }();
  ASSERT_EQ(beside_it.size(), 48U);
  EXPECT_GT(went_well_, 40);

  AttendedPrinter printer(printer::TcpLines(protocol::ParseTcpAddress("0", "127.0.0.1")));
  const std::string device = folder_.Path("com1");
  const QString link = QString::fromStdString(device);
  socat_.start("socat",
               {"PTY,link=" + link + ",raw,echo=0",
                "TCP:" + QString::fromStdString(printer.Server().DevicePath()) + ",nodelay"});
  ASSERT_TRUE(support::WaitFor([&link] { return QFile::exists(link); }));
  EXPECT_EQ(Session(device), beside_it);
}

}  // namespace
}  // namespace vantrel::endtoend
