// SPDX-License-Identifier: MIT

#include "log/line_output.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>

namespace vantrel::log {
namespace {

// What a pipe that has room takes without making its writer wait.
constexpr std::size_t kPart = 4096;

bool IsForWriting(int descriptor) {
  const int flags = fcntl(descriptor, F_GETFL);
  return flags >= 0 && (flags & O_ACCMODE) != O_RDONLY;
}

// Opens a pipe or a terminal once more, not to be waited for. Setting that on `descriptor` itself
// would set it for every program that shares it, such as the shell.
int OpenOnce(int descriptor) {
  struct stat found {};
  if (!IsForWriting(descriptor) || fstat(descriptor, &found) != 0 ||
      (!S_ISFIFO(found.st_mode) && isatty(descriptor) == 0))
    return -1;
  return open(("/proc/self/fd/" + std::to_string(descriptor)).c_str(),
              O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}

// Whether it can be written now; a reader that has gone can, and is found out by that.
bool IsWritable(int descriptor, int milliseconds) {
  pollfd line{descriptor, POLLOUT, 0};
  return poll(&line, 1, milliseconds) > 0;
}

ssize_t WriteNow(int descriptor, std::string_view part) {
  const ssize_t sent = send(descriptor, part.data(), part.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
  return sent < 0 && errno == ENOTSOCK ? write(descriptor, part.data(), part.size()) : sent;
}

}  // namespace

LineOutput::LineOutput(int descriptor, QObject* parent)
    : QObject(parent),
      own_(OpenOnce(descriptor)),
      descriptor_(own_.IsOpen() ? own_.Get() : descriptor),
      gone_(!IsForWriting(descriptor_)),
      writable_(descriptor_, QSocketNotifier::Write) {
  writable_.setEnabled(false);
  connect(&writable_, &QSocketNotifier::activated, this, [this]() noexcept { Flush(); });
}

LineOutput::~LineOutput() { writable_.setEnabled(false); }

void LineOutput::Write(std::string_view line) {
  if (gone_ || Pending() + line.size() >= kMostPending) return;
  pending_ += line;
  pending_ += '\n';
  if (!writable_.isEnabled()) Flush();
}

void LineOutput::Flush() {
  while (Pending() > 0 && !gone_ && IsWritable(descriptor_, 0)) {
    const ssize_t count = WriteNow(descriptor_, std::string_view(pending_).substr(written_, kPart));
    if (count >= 0) {
      written_ += static_cast<std::size_t>(count);
    } else if (errno == EAGAIN) {
      break;
    } else if (errno != EINTR) {
      gone_ = true;
    }
  }
  if (gone_ || Pending() == 0 || written_ >= kMostPending) {
    pending_.erase(0, gone_ ? pending_.size() : written_);
    written_ = 0;
  }
  const bool had_to_wait = writable_.isEnabled();
  writable_.setEnabled(Pending() > 0);
  if (had_to_wait && Pending() == 0) emit Emptied();
}

void HoldStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    // The lowest free number is taken, which is this one.
    if (fcntl(descriptor, F_GETFD) < 0)
      static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
  }
}

void LineOutput::Drain(std::chrono::milliseconds patience) {
  while (Pending() > 0 && IsWritable(descriptor_, static_cast<int>(patience.count()))) Flush();
}

}  // namespace vantrel::log
