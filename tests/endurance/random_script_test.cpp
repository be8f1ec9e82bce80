// SPDX-License-Identifier: MIT

// Any lines, good and bad, for the printer's script, while something goes over the line.

#include "link/frame.h"
#include "log/line_recorder.h"
#include "printer/service/line_recording.h"
#include "printer/service/printer_script.h"
#include "printer/service/printer_server.h"
#include "printer/service/script_words.h"
#include "tests/endurance/any_fault.h"
#include "tests/endurance/dice.h"
#include "tests/endurance/jumping_clock.h"
#include "tests/support/device_user.h"
#include "tests/support/file_folder.h"
#include "tests/support/installed_fonts.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::endurance {
namespace {

using namespace std::chrono_literals;

// A printer with a script, from its first line to its last.
class Session {
 public:
  explicit Session(bool json) : json_(json), script_(model_, server_, recorder_, {.json = json}) {
    printer::RecordLineOf(server_, recorder_);
    QObject::connect(&script_, &printer::PrinterScript::Answered, [this](const QByteArray& answer) {
      answers_.push_back(answer.toStdString());
      Judge(answers_.back());
    });
    QObject::connect(&script_, &printer::PrinterScript::Happened,
                     [this](const QByteArray& event) { Judge(event.toStdString()); });
    QObject::connect(&script_, &printer::PrinterScript::Finished, [this] { ++finished_; });
  }

  bool IsJson() const { return json_; }
  int Finished() const { return finished_; }
  printer::PrinterServer& Server() { return server_; }

  // Gives the script a line in the pieces in which it may come, and returns its answers: all that
  // come before so much time has gone by in which none did.
  std::vector<std::string> Ask(Dice& dice, const std::string& line) {
    answers_.clear();
    std::string text = line + '\n';
    while (!text.empty()) {
      const std::size_t piece = dice.Chance(80) ? text.size() : 1 + dice.Below(text.size());
      script_.Feed(text.substr(0, piece));
      text.erase(0, piece);
    }
    return answers_;
  }
  // What has been answered after all, when the longest wait that a line may ask for is over.
  std::vector<std::string> Awaited() {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(20s);
    while (limit.isActive() && answers_.empty())
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return answers_;
  }
  static void LetPass(std::chrono::milliseconds time) {
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(time);
    while (limit.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }

  // Whether it was told to quit.
  bool is_over = false;

 private:
  void Judge(const std::string& told) const {
    EXPECT_EQ(told.find('\n'), std::string::npos) << told;
    if (json_) {
      QJsonParseError error;
      const auto parsed = QJsonDocument::fromJson(QByteArray::fromStdString(told), &error);
      EXPECT_EQ(error.error, QJsonParseError::NoError) << told;
      EXPECT_TRUE(parsed.isObject()) << told;
    } else {
      EXPECT_TRUE(told == "ok" || told.starts_with("ok ") || told.starts_with("error ")) << told;
    }
  }

  const bool json_;
  printer::PrinterModel model_{support::InstalledFonts(), link::CodePage::kWestern};
  printer::PrinterServer server_{model_};
  log::LineRecorder recorder_;
  printer::PrinterScript script_;
  std::vector<std::string> answers_;
  int finished_ = 0;
};

class RandomScript : public testing::Test {
 protected:
  RandomScript() { std::filesystem::current_path(folder_.Path("")); }
  ~RandomScript() override { std::filesystem::current_path(home_); }

  std::string AnyWord();
  // One that may well follow these words.
  std::string FittingWord(std::string_view words);
  std::string AnyLine();
  std::string Spoilt(std::string line);
  // Says something on the line, as a console or as noise.
  void Talk(Session& session);
  void Use(Session& session);

