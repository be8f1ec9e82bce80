// SPDX-License-Identifier: MIT

#include "send/interrupts.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace vantrel::send {

Interrupts::Interrupts() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&signals, signal);
  sigprocmask(SIG_BLOCK, &signals, nullptr);
  descriptor_.Reset(signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  if (!descriptor_.IsOpen())
    throw std::system_error(errno, std::generic_category(), "Signals cannot be received");
}

short Interrupts::Events() const { return POLLIN; }

void Interrupts::OnReady(short) {
  signalfd_siginfo signal{};
  while (read(descriptor_.Get(), &signal, sizeof signal) == sizeof signal) {
    ++count_;
    if (action_) action_();
  }
}

}  // namespace vantrel::send
