// SPDX-License-Identifier: MIT

#include "app/become_window.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace vantrel::app {

std::string BecomeWindow(const char* path, char** argv) {
  std::error_code error;
  const auto here = std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
  const std::string program = (here / path).lexically_normal().string();
  execv(program.c_str(), argv);
  if (errno == ENOENT)
    return "the window's program " + program +
           " is not installed; it is in the package vantrel, which has all windows";
  return "the window's program " + program + " cannot be started: " + std::strerror(errno);
}

}  // namespace vantrel::app
