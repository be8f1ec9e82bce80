// SPDX-License-Identifier: MIT

#include "log/line_recorder.h"

#include <algorithm>
#include <chrono>
#include <span>

namespace vantrel::log {

LineRecorder::LineRecorder(QObject* parent, LogBounds bounds) : QObject(parent), log_(bounds) {
  silence_.setSingleShot(true);
  connect(&silence_, &QTimer::timeout, this, [this]() noexcept {
    log_.Settle(WallNow());
    AwaitSilence();
    emit Recorded();
  });
}

void LineRecorder::Record(protocol::Direction direction, const QByteArray& bytes) {
  Record(direction, bytes, WallNow());
}

void LineRecorder::Record(protocol::Direction direction, const QByteArray& bytes, WallTime when) {
  if (bytes.isEmpty()) return;
  log_.Append(direction,
              {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
               static_cast<std::size_t>(bytes.size())},
              when);
  AwaitSilence();
  emit Recorded();
}

void LineRecorder::Comment(const std::string& comment) {
  const auto frame = log_.LatestFrame(protocol::Direction::kFromConsole);
  if (frame) log_.Comment(*frame, comment);
}

void LineRecorder::Remark(const std::string& remark) {
  const auto frame = log_.LatestFrame(protocol::Direction::kFromConsole);
  if (frame) log_.Remark(*frame, remark);
}

void LineRecorder::Finish() {
  log_.Finish();
  silence_.stop();
  emit Recorded();
}

void LineRecorder::Clear() {
  emit Clearing();
  log_.Clear();
  emit Recorded();
}

void LineRecorder::AwaitSilence() {
  const auto deadline = log_.Deadline();
  if (!deadline) return silence_.stop();
  const auto left = std::chrono::ceil<std::chrono::milliseconds>(*deadline - WallNow());
  silence_.start(std::clamp(left, std::chrono::milliseconds{1}, protocol::kFrameSilence));
}

}  // namespace vantrel::log
