// SPDX-License-Identifier: MIT

// The same faults of the line at the other end of vantrel-send: what it tells of each exchange and
// the status with which it ends, for every command.

#include "send/run.h"
#include "tests/reliability/line_faults.h"
#include "tests/send/command_lines.h"

#include <gtest/gtest.h>

#include <gmock/gmock.h>
#include <poll.h>
#include <pthread.h>
#include <sys/mman.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <iostream>
#include <sstream>

namespace vantrel::reliability {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Keeps what is written to standard output and standard error in its lifetime. A failure that is
// told meanwhile is lost with it.
class Captured {
 public:
  Captured() : errors_before_(std::cerr.rdbuf(errors_.rdbuf())) {
    std::fflush(stdout);
    EXPECT_EQ(dup2(file_.Get(), STDOUT_FILENO), STDOUT_FILENO);
  }
  ~Captured() { End(); }
  Captured(const Captured&) = delete;
  Captured& operator=(const Captured&) = delete;

  void End() {
    if (!found_.IsOpen()) return;
    dup2(found_.Get(), STDOUT_FILENO);
    found_.Reset(-1);
    std::cerr.rdbuf(errors_before_);
    std::string part(4096, '\0');
    const ssize_t count = pread(file_.Get(), part.data(), part.size(), 0);
    out_ = part.substr(0, count > 0 ? static_cast<std::size_t>(count) : 0);
  }
  const std::string& Out() const { return out_; }
  std::string Errors() const { return errors_.str(); }

 private:
  link::UniqueDescriptor file_{memfd_create("standard output", MFD_CLOEXEC)};
  link::UniqueDescriptor found_{dup(STDOUT_FILENO)};
  std::ostringstream errors_;
  std::streambuf* const errors_before_;
  std::string out_;
};

class KeptExchanges : public send::Report {
 public:
  void Add(const send::Exchange& exchange) override { all.push_back(exchange); }
  void Finish() override {}
  std::vector<send::Exchange> all;
};

// The program's work on one command, without its main function.
class SendBench {
 public:
  explicit SendBench(Line::Strike strike) : line(port, clock, std::move(strike)) {
    interrupts.OnInterrupt([this] { sender.Cancel(); });
    settings.format = send::Format::kQuiet;
  }

  // The status with which the program would end.
  int Do(const send::Job& job) {
    Captured captured;
    const int status = run.Do(job);
    captured.End();
    out = captured.Out();
    errors = captured.Errors();
    return status;
  }
  // A signal comes.
  void Interrupt() {
    raise(SIGINT);
    interrupts.OnReady(POLLIN);
  }

  support::FakePort port;
  support::ManualClock clock;
  send::Interrupts interrupts;
  send::Sender sender{port, clock, link::CodePage::kWestern};
  send::StandardOutput output{interrupts};
  send::Settings settings;
  send::Means means;
  KeptExchanges report;
  send::Run run{settings, means, port, sender, interrupts, output, &report};
  Line line;
  std::string out;
  std::string errors;
};

class SendFaults : public testing::TestWithParam<ConsoleCommand> {
 protected:
  SendFaults() { pthread_sigmask(SIG_SETMASK, nullptr, &mask_); }
  ~SendFaults() override { pthread_sigmask(SIG_SETMASK, &mask_, nullptr); }

  // The command with the data that the console sends; of 4Bh the first block. The console sends no
  // 4Ah; here it goes without data.
  send::Job TheJob() const {
    const std::string frame = Frame();
    return send::Composed({command_.Code(), "--data", frame.substr(4, frame.size() - 8)});
  }
  std::string Frame() const {
    return command_.SendsNothing() ? "024A0349" : command_.frames.front();
  }
  void RunLineFault(const LineFault& fault) const;
  void RunPortFault(const PortFault& fault) const;

  const ConsoleCommand& command_ = GetParam();

