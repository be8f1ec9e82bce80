// A session of every command with the software printer, captured, and the same session with its
// capture played back: the console shows the same.

#include "console/command_table.h"
#include "log/capture_file.h"
#include "log/line_recorder.h"
#include "log/playback_server.h"
#include "log/save_log.h"
#include "printer/line/pseudo_terminal.h"
#include "printer/model/printer_model.h"
#include "printer/service/line_recording.h"
#include "printer/service/printer_server.h"
#include "tests/support/console_fixture.h"
#include "tests/support/file_folder.h"
#include "tests/support/installed_fonts.h"

#include <QComboBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

namespace vantrel::endtoend {
namespace {

using dialogs::Answer;

class CaptureReplay : public support::ConsoleTest {
 protected:
  // Presses every button with a console on this device and returns what the screen shows after
  // each.
  std::vector<std::string> Session(const std::string& device) {
    first_device_ = device;
    Load();
    std::vector<std::string> shown;
    for (const console::ConsoleCommand& command : console::Commands()) {
      Answer(std::string(command.code));
      Press(std::string(command.button).c_str());
      if (Text("TxtResponse").substr(0, 8) == "02 " + std::string(command.code) + " 20")
        ++went_well_;
      shown.push_back(std::string(command.button) + '\n' + Text("TxtCommand") + '\n' +
                      Text("TxtResponse") + '\n' + Text("LblHints") + '\n' +
                      Text("StatusBarFrmMain_1") + '\n' + Text("StatusBarFrmMain_2"));
    }
    form_.reset();
    port_.Close();
    return shown;
  }

  log::LineRecorder recorder_;
  support::FileFolder folder_;
  int went_well_ = 0;  // commands whose reply has the normal status

 private:
  // What the console asks for a command, before it is asked.
  void Answer(const std::string& code) {
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
};

TEST_F(CaptureReplay, ShowsTheSameTextsForEveryCommand) {
  printer::PrinterModel model(support::InstalledFonts(), link::CodePage::kWestern);
  model.SetInstantWork(true);
  model.SetTrack(0, "VANTREL SAMPLE CARD");
  model.SetTrack(1, "0123456789");
  std::vector<std::string> then;
  {
    printer::PrinterServer server(model);
    printer::RecordLineOf(server, recorder_);
    // Someone stands beside the printer.
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (model.State().wait == printer::CardWait::kRemoval) server.PullOutCard();
      if (model.State().wait != printer::CardWait::kInsertion) return;
      server.PullOutCard();
      model.SetCardKind(model.CommandUnderWay() == 0x52 ? printer::CardKind::kCleaning
                                                        : printer::CardKind::kOrdinary);
      server.InsertCard();
    });
    hand.start(1);
    then = Session(server.DevicePath());
  }
  ASSERT_EQ(then.size(), 48U);
  // Not all of them have failed.
  EXPECT_THAT(then[0], testing::HasSubstr("First Track: VANTREL SAMPLE CARD"));
  EXPECT_GT(went_well_, 40);
  recorder_.Finish();
  const std::string path = folder_.Path("session.pcapng");
  ASSERT_EQ(log::SaveLog(recorder_.Log(), path, recorder_.Line()), "");

  std::vector<std::string> damage;
  log::Playback playback(log::ReadCapture(path, damage), {.instant = true});
  EXPECT_TRUE(damage.empty());
  log::LineRecorder again;
  const log::PlaybackServer server(playback, std::make_unique<printer::PseudoTerminal>(), again);
  EXPECT_EQ(Session(server.DevicePath()), then);
  // All but 4Ah send a frame, and 4Bh two.
  EXPECT_EQ(playback.Summary(), "replayed 48 of 48 frames, 0 unexpected");
  EXPECT_TRUE(playback.IsSuccess());
}

}  // namespace
}  // namespace vantrel::endtoend
