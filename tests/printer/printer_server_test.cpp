#include "printer/printer_server.h"

#include "printer/printer_model.h"
#include "tests/printer/device_user.h"

#include <QTest>
#include <gtest/gtest.h>

#include <poll.h>

namespace vantrel {
namespace {

class PrinterServerTest : public testing::Test {
 protected:
  // Whether the other side of the line has gone.
  static bool HasHungUp(const DeviceUser& user) {
    pollfd line{user.Descriptor(), POLLIN, 0};
    return poll(&line, 1, 0) == 1 && (line.revents & POLLHUP) != 0;
  }

  PrinterModel model_;
  PrinterServer server_{model_};
};

TEST_F(PrinterServerTest, LetsTheDeviceVanishOnAFault) {
  int changes = 0;
  QObject::connect(&server_, &PrinterServer::DeviceChanged, [&changes] { ++changes; });
  const DeviceUser console(server_.DevicePath());
  model_.SetFault(ParseFault("vanish"));
  console.Write("02 95 03 96");
  EXPECT_FALSE(HasHungUp(console));
  EXPECT_TRUE(QTest::qWaitFor([&] { return HasHungUp(console); }));
  EXPECT_EQ(server_.DevicePath(), "");
  EXPECT_EQ(changes, 1);
}

TEST_F(PrinterServerTest, ServesADeviceThatIsThereAgain) {
  server_.Unplug();
  server_.Unplug();
  // What is done meanwhile is done to the printer.
  EXPECT_TRUE(server_.InsertCard());
  server_.PlugIn();
  const DeviceUser console(server_.DevicePath());
  ASSERT_TRUE(console.IsOpen());
  QByteArray sent;
  QObject::connect(&server_, &PrinterServer::Sent,
                   [&sent](const QByteArray& bytes) { sent += bytes; });
  console.Write("02 95 03 96");
  EXPECT_TRUE(QTest::qWaitFor([&sent] { return sent.size() == 7; }));
  EXPECT_EQ(console.Read(7), "06 02 95 20 30 03 86");
}

TEST_F(PrinterServerTest, LosesWhatIsSentWhileTheDeviceIsAway) {
  const DeviceUser console(server_.DevicePath());
  model_.SetFault(ParseFault("delay 50"));
  QByteArray sent;
  QObject::connect(&server_, &PrinterServer::Sent,
                   [&sent](const QByteArray& bytes) { sent += bytes; });
  console.Write("02 95 03 96");
  EXPECT_TRUE(QTest::qWaitFor([&sent] { return !sent.isEmpty(); }));
  server_.Unplug();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !model_.NextAdvance(); }));
  EXPECT_EQ(sent.toHex(), "06");
}

TEST_F(PrinterServerTest, SwitchesThePowerOffAndOn) {
  server_.InsertCard();
  server_.SetPower(false);
  EXPECT_FALSE(model_.State().power);
  server_.SetPower(true);
  EXPECT_TRUE(model_.State().power);
  EXPECT_EQ(model_.State().place, CardPlace::kFront);
}

}  // namespace
}  // namespace vantrel
