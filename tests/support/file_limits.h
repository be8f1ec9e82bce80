// SPDX-License-Identifier: MIT
#pragma once

#include <sys/fsuid.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>

namespace vantrel::support {

// Lets no file of this process grow past `bytes`, as a full disk would not.
class SizeLimit {
 public:
  explicit SizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &found_);
    const rlimit limit{bytes, found_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~SizeLimit() {
    setrlimit(RLIMIT_FSIZE, &found_);
    std::signal(SIGXFSZ, handler_);
  }
  SizeLimit(const SizeLimit&) = delete;
  SizeLimit& operator=(const SizeLimit&) = delete;

 private:
  rlimit found_{};
  void (*handler_)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

// Lets this thread reach files as another user does, where it is the superuser.
class OtherUser {
 public:
  OtherUser() : found_(setfsuid(geteuid() == 0 ? 65534U : geteuid())) {}
  ~OtherUser() { setfsuid(static_cast<uid_t>(found_)); }
  OtherUser(const OtherUser&) = delete;
  OtherUser& operator=(const OtherUser&) = delete;

 private:
  int found_;
};

}  // namespace vantrel::support
