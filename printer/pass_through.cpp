#include "printer/pass_through.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace vantrel {
namespace {

constexpr std::size_t kMostPerRead = 4096;
// A side that takes no more makes the other wait, as a full line does.
constexpr std::size_t kMostPending = 65536;
// How often the console's speed and its exclusive use are looked at while nothing is written.
constexpr int kLookInterval = 100;  // milliseconds

std::string ErrorInWords(const std::string& device, int error) {
  switch (error) {
    case ENOENT:
      return "There is no device " + device + ".";
    case EACCES:
    case EPERM:
      return "There is no permission to use the device " + device + ".";
    case EBUSY:
      return "The device " + device + " is in use by another program.";
    case ENOTTY:
      return device + " is no serial device.";
    default:
      return "The device " + device + " cannot be used: " + std::strerror(error) + ".";
  }
}

WallTime WallNow() {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

}  // namespace

PassThrough::PassThrough(const std::string& device, Listener listener)
    : listener_(std::move(listener)),
      device_name_(device),
      device_(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC | O_NONBLOCK)) {
  const auto fail = [this](int error) {
    if (device_ >= 0) close(device_);
    if (stop_ >= 0) close(stop_);
    throw std::runtime_error(ErrorInWords(device_name_, error));
  };
  if (device_ < 0 || tcgetattr(device_, &found_) != 0) fail(errno);
  settings_ = found_;
  cfmakeraw(&settings_);
  settings_.c_cflag &= ~(tcflag_t{CSTOPB} | tcflag_t{CRTSCTS});
  settings_.c_cflag |= CLOCAL | CREAD;
  cfsetspeed(&settings_, B9600);
  if (tcsetattr(device_, TCSANOW, &settings_) != 0) fail(errno);
  tcflush(device_, TCIOFLUSH);
  stop_ = eventfd(0, EFD_CLOEXEC);
  if (stop_ < 0) fail(errno);
  ways_ = {Way{terminal_.Descriptor(), device_, {}}, Way{device_, terminal_.Descriptor(), {}}};
  ioctl(device_, TIOCEXCL);
  thread_ = std::thread([this] { Run(); });
}

PassThrough::~PassThrough() {
  const std::uint64_t once = 1;
  [[maybe_unused]] const ssize_t told = write(stop_, &once, sizeof once);
  thread_.join();
  ioctl(device_, TIOCNXCL);
  tcsetattr(device_, TCSANOW, &found_);
  close(device_);
  close(stop_);
}

void PassThrough::Run() {
  constexpr auto kToPrinter = Direction::kFromConsole;
  constexpr auto kToConsole = Direction::kFromPrinter;
  const auto events = [this](Direction in, Direction out) {
    const bool takes = ways_.at(static_cast<std::size_t>(in)).pending.size() < kMostPending;
    const bool gives = !ways_.at(static_cast<std::size_t>(out)).pending.empty();
    return static_cast<short>((takes ? POLLIN : 0) | (gives ? POLLOUT : 0));
  };
  bool going = true;
  while (going) {
    std::array<pollfd, 3> sides{pollfd{stop_, POLLIN, 0},
                                pollfd{terminal_.Descriptor(), events(kToPrinter, kToConsole), 0},
                                pollfd{device_, events(kToConsole, kToPrinter), 0}};
    const int ready = poll(sides.data(), sides.size(), kLookInterval);
    if (ready < 0 && errno != EINTR) end_ = ErrorInWords(device_name_, errno);
    if (sides[0].revents != 0) return;
    FollowSpeed();
    if (ready <= 0) {
      terminal_.ClearExclusiveUse();
      going = end_.empty();
      continue;
    }
    if ((sides[1].revents & POLLIN) != 0) going = Take(kToPrinter);
    // What the device still holds is read before its end is told.
    if (going && (sides[2].revents & (POLLIN | POLLHUP | POLLERR | POLLNVAL)) != 0)
      going = Take(kToConsole);
    going = going && Give(kToPrinter) && Give(kToConsole);
  }
  if (listener_.on_end) listener_.on_end(end_);
}

bool PassThrough::Take(Direction direction) {
  Way& way = ways_.at(static_cast<std::size_t>(direction));
  Bytes part(kMostPerRead);
  const ssize_t count = read(way.from, part.data(), part.size());
  if (count <= 0) {
    const bool gone =
        direction == Direction::kFromPrinter && (count == 0 || (errno != EAGAIN && errno != EINTR));
    if (gone) end_ = "The device " + device_name_ + " is gone.";
    return !gone;
  }
  part.resize(static_cast<std::size_t>(count));
  const WallTime now = WallNow();
  way.pending.insert(way.pending.end(), part.begin(), part.end());
  // On the way first: the listener must not delay it.
  const bool going = Give(direction);
  if (listener_.on_bytes) listener_.on_bytes(direction, part, now);
  return going;
}

bool PassThrough::Give(Direction direction) {
  Way& way = ways_.at(static_cast<std::size_t>(direction));
  while (!way.pending.empty()) {
    const ssize_t count = write(way.to, way.pending.data(), way.pending.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) {
      const bool gone = direction == Direction::kFromConsole && errno != EAGAIN;
      if (gone) end_ = "The device " + device_name_ + " is gone.";
      return !gone;
    }
    way.pending.erase(way.pending.begin(), way.pending.begin() + count);
  }
  return true;
}

void PassThrough::FollowSpeed() {
  termios wished{};
  if (tcgetattr(terminal_.Descriptor(), &wished) != 0) return;
  const speed_t speed = cfgetospeed(&wished);
  if (speed == cfgetospeed(&settings_) || speed == B0) return;
  cfsetspeed(&settings_, speed);
  // What was written before goes out at the old speed.
  tcsetattr(device_, TCSADRAIN, &settings_);
}

}  // namespace vantrel
