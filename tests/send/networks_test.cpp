// SPDX-License-Identifier: MIT

// A printer behind a TCP port.

#include "tests/send/full_listener.h"
#include "tests/send/send_program.h"
#include "tests/support/patience.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#include <csignal>

namespace vantrel::send {
namespace {

class Networks : public SendProgram {
 protected:
  // Whether somebody connects to that port of this machine and has no answer yet.
  static bool IsConnectedTo(int port) {
    const QByteArray remote =
        "0100007F:" + QByteArray::number(port, 16).toUpper().rightJustified(4, '0');
    QFile table("/proc/net/tcp");
    if (!table.open(QIODevice::ReadOnly)) return false;
    int connecting = 0;
    for (const QByteArray& line : table.readAll().split('\n')) {
      const auto columns = line.simplified().split(' ');
      // Behind the number and this end: the other end, and the state, 02 while no answer has come.
      connecting += columns.size() > 3 && columns[2] == remote && columns[3] == "02" ? 1 : 0;
    }
    // One of them is the listener's own.
    return connecting > 1;
  }
};

TEST_F(Networks, CarryACommand) {
  BeginOnTcp();
  const Ended ended = Send({"--json", "58"});
  EXPECT_EQ(ended.status, 0);
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0]["received"].toString(),
            "06 02 58 20 56 41 4E 54 52 45 4C 20 31 2E 30 31 03 13");
  EXPECT_EQ(objects[0]["outcome"].toString(), "reply");
}

TEST_F(Networks, LeaveTheSpeedWithoutMeaning) {
  BeginOnTcp({"--instant", "--speed", "9600"});
  EXPECT_EQ(Send({"--speed", "19200", "--quiet", "58"}).out, "VANTREL 1.01\n");
}

TEST_F(Networks, CarryManyCommandsOverOneConnection) {
  BeginOnTcp();
  const Ended ended = Send({"-", "--json", "--repeat", "3"}, "58\n40\n95\n");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(Objects(ended.out).size(), 10U);
  EXPECT_EQ(Objects(ended.out).back()["summary"].toObject()["failures"].toInt(-1), 0);
  // One after the other, each on a connection of its own.
  EXPECT_EQ(Send({"58", "--quiet"}).out, "VANTREL 1.01\n");
}

TEST_F(Networks, EndWith5WhenTheConnectionGoes) {
  BeginOnTcp();
  ASSERT_EQ(Ask("fault vanish after 3"), "ok");
  const Ended ended = Send({"-", "--json", "--keep-going"}, "58\n58\n58\n58\n");
  EXPECT_EQ(ended.status, 5);
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 3U);
  EXPECT_EQ(objects[2]["outcome"].toString(), "failed");
  const QString sentence = "The connection to " + device_.mid(4) + " has ended.";
  EXPECT_EQ(objects[2]["meaning"].toString(), sentence);
  EXPECT_EQ(ended.errors, ("vantrel-send: " + sentence +
                           "\nvantrel-send: Stopped at line 3; go on with --from 3.\n")
                              .toUtf8());
}

TEST_F(Networks, AreGivenUpAtASignalWhileTheyConnect) {
  const FullListener listener;
  device_ = "tcp:" + QString::fromStdString(listener.HostAndPort());
  auto process = StartSending({"--json", "58"});
  QElapsedTimer elapsed;
  elapsed.start();
  while (!IsConnectedTo(device_.section(':', -1).toInt()) && elapsed.elapsed() < support::kPatience)
    QThread::msleep(1);
  kill(static_cast<pid_t>(process->processId()), SIGINT);
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.errors, "");
}

}  // namespace
}  // namespace vantrel::send
