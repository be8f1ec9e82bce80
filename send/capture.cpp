// SPDX-License-Identifier: MIT

#include "send/capture.h"

#include "log/capture_writer.h"
#include "send/report.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

namespace vantrel::send {
namespace {

ReportError CannotWrite(const std::string& path, const std::string& reason) {
  return ReportError("The capture " + path + " cannot be written: " + reason + ".");
}

}  // namespace

Capture::Capture(std::string path, const std::string& line, int speed) : path_(std::move(path)) {
  struct stat status = {};
  if (stat(path_.c_str(), &status) == 0 && !S_ISREG(status.st_mode))
    throw CannotWrite(path_, "it is no regular file");
  file_.Reset(open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file_.IsOpen()) throw CannotWrite(path_, std::strerror(errno));
  Write(log::CaptureStart({.name = line, .speed = static_cast<std::uint64_t>(speed)}));
}

void Capture::OnBytes(protocol::Direction direction, const link::Bytes& bytes) {
  log_.Append(direction, bytes, log::WallNow());
  WriteSettled();
}

void Capture::Finish() {
  log_.Finish();
  WriteSettled();
  if (error_ != 0) throw CannotWrite(path_, std::strerror(error_));
}

void Capture::WriteSettled() {
  std::string packets;
  for (; written_ < log_.Settled(); ++written_) log::AppendPacket(packets, log_.At(written_));
  log_.DropBefore(written_);
  Write(packets);
}

void Capture::Write(const std::string& bytes) {
  std::string_view rest = bytes;
  while (error_ == 0 && !rest.empty()) {
    const ssize_t count = write(file_.Get(), rest.data(), rest.size());
    if (count >= 0)
      rest.remove_prefix(static_cast<std::size_t>(count));
    else if (errno != EINTR)
      error_ = errno;
  }
}

}  // namespace vantrel::send
