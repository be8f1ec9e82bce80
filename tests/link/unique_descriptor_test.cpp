// SPDX-License-Identifier: MIT

#include "link/unique_descriptor.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <utility>

namespace vantrel::link {
namespace {

int OpenSomething() { return open("/dev/null", O_RDONLY | O_CLOEXEC); }

bool IsOpen(int descriptor) { return fcntl(descriptor, F_GETFD) >= 0; }

TEST(UniqueDescriptor, OwnsNothingAtFirst) {
  const UniqueDescriptor none;
  EXPECT_FALSE(none.IsOpen());
  EXPECT_EQ(none.Get(), -1);
}

TEST(UniqueDescriptor, ClosesWhatItOwns) {
  int descriptor = -1;
  {
    const UniqueDescriptor owner(OpenSomething());
    descriptor = owner.Get();
    EXPECT_TRUE(IsOpen(descriptor));
  }
  EXPECT_FALSE(IsOpen(descriptor));
}

TEST(UniqueDescriptor, HandsOn) {
  UniqueDescriptor first(OpenSomething());
  const int descriptor = first.Get();
  UniqueDescriptor second(std::move(first));
  EXPECT_EQ(second.Get(), descriptor);
  UniqueDescriptor third(OpenSomething());
  const int replaced = third.Get();
  third = std::move(second);
  EXPECT_EQ(third.Get(), descriptor);
  EXPECT_TRUE(IsOpen(descriptor));
  EXPECT_FALSE(IsOpen(replaced));
  third.Reset();
  EXPECT_FALSE(IsOpen(descriptor));
}

}  // namespace
}  // namespace vantrel::link