  RandomRun run_{2000};
  Dice dice_{run_.seed};
  const std::filesystem::path home_ = std::filesystem::current_path();
  support::FileFolder folder_;
  std::unique_ptr<support::DeviceUser> console_;
  std::string device_;
  int steps_ = 0;
  int went_well_ = 0;
  int refused_ = 0;
  std::set<std::string> words_;  // that went well
};

// What may follow the words of a line.
std::string RandomScript::AnyWord() {
  static constexpr std::array kWords = {"1",
                                        "2",
                                        "3",
                                        "4",
                                        "0",
                                        "-1",
                                        "99999999999999999999",
                                        "ordinary",
                                        "cleaning",
                                        "on",
                                        "off",
                                        "ql7",
                                        "ql8",
                                        "9600",
                                        "50",
                                        "4000001",
                                        "932",
                                        "1252",
                                        "21",
                                        "21h",
                                        "58",
                                        "5Fh",
                                        "any",
                                        "any 10",
                                        "58 200",
                                        "10",
                                        "5000",
                                        "a.png",
                                        "b.pbm",
                                        "c.csv",
                                        "d.pcapng",
                                        "e.txt",
                                        "deck.json",
                                        "\"a b.png\"",
                                        "\"open",
                                        ".",
                                        "none/x.png",
                                        "1 HELLO",
                                        "2 0123456789",
                                        "3 \\x41\\\\",
                                        "1 \\xZZ",
                                        "1 \\x03",
                                        "insert",
                                        "wait frame",
                                        "\xFF\xFE",
                                        "\xE6\xBC\xA2",
                                        "plus words that mean nothing"};
  return dice_.OneOf(kWords);
}

std::string RandomScript::FittingWord(std::string_view words) {
  const auto one_of = [this](std::initializer_list<const char*> choices) -> std::string {
    return std::data(choices)[dice_.Below(choices.size())];
  };
  if (words == "fault clear") return one_of({"", "1", "2"});
  if (words.starts_with("fault")) return AnyFault(dice_);
  if (words == "insert" || words == "card new") return one_of({"ordinary", "cleaning"});
  if (words == "track") return one_of({"1 HELLO", "2 0123456789", "3 \\x41\\\\", "1 \\xZZ"});
  if (words == "read track" || words == "card choose") return one_of({"1", "2", "3"});
  if (words.starts_with("deck")) return one_of({"deck.json", "\"a deck.json\""});
  if (words == "face" || words == "buffer") return one_of({"a.png", "b.pbm"});
  if (words == "log") return one_of({"c.csv", "d.pcapng", "e.txt"});
  if (words == "series") return one_of({"ql7", "ql8"});
  if (words == "speed") return one_of({"9600", "38400"});
  if (words == "code-page") return one_of({"932", "1252"});
  if (words.starts_with("wait")) return one_of({"10", "500", "any 10", "58 200"});
  if (words == "quit") return one_of({"0", "3", "255"});
  return one_of({"on", "off"});
}

std::string RandomScript::Spoilt(std::string line) {
  static constexpr std::string_view kCharacters(" \t\"\\#x9\x01\x7F\x80\xC3\xFF\0", 13);
  const std::size_t at = dice_.Below(line.size() + 1);
  switch (dice_.Below(6)) {
    case 0:
      return line.substr(0, at);
    case 1:
      return line.insert(at, 1, dice_.OneOf(kCharacters));
    case 2:
      if (at < line.size()) line[at] = dice_.OneOf(kCharacters);
      return line;
    case 3:
      return "  \t" + line + " \t ";
    case 4:
      return line.insert(at, std::string(dice_.Below(3000), 'y'));
    default:
      return line + ' ' + AnyWord();
  }
}

std::string RandomScript::AnyLine() {
  if (dice_.Chance(3)) return dice_.Chance(50) ? "" : "# " + AnyWord();
  const printer::ScriptLine& row = dice_.OneOf(printer::ScriptLines());
  // A script that is over takes no more.
  if (row.words == "quit" && dice_.Chance(80)) return "state";
  std::string line(row.words);
  if (row.usage.size() > row.words.size() && dice_.Chance(85)) {
    line += ' ';
    line += dice_.Chance(70) ? FittingWord(row.words) : AnyWord();
  }
  return dice_.Chance(20) ? Spoilt(std::move(line)) : line;
}

void RandomScript::Talk(Session& session) {
  static constexpr std::array kFrames = {"02 58 03 5B",
                                         "02 21 03 22",
                                         "02 59 03 5A",
                                         "02 5F 03 5C",
                                         "02 54 03 57",
                                         "02 95 03 96",
                                         "02 46 30 03 75",
                                         "02 35 41 42 43 03 76",
                                         "02 58 03 00",
                                         "02 58",
                                         "03",
                                         "06 10 15",
                                         "02 02 02 58 03 5B",
                                         "02 40 03 43",
                                         "02 41 31 30 30 30 30 30 30 41 03 02",
                                         "02 99 03 9A"};
  if (session.Server().DevicePath() != device_ || !console_) {
    device_ = session.Server().DevicePath();
    console_ = std::make_unique<support::DeviceUser>(device_);
  }
  if (!console_->IsOpen()) return;
  console_->Write(dice_.OneOf(kFrames));
  console_->ReadNow();
}

void RandomScript::Use(Session& session) {
  while (steps_ < run_.steps && !session.is_over && !HasFailure()) {
    ++steps_;
    if (dice_.Chance(40)) Talk(session);
    if (dice_.Chance(30)) Session::LetPass(std::chrono::milliseconds(dice_.Below(500)));
    const std::string line = AnyLine();
    if (run_.tells) std::cerr << steps_ << ": " << line << '\n';
    SCOPED_TRACE("step " + std::to_string(steps_) + ": " + line);
    auto answers = session.Ask(dice_, line);
    const std::size_t first = line.find_first_not_of(" \t");
    const bool is_command = first != std::string::npos && line[first] != '#';
    if (is_command && answers.empty()) answers = session.Awaited();
    ASSERT_EQ(answers.size(), is_command ? 1U : 0U);
    EXPECT_LE(JumpingClock::TakeLongestHold() / 1ms, run_.longest_hold);
    if (!is_command) continue;
    const bool is_refused = session.IsJson() ? answers[0].find("\"error\"") != std::string::npos
                                             : answers[0].starts_with("error");
    ++(is_refused ? refused_ : went_well_);
    if (is_refused) continue;
    const std::string word = line.substr(first, line.find_first_of(" \t", first) - first);
    words_.insert(word);
    session.is_over = word == "quit";
  }
  // What a script saves is written beside its name first, and nothing of that stays.
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path("")))
    EXPECT_EQ(entry.path().string().find("/.vantrel-"), std::string::npos) << entry.path();
}

TEST_F(RandomScript, AnswersEveryLineOnce) {
  SCOPED_TRACE(run_.Again());
  int sessions = 0;
  while (steps_ < run_.steps && !HasFailure()) {
    Session session(++sessions % 2 == 0);
    Use(session);
    if (session.is_over) {
      Session::LetPass(2s);
      EXPECT_EQ(session.Finished(), 1);
    }
    console_.reset();
  }
  std::cout << steps_ << " lines, " << sessions << " scripts, " << went_well_ << " went well, "
            << refused_ << " were refused, " << JumpingClock::Jumped() / 1s << " s passed\n";
  // Lines that are all bad, or all good, prove little.
  if (run_.steps >= 2000) {
    EXPECT_GT(went_well_, run_.steps / 5);
    EXPECT_GT(refused_, run_.steps / 10);
    EXPECT_GT(words_.size(), 20U);
  }
}

}  // namespace
}  // namespace vantrel::endurance
