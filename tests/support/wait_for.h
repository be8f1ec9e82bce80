// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/patience.h"

#include <QTest>

namespace vantrel::support {

// Runs the event loop until the condition holds; false where that takes longer than patience lasts.
template <typename Condition>
bool WaitFor(const Condition& condition) {
  return QTest::qWaitFor(condition, kPatience);
}

}  // namespace vantrel::support
