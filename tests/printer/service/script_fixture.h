// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "log/line_recorder.h"
#include "printer/model/printer_model.h"
#include "printer/service/line_recording.h"
#include "printer/service/printer_script.h"
#include "printer/service/printer_server.h"
#include "tests/support/device_user.h"
#include "tests/support/file_folder.h"
#include "tests/support/installed_fonts.h"
#include "tests/support/wait_for.h"

#include <QTest>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vantrel::printer {

// A printer whose work takes no time, a console on its device, and a script.
class ScriptFixture : public testing::Test {
 protected:
  explicit ScriptFixture(const ScriptStyle& style = {})
      : script_(model_, server_, recorder_, style) {
    model_.SetInstantWork(true);
    RecordLineOf(server_, recorder_);
    QObject::connect(&script_, &PrinterScript::Answered, [this](const QByteArray& answer) {
      answers_.push_back(answer.toStdString());
      told_.push_back(answers_.back());
    });
    QObject::connect(&script_, &PrinterScript::Happened,
                     [this](const QByteArray& event) { told_.push_back(event.toStdString()); });
    QObject::connect(&script_, &PrinterScript::Finished, [this] { ++finished_; });
  }

  // Gives the script a line and returns its answer, waiting for it; empty where none comes.
  std::string Ask(const std::string& line) {
    answers_.clear();
    script_.Feed(line + '\n');
    if (!support::WaitFor([this] { return !answers_.empty(); })) return {};
    return answers_.front();
  }
  // Gives the script a line that waits and returns what it has answered by now.
  std::string AskSoon(const std::string& line) {
    answers_.clear();
    script_.Feed(line + '\n');
    return answers_.empty() ? std::string() : answers_.front();
  }
  // The answer that comes to a line that waits.
  std::string Awaited() {
    if (!support::WaitFor([this] { return !answers_.empty(); })) return {};
    return answers_.front();
  }
  // Writes as a console and waits until the printer has answered with so many bytes in all.
  std::string Exchange(const std::string& hex, std::size_t count) {
    console_.Write(hex);
    std::string answer;
    const bool came = support::WaitFor([&] {
      const std::string more = console_.ReadNow();
      if (!more.empty()) answer += (answer.empty() ? "" : " ") + more;
      return answer.size() + 1 >= 3 * count;
    });
    return came ? answer : "only " + answer;
  }

  PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  PrinterServer server_{model_};
  log::LineRecorder recorder_;
  PrinterScript script_;
  support::DeviceUser console_{server_.DevicePath()};
  support::FileFolder folder_;
  std::vector<std::string> answers_;
  std::vector<std::string> told_;  // answers and events
  int finished_ = 0;
};

}  // namespace vantrel::printer
