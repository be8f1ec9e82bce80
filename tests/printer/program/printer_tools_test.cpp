// SPDX-License-Identifier: MIT

// The built program behind the tools that carry a serial line over a network.

#include "link/unique_descriptor.h"
#include "protocol/tcp_address.h"
#include "tests/printer/program/all_commands.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/file_folder.h"
#include "tests/support/patience.h"
#include "tests/support/wait_for.h"

#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <memory>
#include <string>

namespace vantrel::printer {
namespace {

class NetworkTools : public PrinterProgram {
 protected:
  ~NetworkTools() override {
    for (QProcess* tool : {&tool_, &client_}) {
      if (tool->state() == QProcess::NotRunning) continue;
      tool->kill();
      tool->waitForFinished();
    }
  }

  std::string Begin(const QStringList& options) {
    std::string line =
        Serve(QStringList{"--script", "--instant", "--card", "--series", "ql7"} + options);
    // The one command that needs a hand is the last.
    program_.write(
        "wait frame 52 50000\nwait removal-wait\npull\ninsert cleaning\n"
        "wait reply 52\nlog\n");
    while (program_.bytesToWrite() > 0 && program_.waitForBytesWritten(support::kPatience))
      continue;
    return line;
  }
  // The answers to these lines.
  void ExpectAnswers() {
    EXPECT_EQ(ReadLine(), "ok 52h cleaning");
    for (int i = 0; i < 3; ++i) EXPECT_EQ(ReadLine(), "ok") << i;
    EXPECT_EQ(ReadLine(), "ok reply 52h: 20h normal status");
    // Each command, its 06h and its reply, and not a row of noise.
    EXPECT_EQ(ReadLine(), "ok 144");
  }

  // Starts the client and gives it all of its input.
  void StartClient(const QString& program, const QStringList& arguments, const std::string& input) {
    client_.start(program, arguments);
    client_.write(input.c_str());
    client_.closeWriteChannel();
    while (client_.bytesToWrite() > 0 && client_.waitForBytesWritten(support::kPatience)) continue;
  }

  // A port that was free a moment ago. It is none of those that the system gives to who asks for
  // any, as the tests beside this one do.
  static int FreePort() {
    constexpr int kFirst = 20000;
    constexpr int kCount = 10000;
    for (int i = 0; i < kCount; ++i) {
      const int port = kFirst + (getpid() + i) % kCount;
      const link::UniqueDescriptor one(socket(AF_INET, SOCK_STREAM, 0));
      sockaddr_in address{};
      address.sin_family = AF_INET;
      address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
      address.sin_port = htons(static_cast<std::uint16_t>(port));
      if (bind(one.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
        return port;
    }
    ADD_FAILURE() << "No port is free.";
    return 0;
  }

  QProcess tool_;
  QProcess client_;
  support::FileFolder files_;
};

TEST_F(NetworkTools, CarryAllCommandsFromASenderThroughSocat) {
  const std::string address = Begin({"--tcp", "0"});
  const QString device = QString::fromStdString(files_.Path("com1"));
  tool_.start("socat", {"PTY,link=" + device + ",raw,echo=0",
                        "TCP:" + QString::fromStdString(address) + ",nodelay"});
  ASSERT_TRUE(support::WaitFor([&device] { return QFile::exists(device); }));
  std::string lines;
  for (const CommandAndData& command : AllCommands())
    lines += std::string(command.code) + " --data '" + command.data + "'\n";
  StartClient(VANTREL_SEND_PROGRAM, {"--port", device, "--wear", "-"}, lines);
  ASSERT_TRUE(client_.waitForFinished(50000));
  ExpectAnswers();
  EXPECT_EQ(client_.exitCode(), 0) << client_.readAllStandardOutput().toStdString()
                                   << client_.readAllStandardError().toStdString();
}

TEST_F(NetworkTools, CarryAllCommandsFromAClientOfRfc2217ThroughSer2net) {
  const std::string device = Begin({});
  const int port = FreePort();
  files_.Make("ser2net.yaml",
              "connection: &printer\n"
              "  accepter: telnet(rfc2217),tcp,127.0.0.1," +
                  std::to_string(port) +
                  "\n"
                  "  connector: serialdev," +
                  device + ",9600n81,local\n");
  tool_.start("ser2net", {"-n", "-u", "-c", QString::fromStdString(files_.Path("ser2net.yaml"))});
  std::string lines;
  for (const CommandAndData& command : AllCommands())
    lines += std::string(command.code) + ' ' + command.data + '\n';
  StartClient("/usr/bin/python3", {VANTREL_RFC2217_CLIENT, QString::number(port)}, lines);
  ASSERT_TRUE(client_.waitForFinished(50000));
  ExpectAnswers();
  QByteArray expected;
  for (std::size_t i = 0; i < AllCommands().size(); ++i) expected += "20\n";
  EXPECT_EQ(client_.readAllStandardOutput(), expected)
      << client_.readAllStandardError().toStdString();
}

}  // namespace
}  // namespace vantrel::printer
