// SPDX-License-Identifier: MIT

#include "printer/window/printer_page.h"

#include "tests/support/installed_fonts.h"
#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

#include <string>

namespace vantrel::printer {
namespace {

class PrinterPageTest : public support::PrinterFormBench {
 protected:
  PrinterPageTest() { TurnTo("Printer"); }

  bool IsChecked(const char* name) { return Find<QAbstractButton>(name)->isChecked(); }
};

TEST_F(PrinterPageTest, SwitchesThePowerOffAndOn) {
  EXPECT_TRUE(IsChecked("ChkPower"));
  Click("ChkPower");
  EXPECT_FALSE(model_.State().power);
  EXPECT_EQ(Label("LblActivity"), "Switched off");
  Click("ChkPower");
  EXPECT_TRUE(model_.State().power);
  EXPECT_EQ(Label("LblActivity"), "Idle");
}

TEST_F(PrinterPageTest, ChoosesTheSeries) {
  EXPECT_TRUE(IsChecked("OptSeries_0"));
  Click("OptSeries_1");
  EXPECT_EQ(model_.State().series, Series::kQl8);
  // 31h "1" writes the first track, which a QL-8 does not.
  console_.Write("02 31 31 03 03");
  ASSERT_TRUE(support::WaitFor([&] { return console_.ReadNow() == "10"; }));
  Click("OptSeries_0");
  EXPECT_EQ(model_.State().series, Series::kQl7);
}

TEST_F(PrinterPageTest, FitsTheCaseParts) {
  EXPECT_FALSE(IsChecked("ChkCaseParts"));
  Click("ChkCaseParts");
  EXPECT_TRUE(model_.State().case_parts);
  Click("ChkCaseParts");
  EXPECT_FALSE(model_.State().case_parts);
}

TEST_F(PrinterPageTest, ChoosesOneOfFiveSpeeds) {
  auto* speeds = Find<QComboBox>("CmbSpeed");
  QStringList texts;
  for (int i = 0; i < speeds->count(); ++i) texts.append(speeds->itemText(i));
  EXPECT_EQ(texts, QStringList({"2400 bits/s", "4800 bits/s", "9600 bits/s", "19200 bits/s",
                                "38400 bits/s"}));
  EXPECT_EQ(speeds->currentText(), "9600 bits/s");
  QTest::keyClick(speeds, Qt::Key_Down);
  EXPECT_EQ(model_.Speed(), 19200);
  QTest::keyClick(speeds, Qt::Key_Home);
  EXPECT_EQ(model_.Speed(), 2400);
}

TEST_F(PrinterPageTest, SwitchesPacing) {
  EXPECT_FALSE(IsChecked("ChkPacing"));
  Click("ChkPacing");
  EXPECT_TRUE(model_.Pacing());
  Click("ChkPacing");
  EXPECT_FALSE(model_.Pacing());
}

TEST_F(PrinterPageTest, ShowsWhatWasSetElsewhere) {
  server_.SetPower(false);
  model_.SetSeries(Series::kQl8);
  model_.SetCaseParts(true);
  model_.SetSpeed(57600);
  model_.SetPacing(true);
  EXPECT_FALSE(IsChecked("ChkPower"));
  EXPECT_TRUE(IsChecked("OptSeries_1"));
  EXPECT_TRUE(IsChecked("ChkCaseParts"));
  EXPECT_EQ(Find<QComboBox>("CmbSpeed")->currentText(), "57600 bits/s");
  EXPECT_TRUE(IsChecked("ChkPacing"));
}

TEST_F(PrinterPageTest, UnplugsAndPlugsIn) {
  EXPECT_FALSE(Find<QPushButton>("CmdPlugIn")->isEnabled());
  Click("CmdUnplug");
  EXPECT_EQ(server_.DevicePath(), "");
  EXPECT_EQ(Label("LblDevice"), "unplugged");
  EXPECT_FALSE(Find<QPushButton>("CmdUnplug")->isEnabled());
  Click("CmdPlugIn");
  EXPECT_NE(server_.DevicePath(), "");
  EXPECT_EQ(Label("LblDevice").toStdString(), server_.DevicePath());
  EXPECT_TRUE(support::DeviceUser(server_.DevicePath()).IsOpen());
  EXPECT_FALSE(Find<QPushButton>("CmdPlugIn")->isEnabled());
}

TEST_F(PrinterPageTest, SaysWhyNoDeviceCouldBeMade) {
  Click("CmdUnplug");
  has_lines_ = false;
  Click("CmdPlugIn");
  EXPECT_TRUE(Label("LblPlug").startsWith("No device could be made: "));
  EXPECT_TRUE(Label("LblPlug").contains("Too many open files"));
  EXPECT_EQ(Label("LblDevice"), "unplugged");
  has_lines_ = true;
  Click("CmdPlugIn");
  EXPECT_EQ(Label("LblPlug"), "");
  EXPECT_EQ(Label("LblDevice").toStdString(), server_.DevicePath());
}

TEST(PrinterPage, ShowsAtFirstHowThePrinterWasStarted) {
  PrinterModel model{support::InstalledFonts(), link::CodePage::kWestern};
  model.SetSeries(Series::kQl8);
  model.SetSpeed(38400);
  model.SetPacing(true);
  model.SetCaseParts(true);
  PrinterServer server(model);
  support::ScriptedDialogs dialogs;
  support::ScriptedFileChooser files;
  support::RecordingGuard guard;
  const PrinterPage page(model, server, {dialogs, files, guard});
  EXPECT_TRUE(page.findChild<QRadioButton*>("OptSeries_1")->isChecked());
  EXPECT_EQ(page.findChild<QComboBox*>("CmbSpeed")->currentText(), "38400 bits/s");
  EXPECT_TRUE(page.findChild<QCheckBox*>("ChkPacing")->isChecked());
  EXPECT_TRUE(page.findChild<QCheckBox*>("ChkCaseParts")->isChecked());
}

}  // namespace
}  // namespace vantrel::printer
