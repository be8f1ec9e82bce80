// SPDX-License-Identifier: MIT

// A signal in each wait.

#include "tests/send/send_program.h"
#include "tests/support/patience.h"

#include <QJsonObject>
#include <QThread>

#include <csignal>

namespace vantrel::send {
namespace {

void Signal(const QProcess& process, int signal) {
  kill(static_cast<pid_t>(process.processId()), signal);
}

struct Wait {
  const char* words;
  const char* code;
  // The card goes in and the command of 21h makes it a target first.
  bool has_target;
};

void PrintTo(const Wait& wait, std::ostream* out) { *out << wait.words; }

class SignalInAWait : public SendProgram, public testing::WithParamInterface<Wait> {
 protected:
  // How many entries the printer's log has.
  int Logged() { return std::stoi(Ask("log").substr(3)); }
};

TEST_P(SignalInAWait, FreesThePrinter) {
  const Wait& wait = GetParam();
  Begin(wait.has_target ? QStringList{"--card"} : QStringList{});
  if (wait.has_target) {
    ASSERT_EQ(Send({"51"}).status, 0);
    ASSERT_TRUE(Ask("wait frame 51").starts_with("ok 51h"));
  }
  const int before = Logged();
  auto process = StartSending(QStringList{"--json"} + QString(wait.words).split(' '));
  ASSERT_TRUE(Ask(std::string("wait frame ") + wait.code).starts_with("ok "));
  // The 06h that answers it has gone out.
  while (Logged() < before + 2) QThread::msleep(1);
  Signal(*process, SIGINT);
  EXPECT_TRUE(Ask("wait frame 54").starts_with("ok 54h"));
  EXPECT_TRUE(Ask("wait frame 55").starts_with("ok 55h"));
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  const auto objects = Objects(ended.out);
  ASSERT_EQ(objects.size(), 1U);
  EXPECT_EQ(objects[0]["command"].toString(), wait.code);
  EXPECT_EQ(objects[0]["outcome"].toString(), "cancelled");
  EXPECT_EQ(objects[0]["meaning"].toString(), "The command was cancelled by a signal.");
  EXPECT_TRUE(objects[0]["status"].isNull());
}

INSTANTIATE_TEST_SUITE_P(EachWait, SignalInAWait,
                         testing::Values(Wait{"21", "21", false}, Wait{"22", "22", false},
                                         Wait{"23", "23", false}, Wait{"29", "29", true},
                                         Wait{"2A", "2A", true}, Wait{"2B", "2B", true},
                                         Wait{"31 4", "31", false}, Wait{"46 1", "46", true},
                                         Wait{"47 1", "47", true}, Wait{"48 1", "48", true},
                                         Wait{"51", "51", false}, Wait{"52", "52", false},
                                         Wait{"53", "53", false}),
                         [](const auto& wait) { return std::string("Of") + wait.param.code; });

class Signals : public SendProgram {};

TEST_F(Signals, EndAnyOtherCommandAtOnce) {
  Begin();
  ASSERT_EQ(Ask("fault silence"), "ok");
  auto process = StartSending({"58", "--json", "--time-limit", "60000"});
  ASSERT_TRUE(Ask("wait frame 58").starts_with("ok "));
  Signal(*process, SIGTERM);
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  EXPECT_EQ(Objects(ended.out).at(0)["outcome"].toString(), "cancelled");
  EXPECT_TRUE(Ask("wait frame 54 1").starts_with("error "));
}

TEST_F(Signals, EndEverythingTheSecondTime) {
  Begin({});
  auto process = StartSending({"21"});
  ASSERT_TRUE(Ask("wait frame 21").starts_with("ok "));
  while (Ask("log") == "ok 1") QThread::msleep(1);
  ASSERT_EQ(Ask("fault silence until cleared"), "ok");
  Signal(*process, SIGINT);
  ASSERT_TRUE(Ask("wait frame 54").starts_with("ok "));
  Signal(*process, SIGINT);
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  EXPECT_TRUE(ended.out.contains("cancelled")) << ended.out.toStdString();
  EXPECT_TRUE(Ask("wait frame 55 1").starts_with("error "));
}

TEST_F(Signals, EndTheWaitForALine) {
  Begin();
  auto process = StartSending({"-", "--quiet"});
  process->write("58\n");
  while (!process->canReadLine() && process->waitForReadyRead(support::kPatience)) continue;
  Signal(*process, SIGINT);
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  EXPECT_EQ(ended.errors, "vantrel-send: Stopped at line 2; go on with --from 2.\n");
}

TEST_F(Signals, EndARunInItsRounds) {
  Begin();
  auto process = StartSending({"-", "--json", "--until-failure"});
  process->write("58\n40\n");
  process->closeWriteChannel();
  while (!process->canReadLine() && process->waitForReadyRead(support::kPatience)) continue;
  Signal(*process, SIGINT);
  const Ended ended = EndOf(*process);
  EXPECT_EQ(ended.status, 130);
  EXPECT_TRUE(Objects(ended.out).back().contains("summary"));
  EXPECT_TRUE(ended.errors.startsWith("vantrel-send: Stopped at line "));
}

}  // namespace
}  // namespace vantrel::send
