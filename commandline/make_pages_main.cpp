// SPDX-License-Identifier: MIT

// Writes what a build makes from a program's table: make-PROGRAM-pages PAGE MANUAL BASH ZSH reads
// the roff text PAGE and writes the manual page and the completions for bash and zsh.

#include "commandline/completion.h"
#include "commandline/manual.h"
#include "commandline/this_program.h"

#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace {

std::string ReadAll(const char* path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(std::string(path) + " cannot be read.");
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteAll(const char* path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  file.close();
  if (!file) throw std::runtime_error(std::string(path) + " cannot be written.");
}

}  // namespace

int main(int argc, char** argv) {
  using namespace vantrel::commandline;
  if (argc != 5) {
    std::cerr << "Usage: " << argv[0] << " PAGE MANUAL BASH ZSH\n";
    return 2;
  }
  try {
    WriteAll(argv[2], ManualPage(ThisProgram(), ReadAll(argv[1])));
    WriteAll(argv[3], BashCompletion(ThisProgram()));
    WriteAll(argv[4], ZshCompletion(ThisProgram()));
  } catch (const std::exception& error) {
    std::cerr << argv[0] << ": " << error.what() << '\n';
    return 1;
  }
}
