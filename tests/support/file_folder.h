// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace vantrel::support {

// A folder of its own for a test's files, removed with all that is in it.
class FileFolder {
 public:
  FileFolder() {
    std::string name = std::filesystem::temp_directory_path() / "vantrel-test-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder");
    folder_ = name;
    std::filesystem::permissions(folder_, std::filesystem::perms(0755));
  }
  ~FileFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  FileFolder(const FileFolder&) = delete;
  FileFolder& operator=(const FileFolder&) = delete;

  // The path of what has this name in the folder; with an empty name, the folder's.
  std::string Path(const std::string& name) const {
    return (name.empty() ? folder_ : folder_ / name).string();
  }
  void Make(const std::string& name, const std::string& contents) const {
    std::ofstream(Path(name), std::ios::binary) << contents;
  }
  // Makes a symbolic link.
  void Link(const std::string& target, const std::string& name) const {
    std::filesystem::create_symlink(target, Path(name));
  }
  std::string LinkTarget(const std::string& name) const {
    return std::filesystem::read_symlink(Path(name));
  }
  std::string Contents(const std::string& name) const {
    std::ifstream file(Path(name), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
  }
  mode_t ModeOf(const std::string& name) const {
    struct stat found {};
    EXPECT_EQ(stat(Path(name).c_str(), &found), 0) << name;
    return found.st_mode & mode_t{07777};
  }
  // How many files there are.
  std::size_t Count() const {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder_), {}));
  }

 private:
  std::filesystem::path folder_;
};

}  // namespace vantrel::support
