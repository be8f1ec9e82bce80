// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

namespace vantrel::endurance {

// How many descriptors this program has open, the one that counts them included.
inline std::size_t OpenDescriptors() {
  return static_cast<std::size_t>(
      std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}));
}

}  // namespace vantrel::endurance
