// SPDX-License-Identifier: MIT

#include "printer/service/end_watch.h"

#include <sys/signalfd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace vantrel::printer {
namespace {

sigset_t EndingSignals() {
  sigset_t ending_signals;
  sigemptyset(&ending_signals);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&ending_signals, signal);
  return ending_signals;
}

int MakeDescriptor() {
  const sigset_t ending_signals = EndingSignals();
  const int descriptor = signalfd(-1, &ending_signals, SFD_CLOEXEC);
  if (descriptor < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
  return descriptor;
}

}  // namespace

void EndWatch::Block() {
  const sigset_t ending_signals = EndingSignals();
  pthread_sigmask(SIG_BLOCK, &ending_signals, nullptr);
}

EndWatch::EndWatch(QObject* parent)
    : QObject(parent),
      descriptor_(MakeDescriptor()),
      notifier_(descriptor_.Get(), QSocketNotifier::Read) {
  connect(&notifier_, &QSocketNotifier::activated, this, [this]() noexcept {
    notifier_.setEnabled(false);
    emit Asked();
  });
}

}  // namespace vantrel::printer
