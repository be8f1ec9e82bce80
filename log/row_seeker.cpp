// SPDX-License-Identifier: MIT

#include "log/row_seeker.h"

#include <QAbstractItemModel>
#include <QElapsedTimer>

#include <utility>

namespace vantrel::log {
namespace {

// How long rows are looked at before events run again.
constexpr int kLookTime = 15;  // milliseconds

}  // namespace

RowSeeker::RowSeeker(const QAbstractItemModel& model, QObject* parent)
    : QObject(parent), model_(model) {
  later_.setSingleShot(true);
  connect(&later_, &QTimer::timeout, this, [this]() noexcept { SeekPortion(); });
}

void RowSeeker::Seek(bool forward, int from, int most, Matches matches) {
  matches_ = std::move(matches);
  forward_ = forward;
  at_ = from;
  left_ = most;
  later_.stop();
  SeekPortion();
}

void RowSeeker::SeekRound(bool forward, int from, Matches matches) {
  Seek(forward, from, model_.rowCount(), std::move(matches));
}

void RowSeeker::SeekPortion() {
  QElapsedTimer elapsed;
  elapsed.start();
  const int rows = model_.rowCount();
  for (; left_ > 0 && rows > 0; --left_) {
    if (elapsed.elapsed() >= kLookTime) return later_.start(0);
    at_ = (at_ + (forward_ ? 1 : rows - 1)) % rows;
    if (matches_(at_)) return emit Found(at_);
  }
  emit NotFound(forward_);
}

}  // namespace vantrel::log
