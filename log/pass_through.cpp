// SPDX-License-Identifier: MIT

#include "log/pass_through.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

namespace vantrel::log {
namespace {

using protocol::Direction;

constexpr std::size_t kMostPerRead = 4096;
// A side that takes no more makes the other wait, as a full line does.
constexpr std::size_t kMostPending = 65536;
// How often the console's speed and its exclusive use are looked at while nothing is written.
constexpr int kLookInterval = 100;  // milliseconds
constexpr short kHasEnded = POLLHUP | POLLERR | POLLNVAL;

void Drop(link::Bytes& bytes, std::size_t count) {
  bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
}

}  // namespace

PassThrough::PassThrough(const std::string& device, std::unique_ptr<protocol::LineEnd> console,
                         Listener listener)
    : listener_(std::move(listener)),
      console_(std::move(console)),
      printer_(OpenPrinter(device)),
      stop_(eventfd(0, EFD_CLOEXEC)) {
  if (!stop_.IsOpen()) throw std::system_error(errno, std::generic_category(), "No event");
  thread_ = std::thread([this] { Run(); });
}

PassThrough::~PassThrough() {
  const std::uint64_t once = 1;
  [[maybe_unused]] const ssize_t told = write(stop_.Get(), &once, sizeof once);
  thread_.join();
}

void PassThrough::Run() {
  const auto may_read = [this](Direction direction) {
    return static_cast<short>(Pending(direction).size() < kMostPending ? POLLIN : 0);
  };
  const auto has_pending = [this](Direction direction) {
    return static_cast<short>(Pending(direction).empty() ? 0 : POLLOUT);
  };
  while (end_.empty()) {
    const short to_printer = has_pending(Direction::kFromConsole);
    const short to_console = has_pending(Direction::kFromPrinter);
    std::array<pollfd, 4> sides{
        pollfd{stop_.Get(), POLLIN, 0},
        pollfd{console_->Descriptor(), may_read(Direction::kFromConsole), 0},
        pollfd{to_console != 0 ? console_->WriteDescriptor() : -1, to_console, 0},
        pollfd{printer_->Descriptor(),
               static_cast<short>(may_read(Direction::kFromPrinter) | to_printer), 0}};
    const int ready = poll(sides.data(), sides.size(), kLookInterval);
    if (ready < 0 && errno != EINTR) end_ = DeviceErrorInWords(printer_->Name(), errno);
    if (sides[0].revents != 0) return;
    FollowSpeed();
    if (ready <= 0) {
      console_->ClearExclusiveUse();
      continue;
    }
    if ((sides[1].revents & POLLIN) != 0) PassOn(Direction::kFromConsole, console_->Read());
    // What the device still holds is read before its end is told.
    if (end_.empty() && (sides[3].revents & (POLLIN | kHasEnded)) != 0) ReadPrinter();
    if (end_.empty()) GiveToPrinter();
    GiveToConsole();
  }
  if (listener_.on_end) listener_.on_end(end_);
}

void PassThrough::PassOn(Direction direction, const link::Bytes& bytes) {
  if (bytes.empty()) return;
  const WallTime now = WallNow();
  Pending(direction).insert(Pending(direction).end(), bytes.begin(), bytes.end());
  // On the way first: the listener must not delay it.
  if (direction == Direction::kFromConsole)
    GiveToPrinter();
  else
    GiveToConsole();
  if (listener_.on_bytes) listener_.on_bytes(direction, bytes, now);
}

void PassThrough::ReadPrinter() {
  link::Bytes part(kMostPerRead);
  const ssize_t count = printer_->Read(part);
  if (count == 0 || (count < 0 && errno != EAGAIN && errno != EINTR))
    end_ = "The device " + printer_->Name() + " is gone.";
  if (count <= 0) return;
  part.resize(static_cast<std::size_t>(count));
  PassOn(Direction::kFromPrinter, part);
}

void PassThrough::GiveToPrinter() {
  link::Bytes& pending = Pending(Direction::kFromConsole);
  while (!pending.empty()) {
    const ssize_t count = printer_->Write(pending);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0 && errno != EAGAIN) end_ = "The device " + printer_->Name() + " is gone.";
    if (count <= 0) return;
    Drop(pending, static_cast<std::size_t>(count));
  }
}

void PassThrough::GiveToConsole() {
  link::Bytes& pending = Pending(Direction::kFromPrinter);
  if (!pending.empty()) Drop(pending, console_->Write(pending));
  if (console_->WriteDescriptor() < 0) pending.clear();
}

void PassThrough::FollowSpeed() {
  if (const auto speed = console_->ConsoleSpeed()) printer_->SetSpeed(*speed);
}

}  // namespace vantrel::log
