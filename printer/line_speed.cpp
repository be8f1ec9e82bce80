#include "printer/line_speed.h"

// The kernel's own view of a terminal's settings tells every speed as a number, which that of
// termios.h does not; the two headers cannot be included together.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace vantrel {

std::optional<int> LineSpeedOf(int descriptor) {
  termios2 settings{};
  if (ioctl(descriptor, TCGETS2, &settings) != 0 || settings.c_ospeed == 0) return std::nullopt;
  return static_cast<int>(settings.c_ospeed);
}

}  // namespace vantrel
