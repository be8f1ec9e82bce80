// SPDX-License-Identifier: MIT

#include "send/standard_output.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstring>

namespace vantrel::send {

void StandardOutput::Write(const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    std::array<pollfd, 2> descriptors{pollfd{STDOUT_FILENO, POLLOUT, 0},
                                      pollfd{interrupts_.Descriptor(), POLLIN, 0}};
    poll(descriptors.data(), descriptors.size(), -1);
    if (descriptors[1].revents != 0) interrupts_.OnReady(POLLIN);
    if (descriptors[0].revents == 0) {
      if (interrupts_.Count() > 1) throw OutputClosed("Nobody reads standard output.");
      continue;
    }
    // So much never blocks once there is room for anything.
    const std::size_t part = std::min<std::size_t>(text.size() - written, PIPE_BUF);
    const ssize_t count = write(STDOUT_FILENO, text.data() + written, part);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count < 0)
      throw OutputClosed(std::string("Standard output cannot be written: ") + std::strerror(errno) +
                         ".");
    written += static_cast<std::size_t>(count);
  }
}

void OccupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(descriptor, F_GETFD) >= 0) continue;
    // The wrong way round, so that using it fails. The lowest free descriptor is this one.
    [[maybe_unused]] const int taken =
        open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace vantrel::send
