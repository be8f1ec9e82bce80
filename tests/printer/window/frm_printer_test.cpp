// SPDX-License-Identifier: MIT

#include "printer/window/frm_printer.h"

#include "tests/support/printer_form_bench.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>

#include <sys/ioctl.h>

namespace vantrel::printer {
namespace {

using namespace std::chrono_literals;

class FrmPrinterTest : public support::PrinterFormBench {
 protected:
  // The log's lines: direction, hex and meaning.
  QStringList Log() {
    const QAbstractItemModel* log = Find<QTableView>("TxtLog")->model();
    QStringList lines;
    for (int row = 0; row < log->rowCount(); ++row) {
      lines.append(QStringList{log->index(row, 1).data().toString(),
                               log->index(row, 2).data().toString(),
                               log->index(row, 4).data().toString()}
                       .join(" | "));
    }
    return lines;
  }
};

TEST_F(FrmPrinterTest, ShowsTheDeviceAsSelectableText) {
  EXPECT_EQ(Label("LblDevice").toStdString(), server_.DevicePath());
  EXPECT_TRUE(Find<QLabel>("LblDevice")->textInteractionFlags() & Qt::TextSelectableByMouse);
}

TEST_F(FrmPrinterTest, PutsTheCardInAndPullsItOut) {
  EXPECT_EQ(Label("LblPlace"), "outside");
  EXPECT_FALSE(Find<QPushButton>("CmdPullOutCard")->isEnabled());
  Click("CmdInsertCard");
  EXPECT_EQ(Label("LblPlace"), "inserted at the front");
  EXPECT_FALSE(Find<QPushButton>("CmdInsertCard")->isEnabled());
  Click("CmdPullOutCard");
  EXPECT_EQ(Label("LblPlace"), "outside");
}

TEST_F(FrmPrinterTest, LetsTheCardBeChangedOutsideAlone) {
  Click("OptCard_1");
  EXPECT_EQ(model_.State().card.kind, CardKind::kCleaning);
  EXPECT_FALSE(Find<QLineEdit>("TxtTrack_1")->isEnabled());
  Click("CmdInsertCard");
  EXPECT_FALSE(Find<QRadioButton>("OptCard_0")->isEnabled());
  Click("OptCard_0");
  EXPECT_EQ(model_.State().card.kind, CardKind::kCleaning);
}

TEST_F(FrmPrinterTest, RecordsWhatIsTypedAndNothingThatATrackCannotHold) {
  QTest::keyClicks(Find<QLineEdit>("TxtTrack_1"), "ABC\r");
  auto* third = Find<QLineEdit>("TxtTrack_3");
  QTest::keyClicks(third, "1");
  QKeyEvent accented(QEvent::KeyPress, 0, Qt::NoModifier, QString(QChar(0xE9)));
  QApplication::sendEvent(third, &accented);
  QTest::keyClicks(third, "2\r");
  EXPECT_EQ(model_.State().card.tracks[0], "ABC");
  EXPECT_EQ(model_.State().card.tracks[2], "12");
}

TEST_F(FrmPrinterTest, ShowsAWaitAndEndsItWithACard) {
  model_.SetTrack(0, "ABC");
  console_.Write("02 21 03 22");
  ASSERT_TRUE(support::WaitFor([&] { return Label("LblActivity") == "21h waits for a card"; }));
  EXPECT_EQ(console_.Read(1), "06");
  Click("CmdInsertCard");
  // 02h 21h 20h "ABC" 03h and their block check.
  ASSERT_TRUE(
      support::WaitFor([&] { return Label("LblActivity") == "Idle" && Log().size() == 3; }));
  EXPECT_EQ(console_.Read(8), "02 21 20 41 42 43 03 42");
  EXPECT_EQ(Label("LblPlace"), "inside");
  EXPECT_EQ(Label("LblTransportCount"), "1");
  EXPECT_EQ(Log(), QStringList({"received | 02 21 03 22 | 21h first track read",
                                "sent | 06 | 06h acknowledge",
                                "sent | 02 21 20 41 42 43 03 42 | "
                                "reply 21h: 20h normal status, \"ABC\""}));
}

TEST_F(FrmPrinterTest, ServesWorkThatTakesTime) {
  Pass(0ms);
  model_.SetInstantWork(false);
  Click("CmdInsertCard");
  console_.Write("02 51 03 52");
  ASSERT_TRUE(support::WaitFor([&] { return Label("LblActivity") == "51h is at work"; }));
  EXPECT_FALSE(Find<QPushButton>("CmdPullOutCard")->isEnabled());
  Pass(400ms);
  ASSERT_TRUE(support::WaitFor([&] { return Label("LblPlace") == "at the rear"; }));
  EXPECT_EQ(console_.Read(6), "06 02 51 20 03 72");
}

TEST_F(FrmPrinterTest, EndsExclusiveUseByItself) {
  ASSERT_EQ(ioctl(console_.Descriptor(), TIOCEXCL), 0);
  EXPECT_TRUE(support::WaitFor([&] {
    int exclusive = 1;
    return ioctl(console_.Descriptor(), TIOCGEXCL, &exclusive) == 0 && exclusive == 0;
  }));
}

}  // namespace
}  // namespace vantrel::printer