 private:
  sigset_t mask_{};
};

void SendFaults::RunLineFault(const LineFault& fault) const {
  SendBench bench(fault.strike);
  fault.prepare(bench.line);
  const int status = bench.Do(TheJob());
  EXPECT_EQ(status, fault.sender.status);
  EXPECT_EQ(bench.errors, "");
  ASSERT_EQ(bench.report.all.size(), 1U);
  const send::Exchange& exchange = bench.report.all.front();
  EXPECT_EQ(exchange.sent, Frame());
  EXPECT_EQ(bench.port.Writes().front(), Frame());
  EXPECT_EQ(exchange.command, command_.Code());
  EXPECT_EQ(NameOf(exchange.outcome), fault.sender.outcome);
  EXPECT_EQ(exchange.meaning, Filled(fault.sender.meaning, command_));
  EXPECT_EQ(exchange.resends, fault.sender.resends == kAsLongAsItLasts ? command_.time_limit / 100
                                                                       : fault.sender.resends);
  EXPECT_EQ(exchange.is_success, fault.sender.status == 0);
  const bool has_reply = std::string(fault.sender.outcome) == "reply";
  EXPECT_EQ(exchange.status.has_value(), has_reply);
  // "First Track: AB" without its label.
  const std::string label = command_.label;
  const std::string data =
      label.empty() || status != 0 ? "" : std::string(command_.meaning).substr(label.size());
  EXPECT_EQ(exchange.data, data);
  EXPECT_EQ(bench.out, has_reply ? data + "\n" : "");
}

void SendFaults::RunPortFault(const PortFault& fault) const {
  SendBench bench(fault.strike);
  fault.prepare(bench.line);
  const bool replied = fault.is_replied_before;
  EXPECT_EQ(bench.Do(TheJob()), replied ? 0 : 5);
  EXPECT_EQ(bench.errors, replied ? "" : std::string("vantrel-send: ") + fault.message + "\n");
  // "First Track: AB" without its label.
  const std::string label = command_.label;
  const std::string data = label.empty() ? "" : std::string(command_.meaning).substr(label.size());
  EXPECT_EQ(bench.out, replied ? data + "\n" : "");
  ASSERT_EQ(bench.report.all.size(), 1U);
  EXPECT_EQ(NameOf(bench.report.all.front().outcome), replied ? "reply" : "failed");
  EXPECT_EQ(bench.report.all.front().meaning, replied ? "20h: Normal Status" : fault.message);
  EXPECT_EQ(bench.report.all.front().is_success, replied);
  EXPECT_EQ(bench.line.Number() + 1, fault.frames_sent);
}

TEST_P(SendFaults, OfTheLineGiveTheirOutcomeAndStatus) {
  for (const LineFault& fault : LineFaults()) {
    SCOPED_TRACE(command_.Code() + ", " + fault.name);
    RunLineFault(fault);
  }
}

// Unless the reply was whole before.
TEST_P(SendFaults, OfThePortGiveStatus5) {
  for (const PortFault& fault : PortFaults()) {
    if (fault.is_closed_before) continue;
    SCOPED_TRACE(command_.Code() + ", " + fault.name);
    RunPortFault(fault);
  }
  SCOPED_TRACE(command_.Code() + ", device gone before the program begins");
  SendBench bench([](Line&) {});
  bench.port.RefuseOpen(true);
  EXPECT_EQ(bench.Do(TheJob()), 5);
  EXPECT_THAT(bench.errors, testing::StartsWith("vantrel-send: COM 1 cannot be opened: "));
  EXPECT_THAT(bench.port.Writes(), IsEmpty());
  EXPECT_THAT(bench.report.all, IsEmpty());
}

// A signal during a card wait sends 54h and 55h, as a user of the console would press them. That
// the device goes meanwhile changes nothing: the signal ended the program.
TEST_P(SendFaults, OfTheDeviceWhileASignalIsServedGiveStatus130) {
  const bool may_wait =
      testing::Matches(testing::AnyOf("21", "22", "23", "29", "2A", "2B", "31", "46", "47", "48",
                                      "51", "52", "53"))(command_.Code());
  SendBench bench([&](Line& line) {
    if (line.Number() == 0)
      line.After(25, [&] { bench.Interrupt(); });
    else
      line.After(25, [&line] { line.Port().Lose(); });
  });
  EXPECT_EQ(bench.Do(TheJob()), 130);
  EXPECT_EQ(bench.out, "");
  ASSERT_EQ(bench.report.all.size(), 1U);
  EXPECT_EQ(NameOf(bench.report.all.front().outcome), "cancelled");
  if (may_wait)
    EXPECT_THAT(bench.port.Writes(), ElementsAre(Frame(), "02540357"));
  else
    EXPECT_THAT(bench.port.Writes(), ElementsAre(Frame()));
}

std::string NameOfCase(const testing::TestParamInfo<ConsoleCommand>& info) {
  return info.param.Code() + "h";
}

INSTANTIATE_TEST_SUITE_P(Sender, SendFaults,
                         testing::ValuesIn(ConsoleCommands().begin(), ConsoleCommands().end()),
                         NameOfCase);

// With the statuses that are no failure named, every other end of the exchange is status 1.
TEST(ExpectedStatuses, MakeEveryOtherEndStatus1ButAFailedPort) {
  sigset_t mask;
  pthread_sigmask(SIG_SETMASK, nullptr, &mask);
  for (const LineFault& fault : LineFaults()) {
    SCOPED_TRACE(fault.name);
    SendBench bench(fault.strike);
    fault.prepare(bench.line);
    EXPECT_EQ(bench.Do(send::Composed({"21", "--expect", "38"})),
              std::string(fault.name) == "status 38h" ? 0 : 1);
  }
  for (const PortFault& fault : PortFaults()) {
    if (fault.is_closed_before) continue;
    SCOPED_TRACE(fault.name);
    SendBench bench(fault.strike);
    fault.prepare(bench.line);
    EXPECT_EQ(bench.Do(send::Composed({"21", "--expect", "38"})), fault.is_replied_before ? 1 : 5);
  }
  pthread_sigmask(SIG_SETMASK, &mask, nullptr);
}

}  // namespace
}  // namespace vantrel::reliability
