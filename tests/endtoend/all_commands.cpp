// SPDX-License-Identifier: MIT

#include "tests/endtoend/all_commands.h"

#include "console/command_table.h"

#include <QComboBox>

#include <set>

namespace vantrel::endtoend {

using dialogs::Answer;

AttendedPrinter::AttendedPrinter(const printer::PrinterServer::LineMaker& make_line)
    : server_(model_, make_line) {
  model_.SetInstantWork(true);
  model_.SetTrack(0, "VANTREL SAMPLE CARD");
  model_.SetTrack(1, "0123456789");
  QObject::connect(&hand_, &QTimer::timeout, [this] { LendAHand(); });
  hand_.start(1);
}

void AttendedPrinter::LendAHand() {
  // A hand is slower than a line. The reply would otherwise reach the console while it deals with
  // the 06h, and what comes between its read and its discard is lost.
  if (!server_.IsTaken()) return;
  if (model_.State().wait == printer::CardWait::kRemoval) server_.PullOutCard();
  if (model_.State().wait != printer::CardWait::kInsertion) return;
  server_.PullOutCard();
  model_.SetCardKind(model_.CommandUnderWay() == 0x52 ? printer::CardKind::kCleaning
                                                      : printer::CardKind::kOrdinary);
  server_.InsertCard();
}

std::vector<std::string> AllCommandsTest::Session(const std::string& device) {
  first_device_ = device;
  Load();
  std::vector<std::string> shown;
  for (const console::ConsoleCommand& command : console::Commands()) {
    Answer(std::string(command.code));
    Press(std::string(command.button).c_str());
    if (Text("TxtResponse").substr(0, 8) == "02 " + std::string(command.code) + " 20") ++went_well_;
    shown.push_back(std::string(command.button) + '\n' + Text("TxtCommand") + '\n' +
                    Text("TxtResponse") + '\n' + Text("LblHints") + '\n' +
                    Text("StatusBarFrmMain_1") + '\n' + Text("StatusBarFrmMain_2"));
  }
  form_.reset();
  port_.Close();
  return shown;
}

void AllCommandsTest::Answer(const std::string& code) {
  const auto is_one_of = [&code](const std::set<std::string>& codes) {
    return codes.contains(code);
  };
  if (is_one_of({"31", "32"})) dialogs_.Types("7");
  if (is_one_of({"46", "47", "48"})) dialogs_.Types("0");
  // What it proposes tells the time.
  if (is_one_of({"35", "36", "37", "38", "39", "3A", "3B", "3C", "3D"})) {
    dialogs_.Answers(Answer::kYes);
    dialogs_.Types("0123");
  }
  if (code == "50") dialogs_.Answers(Answer::kNo);
  if (code == "5B") {
    for (int i = 0; i < 3; ++i) dialogs_.Answers(i == 2 ? Answer::kOk : Answer::kYes);
  }
  if (code == "91") {
    dialogs_.Answers(Answer::kYes);
    dialogs_.Types("7Ab");
  }
  if (is_one_of({"44", "45"})) dialogs_.Answers(Answer::kOk);
  if (code == "41") OnForm([](QDialog& form) { form.close(); });
  if (is_one_of({"42", "43", "44", "45", "4D", "4E", "5A"})) {
    OnForm([code](QDialog& form) {
      if (code == "42") Type(form, "TxtImageNo", "1999");
      if (code == "43" || code == "4D") Click(form, "CmdSet");
      if (code == "44") form.findChild<QComboBox*>("ComboImageNo")->setEditText("A");
      if (code == "45") form.findChild<QComboBox*>("ComboImageNo")->setEditText("3");
      if (code == "4E") Click(form, "CmdKey_33");
      Click(form, "CmdNext");
    });
  }
}

}  // namespace vantrel::endtoend
