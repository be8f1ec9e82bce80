// SPDX-License-Identifier: MIT

#include "link/port.h"

#include <gtest/gtest.h>

#include <string>

namespace vantrel::link {
namespace {

const std::string kChooseAgain =
    "choose the port in \"Setting\" - \"Port\" and then a speed in \"Setting\" - \"Baud Rate\" to "
    "open it.";

TEST(PortText, OfAMissingDeviceNamesItAndTellsWhatToDo) {
  EXPECT_EQ(
      CannotOpen("COM 1 (/dev/ttyS0)", OpenFailure::kNotFound, "No such file or directory", "")
          .what(),
      "COM 1 (/dev/ttyS0) cannot be opened: No such file or directory\r\n\r\n"
      "There is no such device. Connect the printer, then " +
          kChooseAgain);
}

TEST(PortText, OfMissingPermissionNamesTheGroupToJoin) {
  EXPECT_EQ(
      CannotOpen("COM 1 (/dev/ttyS0)", OpenFailure::kNoPermission, "Permission denied", "uucp")
          .what(),
      "COM 1 (/dev/ttyS0) cannot be opened: Permission denied\r\n\r\n"
      "You may not use this device. Join the group \"uucp\" (as an administrator: usermod -aG "
      "uucp YOUR-NAME), log in again, then " +
          kChooseAgain);
}

TEST(PortText, OfMissingPermissionWithoutAUsefulGroupSendsToTheAdministrator) {
  EXPECT_EQ(
      CannotOpen("COM 2 (/dev/ttyS1)", OpenFailure::kNoPermission, "Permission denied", "").what(),
      "COM 2 (/dev/ttyS1) cannot be opened: Permission denied\r\n\r\n"
      "You may not use this device. Ask your administrator for access, then " +
          kChooseAgain);
}

TEST(PortText, OfADeviceInUseSaysSo) {
  EXPECT_EQ(
      CannotOpen("COM 1 (/dev/ttyS0)", OpenFailure::kInUse, "Permission error", "dialout").what(),
      "COM 1 (/dev/ttyS0) cannot be opened: Permission error\r\n\r\n"
      "Another program is using this device. End that program, then " +
          kChooseAgain);
}

TEST(PortText, OfAnyOtherFailureToOpenCarriesTheSystemsWords) {
  EXPECT_EQ(CannotOpen("COM 1 (/dev/ttyS0)", OpenFailure::kOther, "Input/output error", "").what(),
            "COM 1 (/dev/ttyS0) cannot be opened: Input/output error\r\n\r\n"
            "Check that a serial port is there and that the printer is connected, then " +
                kChooseAgain);
}

TEST(PortText, WithoutWordsOfTheSystemHasNoColon) {
  EXPECT_EQ(CannotOpen("COM 1", OpenFailure::kNotFound, "", "").what(),
            "COM 1 cannot be opened\r\n\r\nThere is no such device. Connect the printer, then " +
                kChooseAgain);
}

TEST(PortText, OfAClosedPortSaysThatNothingWasSent) {
  EXPECT_STREQ(NotOpen("COM 2 (/dev/ttyS1)").what(),
               "COM 2 (/dev/ttyS1) is not open, so nothing was sent\r\n\r\n"
               "Choose a speed in \"Setting\" - \"Baud Rate\" to open it.");
}

TEST(PortText, OfRefusedSettingsNamesThem) {
  EXPECT_STREQ(SettingsRefused("COM 1 (/dev/ttyS0)", "2400,N,8,1", "Invalid argument").what(),
               "COM 1 (/dev/ttyS0) does not take the settings 2400,N,8,1: Invalid argument\r\n\r\n"
               "Choose another speed in \"Setting\" - \"Baud Rate\".");
}

TEST(PortText, OfAFailedWrite) {
  EXPECT_EQ(WriteFailed("COM 1 (/dev/ttyS0)", "Input/output error").what(),
            "COM 1 (/dev/ttyS0) could not be written to: Input/output error\r\n\r\n"
            "Check the cable and the printer, then " +
                kChooseAgain);
}

TEST(PortText, OfADeviceThatIsGone) {
  EXPECT_EQ(DeviceGone("COM 1 (/dev/ttyUSB0)", "No such device").what(),
            "COM 1 (/dev/ttyUSB0) is gone: No such device\r\n\r\n"
            "Connect the printer again, then " +
                kChooseAgain);
}

}  // namespace
}  // namespace vantrel::link
