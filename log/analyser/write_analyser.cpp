// SPDX-License-Identifier: MIT

// write_analyser TEMPLATE OUT: writes the analyser's plugin, with our tables of words where the
// template has the line "--@TABLES@".

#include "log/analyser/analyser_tables.h"

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

int main(int argc, char** argv) {
  constexpr std::string_view kMark = "--@TABLES@\n";
  if (argc != 3) {
    std::cerr << "write_analyser: needs the template and the file to write.\n";
    return EXIT_FAILURE;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(in), {});
  const std::size_t mark = text.find(kMark);
  if (mark == std::string::npos) {
    std::cerr << "write_analyser: " << argv[1] << " has no line for the tables.\n";
    return EXIT_FAILURE;
  }
  text.replace(mark, kMark.size(), vantrel::log::AnalyserTables());
  std::ofstream out(argv[2], std::ios::binary);
  out << text;
  out.close();
  if (out) return EXIT_SUCCESS;
  std::cerr << "write_analyser: " << argv[2] << " cannot be written.\n";
  return EXIT_FAILURE;
}
