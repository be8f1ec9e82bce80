// SPDX-License-Identifier: MIT

#include "commandline/fault.h"

#include <cstdlib>
#include <exception>
#include <iostream>

namespace vantrel::commandline {
namespace {

std::string program_name;  // terminate handlers are given nothing

[[noreturn]] void EndOnFault() {
  std::string what = "of an unknown kind";
  if (const std::exception_ptr fault = std::current_exception()) {
    try {
      std::rethrow_exception(fault);
    } catch (const std::exception& error) {
      what = error.what();
    } catch (...) {
      what = "an exception of an unknown kind";
    }
  }
  std::cerr << program_name << ": a fault of the program: " << what << std::endl;
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

void EndOnFaults(const std::string& program) {
  program_name = program;
  std::set_terminate(EndOnFault);
}

}  // namespace vantrel::commandline
