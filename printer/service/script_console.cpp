// SPDX-License-Identifier: MIT

#include "printer/service/script_console.h"

#include "log/line_output.h"
#include "printer/service/printer_script.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

namespace vantrel::printer {
namespace {

// Bytes of answers that a reader may leave before commands wait for it.
constexpr std::size_t kMostPending = 65536;

}  // namespace

ScriptConsole::ScriptConsole(PrinterScript& script, int input, log::LineOutput& output,
                             QObject* parent)
    : QObject(parent), script_(script), output_(output), input_(input, QSocketNotifier::Read) {
  connect(&script_, &PrinterScript::Answered, this, [this](const QByteArray& answer) {
    output_.Write({answer.constData(), static_cast<std::size_t>(answer.size())});
    if (output_.Pending() > kMostPending) input_.setEnabled(false);
  });
  connect(&script_, &PrinterScript::Happened, this, [this](const QByteArray& event) {
    output_.Write({event.constData(), static_cast<std::size_t>(event.size())});
  });
  connect(&output_, &log::LineOutput::Emptied, this, [this] { input_.setEnabled(!ended_); });
  connect(&input_, &QSocketNotifier::activated, this, [this]() noexcept { Read(); });
}

void ScriptConsole::Read() {
  std::array<char, 4096> part{};
  const ssize_t count = read(static_cast<int>(input_.socket()), part.data(), part.size());
  if (count > 0) {
    script_.Feed({part.data(), static_cast<std::size_t>(count)});
  } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
    ended_ = true;
    input_.setEnabled(false);
    script_.End();
  }
}

}  // namespace vantrel::printer
