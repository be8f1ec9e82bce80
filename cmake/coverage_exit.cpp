// SPDX-License-Identifier: MIT

// Stands in for the C library's _Exit, which ends a program before it has told which lines were
// run.

#include <sys/syscall.h>
#include <unistd.h>

extern "C" {

void __gcov_dump();

[[noreturn]] void _Exit(int status) {
  __gcov_dump();
  for (;;) syscall(SYS_exit_group, status);
}
}
