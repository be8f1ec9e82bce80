// SPDX-License-Identifier: MIT

#include "tests/support/scripted_replies.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

namespace vantrel::support {
namespace {

std::string NormalStatus(const std::string& frame) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  const std::string code = frame.substr(2, 2);
  const unsigned long check = std::stoul(code, nullptr, 16) ^ 0x20 ^ 0x03;
  return "0602" + code + "2003" + kDigits[check / 16] + kDigits[check % 16];
}

}  // namespace

void PrintTo(const Exchange& exchange, std::ostream* stream) {
  *stream << exchange.frame << " for " << exchange.time_limit << " ms, hints \"" << exchange.hints
          << "\", panels \"" << exchange.panel1 << "\" and \"" << exchange.panel2 << "\", buttons "
          << (exchange.buttons_enabled ? "on" : "off");
}

ScriptedReplies::ScriptedReplies(FakePort& port, ManualClock& clock, const FakeDisplay& display)
    : port_(port), clock_(clock), display_(display) {
  port_.WhenWritten([this](const std::string& frame) { Take(frame); });
}

ScriptedReplies::~ScriptedReplies() {
  port_.WhenWritten({});
  EXPECT_TRUE(script_.empty()) << script_.size() << " scripted replies were not asked for.";
}

void ScriptedReplies::Replies(const std::string& hex) {
  script_.emplace_back([this, hex] { port_.Receive(hex); });
}

void ScriptedReplies::StaysSilent() {
  script_.emplace_back([] {});
}

void ScriptedReplies::Waits(std::function<void()> meanwhile) {
  script_.push_back(std::move(meanwhile));
}

void ScriptedReplies::Take(const std::string& frame) {
  if (script_.empty()) Replies(NormalStatus(frame));
  auto answer = std::move(script_.front());
  script_.pop_front();
  const std::size_t number = exchanges_.size();
  const int time_limit = clock_.DueAt(link::Timer::TimeOut) - clock_.Now();
  exchanges_.push_back({frame, time_limit, "", "", "", true});
  clock_.After(0, [this, number, answer = std::move(answer)] {
    Exchange& exchange = exchanges_[number];
    exchange.hints = display_.Text(link::Field::LblHints);
    exchange.panel1 = display_.Text(link::Field::Panel1);
    exchange.panel2 = display_.Text(link::Field::Panel2);
    exchange.buttons_enabled = display_.ButtonsEnabled();
    // A command pressed meanwhile sends a frame of its own.
    answer();
  });
}

}  // namespace vantrel::support
