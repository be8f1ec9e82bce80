// SPDX-License-Identifier: MIT
#pragma once

#include "link/clock.h"
#include "send/interrupts.h"
#include "send/job.h"
#include "send/line_input.h"
#include "send/progress.h"
#include "send/report.h"
#include "send/sender.h"
#include "send/settings.h"
#include "send/standard_output.h"
#include "send/tally.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vantrel::send {

// One run of the program: what it sends, and what it tells of it on standard output, in the report
// and, in sentences, on standard error.
class Run {
 public:
  // All must outlive the run. `report` may be null.
  Run(const Settings& settings, const Means& means, link::Port& port, Sender& sender,
      Interrupts& interrupts, StandardOutput& output, Report* report);

  // Each returns the status with which the program ends.
  // One command, as often as the settings say.
  int Do(const Job& job);
  // The commands of standard input.
  int DoLines(LineInput& input);
  // Tells why the run has ended where one of these has thrown, and where many commands have
  // stopped.
  void TellEnd(const std::string& sentence);

 private:
  // A line of standard input with the command that it is.
  struct Entry {
    std::optional<long> line;
    Job job;
  };
  enum class Step { kSuccess, kFailure, kPortFailed, kInterrupted };

  // Whether the first round leaves it out.
  bool IsBefore(const Entry& entry) const;
  int DoOnce(const Job& job);
  int DoRounds(const std::vector<Entry>& entries);
  int DoEachLine(LineInput& input);
  // The whole list; nothing, and told, where a line is refused.
  std::optional<std::vector<Entry>> ReadList(LineInput& input);

  // The command of a line; nothing for a line without one. A line that is refused is told, and
  // `is_refused` set.
  std::optional<Job> Read(const std::string& line, const Place& place, bool& is_refused);
  // Sends the frames of a command, up to the first that is no success.
  Step Carry(const Job& job, const Place& place);
  void TellDry(const Job& job);
  void Tell(const Exchange& exchange);
  // Ends the printer's waits for a card and for its removal.
  void FreePrinter();
  // Many commands have come to this place.
  void Enter(const Place& place);
  // Tells where many commands have stopped; `is_done` when that one need not be done again.
  void TellPlace(const Place& place, bool is_done);
  // Tells where a run has stopped and returns its status.
  int Stop(Step step, const Place& place);
  void Say(const std::string& sentence);
  void TellSummary();

  const Settings& settings_;
  const Means& means_;
  link::Port& port_;
  Sender& sender_;
  Interrupts& interrupts_;
  StandardOutput& output_;
  Report* const report_;
  Tally tally_;
  std::optional<Progress> progress_;
  Outcome last_outcome_ = Outcome::kReply;
  Place place_;
  bool is_done_ = false;  // the command at that place
};

}  // namespace vantrel::send
