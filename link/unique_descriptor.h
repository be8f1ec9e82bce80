// SPDX-License-Identifier: MIT
#pragma once

#include <unistd.h>

#include <utility>

namespace vantrel::link {

// A file descriptor that is closed with its owner; -1 is none.
class UniqueDescriptor {
 public:
  UniqueDescriptor() = default;
  // Owns `descriptor` from now on.
  explicit UniqueDescriptor(int descriptor) : descriptor_(descriptor) {}
  ~UniqueDescriptor() { Reset(); }
  UniqueDescriptor(UniqueDescriptor&& other) noexcept
      : descriptor_(std::exchange(other.descriptor_, -1)) {}
  UniqueDescriptor& operator=(UniqueDescriptor&& other) noexcept {
    Reset(std::exchange(other.descriptor_, -1));
    return *this;
  }
  UniqueDescriptor(const UniqueDescriptor&) = delete;
  UniqueDescriptor& operator=(const UniqueDescriptor&) = delete;

  int Get() const { return descriptor_; }
  bool IsOpen() const { return descriptor_ >= 0; }
  // Closes what it owns and owns `descriptor` instead.
  void Reset(int descriptor = -1) {
    if (IsOpen()) close(descriptor_);
    descriptor_ = descriptor;
  }

 private:
  int descriptor_ = -1;
};

}  // namespace vantrel::link
