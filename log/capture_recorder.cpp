// SPDX-License-Identifier: MIT

#include "log/capture_recorder.h"

#include "log/line_recorder.h"

#include <algorithm>
#include <chrono>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

constexpr auto kLookForReader = 20ms;
constexpr auto kPatience = 250ms;

}  // namespace

CaptureRecorder::CaptureRecorder(LineRecorder& recorder, CaptureSink& sink, QObject* parent)
    : QObject(parent), recorder_(recorder), sink_(sink), next_(recorder.Log().First()) {
  soon_.setSingleShot(true);
  soon_.setInterval(kDelay);
  connect(&soon_, &QTimer::timeout, this,
          [this]() noexcept { WriteUntil(recorder_.Log().Settled()); });
  connect(&recorder_, &LineRecorder::Recorded, this, [this] {
    if (!soon_.isActive()) soon_.start();
  });
  connect(&recorder_, &LineRecorder::Clearing, this, [this] { WriteUntil(recorder_.Log().End()); });
  connect(&reader_, &QTimer::timeout, this, [this]() noexcept { sink_.Flush(); });
  sink_.Start(recorder_.Line());
  if (sink_.IsPipe()) reader_.start(kLookForReader);
  // Whoever made this object connects to it first.
  QTimer::singleShot(0, this, [this]() noexcept { TellProblem(); });
}

void CaptureRecorder::Finish() {
  WriteUntil(recorder_.Log().End());
  sink_.Drain(kPatience);
  reader_.stop();
  soon_.stop();
}

void CaptureRecorder::WriteUntil(std::size_t end) {
  const LineLog& log = recorder_.Log();
  for (next_ = std::max(next_, log.First()); next_ < end; ++next_) sink_.Add(log.At(next_));
  sink_.Flush();
  TellProblem();
}

void CaptureRecorder::TellProblem() {
  if (told_ || sink_.Problem().empty()) return;
  told_ = true;
  reader_.stop();
  emit Ended(QString::fromLocal8Bit(sink_.Problem().c_str()));
}

}  // namespace vantrel::log
