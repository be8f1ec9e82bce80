// SPDX-License-Identifier: MIT

#include "tests/link/serial_port_fixture.h"

#include <gmock/gmock.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantrel::link {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

constexpr uid_t kNobody = 65534;

// Opens a device in a process of its own that has no rights beyond those of an ordinary user, and
// returns the failure's message.
std::string FailureOfAnOrdinaryUser(const std::string& device) {
  int ends[2] = {};
  if (pipe(ends) != 0) return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    const bool ordinary = geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 &&
                                             setuid(kNobody) == 0);
    std::string message = "rights could not be dropped";
    if (ordinary) {
      SerialPort port([&device](int) { return device; });
      try {
        port.Open();
        message = "opened";
      } catch (const PortError& error) {
        message = error.what();
      }
    }
    const ssize_t written = write(ends[1], message.data(), message.size());
    _exit(written == static_cast<ssize_t>(message.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string message(4096, '\0');
  const ssize_t length = read(ends[0], message.data(), message.size());
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  message.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
  return message;
}

// Gives the device to a group, "dialout" where this process may choose, and returns the group's
// name.
std::string GiveToAGroup(const std::string& device) {
  const group* dialout = getgrnam("dialout");
  const bool may_choose = geteuid() == 0 && dialout != nullptr;
  EXPECT_EQ(may_choose ? chown(device.c_str(), 0, dialout->gr_gid) : 0, 0);
  struct stat status = {};
  EXPECT_EQ(stat(device.c_str(), &status), 0);
  return getgrgid(status.st_gid)->gr_name;
}

TEST_F(SerialPortTest, MissingPermissionNamesTheGroupThatOwnsTheDevice) {
  const std::string group = GiveToAGroup(terminal.Device());
  // An owner who is not the superuser is kept out by the first digit.
  ASSERT_EQ(chmod(terminal.Device().c_str(), 0060), 0);
  EXPECT_THAT(FailureOfAnOrdinaryUser(terminal.Device()),
              AllOf(StartsWith("COM 1 (" + terminal.Device() + ") cannot be opened: "),
                    HasSubstr("You may not use this device. Join the group \"" + group +
                              "\" (as an administrator: usermod -aG " + group +
                              " YOUR-NAME), log in again, then ")));
}

// A group that may not both read and write would not help either.
TEST_F(SerialPortTest, MissingPermissionNamesNoGroupThatWouldNotHelp) {
  GiveToAGroup(terminal.Device());
  for (const mode_t mode : {0000U, 0040U, 0020U}) {
    ASSERT_EQ(chmod(terminal.Device().c_str(), mode), 0);
    EXPECT_THAT(FailureOfAnOrdinaryUser(terminal.Device()),
                HasSubstr("You may not use this device. Ask your administrator for access, then "))
        << std::oct << mode;
  }
}

}  // namespace
}  // namespace vantrel::link
