// SPDX-License-Identifier: MIT

// The built program between a console and a real printer, whose place a pseudo-terminal takes.

#include "printer/line/pseudo_terminal.h"
#include "tests/printer/program/printer_program.h"
#include "tests/support/device_user.h"
#include "tests/support/patience.h"

#include <gtest/gtest.h>

#include <poll.h>

#include <memory>

namespace vantrel::printer {
namespace {

class ThroughProgram : public PrinterProgram {
 protected:
  std::string Through(const QString& device) { return Serve({"--through", device}); }
  // What the real printer has been sent, in parts until it is as long as this.
  link::Bytes PrinterReads(std::size_t count) {
    link::Bytes all;
    pollfd readable{printer_->Descriptor(), POLLIN, 0};
    while (all.size() < count && poll(&readable, 1, support::kPatience) > 0) {
      const link::Bytes part = printer_->Read();
      all.insert(all.end(), part.begin(), part.end());
    }
    return all;
  }
  QString PrinterDevice() const { return QString::fromStdString(printer_->DevicePath()); }

  std::unique_ptr<PseudoTerminal> printer_ = std::make_unique<PseudoTerminal>();
};

TEST_F(ThroughProgram, PassesBytesOnAndPrintsTheLog) {
  const support::DeviceUser console(Through(PrinterDevice()));
  ASSERT_TRUE(console.IsOpen());
  console.Write("02 21 03 22");
  EXPECT_EQ(PrinterReads(4), (link::Bytes{0x02, 0x21, 0x03, 0x22}));
  printer_->Write({0x06, 0x02, 0x21, 0x22, 0x03, 0x00});
  EXPECT_EQ(console.Read(6), "06 02 21 22 03 00");
  // Each line begins with date and time, "2026-01-02 10:20:30.123", and two blanks.
  EXPECT_EQ(ReadLine().substr(25), "received  02 21 03 22  21h first track read");
  EXPECT_EQ(ReadLine().substr(25), "sent      06  06h acknowledge");
  EXPECT_EQ(ReadLine().substr(25), "sent      02 21 22 03 00  reply 21h: 22h no targeted Card");
  program_.terminate();
  EXPECT_EQ(End(), 0);
}

TEST_F(ThroughProgram, SaysWhatDeviceThereIsNot) {
  Start({"--headless", "--through", "/dev/no-such-device"});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            "vantrel-printer: There is no device /dev/no-such-device.\n");
  Start({"--headless", "--through", "/dev/null"});
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(), "vantrel-printer: /dev/null is no serial device.\n");
}

TEST_F(ThroughProgram, EndsWhenTheDeviceGoes) {
  ASSERT_NE(Through(PrinterDevice()), "");
  const QString device = PrinterDevice();
  printer_.reset();
  EXPECT_EQ(End(), 1);
  EXPECT_EQ(program_.readAllStandardError(),
            ("vantrel-printer: The device " + device + " is gone.\n").toUtf8());
}

TEST_F(ThroughProgram, KeepsItsWindowWhenTheDeviceGoes) {
  Start({"--through", PrinterDevice()});
  ASSERT_NE(ReadLine(), "");
  const QString device = PrinterDevice();
  printer_.reset();
  program_.setReadChannel(QProcess::StandardError);
  // The window system may have something to say as well.
  std::string line = ReadLine();
  while (!line.empty() && !line.starts_with("vantrel-printer: ")) line = ReadLine();
  EXPECT_EQ(line, "vantrel-printer: The device " + device.toStdString() + " is gone.");
  EXPECT_EQ(program_.state(), QProcess::Running);
  program_.terminate();
  EXPECT_EQ(End(), 1);
}

}  // namespace
}  // namespace vantrel::printer
