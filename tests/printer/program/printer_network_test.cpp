// SPDX-License-Identifier: MIT

// The built program on a line over a socket.

#include "protocol/tcp_address.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"
#include "tests/support/patience.h"
#include "tests/support/socket_user.h"

#include <QFile>
#include <gtest/gtest.h>

#include <string>

namespace vantrel::printer {
namespace {

// 95h and its reply without a transport, with their block checks.
const link::Bytes kQuestion{0x02, 0x95, 0x03, 0x96};
const link::Bytes kAnswer{0x06, 0x02, 0x95, 0x20, 0x30, 0x03, 0x86};

class NetworkProgram : public PrinterProgram {
 protected:
  static std::uint16_t PortOf(const std::string& address) {
    return protocol::ParseTcpAddress(address, "").port;
  }
  // The sentence, without the hint at the help that follows every one.
  std::string Refusal(const QStringList& options) {
    Start(QStringList{"--headless"} + options);
    EXPECT_EQ(End(), 2);
    const QByteArray errors = program_.readAllStandardError();
    const QByteArray hint = " Try 'vantrel-printer --help'.\n";
    EXPECT_TRUE(errors.endsWith(hint)) << errors.toStdString();
    return errors.chopped(hint.size()).toStdString();
  }
};

TEST_F(NetworkProgram, ServesOneConsoleAfterTheOtherOnTcp) {
  const std::string address = Serve({"--tcp", "0"});
  ASSERT_TRUE(address.starts_with("127.0.0.1:")) << address;
  for (int i = 0; i < 2; ++i) {
    const auto console = support::SocketUser::OnTcp(PortOf(address));
    console.Write(kQuestion);
    EXPECT_EQ(console.Read(kAnswer.size()), kAnswer);
    const auto further = support::SocketUser::OnTcp(PortOf(address));
    EXPECT_TRUE(further.IsClosed());
  }
  program_.terminate();
  EXPECT_EQ(End(), 0);
}

TEST_F(NetworkProgram, ServesOnASocketThatGoesWithIt) {
  const std::string path = folder_.filePath("printer").toStdString();
  EXPECT_EQ(Serve({"--socket", QString::fromStdString(path)}), path);
  {
    const auto console = support::SocketUser::OnPath(path);
    console.Write(kQuestion);
    EXPECT_EQ(console.Read(kAnswer.size()), kAnswer);
  }
  program_.terminate();
  EXPECT_EQ(End(), 0);
  EXPECT_FALSE(QFile::exists(QString::fromStdString(path)));
}

TEST_F(NetworkProgram, ReplacesTheSocketOfAKilledPrinter) {
  const QString path = folder_.filePath("printer");
  Serve({"--socket", path});
  program_.kill();
  End();
  ASSERT_TRUE(QFile::exists(path));
  EXPECT_EQ(Serve({"--socket", path}), path.toStdString());
}

TEST_F(NetworkProgram, ReplacesTheLinkOfAKilledPrinterWhoseTerminalIsInUse) {
  const QString path = folder_.filePath("printer");
  const std::string device = Serve({"--link", path});
  // Whoever has the device open keeps its number in use.
  const support::DeviceUser other(device);
  program_.kill();
  End();
  ASSERT_EQ(QFile::symLinkTarget(path).toStdString(), device);
  const std::string next = Serve({"--link", path});
  EXPECT_EQ(QFile::symLinkTarget(path).toStdString(), next);
}

TEST_F(NetworkProgram, PassesOnBetweenTwoSockets) {
  QProcess printer;
  printer.start(VANTREL_PRINTER_PROGRAM, {"--headless", "--tcp", "0"});
  ASSERT_TRUE(printer.waitForStarted());
  while (!printer.canReadLine() && printer.waitForReadyRead(support::kPatience)) continue;
  const QString address = printer.readLine().trimmed();
  const std::string served = Serve({"--through", "tcp:" + address, "--tcp", "0"});
  const auto console = support::SocketUser::OnTcp(PortOf(served));
  console.Write(kQuestion);
  EXPECT_EQ(console.Read(kAnswer.size()), kAnswer);
  printer.kill();
  printer.waitForFinished();
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: The device tcp:" + address.toUtf8() + " is gone.\n");
}

TEST_F(NetworkProgram, RefusesWhatDoesNotGoTogether) {
  EXPECT_EQ(Refusal({"--tcp", "0", "--socket", "/tmp/x"}),
            "vantrel-printer: --tcp and --socket do not go together: a printer has one line.");
  EXPECT_EQ(Refusal({"--tcp", "0", "--link", "/tmp/x"}),
            "vantrel-printer: --link has no meaning with --tcp: there is no device to link to.");
  EXPECT_EQ(Refusal({"--socket", ""}),
            "vantrel-printer: --socket needs the path of the socket to make.");
  EXPECT_EQ(
      Refusal({"--tcp", "host:x"}),
      "vantrel-printer: --tcp: 'host:x' is no address: the port is a number from 0 to 65535.");
  EXPECT_EQ(Refusal({"--through", "tcp:4000"}),
            "vantrel-printer: --through: '4000' is no address: a host and a port are needed, as in "
            "localhost:4000.");
}

TEST_F(NetworkProgram, SaysWhereItCannotListen) {
  const QString path = folder_.filePath("file");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  Start({"--headless", "--socket", path});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: " + path.toUtf8() + " cannot be listened on: File exists\n");
}

}  // namespace
}  // namespace vantrel::printer
