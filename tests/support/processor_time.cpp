// SPDX-License-Identifier: MIT

#include "tests/support/processor_time.h"

#include <sys/resource.h>

namespace vantrel::support {

double ProcessorTime() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  const auto milliseconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
  };
  return milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime);
}

}  // namespace vantrel::support
