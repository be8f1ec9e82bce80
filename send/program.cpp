// SPDX-License-Identifier: MIT

#include "send/program.h"

#include "commandline/help.h"
#include "send/capture.h"
#include "send/line_port.h"
#include "send/run.h"
#include "send/table.h"

#include <unistd.h>

#include <csignal>
#include <iostream>

namespace vantrel::send {
namespace {

using commandline::Parsed;
using commandline::WrongUse;

constexpr int kFailureStatus = 1;

void Say(const std::string& sentence) { std::cerr << "vantrel-send: " << sentence << std::endl; }

int TellHelp(const Parsed& parsed) {
  const commandline::Program& program = SendTable();
  std::string text;
  if (parsed.Parameters().empty()) {
    text = commandline::HelpText(program);
  } else {
    const std::string& name = parsed.Parameters().front();
    const commandline::Command* command = commandline::FindCommand(program, name);
    if (command == nullptr) throw WrongUse("There is no command '" + name + "'.");
    text = commandline::HelpText(program, *command);
  }
  return commandline::TellText(program, text, std::cout, std::cerr);
}

// Everything that lives as long as the run, in the order in which it depends on each other.
class Session {
 public:
  Session(Settings settings, Means means)
      : settings_(std::move(settings)), means_(std::move(means)) {
    clock_.Watch(interrupts_);
    interrupts_.OnInterrupt([this] {
      port_.Interrupt();
      sender_.Cancel();
    });
    if (!settings_.report.empty()) report_ = OpenReport(settings_.report, settings_.continues);
  }

  int Do(const Job& job) {
    return Guarded([&](Run& run) { return run.Do(job); });
  }
  int DoLines() {
    LineInput input(STDIN_FILENO, clock_, [this] { return interrupts_.Count() > 0; });
    return Guarded([&](Run& run) { return run.DoLines(input); });
  }

 private:
  static std::unique_ptr<Capture> OpenCapture(const Settings& settings) {
    if (settings.capture.empty()) return nullptr;
    return std::make_unique<Capture>(settings.capture, settings.address, settings.speed);
  }

  // What has been done so far is reported, however the run ends.
  template <typename Work>
  int Guarded(Work work) {
    Run run(settings_, means_, port_, sender_, interrupts_, output_, report_.get());
    int status = kFailureStatus;
    try {
      status = work(run);
    } catch (const std::exception& error) {
      run.TellEnd(error.what());
    }
    port_.Close();
    try {
      if (capture_) capture_->Finish();
      if (report_) report_->Finish();
    } catch (const ReportError& error) {
      Say(error.what());
      return kFailureStatus;
    }
    return status;
  }

  const Settings settings_;
  const Means means_;
  Interrupts interrupts_;
  PollClock clock_;
  LinePort port_{settings_.address, settings_.speed, clock_};
  const std::unique_ptr<Capture> capture_ = OpenCapture(settings_);
  Sender sender_{port_, clock_, means_.page, capture_.get()};
  StandardOutput output_{interrupts_};
  std::unique_ptr<Report> report_;
};

int Begin(const Parsed& parsed, PictureReader read_picture) {
  if (parsed.Command()->name == "help") return TellHelp(parsed);
  Settings settings = ReadSettings(parsed);
  Means means{.page = link::SystemCodePage(), .read_picture = std::move(read_picture)};
  if (parsed.Has("time-limit")) means.time_limit = parsed.Number("time-limit");
  if (parsed.Has("expect")) means.expected = ParseStatuses(parsed.Value("expect"));
  if (settings.from_input) return Session(std::move(settings), std::move(means)).DoLines();
  const Job job = Compose(parsed, means);
  CheckWear(job, settings);
  return Session(std::move(settings), std::move(means)).Do(job);
}

}  // namespace

int Main(int argc, const char* const* argv, PictureReader read_picture) {
  OccupyStandardDescriptors();
  std::signal(SIGPIPE, SIG_IGN);
  const auto [parsed, end] = commandline::Begin(SendTable(), argc, argv, std::cout, std::cerr);
  if (end) return *end;
  try {
    return Begin(parsed, std::move(read_picture));
  } catch (const WrongUse& error) {
    return commandline::TellWrongUse(SendTable(), error.what(), std::cerr);
  } catch (const std::exception& error) {
    Say(error.what());
    return kFailureStatus;
  }
}

}  // namespace vantrel::send
