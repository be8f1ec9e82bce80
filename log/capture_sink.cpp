// SPDX-License-Identifier: MIT

#include "log/capture_sink.h"

#include "log/capture_writer.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace vantrel::log {
namespace {

constexpr mode_t kMode = 0666;

[[noreturn]] void Refuse(const std::string& path, const std::string& reason) {
  throw std::runtime_error("the capture " + path + " cannot be written: " + reason + '.');
}

}  // namespace

CaptureSink::CaptureSink(std::string path) : path_(std::move(path)) {
  struct stat found {};
  const bool exists = stat(path_.c_str(), &found) == 0;
  if (!exists && errno != ENOENT) Refuse(path_, std::strerror(errno));
  is_pipe_ = exists && S_ISFIFO(found.st_mode);
  if (exists && !is_pipe_ && !S_ISREG(found.st_mode)) Refuse(path_, "It is no regular file");
  if (is_pipe_) {
    if (access(path_.c_str(), W_OK) != 0) Refuse(path_, std::strerror(errno));
    return;
  }
  descriptor_.Reset(
      open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, kMode));
  if (!descriptor_.IsOpen() || ftruncate(descriptor_.Get(), 0) != 0)
    Refuse(path_, std::strerror(errno));
}

void CaptureSink::Start(const CapturedLine& line) {
  start_ = CaptureStart(line);
  if (is_pipe_)
    Flush();
  else
    WriteToFile(start_);
}

void CaptureSink::Add(const LogEntry& row) {
  if (!problem_.empty()) return;
  std::string packet;
  AppendPacket(packet, row);
  if (!is_pipe_) return WriteToFile(packet);
  pending_bytes_ += packet.size();
  pending_.push_back(std::move(packet));
  if (pending_bytes_ > kMostPending) Flush();
  if (pending_bytes_ > kMostPending) End("nobody reads it");
}

void CaptureSink::WriteToFile(const std::string& packet) {
  std::size_t written = 0;
  while (written < packet.size() && problem_.empty()) {
    const ssize_t count =
        write(descriptor_.Get(), packet.data() + written, packet.size() - written);
    if (count >= 0) {
      written += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      const std::string reason = std::strerror(errno);
      // What is left is whole; that it cannot be cut would be told by its reader.
      static_cast<void>(ftruncate(descriptor_.Get(), length_) == 0);
      End(reason);
    }
  }
  if (problem_.empty()) length_ += static_cast<std::int64_t>(packet.size());
}

void CaptureSink::Flush() {
  if (!is_pipe_ || !problem_.empty()) return;
  MeetReader();
  while (descriptor_.IsOpen() && !pending_.empty()) {
    const std::string& packet = pending_.front();
    const ssize_t count = write(descriptor_.Get(), packet.data() + taken_, packet.size() - taken_);
    if (count < 0) {
      if (errno == EINTR) continue;
      if (errno != EAGAIN) LoseReader();
      return;
    }
    taken_ += static_cast<std::size_t>(count);
    if (taken_ < packet.size()) continue;
    pending_bytes_ -= packet.size();
    pending_.pop_front();
    taken_ = 0;
    start_is_pending_ = false;
  }
}

void CaptureSink::Drain(std::chrono::milliseconds patience) {
  while (true) {
    Flush();
    if (!descriptor_.IsOpen() || pending_.empty() || !problem_.empty() || !is_pipe_) return;
    pollfd reader{descriptor_.Get(), POLLOUT, 0};
    if (poll(&reader, 1, static_cast<int>(patience.count())) <= 0) return;
  }
}

void CaptureSink::MeetReader() {
  if (descriptor_.IsOpen()) {
    pollfd reader{descriptor_.Get(), 0, 0};
    if (poll(&reader, 1, 0) > 0 && (reader.revents & POLLERR) != 0) LoseReader();
  }
  if (descriptor_.IsOpen()) return;
  // Without a reader this fails.
  descriptor_.Reset(open(path_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor_.IsOpen()) return;
  pending_.push_front(start_);
  pending_bytes_ += start_.size();
  start_is_pending_ = true;
}

void CaptureSink::LoseReader() {
  descriptor_.Reset();
  taken_ = 0;
  if (!start_is_pending_) return;
  pending_bytes_ -= pending_.front().size();
  pending_.pop_front();
  start_is_pending_ = false;
}

void CaptureSink::End(const std::string& problem) {
  problem_ = "the capture " + path_ + " has ended: " + problem + '.';
  descriptor_.Reset();
  pending_.clear();
  pending_bytes_ = 0;
}

}  // namespace vantrel::log
