#include "printer/window/fault_page.h"

#include "tests/support/printer_form_bench.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <string>

namespace vantrel::printer {
namespace {

class FaultPageTest : public support::PrinterFormBench {
 protected:
  FaultPageTest() { TurnTo("Faults"); }

  void Type(const QString& text) {
    QLineEdit* box = Find<QComboBox>("CmbFault")->lineEdit();
    box->selectAll();
    QTest::keyClicks(box, text);
  }
  std::string Had() {
    const auto faults = model_.Faults().List();
    return faults.empty() ? "none" : TextOf(faults.front().fault);
  }
};

TEST_F(FaultPageTest, SetsAFaultForTheNextCommand) {
  EXPECT_EQ(Label("LblFault"), "No fault is set.");
  EXPECT_FALSE(Find<QPushButton>("CmdClearFault")->isEnabled());
  EXPECT_EQ(Label("LblFaultMeaning"), "22h: No targeted Card");
  Click("CmdSetFault");
  EXPECT_EQ(Had(), "status 22 next");
  EXPECT_EQ(Label("LblFault"), "Still to go wrong: status 22 next");
}

TEST_F(FaultPageTest, SetsAFaultForSeveralCommandsOrUntilItIsTakenAway) {
  Type("delay 750");
  EXPECT_EQ(Label("LblFaultMeaning"), "");
  auto* count = Find<QComboBox>("CmbFaultCount");
  EXPECT_FALSE(Find<QSpinBox>("TxtFaultCount")->isEnabled());
  QTest::keyClick(count, Qt::Key_Down);
  EXPECT_TRUE(Find<QSpinBox>("TxtFaultCount")->isEnabled());
  Click("CmdSetFault");
  EXPECT_EQ(Had(), "delay 750 for 3");
  QTest::keyClick(count, Qt::Key_Down);
  Click("CmdSetFault");
  EXPECT_EQ(Had(), "delay 750 until cleared");
  Click("CmdClearFault");
  EXPECT_EQ(Had(), "none");
  EXPECT_EQ(Label("LblFault"), "No fault is set.");
}

TEST_F(FaultPageTest, CountsDownWhatIsStillToGoWrong) {
  model_.ReplaceFaults(ParseFault("reject for 3"));
  EXPECT_EQ(Label("LblFault"), "Still to go wrong: reject for 3");
  for (const char* left :
       {"Still to go wrong: reject for 2", "Still to go wrong: reject next", "No fault is set."}) {
    console_.Write("02 95 03 96");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Label("LblFault") == left; })) << left;
  }
}

TEST_F(FaultPageTest, TellsWhyAFaultIsNotTakenAndLosesNothing) {
  Click("CmdSetFault");
  Type("delay soon");
  Click("CmdSetFault");
  EXPECT_EQ(Label("LblFaultRefusal"), "'delay' needs a number from 1 to 3600000, not 'soon'.");
  EXPECT_EQ(Label("LblFault"), "Still to go wrong: status 22 next");
  Type("silence");
  Click("CmdSetFault");
  EXPECT_EQ(Label("LblFaultRefusal"), "");
  EXPECT_EQ(Had(), "silence next");
}

TEST_F(FaultPageTest, OffersEveryStatusAndEveryOtherFault) {
  const auto* faults = Find<QComboBox>("CmbFault");
  QStringList texts;
  for (int i = 0; i < faults->count(); ++i) texts.append(faults->itemText(i));
  EXPECT_EQ(texts, QStringList({"status 22",
                                "status 23",
                                "status 31",
                                "status 32",
                                "status 33",
                                "status 34",
                                "status 37",
                                "status 38",
                                "status 40",
                                "status 41",
                                "status 42",
                                "status 43",
                                "status 45",
                                "status 4C",
                                "status 51",
                                "status 7F",
                                "silence",
                                "mute",
                                "delay 2000",
                                "late 1000",
                                "bad-bcc",
                                "wrong-echo",
                                "truncate",
                                "drop 2",
                                "extra FF00",
                                "resend 2",
                                "reject",
                                "unknown-control 55",
                                "noise FF00",
                                "split 5",
                                "join",
                                "vanish",
                                "random 1 20 silence,bad-bcc,truncate"}));
}

TEST_F(FaultPageTest, OffersNothingThatIsNotTaken) {
  auto* faults = Find<QComboBox>("CmbFault");
  for (int i = 0; i < faults->count(); ++i) {
    faults->setCurrentIndex(i);
    Click("CmdSetFault");
    EXPECT_EQ(Had(), faults->itemText(i).toStdString() + " next");
    EXPECT_EQ(Label("LblFaultRefusal"), "");
  }
}

}  // namespace
}  // namespace vantrel::printer
