// SPDX-License-Identifier: MIT

#include "send/line_input.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace vantrel::send {

LineInput::LineInput(int descriptor, PollClock& clock, std::function<bool()> stopped)
    : descriptor_(descriptor), clock_(clock), stopped_(std::move(stopped)) {}

short LineInput::Events() const { return POLLIN; }

std::optional<std::string> LineInput::Next() {
  while (true) {
    const std::size_t end = pending_.find('\n', searched_);
    if (end != std::string::npos || (ended_ && !pending_.empty())) {
      std::string line = pending_.substr(0, end);
      pending_.erase(0, end == std::string::npos ? end : end + 1);
      searched_ = 0;
      ++number_;
      if (line.size() > kLongestLine)
        throw InputError("Line " + std::to_string(number_) + " is too long.");
      return line;
    }
    searched_ = pending_.size();
    if (pending_.size() > kLongestLine)
      throw InputError("Line " + std::to_string(number_ + 1) + " is too long.");
    if (error_ != 0)
      throw InputError(std::string("Standard input cannot be read: ") + std::strerror(error_) +
                       ".");
    if (ended_ || stopped_()) return std::nullopt;
    waiting_ = true;
    clock_.Watch(*this);
    clock_.WaitForEvents();
    clock_.Unwatch(*this);
    waiting_ = false;
  }
}

void LineInput::OnReady(short) {
  std::array<char, 4096> part{};
  const ssize_t count = read(descriptor_, part.data(), part.size());
  if (count > 0)
    pending_.append(part.data(), static_cast<std::size_t>(count));
  else if (count == 0)
    ended_ = true;
  else if (errno != EINTR && errno != EAGAIN)
    error_ = errno;
}

}  // namespace vantrel::send
