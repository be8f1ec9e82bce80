// SPDX-License-Identifier: MIT

#include "printer/service/log_file.h"

#include "log/line_recorder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

// Long enough for a comment to come after its row.
constexpr auto kSoon = 30ms;
constexpr mode_t kMode = 0666;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw std::runtime_error("the log " + path + " cannot be written: " + reason + '.');
}

}  // namespace

LogFile::LogFile(std::string path, std::optional<std::int64_t> limit, QObject* parent)
    : QObject(parent),
      path_(std::move(path)),
      limit_(limit),
      format_(log::FormatOf(path_) == log::LogFormat::kCsv ? log::LogFormat::kCsv
                                                           : log::LogFormat::kText) {
  // Not to be waited for where it is a pipe.
  file_.Reset(open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kMode));
  struct stat found {};
  if (!file_.IsOpen() || fstat(file_.Get(), &found) != 0)
    Refuse(path_, errno == ENXIO ? "It is no regular file" : std::strerror(errno));
  if (!S_ISREG(found.st_mode)) Refuse(path_, "It is no regular file");
  if (ftruncate(file_.Get(), 0) != 0) Refuse(path_, std::strerror(errno));
  soon_.setSingleShot(true);
  soon_.setInterval(kSoon);
  connect(&soon_, &QTimer::timeout, this,
          [this]() noexcept { WriteUntil(recorder_->Log().Settled()); });
}

void LogFile::Begin(log::LineRecorder& recorder) {
  recorder_ = &recorder;
  next_ = recorder.Log().First();
  connect(&recorder, &log::LineRecorder::Recorded, this, [this] {
    if (!soon_.isActive() && file_.IsOpen()) soon_.start();
  });
  connect(&recorder, &log::LineRecorder::Clearing, this,
          [this] { WriteUntil(recorder_->Log().End()); });
  Write(log::FileStart(format_, recorder.Line()));
}

void LogFile::Finish() {
  soon_.stop();
  if (recorder_ != nullptr) WriteUntil(recorder_->Log().End());
}

void LogFile::WriteUntil(std::size_t end) {
  const log::LineLog& log = recorder_->Log();
  for (next_ = std::max(next_, log.First()); next_ < end && file_.IsOpen(); ++next_) {
    std::string row;
    log::AppendRow(row, format_, log.At(next_));
    Write(row);
  }
}

void LogFile::Write(const std::string& text) {
  const auto length = static_cast<std::int64_t>(text.size());
  if (limit_ && length_ + length > *limit_)
    return End("the log " + path_ + " has reached its limit and ends there.");
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(file_.Get(), text.data() + written, text.size() - written);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      const std::string reason = std::strerror(errno);
      // What is left are whole rows; that it cannot be cut would be told by its reader.
      static_cast<void>(ftruncate(file_.Get(), length_) == 0);
      failed_ = true;
      return End("the log " + path_ + " has ended: " + reason + '.');
    }
  }
  length_ += length;
}

void LogFile::End(const std::string& reason) {
  file_.Reset();
  soon_.stop();
  emit Ended(QString::fromLocal8Bit(reason.c_str()));
}

}  // namespace vantrel::printer
