// SPDX-License-Identifier: MIT

// Runs a fuzz target over every file of a folder, in the order of their names, without libFuzzer.

#include "fuzz/target.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <vector>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: " << argv[0] << " FOLDER\n";
    return 2;
  }
  std::error_code error;
  std::set<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(argv[1], error))
    paths.insert(entry.path());
  if (error || paths.empty()) {
    std::cerr << argv[1] << " has no inputs.\n";
    return 1;
  }
  for (const auto& path : paths) {
    std::cout << path.filename().string() << std::endl;
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) {
      std::cerr << path << " cannot be read.\n";
      return 1;
    }
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
}
