// SPDX-License-Identifier: MIT

#include "log/playback_server.h"

#include <QByteArray>

#include <algorithm>
#include <chrono>
#include <utility>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

QByteArray ToQt(const link::Bytes& bytes, std::size_t count) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(count)};
}

}  // namespace

PlaybackServer::PlaybackServer(Playback& playback, std::unique_ptr<protocol::LineEnd> line,
                               LineRecorder& recorder, QObject* parent)
    : QObject(parent),
      playback_(playback),
      line_(std::move(line)),
      recorder_(recorder),
      readable_(line_->Descriptor(), QSocketNotifier::Read) {
  clock_.start();
  playback_.OnSend([this](const link::Bytes& chunk) { Write(chunk); });
  playback_.OnUnexpected(
      [this](const std::string& words) { emit Unexpected(QString::fromStdString(words)); });
  connect(&readable_, &QSocketNotifier::activated, this, [this]() noexcept { ReadLine(); });
  due_.setSingleShot(true);
  due_.setTimerType(Qt::PreciseTimer);
  connect(&due_, &QTimer::timeout, this, [this]() noexcept {
    playback_.Advance(Now());
    Schedule();
  });
  // A console that is killed cannot be seen to go, so its exclusive use is ended again and again.
  connect(&exclusive_use_, &QTimer::timeout, this,
          [this]() noexcept { line_->ClearExclusiveUse(); });
  exclusive_use_.start(250ms);
}

PlaybackServer::~PlaybackServer() {
  playback_.OnSend({});
  playback_.OnUnexpected({});
}

void PlaybackServer::HearNoMore() {
  if (!readable_.isEnabled()) return;
  // A console that never pauses is heard no longer than this.
  constexpr int kMostReads = 16;
  for (int i = 0; i < kMostReads && ReadLine(); ++i) continue;
  readable_.setEnabled(false);
}

bool PlaybackServer::ReadLine() {
  const link::Bytes bytes = line_->Read();
  if (bytes.empty()) return false;
  recorder_.Record(protocol::Direction::kFromConsole, ToQt(bytes, bytes.size()));
  playback_.Receive(bytes, Now());
  Schedule();
  return true;
}

void PlaybackServer::Write(const link::Bytes& chunk) {
  recorder_.Record(protocol::Direction::kFromPrinter, ToQt(chunk, line_->Write(chunk)));
}

void PlaybackServer::Schedule() {
  if (const auto next = playback_.NextAdvance())
    due_.start(std::max(*next - Now(), protocol::Moment{0}));
  else
    due_.stop();
  emit Advanced();
}

}  // namespace vantrel::log
