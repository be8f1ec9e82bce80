// SPDX-License-Identifier: MIT

#include "printer/window/fault_page.h"

#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>

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
  EXPECT_EQ(Find<QComboBox>("CmbFault")->currentText(), "silence \u2013 Nothing answers");
  Click("CmdSetFault");
  EXPECT_EQ(Had(), "silence next");
  EXPECT_EQ(Label("LblFault"), "Still to go wrong: silence next");
}

TEST_F(FaultPageTest, SetsAFaultForSeveralCommandsOrUntilItIsTakenAway) {
  Type("delay 750");
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
    EXPECT_TRUE(support::WaitFor([&] { return Label("LblFault") == left; })) << left;
  }
}

TEST_F(FaultPageTest, TellsWhyAFaultIsNotTakenAndLosesNothing) {
  Click("CmdSetFault");
  Type("delay soon");
  Click("CmdSetFault");
  EXPECT_EQ(Label("LblFaultRefusal"), "'delay' needs a number from 1 to 3600000, not 'soon'.");
  EXPECT_EQ(Label("LblFault"), "Still to go wrong: silence next");
  Type("truncate");
  Click("CmdSetFault");
  EXPECT_EQ(Label("LblFaultRefusal"), "");
  EXPECT_EQ(Had(), "truncate next");
}

TEST_F(FaultPageTest, OffersBehavioursFirstAndThenStatusesWithTheirMeaning) {
  const auto* faults = Find<QComboBox>("CmbFault");
  QStringList texts;
  for (int i = 0; i < faults->count(); ++i) texts.append(faults->itemText(i));
  EXPECT_EQ(texts,
            QStringList(
                {"What the printer does",
                 "silence \u2013 Nothing answers",
                 "mute \u2013 The work is done, but nothing answers",
                 "delay 2000 \u2013 The reply comes late (milliseconds)",
                 ("late 1000 \u2013 The reply comes when the console has given it up (milliseconds "
                  "after)"),
                 "bad-bcc \u2013 The reply has a wrong block check",
                 "wrong-echo \u2013 The reply has another command code",
                 "truncate \u2013 The reply lacks its last two bytes",
                 "drop 2 \u2013 A byte of the answer is missing (which one)",
                 "extra FF00 \u2013 Noise follows the answer (bytes)",
                 "resend 2 \u2013 15h asks for the frame again (times)",
                 "reject \u2013 10h rejects the command",
                 "unknown-control 55 \u2013 An unknown control character answers",
                 "noise FF00 \u2013 Noise comes before the answer (bytes)",
                 "split 5 \u2013 The answer comes byte by byte (milliseconds between)",
                 "join \u2013 The answer comes together with the next",
                 "vanish \u2013 The device vanishes",
                 ("random 1 20 silence,bad-bcc,truncate \u2013 Some of these, at random (seed, "
                  "percent, faults)"),
                 "What status it answers with",
                 "22 \u2013 No targeted Card",
                 "23 \u2013 No magnetic stripe or other error",
                 "31 \u2013 Parity Error",
                 "32 \u2013 No Start code or End code",
                 "33 \u2013 LRC Error",
                 "34 \u2013 Erroneous character",
                 "37 \u2013 Magnetic Stripe writing error",
                 "38 \u2013 Card jam",
                 "40 \u2013 Cover open",
                 "41 \u2013 Invalid command",
                 "42 \u2013 CAM motor error",
                 "43 \u2013 Erase head temperature error",
                 "45 \u2013 EEPROM error",
                 "4C \u2013 Non-Compatible BMP file data",
                 "51 \u2013 Expansion buffer overflow error",
                 "7F \u2013 A status without a meaning"}));
}

TEST_F(FaultPageTest, OffersNothingThatIsNotTaken) {
  auto* faults = Find<QComboBox>("CmbFault");
  int headings = 0;
  for (int i = 0; i < faults->count(); ++i) {
    if (!(faults->model()->index(i, 0).flags() & Qt::ItemIsEnabled)) {
      ++headings;
      continue;
    }
    faults->setCurrentIndex(i);
    Click("CmdSetFault");
    const std::string text = faults->itemText(i).section(" \u2013 ", 0, 0).toStdString();
    EXPECT_EQ(Had(), (text.size() == 2 ? "status " + text : text) + " next");
    EXPECT_EQ(Label("LblFaultRefusal"), "");
  }
  EXPECT_EQ(headings, 2);
}

TEST_F(FaultPageTest, TakesAStatusByItsDigitsAlone) {
  Type("38 on 21");
  Click("CmdSetFault");
  EXPECT_EQ(Had(), "status 38 on 21 next");
}

TEST_F(FaultPageTest, IsSeenFromEveryPageAndTakenAwayByAClick) {
  auto* badge = Find<QToolButton>("CmdFaults");
  TurnTo("Card");
  EXPECT_EQ(badge->text(), "none");
  const auto places = [this] {
    QList<QRect> rects;
    for (const char* name : {"LblActivity", "LblBuzzer", "LblPrintCount"})
      rects += Find<QLabel>(name)->geometry();
    return rects << Find<QWidget>("StateBar")->geometry();
  };
  const QList<QRect> before = places();
  const int left = badge->x();
  model_.AddFault(ParseFault("status 38 for 3"));
  model_.AddFault(ParseFault("silence on 21"));
  ASSERT_TRUE(badge->isVisible());
  EXPECT_EQ(badge->text(), "2 set");
  EXPECT_EQ(badge->accessibleName(), "Faults: 2 set");
  EXPECT_EQ(badge->toolTip(),
            "status 38 for 3\nsilence on 21 next\nA click takes away what is set.");
  // Nothing else moves for it.
  QCoreApplication::processEvents();
  EXPECT_EQ(places(), before);
  EXPECT_EQ(badge->x(), left);
  Click("CmdFaults");
  EXPECT_TRUE(model_.Faults().IsEmpty());
  EXPECT_EQ(badge->text(), "none");
}

TEST_F(FaultPageTest, IsToldInTheLogsMeaningWhenItStrikes) {
  model_.AddFault(ParseFault("status 38"));
  console_.Write("02 21 03 22");
  const QAbstractItemModel* log = Find<QTableView>("TxtLog")->model();
  ASSERT_TRUE(support::WaitFor([&] { return log->rowCount() > 0; }));
  EXPECT_TRUE(support::WaitFor([&] {
    return log->index(0, 4).data() ==
           "21h first track read \u00B7 fault: status 38 (status 38h answers in place of the work)";
  })) << log->index(0, 4).data().toString().toStdString();
}

}  // namespace
}  // namespace vantrel::printer
