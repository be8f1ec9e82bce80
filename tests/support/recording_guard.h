// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/guard.h"

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace vantrel::support {

// A guard that keeps what was thrown. A fault that no test took fails the test at its end.
class RecordingGuard : public dialogs::Guard {
 public:
  ~RecordingGuard() override {
    for (const std::string& fault : faults_) ADD_FAILURE() << "unexpected fault: " << fault;
  }

  void Run(const std::function<void()>& work) override {
    try {
      work();
    } catch (const std::exception& error) {
      faults_.emplace_back(error.what());
    } catch (...) {
      faults_.emplace_back("no std::exception");
    }
  }

  // The texts of what was thrown since the last call, first to last.
  std::vector<std::string> TakeFaults() { return std::exchange(faults_, {}); }

 private:
  std::vector<std::string> faults_;
};

}  // namespace vantrel::support
