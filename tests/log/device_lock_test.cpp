// SPDX-License-Identifier: MIT

#include "log/device_lock.h"

#include "link/unique_descriptor.h"
#include "printer/line/pseudo_terminal.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <system_error>
#include <vector>

namespace vantrel::log {
namespace {

namespace fs = std::filesystem;

// The number of a process that has ended.
pid_t DeadProcess() {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  waitpid(child, nullptr, 0);
  return child;
}

class DeviceLockTest : public testing::Test {
 protected:
  DeviceLockTest() { fs::create_directories(folder_); }
  ~DeviceLockTest() override { fs::remove_all(folder_); }

  // "/dev/pts/7" is locked as "LCK..pts_7".
  fs::path File() const {
    std::string name = terminal_.DevicePath().substr(5);
    std::replace(name.begin(), name.end(), '/', '_');
    return folder_ / ("LCK.." + name);
  }
  static std::string Text(const fs::path& path) {
    std::stringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
  }
  link::UniqueDescriptor Open() const {
    return link::UniqueDescriptor(
        open(terminal_.DevicePath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
  }
  bool IsBusy() const {
    const link::UniqueDescriptor device = Open();
    try {
      const DeviceLock lock(terminal_.DevicePath(), device.Get(), folder_);
      return false;
    } catch (const std::system_error& error) {
      return error.code().value() == EBUSY;
    }
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("vantrel-lock-" + std::to_string(::getpid()));
  const printer::PseudoTerminal terminal_;
};

TEST_F(DeviceLockTest, MakesBothLocksAndEndsThem) {
  {
    const link::UniqueDescriptor device = Open();
    const DeviceLock lock(terminal_.DevicePath(), device.Get(), folder_);
    const link::UniqueDescriptor other = Open();
    EXPECT_NE(flock(other.Get(), LOCK_EX | LOCK_NB), 0);
    // The number stands right-aligned in ten characters, as is the custom.
    const std::string number = std::to_string(getpid());
    EXPECT_EQ(Text(File()), std::string(10 - number.size(), ' ') + number + "\n");
  }
  EXPECT_TRUE(fs::is_empty(folder_));
  const link::UniqueDescriptor other = Open();
  EXPECT_EQ(flock(other.Get(), LOCK_EX | LOCK_NB), 0);
}

TEST_F(DeviceLockTest, RefusesADeviceThatIsLockedItself) {
  const link::UniqueDescriptor other = Open();
  ASSERT_EQ(flock(other.Get(), LOCK_EX | LOCK_NB), 0);
  EXPECT_TRUE(IsBusy());
  EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(DeviceLockTest, RefusesADeviceWithTheFileOfALivingProcess) {
  const std::string text = std::to_string(getppid()) + "\n";
  std::ofstream(File()) << text;
  EXPECT_TRUE(IsBusy());
  EXPECT_EQ(Text(File()), text);
}

TEST_F(DeviceLockTest, RefusesADeviceWithAFileThatNamesNobody) {
  std::ofstream(File()) << "";
  EXPECT_TRUE(IsBusy());
  EXPECT_TRUE(fs::exists(File()));
}

TEST_F(DeviceLockTest, RemovesTheFileOfADeadProcess) {
  std::ofstream(File()) << "     " << DeadProcess() << "\n";
  EXPECT_FALSE(IsBusy());
  EXPECT_TRUE(fs::is_empty(folder_));
  const pid_t dead = DeadProcess();
  std::ofstream(File()).write(reinterpret_cast<const char*>(&dead), sizeof dead);
  EXPECT_FALSE(IsBusy());
  EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(DeviceLockTest, RemovesTheFileOfAProcessThatHasEndedAndIsStillListed) {
  const pid_t child = fork();
  if (child == 0) _exit(0);
  siginfo_t ended{};
  ASSERT_EQ(waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
  ASSERT_EQ(kill(child, 0), 0);
  std::ofstream(File()) << "     " << child << "\n";
  EXPECT_FALSE(IsBusy());
  EXPECT_TRUE(fs::is_empty(folder_));
  waitpid(child, nullptr, 0);
}

// As text it would be process 1, which lives.
TEST_F(DeviceLockTest, TakesBytesThatBeginLikeTextForANumber) {
  constexpr std::array<char, 4> kNoProcess{'1', '\n', '\0', '\x7F'};
  std::ofstream(File()).write(kNoProcess.data(), kNoProcess.size());
  EXPECT_FALSE(IsBusy());
  EXPECT_TRUE(fs::is_empty(folder_));
}

TEST_F(DeviceLockTest, LocksTheDeviceBehindALink) {
  const std::string link = folder_ / "printer";
  fs::create_symlink(terminal_.DevicePath(), link);
  const link::UniqueDescriptor device = Open();
  const DeviceLock lock(link, device.Get(), folder_);
  EXPECT_TRUE(fs::exists(File()));
}

TEST_F(DeviceLockTest, DoesWithTheFirstLockWhereThereIsNoFolder) {
  const link::UniqueDescriptor device = Open();
  const DeviceLock lock(terminal_.DevicePath(), device.Get(), folder_ / "missing");
  const link::UniqueDescriptor other = Open();
  EXPECT_NE(flock(other.Get(), LOCK_EX | LOCK_NB), 0);
}

TEST_F(DeviceLockTest, LeavesNothingButTheLockWhereItIsKilled) {
  const int probe = open(folder_.c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
  const bool has_nameless_files = probe >= 0;
  if (has_nameless_files) close(probe);
  for (int i = 0; i < 20; ++i) {
    fs::remove(File());
    const pid_t child = fork();
    if (child == 0) {
      const link::UniqueDescriptor device = Open();
      while (true) const DeviceLock lock(terminal_.DevicePath(), device.Get(), folder_);
    }
    siginfo_t ended{};
    while (!fs::exists(File()) && ended.si_pid == 0) {
      waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOHANG | WNOWAIT);
      sched_yield();
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
  EXPECT_FALSE(IsBusy());
  std::vector<std::string> left;
  for (const auto& entry : fs::directory_iterator(folder_)) left.push_back(entry.path().filename());
  // Where the file system has no files without a name, those before the lock have one.
  if (has_nameless_files) {
    EXPECT_EQ(left, std::vector<std::string>());
  }
}

// Only the superuser can become another user, who may not signal a process of the superuser's.
TEST_F(DeviceLockTest, LeavesTheFileOfAnotherUsersLivingProcess) {
  std::ofstream(File()) << getpid() << "\n";
  fs::permissions(folder_, fs::perms::all);
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    const link::UniqueDescriptor device = Open();
    const bool is_other = geteuid() != 0 || setuid(kNobody) == 0;
    int status = 2;
    try {
      const DeviceLock lock(terminal_.DevicePath(), device.Get(), folder_);
    } catch (const std::system_error&) {
      status = is_other ? 0 : 1;
    }
    // With the exception gone, nothing of it is left to be told as lost.
    _exit(status);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(fs::exists(File()));
}

}  // namespace
}  // namespace vantrel::log
