#include "printer/fault_page.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace vantrel {
namespace {

class FaultPageTest : public testing::Test {
 protected:
  FaultPageTest() { page_.show(); }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = page_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return widget;
  }
  void Click(const char* name) { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }
  QString Told() { return Find<QLabel>("LblFault")->text(); }

  std::string had_;
  std::string refusal_;
  FaultPage page_{[this](const std::string& text, std::string& error) {
    had_ = text;
    error = refusal_;
    return refusal_.empty();
  }};
};

TEST_F(FaultPageTest, SetsAFaultForTheNextCommand) {
  EXPECT_EQ(Told(), "No fault is set.");
  EXPECT_EQ(Find<QLabel>("LblFaultMeaning")->text(), "22h: No targeted Card");
  Click("CmdSetFault");
  EXPECT_EQ(had_, "status 22 next");
  EXPECT_EQ(Told(), "Set: status 22 next");
}

TEST_F(FaultPageTest, SetsAFaultForSeveralCommandsOrUntilItIsTakenAway) {
  auto* fault = Find<QComboBox>("CmbFault");
  fault->lineEdit()->selectAll();
  QTest::keyClicks(fault->lineEdit(), "delay 750");
  EXPECT_EQ(Find<QLabel>("LblFaultMeaning")->text(), "");
  auto* count = Find<QComboBox>("CmbFaultCount");
  EXPECT_FALSE(Find<QSpinBox>("TxtFaultCount")->isEnabled());
  QTest::keyClick(count, Qt::Key_Down);
  EXPECT_TRUE(Find<QSpinBox>("TxtFaultCount")->isEnabled());
  Click("CmdSetFault");
  EXPECT_EQ(had_, "delay 750 for 3");
  QTest::keyClick(count, Qt::Key_Down);
  Click("CmdSetFault");
  EXPECT_EQ(had_, "delay 750 until cleared");
  Click("CmdClearFault");
  EXPECT_EQ(had_, "clear");
  EXPECT_EQ(Told(), "No fault is set.");
}

TEST_F(FaultPageTest, TellsWhyAFaultIsNotTaken) {
  refusal_ = "There is no such fault.";
  Click("CmdSetFault");
  EXPECT_EQ(Told(), "There is no such fault.");
}

TEST_F(FaultPageTest, OffersEveryStatusAndEveryOtherFault) {
  const auto* faults = Find<QComboBox>("CmbFault");
  for (const char* text :
       {"status 22",  "status 23", "status 31", "status 32", "status 33",          "status 34",
        "status 37",  "status 38", "status 40", "status 41", "status 42",          "status 43",
        "status 45",  "status 4C", "status 51", "silence",   "delay 2000",         "bad-bcc",
        "wrong-echo", "truncate",  "resend 2",  "reject",    "unknown-control 55", "noise FF00",
        "split 5",    "join",      "vanish"})
    EXPECT_GE(faults->findText(text), 0) << text;
}

}  // namespace
}  // namespace vantrel
