// SPDX-License-Identifier: MIT

#include "send/progress.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <iostream>

namespace vantrel::send {
namespace {

constexpr long kBarWidth = 20;

std::string Duration(double seconds) {
  const long whole = std::lround(std::ceil(seconds));
  std::array<char, 64> text{};
  if (whole >= 3600)
    std::snprintf(text.data(), text.size(), "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60,
                  whole % 60);
  else
    std::snprintf(text.data(), text.size(), "%ld:%02ld", whole / 60, whole % 60);
  return text.data();
}

}  // namespace

std::string ProgressLine(const Tally& tally, std::optional<long> total, double seconds) {
  const long done = tally.Exchanges();
  const double rate = seconds > 0 ? static_cast<double>(done) / seconds : 0;
  std::array<char, 64> rate_text{};
  std::snprintf(rate_text.data(), rate_text.size(), "%.1f", rate);
  std::string line;
  if (total && *total > 0) {
    const auto filled = static_cast<std::size_t>(kBarWidth * done / *total);
    line = "[" + std::string(filled, '#') +
           std::string(static_cast<std::size_t>(kBarWidth) - filled, '.') + "] ";
  }
  line += std::to_string(done);
  if (total) line += " of " + std::to_string(*total);
  line += ", " + std::string(rate_text.data()) + " a second, " + std::to_string(tally.Failures()) +
          (tally.Failures() == 1 ? " failure" : " failures");
  if (total && rate > 0)
    line += ", " + Duration(static_cast<double>(*total - done) / rate) + " left";
  return line;
}

Progress::Progress(std::optional<long> total)
    : is_terminal_(isatty(STDERR_FILENO) != 0), total_(total) {}

void Progress::Show(const Tally& tally) {
  constexpr std::chrono::milliseconds kInterval{100};
  const auto now = SteadyClock::now();
  if (!is_terminal_ || (shown_ && now - *shown_ < kInterval)) return;
  shown_ = now;
  is_there_ = true;
  const double seconds = std::chrono::duration<double>(now - start_).count();
  std::string line = ProgressLine(tally, total_, seconds);
  // One that goes on in the next row could not be taken away.
  winsize size{};
  if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 && line.size() >= size.ws_col)
    line.resize(size.ws_col - 1U);
  std::cerr << '\r' << line << "\x1B[K" << std::flush;
}

void Progress::Clear() {
  if (is_there_) std::cerr << "\r\x1B[K" << std::flush;
  is_there_ = false;
}

}  // namespace vantrel::send
