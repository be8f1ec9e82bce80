#include "tests/console/command_fixture.h"

#include "console/command_table.h"
#include "tests/support/fake_display.h"

#include <algorithm>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace vantrel {
namespace {

std::string ToHex(const Bytes& bytes) {
  std::string hex;
  for (const unsigned byte : bytes) {
    hex += "0123456789ABCDEF"[byte / 16];
    hex += "0123456789ABCDEF"[byte % 16];
  }
  return hex;
}

Bytes FromHex(const std::string& hex) {
  Bytes bytes;
  for (std::size_t i = 0; i < hex.size(); i += 2)
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(i, 2), nullptr, 16)));
  return bytes;
}

}  // namespace

void RecordingDisplay::SetText(Field field, const std::string& text) {
  log_.push_back(std::string(NameOf(field)) + " = " + text);
  texts_[field] = text;
}

void RecordingDisplay::EnableCommandButtons(bool enabled) {
  log_.push_back(enabled ? "buttons on" : "buttons off");
  enabled_ = enabled;
}

void JumpingClock::Start(Timer timer, int milliseconds) {
  if (timer == Timer::TimeOut) {
    time_limit_ = milliseconds;
    log_.push_back("limit " + std::to_string(milliseconds));
  }
  due_[timer] = now_ + milliseconds;
}

void JumpingClock::WaitForEvents() {
  if (on_wait()) return;
  const auto next = std::min_element(
      due_.begin(), due_.end(), [](const auto& a, const auto& b) { return a.second < b.second; });
  // A wait that nothing can end would hang the test.
  if (next == due_.end()) throw std::logic_error("waiting with no timer running");
  const auto [timer, due] = *next;
  due_.erase(next);
  now_ = std::max(now_, due);
  listener_->OnTick(timer);
}

void PrintTo(const Exchange& exchange, std::ostream* stream) {
  *stream << exchange.frame << " for " << exchange.time_limit << " ms, hints \"" << exchange.hints
          << "\", panels \"" << exchange.panel1 << "\" and \"" << exchange.panel2 << "\", buttons "
          << (exchange.buttons_enabled ? "on" : "off");
}

ScriptedPort::ScriptedPort(Log& log, const RecordingDisplay& display, JumpingClock& clock)
    : log_(log), display_(display), clock_(clock) {
  clock_.on_wait = [this] { return Answer(); };
}

ScriptedPort::~ScriptedPort() {
  EXPECT_TRUE(script_.empty()) << script_.size() << " scripted replies were not asked for.";
}

void ScriptedPort::Replies(const std::string& hex) {
  script_.push_back([this, hex] { Deliver(hex); });
}

void ScriptedPort::StaysSilent() {
  script_.push_back([] {});
}

void ScriptedPort::Waits(std::function<void()> meanwhile) {
  script_.push_back(std::move(meanwhile));
}

void ScriptedPort::Fails() { script_.push_back(nullptr); }

void ScriptedPort::Output(const Bytes& bytes) {
  const std::string frame = ToHex(bytes);
  if (script_.empty()) {
    Bytes reply = {0x06, 0x02, bytes.at(1), 0x20, 0x03};
    reply.push_back(static_cast<std::uint8_t>(bytes.at(1) ^ 0x20 ^ 0x03));
    Replies(ToHex(reply));
  }
  std::function<void()> answer = std::move(script_.front());
  script_.pop_front();
  if (!answer) throw NotOpen("/dev/ttyTEST");
  log_.push_back("sent " + frame);
  exchanges_.push_back({frame, clock_.TimeLimit(), "", "", "", true});
  answer_ = std::move(answer);
}

bool ScriptedPort::Answer() {
  if (!answer_) return false;
  Exchange& exchange = exchanges_.back();
  exchange.hints = display_.Text(Field::LblHints);
  exchange.panel1 = display_.Text(Field::Panel1);
  exchange.panel2 = display_.Text(Field::Panel2);
  exchange.buttons_enabled = display_.ButtonsEnabled();
  // A command pressed meanwhile sends a frame of its own.
  std::exchange(answer_, nullptr)();
  return true;
}

void ScriptedPort::Deliver(const std::string& hex) {
  input_ = FromHex(hex);
  listener_->OnComm(PortListener::kReceive);
}

Answer RecordingDialogs::MsgBox(const std::string& prompt, Buttons buttons,
                                const std::string& title, Icon icon) {
  log_.push_back("box: " + title);
  return ScriptedDialogs::MsgBox(prompt, buttons, title, icon);
}

std::string RecordingDialogs::InputBox(const std::string& prompt, const std::string& title,
                                       const std::string& default_text) {
  log_.push_back("input: " + title);
  return ScriptedDialogs::InputBox(prompt, title, default_text);
}

void RecordingSubForms::Show(const std::string& form) {
  log_.push_back("show " + form);
  if (meanwhile) meanwhile();
}

void CommandFixture::Press(std::string_view button) {
  for (const ConsoleCommand& command : Commands()) {
    if (command.button != button) continue;
    (handlers.*command.click)();
    return;
  }
  throw std::logic_error("no button " + std::string(button));
}

Log CommandFixture::BeforeExchange() const {
  return {log.begin(), std::find(log.begin(), log.end(), "buttons off")};
}

std::vector<std::string> CommandFixture::PromptsOf(const std::string& title) const {
  std::vector<std::string> prompts;
  for (const ScriptedDialogs::Shown& shown : dialogs.All())
    if (shown.title == title) prompts.push_back(shown.prompt);
  return prompts;
}

std::vector<std::string> CommandFixture::Frames() const {
  std::vector<std::string> frames;
  for (const Exchange& exchange : port.Exchanges()) frames.push_back(exchange.frame);
  return frames;
}

void CommandFixture::ExpectNothingSent() const {
  EXPECT_THAT(Frames(), testing::IsEmpty());
  EXPECT_THAT(log, testing::Not(testing::Contains("buttons off")));
}

void CommandFixture::ExpectFixedCommand(const FixedCommand& command) {
  port.Replies(command.reply);
  Press(command.button);
  const std::string hints = command.hints;
  const std::string panel1 = command.panel1;
  const std::string panel2 = command.panel2;
  EXPECT_THAT(BeforeExchange(), testing::ElementsAre("LblHints = " + hints, "Panel1 = " + panel1,
                                                     "Panel2 = " + panel2));
  EXPECT_THAT(port.Exchanges(), testing::ElementsAre(Exchange{command.frame, command.time_limit,
                                                              hints, panel1, panel2, false}));
  EXPECT_EQ(Hints(), hints + "\r\n" + command.meaning);
  EXPECT_EQ(Panel1(), "");
  EXPECT_EQ(Panel2(), "");
  EXPECT_TRUE(display.ButtonsEnabled());
}

}  // namespace vantrel
