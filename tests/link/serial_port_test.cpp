// SPDX-License-Identifier: MIT

#include "tests/link/serial_port_fixture.h"
#include "tests/support/wait_for.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>

namespace vantrel::link {
namespace {

using testing::AllOf;
using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

TEST_F(SerialPortTest, IsClosedWhenMade) {
  EXPECT_FALSE(port.IsOpen());
  EXPECT_EQ(port.Input(), Bytes{});
  port.DiscardInput();
  port.DiscardOutput();
  port.Close();
  EXPECT_FALSE(port.IsOpen());
}

TEST_F(SerialPortTest, OpensAt9600Bits8N1) {
  port.Open();
  EXPECT_TRUE(port.IsOpen());
  EXPECT_EQ(terminal.Speed(), 9600U);
  EXPECT_TRUE(terminal.Is8N1());
}

TEST_F(SerialPortTest, OpensWithoutFlowControlWhateverTheLineHadBefore) {
  terminal.SetFlowControl();
  ASSERT_TRUE(terminal.HasFlowControl());
  port.Open();
  EXPECT_FALSE(terminal.HasFlowControl());
}

TEST_F(SerialPortTest, OpensAtTheSpeedChosenWhileItWasClosed) {
  port.SetSettings("38400,N,8,1");
  EXPECT_FALSE(port.IsOpen());
  port.Open();
  EXPECT_EQ(terminal.Speed(), 38400U);
}

TEST_F(SerialPortTest, ChoosingASpeedWhileOpenChangesItWithoutClosing) {
  port.Open();
  for (const unsigned speed : {2400U, 4800U, 9600U, 19200U, 38400U}) {
    port.SetSettings(std::to_string(speed) + ",N,8,1");
    EXPECT_TRUE(port.IsOpen());
    EXPECT_TRUE(IsLocked());
    EXPECT_EQ(terminal.Speed(), speed);
    EXPECT_TRUE(terminal.Is8N1());
  }
  terminal.Send("06");
  EXPECT_TRUE(support::WaitFor([this] { return ears.received == "06"; }));
  EXPECT_TRUE(ears.losses.empty());
}

TEST_F(SerialPortTest, OpensThroughALinkAtTheDeviceItPointsTo) {
  const QTemporaryDir directory;
  std::string link = directory.filePath("printer").toStdString();
  std::filesystem::create_symlink(terminal.Device(), link);
  SerialPort linked([&link](int) { return link; });
  linked.Open();
  EXPECT_TRUE(IsLocked());
  // Another program that opens the device by its own name finds it taken.
  EXPECT_EQ(OpenFailureOf(port).substr(0, terminal.Device().size() + 27),
            "COM 1 (" + terminal.Device() + ") cannot be opened: ");
  linked.Close();
  EXPECT_EQ(OpenFailureOf(port), "");
}

TEST_F(SerialPortTest, HoldsItsLockFromOpenToClose) {
  EXPECT_FALSE(IsLocked());
  port.Open();
  EXPECT_TRUE(IsLocked());
  port.Close();
  EXPECT_FALSE(IsLocked());
}

TEST_F(SerialPortTest, SaysThatAnotherProgramUsesATakenDevice) {
  port.Open();
  SerialPort second([this](int) { return terminal.Device(); });
  EXPECT_THAT(OpenFailureOf(second),
              AllOf(StartsWith("COM 1 (" + terminal.Device() + ") cannot be opened: "),
                    HasSubstr("\r\n\r\nAnother program is using this device. ")));
  EXPECT_FALSE(second.IsOpen());
  EXPECT_TRUE(port.IsOpen());
  port.Close();
  EXPECT_EQ(OpenFailureOf(second), "");
}

TEST_F(SerialPortTest, DiscardsStaleBytesAtOpen) {
  terminal.Send("07070707");
  ASSERT_TRUE(support::WaitFor([this] { return terminal.Unread() == 4; }));
  port.Open();
  terminal.Send("06");
  ASSERT_TRUE(support::WaitFor([this] { return !ears.received.empty(); }));
  EXPECT_EQ(ears.received, "06");
}

TEST_F(SerialPortTest, BytesArriveThroughReceiveEvents) {
  port.Open();
  terminal.Send("0602212041420301");
  ASSERT_TRUE(support::WaitFor([this] { return ears.received.size() == 16; }));
  EXPECT_EQ(ears.received, "0602212041420301");
  EXPECT_THAT(ears.codes, Each(2));
}

TEST_F(SerialPortTest, EveryByteArrivesAsItIs) {
  port.Open();
  std::string all;
  for (int code = 0; code <= 0xFF; ++code) all += HexOf(static_cast<std::uint8_t>(code));
  terminal.Send(all);
  EXPECT_TRUE(support::WaitFor([&] { return ears.received.size() >= all.size(); }));
  EXPECT_EQ(ears.received, all);
  port.Output(BytesOf(all));
  EXPECT_EQ(terminal.Received(256), all);
}

TEST_F(SerialPortTest, OutputReachesTheOtherSideBeforeAnyEventRuns) {
  port.Open();
  port.Output({0x02, 0x21, 0x03, 0x22});
  EXPECT_EQ(terminal.Received(4), "02210322");
}

TEST_F(SerialPortTest, OutputOfSingleBytesKeepsTheirOrder) {
  port.Open();
  for (const std::uint8_t byte : Bytes{0x02, 0x21, 0x03, 0x22}) port.Output({byte});
  EXPECT_EQ(terminal.Received(4), "02210322");
}

TEST_F(SerialPortTest, DiscardInputDropsWhatNobodyHasRead) {
  port.Open();
  terminal.Send("070707");
  ASSERT_TRUE(support::WaitFor([this] { return terminal.Unread() == 3 || !ears.codes.empty(); }));
  ears.received.clear();
  port.DiscardInput();
  terminal.Send("06");
  ASSERT_TRUE(support::WaitFor([this] { return !ears.received.empty(); }));
  EXPECT_EQ(ears.received, "06");
}

TEST_F(SerialPortTest, OpensAgainAfterClose) {
  port.Open();
  port.Close();
  port.Open();
  terminal.Send("06");
  EXPECT_TRUE(support::WaitFor([this] { return ears.received == "06"; }));
}

TEST_F(SerialPortTest, OpeningAnOpenPortLeavesItOpen) {
  port.Open();
  port.Open();
  EXPECT_TRUE(port.IsOpen());
  EXPECT_TRUE(IsLocked());
}

TEST_F(SerialPortTest, ClosedPortRefusesOutput) {
  try {
    port.Output({0x02});
    FAIL() << "A closed port took a byte.";
  } catch (const PortError& error) {
    EXPECT_THAT(error.what(), StartsWith("COM 1 (" + terminal.Device() +
                                         ") is not open, so nothing was sent\r\n\r\n"));
  }
}

TEST_F(SerialPortTest, MissingDeviceSaysThatThereIsNone) {
  port.SetCommPort(2);
  EXPECT_THAT(OpenFailureOf(port),
              AllOf(StartsWith("COM 2 (" + missing + ") cannot be opened: "),
                    HasSubstr("\r\n\r\nThere is no such device. Connect the printer, then ")));
  EXPECT_FALSE(port.IsOpen());
}

TEST_F(SerialPortTest, LinkToAMissingDeviceIsNamedItself) {
  const QTemporaryDir directory;
  std::string link = directory.filePath("printer").toStdString();
  std::filesystem::create_symlink(missing, link);
  SerialPort linked([&link](int) { return link; });
  EXPECT_THAT(OpenFailureOf(linked), AllOf(StartsWith("COM 1 (" + link + ") cannot be opened: "),
                                           HasSubstr("There is no such device.")));
}

TEST_F(SerialPortTest, WhatIsNoSerialDeviceIsRefused) {
  const QTemporaryDir directory;
  SerialPort refused([&](int) { return directory.path().toStdString(); });
  EXPECT_THAT(OpenFailureOf(refused),
              AllOf(StartsWith("COM 1 (" + directory.path().toStdString() + ") cannot be opened: "),
                    HasSubstr("Check that a serial port is there and that the printer is "
                              "connected, then ")));
  EXPECT_FALSE(refused.IsOpen());
}

TEST_F(SerialPortTest, ChoosingCom2ThenASpeedOpensPort2) {
  SerialPort other([this](int number) { return number == 2 ? terminal.Device() : missing; });
  other.SetCommPort(2);
  EXPECT_FALSE(other.IsOpen());
  other.SetSettings("9600,N,8,1");
  EXPECT_FALSE(other.IsOpen());
  other.Open();
  EXPECT_TRUE(other.IsOpen());
  EXPECT_EQ(terminal.Speed(), 9600U);
}

TEST(DeviceIn, IsTheComLinkWhereThereIsOneElseASerialPort) {
  const QTemporaryDir folder;
  const std::string path = folder.path().toStdString();
  // What it points to is missing; that is told when it is opened.
  ASSERT_TRUE(QFile::link("/dev/vantrel-missing", folder.filePath("com2")));
  EXPECT_EQ(DeviceIn(path, 1), path + "/ttyS0");
  EXPECT_EQ(DeviceIn(path, 2), path + "/com2");
}

TEST(SystemDevice, StandsInTheSystemsFolderOfDevices) {
  EXPECT_THAT(SystemDevice(1), testing::AnyOf("/dev/com1", "/dev/ttyS0"));
  EXPECT_THAT(SystemDevice(2), testing::AnyOf("/dev/com2", "/dev/ttyS1"));
}

}  // namespace
}  // namespace vantrel::link
