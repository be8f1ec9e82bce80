// SPDX-License-Identifier: MIT

#include "send/line_port.h"

#include "protocol/tcp_address.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <stdexcept>

namespace vantrel::send {
namespace {

constexpr std::string_view kTcp = "tcp:";

// A descriptor of an opening, and the time that it has.
class Opening : public EventSource {
 public:
  Opening(int descriptor, short events) : descriptor_(descriptor), events_(events) {}
  int Descriptor() const override { return is_ready_ ? -1 : descriptor_; }
  short Events() const override { return events_; }
  void OnReady(short) override { is_ready_ = true; }
  bool IsReady() const { return is_ready_; }

 private:
  const int descriptor_;
  const short events_;
  bool is_ready_ = false;
};

}  // namespace

bool IsTcpAddress(const std::string& address) {
  if (!address.starts_with(kTcp)) return false;
  try {
    return protocol::ParseTcpAddress(address.substr(kTcp.size()), "").port > 0;
  } catch (const std::invalid_argument&) {
    return false;
  }
}

LinePort::LinePort(std::string address, int speed, PollClock& clock)
    : address_(std::move(address)), speed_(speed), clock_(clock) {
  clock_.Watch(*this);
}

LinePort::~LinePort() { clock_.Unwatch(*this); }

void LinePort::SetSettings(const std::string& settings) {
  speed_ = std::stoi(settings);
  if (IsOpen() && !connection_->SetSpeed(speed_))
    throw link::PortError("The device " + address_ + " does not take the settings " + settings +
                          ".");
}

void LinePort::Open() {
  Close();
  input_.clear();
  output_.clear();
  if (!address_.starts_with(kTcp)) {
    connection_ = OpenSerial(address_, speed_);
    return;
  }
  connection_ =
      OpenTcp(address_.substr(kTcp.size()), [this](int descriptor, short events, int milliseconds) {
        Opening opening(descriptor, events);
        clock_.Watch(opening);
        // Nothing is under way while a line is being opened, so the timer is free.
        clock_.Start(link::Timer::WaitTimer, milliseconds);
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
        while (!opening.IsReady() && !interrupted_ && std::chrono::steady_clock::now() < end)
          clock_.WaitForEvents();
        clock_.Stop(link::Timer::WaitTimer);
        clock_.Unwatch(opening);
        return opening.IsReady();
      });
}

link::Bytes LinePort::Input() { return std::exchange(input_, {}); }

void LinePort::Output(const link::Bytes& bytes) {
  if (!IsOpen()) throw link::PortError("The line " + address_ + " is not open.");
  output_.insert(output_.end(), bytes.begin(), bytes.end());
  pollfd descriptor{Descriptor(), 0, 0};
  const bool is_gone = poll(&descriptor, 1, 0) > 0 && descriptor.revents != 0;
  if (is_gone || !Flush()) throw CloseGone();
}

bool LinePort::Flush() {
  while (!output_.empty()) {
    const link::Bytes next(output_.begin(), output_.end());
    const ssize_t count = write(Descriptor(), next.data(), next.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno == EAGAIN;
    output_.erase(output_.begin(), output_.begin() + count);
  }
  return true;
}

bool LinePort::Fill() {
  link::Bytes part(4096);
  while (true) {
    const ssize_t count = read(Descriptor(), part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return errno == EAGAIN;
    if (count == 0) return false;
    input_.insert(input_.end(), part.begin(), part.begin() + count);
    if (static_cast<std::size_t>(count) < part.size()) return true;
  }
}

short LinePort::Events() const {
  return static_cast<short>(POLLIN | (output_.empty() ? 0 : POLLOUT));
}

void LinePort::OnReady(short events) {
  bool is_there = true;
  if ((events & POLLOUT) != 0) is_there = Flush();
  if (is_there && (events & (POLLIN | POLLHUP | POLLERR | POLLNVAL)) != 0) is_there = Fill();
  // What came before the end is told before it.
  if (!input_.empty() && listener_ != nullptr) listener_->OnComm(link::PortListener::kReceive);
  if (is_there) return;
  const link::PortError error = CloseGone();
  if (listener_ != nullptr) listener_->OnLost(error);
}

link::PortError LinePort::CloseGone() {
  link::PortError error(connection_->GoneInWords());
  Close();
  return error;
}

}  // namespace vantrel::send
