// SPDX-License-Identifier: MIT

#include "printer/line/device_link.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

namespace vantrel::printer {
namespace {

namespace fs = std::filesystem;

class DeviceLinkTest : public testing::Test {
 protected:
  DeviceLinkTest() { fs::create_directories(folder_); }
  ~DeviceLinkTest() override { fs::remove_all(folder_); }

  // What the printer says when it refuses to make the link; empty when it makes it.
  std::string Refusal() const {
    try {
      const DeviceLink link(path_, "/dev/null");
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "";
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("vantrel-link-" + std::to_string(::getpid()));
  const std::string path_ = folder_ / "printer";
};

TEST_F(DeviceLinkTest, LivesAsLongAsItsObject) {
  {
    const DeviceLink link(path_, "/dev/null");
    EXPECT_EQ(fs::read_symlink(path_), "/dev/null");
  }
  EXPECT_FALSE(fs::is_symlink(path_));
}

TEST_F(DeviceLinkTest, ReplacesALinkThatLeadsNowhere) {
  fs::create_symlink("/dev/pts/no-such-device", path_);
  const DeviceLink link(path_, "/dev/null");
  EXPECT_EQ(fs::read_symlink(path_), "/dev/null");
}

TEST_F(DeviceLinkTest, TakesOverALeftoverThatLeadsToTheSameDevice) {
  fs::create_symlink("/dev/null", path_);
  EXPECT_EQ(Refusal(), "");
  EXPECT_FALSE(fs::is_symlink(path_));
}

TEST_F(DeviceLinkTest, ReplacesALinkThatAKilledPrinterHasLeftToADeviceInUse) {
  // As a printer that is killed leaves them: the link, and its mark that nobody holds.
  fs::create_symlink("/dev/zero", path_);
  std::ofstream(folder_ / ".printer.lock") << "/dev/zero";
  {
    const DeviceLink link(path_, "/dev/null");
    EXPECT_EQ(fs::read_symlink(path_), "/dev/null");
  }
  EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(DeviceLinkTest, LeavesALinkThatIsNotTheMarkedOne) {
  fs::create_symlink("/dev/zero", path_);
  std::ofstream(folder_ / ".printer.lock") << "/dev/full";
  EXPECT_NE(Refusal(), "");
  EXPECT_EQ(fs::read_symlink(path_), "/dev/zero");
}

TEST_F(DeviceLinkTest, LeavesTheLinkOfAPrinterThatRuns) {
  const DeviceLink running(path_, "/dev/zero");
  EXPECT_EQ(Refusal(),
            "The link " + path_ + " was not made: another printer has made it and is running.");
  EXPECT_EQ(fs::read_symlink(path_), "/dev/zero");
}

TEST_F(DeviceLinkTest, LeavesNothingBehind) {
  { const DeviceLink link(path_, "/dev/null"); }
  EXPECT_TRUE(fs::is_empty(folder_));
  std::ofstream(path_) << "precious";
  EXPECT_NE(Refusal(), "");
  EXPECT_FALSE(fs::exists(folder_ / ".printer.lock"));
}

TEST_F(DeviceLinkTest, LeavesAFileAlone) {
  std::ofstream(path_) << "precious";
  EXPECT_EQ(Refusal(),
            "The link " + path_ + " was not made: there is something of that name already.");
  EXPECT_EQ(fs::file_size(path_), 8U);
}

TEST_F(DeviceLinkTest, LeavesALinkToSomethingElseAlone) {
  fs::create_symlink("/dev/zero", path_);
  EXPECT_NE(Refusal(), "");
  EXPECT_EQ(fs::read_symlink(path_), "/dev/zero");
}

TEST_F(DeviceLinkTest, DoesNotRemoveALinkThatHasComeToLeadElsewhere) {
  {
    const DeviceLink link(path_, "/dev/null");
    fs::remove(path_);
    fs::create_symlink("/dev/zero", path_);
  }
  EXPECT_EQ(fs::read_symlink(path_), "/dev/zero");
}

TEST_F(DeviceLinkTest, SaysWhyItCannotBeMade) {
  EXPECT_THROW(DeviceLink((folder_ / "missing" / "printer").string(), "/dev/null"),
               std::runtime_error);
  try {
    const DeviceLink link((folder_ / "missing" / "printer").string(), "/dev/null");
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("No such file or directory"), std::string::npos);
  }
}

}  // namespace
}  // namespace vantrel::printer
