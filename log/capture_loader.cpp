// SPDX-License-Identifier: MIT

#include "log/capture_loader.h"

#include "log/capture_file.h"

#include <QMetaObject>

#include <sys/stat.h>

#include <chrono>
#include <cstddef>
#include <exception>
#include <memory>
#include <stdexcept>
#include <utility>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;

// Rows that the event loop takes at once: few enough to hold up no event, many enough to be quick.
constexpr std::size_t kPortion = 10000;
// What may wait for the event loop.
constexpr std::size_t kMostPosted = 4;
constexpr auto kLookInterval = 200ms;

struct stat StatusOf(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) status.st_ino = 0;
  return status;
}

QStringList RemarksOf(const CaptureFile& file) {
  QStringList remarks;
  for (const auto& sentences : {file.Damage(), file.Notes()}) {
    for (const std::string& sentence : sentences)
      remarks += QString::fromLocal8Bit(sentence.c_str());
  }
  return remarks;
}

}  // namespace

CaptureLoader::CaptureLoader(std::string path, QObject* parent)
    : QObject(parent), path_(std::move(path)) {
  // Posted events would run in one turn of the loop, all that there are.
  next_.setSingleShot(true);
  connect(&next_, &QTimer::timeout, this, [this]() noexcept { TellNext(); });
  thread_ = std::thread([this] { Run(); });
}

CaptureLoader::~CaptureLoader() {
  {
    const std::lock_guard lock(mutex_);
    stopped_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void CaptureLoader::Run() {
  try {
    // A pipe that nobody writes to would hold the thread for ever.
    const struct stat status = StatusOf(path_);
    if (status.st_ino != 0 && !S_ISREG(status.st_mode))
      throw std::runtime_error(path_ + " is no regular file.");
    while (!IsStopped()) {
      ReadFile();
      Post([this] { emit Restarted(); });
    }
  } catch (const std::exception& error) {
    const QString reason = QString::fromLocal8Bit(error.what());
    Post([this, reason] { emit Failed(reason); });
  }
}

void CaptureLoader::ReadFile() {
  const struct stat opened = StatusOf(path_);
  CaptureFile file(path_);
  std::vector<LogEntry> rows;
  bool first = true;
  bool ended = false;  // rows that were open, or a block that was, have been given up
  while (!IsStopped()) {
    const std::uint64_t before = file.Position();
    while (rows.size() < kPortion && file.Read(rows)) {
      if (IsStopped()) return;
    }
    const bool at_end = rows.size() < kPortion;
    const bool has_grown = file.Position() > before;
    // What stood open at the end goes on in what has come since.
    if (ended && has_grown) return;
    QStringList remarks;
    if (at_end && (has_grown || first)) {
      const std::size_t whole = rows.size();
      file.End(rows);
      ended = rows.size() > whole || !file.Damage().empty();
      remarks = RemarksOf(file);
    }
    if (has_grown) Hand(rows, file.Position(), file.Size());
    rows.clear();
    if (!at_end) continue;
    if (has_grown || first) Post([this, remarks] { emit CaughtUp(remarks); });
    first = false;
    const struct stat now = StatusOf(path_);
    const bool is_other =
        now.st_ino != 0 && (now.st_ino != opened.st_ino || now.st_dev != opened.st_dev);
    if (is_other || file.Size() < file.Position()) return;
    if (!Pause()) return;
  }
}

void CaptureLoader::Hand(std::vector<LogEntry>& rows, std::uint64_t position, std::uint64_t size) {
  auto portion = std::make_shared<std::vector<LogEntry>>(std::move(rows));
  Post([this, portion, position, size] {
    if (!portion->empty()) emit Loaded(*portion);
    emit Progressed(position, size);
  });
}

void CaptureLoader::Post(std::function<void()> tell) {
  {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return stopped_ || posted_.size() < kMostPosted; });
    if (stopped_) return;
    posted_.push_back(std::move(tell));
  }
  QMetaObject::invokeMethod(this, [this] {
    if (!next_.isActive()) next_.start(0);
  });
}

void CaptureLoader::TellNext() {
  std::function<void()> tell;
  {
    const std::lock_guard lock(mutex_);
    if (posted_.empty()) return;
    tell = std::move(posted_.front());
    posted_.pop_front();
    if (!posted_.empty()) next_.start(0);
  }
  changed_.notify_all();
  tell();
}

bool CaptureLoader::Pause() {
  std::unique_lock lock(mutex_);
  return !changed_.wait_for(lock, kLookInterval, [this] { return stopped_; });
}

bool CaptureLoader::IsStopped() {
  const std::lock_guard lock(mutex_);
  return stopped_;
}

}  // namespace vantrel::log
