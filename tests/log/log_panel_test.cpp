// SPDX-License-Identifier: MIT

#include "log/log_panel.h"

#include "log/capture_file.h"
#include "log/line_recorder.h"
#include "log/log_model.h"
#include "tests/log/table_text.h"
#include "tests/support/recording_guard.h"
#include "tests/support/scripted_dialogs.h"
#include "tests/support/scripted_file_chooser.h"
#include "tests/support/wait_for.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>

namespace vantrel::log {
namespace {

class LogPanelTest : public testing::Test {
 protected:
  LogPanelTest() {
    panel_.resize(900, 300);
    panel_.show();
  }

  template <typename Widget>
  Widget* Find(const char* name) {
    auto* widget = panel_.findChild<Widget*>(name);
    if (widget == nullptr) throw std::runtime_error(name);
    return widget;
  }
  void Click(const char* name) { QTest::mouseClick(Find<QAbstractButton>(name), Qt::LeftButton); }
  QTableView* Table() { return Find<QTableView>("TxtLog"); }
  int Rows() { return Table()->model()->rowCount(); }
  bool HasRows(int count) {
    return support::WaitFor([&] { return Rows() == count; });
  }
  QString Cell(int row, int column) {
    return Table()->model()->index(row, column).data().toString();
  }
  void Console(const char* hex) {
    recorder_.Record(protocol::Direction::kFromConsole, QByteArray::fromHex(hex));
  }
  void Printer(const char* hex) {
    recorder_.Record(protocol::Direction::kFromPrinter, QByteArray::fromHex(hex));
  }
  // So many times a command and its acknowledgement.
  void Exchange(int count) {
    for (int i = 0; i < count; ++i) {
      Console("02210322");
      Printer("06");
    }
  }
  bool IsAtEnd() {
    const QScrollBar* bar = Table()->verticalScrollBar();
    return bar->value() == bar->maximum();
  }

  QTemporaryDir folder_;
  support::ScriptedDialogs dialogs_;
  support::ScriptedFileChooser files_;
  support::RecordingGuard guard_;
  LineRecorder recorder_;
  LogPanel panel_{recorder_, {dialogs_, files_, guard_}};
};

TEST_F(LogPanelTest, ShowsAnEntryInColumns) {
  Console("023B412203 5B");
  ASSERT_TRUE(HasRows(1));
  EXPECT_TRUE(QRegularExpression("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3}$").match(Cell(0, 0)).hasMatch());
  EXPECT_EQ(Cell(0, 1), "received");
  EXPECT_EQ(Cell(0, 2), "02 3B 41 22 03 5B");
  EXPECT_EQ(Cell(0, 3), ".;A\".[");
  EXPECT_EQ(Cell(0, 4), "3Bh first track data set: \"A\\\"\"");
}

TEST_F(LogPanelTest, TheTimeSinceTheRowBeforeKeepsAwayFromTheNextColumn) {
  Exchange(1);
  ASSERT_TRUE(HasRows(2));
  QTableView& table = *Table();
  const QHeaderView& header = *table.horizontalHeader();
  const int next = header.logicalIndex(header.visualIndex(LogModel::kSince) + 1);
  ASSERT_EQ(next, static_cast<int>(LogModel::kDirection));
  const TextPlace number = PlaceInCell(table, 1, LogModel::kSince);
  ASSERT_LT(number.right, header.sectionSize(LogModel::kSince));
  EXPECT_GE(number.right, QFontInfo(table.font()).pixelSize() / 2 + 2);
  const QFontMetrics fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  EXPECT_GE(header.sectionSize(LogModel::kSince),
            fixed.horizontalAdvance("+100.000 s") + number.right);
  EXPECT_GE(number.right + PlaceInCell(table, 1, next).left, QFontInfo(table.font()).pixelSize());
  // The column's name ends where its numbers do; the letters' own edges differ by a pixel or two.
  EXPECT_NEAR(PlaceInHeader(table, LogModel::kSince).right, number.right, 2);
  EXPECT_NEAR(PlaceInHeader(table, next).left, PlaceInCell(table, 1, next).left, 2);
}

TEST_F(LogPanelTest, CompletesAFrameThatComesInParts) {
  Console("0221");
  ASSERT_TRUE(HasRows(1));
  EXPECT_EQ(Cell(0, 4), "cut short after 2 bytes: 21h first track read");
  Console("0322");
  ASSERT_TRUE(support::WaitFor([&] { return Cell(0, 4) == "21h first track read"; }));
  EXPECT_EQ(Rows(), 1);
}

TEST_F(LogPanelTest, FollowsOrStays) {
  Exchange(100);
  ASSERT_TRUE(HasRows(200));
  EXPECT_TRUE(IsAtEnd());
  Click("ChkFollow");
  Exchange(100);
  ASSERT_TRUE(HasRows(400));
  EXPECT_TRUE(support::WaitFor([&] { return !IsAtEnd(); }));
  Click("ChkFollow");
  EXPECT_TRUE(IsAtEnd());
}

TEST_F(LogPanelTest, FollowsWhenItBecomesSmaller) {
  Exchange(100);
  ASSERT_TRUE(HasRows(200));
  panel_.resize(900, 150);
  EXPECT_TRUE(
      support::WaitFor([&] { return Table()->rowAt(Table()->viewport()->height() - 6) == 199; }));
}

TEST_F(LogPanelTest, StaysWhenTheWheelTurnsBack) {
  Exchange(100);
  ASSERT_TRUE(HasRows(200));
  const QPointF middle = Table()->viewport()->rect().center();
  QWheelEvent back(middle, Table()->viewport()->mapToGlobal(middle), {}, QPoint(0, 120),
                   Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(Table()->viewport(), &back);
  EXPECT_FALSE(Find<QCheckBox>("ChkFollow")->isChecked());
}

TEST_F(LogPanelTest, FiltersByDirectionAndText) {
  Exchange(3);
  Console("02510352");
  ASSERT_TRUE(HasRows(7));
  auto* direction = Find<QComboBox>("CmbLogDirection");
  QTest::keyClick(direction, Qt::Key_Down);
  ASSERT_TRUE(HasRows(4));
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "REAR");
  ASSERT_TRUE(HasRows(1));
  EXPECT_EQ(Cell(0, 4), "51h card rear side idle");
  QTest::keyClick(direction, Qt::Key_Down);
  ASSERT_TRUE(HasRows(0));
  Find<QLineEdit>("TxtLogFilter")->clear();
  ASSERT_TRUE(HasRows(3));
  EXPECT_EQ(Cell(0, 4), "06h acknowledge");
  // What comes later is filtered as well.
  Exchange(1);
  ASSERT_TRUE(HasRows(4));
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "06");
  ASSERT_TRUE(HasRows(4));
}

TEST_F(LogPanelTest, ShowsAHalfFrameUnderAFilterWhenItsSilenceHasLasted) {
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "cut short");
  Console("0221");
  EXPECT_TRUE(HasRows(1));
}

TEST_F(LogPanelTest, CopiesTheSelectedLinesOrAll) {
  Exchange(2);
  ASSERT_TRUE(HasRows(4));
  Click("CmdCopyLog");
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 4);
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "4 lines copied");
  Table()->selectRow(1);
  QTest::keySequence(Table(), QKeySequence::Copy);
  EXPECT_TRUE(QApplication::clipboard()->text().endsWith("  sent      06  06h acknowledge\n"));
  EXPECT_EQ(QApplication::clipboard()->text().count('\n'), 1);
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "1 line copied");
}

TEST_F(LogPanelTest, CopiesSelectedLinesInTheirOrder) {
  Console("02210322");
  Printer("06");
  Console("02220321");
  ASSERT_TRUE(HasRows(3));
  auto* selection = Table()->selectionModel();
  for (const int row : {2, 0})
    selection->select(Table()->model()->index(row, 0),
                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
  Click("CmdCopyLog");
  const QStringList lines = QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 2);
  EXPECT_TRUE(lines[0].endsWith("21h first track read"));
  EXPECT_TRUE(lines[1].endsWith("22h second track read"));
}

TEST_F(LogPanelTest, ShortensALongCellAndSaysSo) {
  recorder_.Record(protocol::Direction::kFromConsole, QByteArray(300, 'A'));
  ASSERT_TRUE(HasRows(1));
  // Its 300 bytes are 899 characters of hex.
  int shortened = 0;
  for (int column = 0; column < Table()->model()->columnCount(); ++column) {
    const QString text = Cell(0, column);
    EXPECT_LE(text.size(), 604) << column;
    if (text.endsWith(" ...")) ++shortened;
  }
  EXPECT_EQ(shortened, 1);
}

TEST_F(LogPanelTest, SavesTheWholeLogAsTextOrCsv) {
  Exchange(1);
  ASSERT_TRUE(HasRows(2));
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "acknowledge");
  files_.WillAnswer(folder_.filePath("line.txt"));
  Click("CmdSaveLog");
  EXPECT_EQ(files_.LastFilters(),
            "Text (*.txt);;Comma-separated values (*.csv);;Capture (*.pcapng)");
  QFile text(folder_.filePath("line.txt"));
  ASSERT_TRUE(text.open(QIODevice::ReadOnly));
  EXPECT_TRUE(text.readLine().endsWith("received  02 21 03 22  21h first track read\n"));
  EXPECT_TRUE(text.readLine().endsWith("sent      06  06h acknowledge\n"));
  EXPECT_TRUE(text.atEnd());
  files_.WillAnswer(folder_.filePath("line.csv"));
  Click("CmdSaveLog");
  QFile csv(folder_.filePath("line.csv"));
  ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
  EXPECT_EQ(csv.readLine(), "Date,Time,Direction,Hex,Characters,Meaning,UTC,Comment\r\n");
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "Saved to " + folder_.filePath("line.csv"));
}

TEST_F(LogPanelTest, SavesTheLogAsACaptureWithItsCommentsAndItsLine) {
  recorder_.SetLine({"/dev/pts/7", 9600});
  Exchange(1);
  recorder_.Comment("fault: status 22");
  Console("02 22");  // still open
  files_.WillAnswer(folder_.filePath("line.pcapng"));
  Click("CmdSaveLog");
  const std::string path = folder_.filePath("line.pcapng").toStdString();
  std::vector<std::string> damage;
  const std::vector<LogEntry> rows = ReadCapture(path, damage);
  EXPECT_TRUE(damage.empty());
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].comment, "fault: status 22");
  EXPECT_EQ(rows[1].comment, "");
  EXPECT_EQ(HexOf(rows[2]), "02 22");
  CaptureFile file(path);
  std::vector<LogEntry> again;
  file.Read(again);
  EXPECT_EQ(file.Line().name, "/dev/pts/7");
  EXPECT_EQ(file.Line().speed, 9600U);
}

TEST_F(LogPanelTest, SaysWhyALogWasNotSaved) {
  const QString path = folder_.filePath("missing/line.txt");
  files_.WillAnswer(path);
  dialogs_.Answers(dialogs::Answer::kOk);
  Click("CmdSaveLog");
  EXPECT_EQ(dialogs_.Last().prompt,
            path.toStdString() + " was not saved: No such file or directory.");
  EXPECT_EQ(dialogs_.Last().title, "Save log");
  EXPECT_EQ(dialogs_.Last().icon, dialogs::Icon::kCritical);
}

TEST_F(LogPanelTest, SavesNoLogOverADevice) {
  files_.WillAnswer("/dev/null");
  dialogs_.Answers(dialogs::Answer::kOk);
  Click("CmdSaveLog");
  EXPECT_EQ(dialogs_.Last().prompt, "/dev/null was not saved: it is a device.");
}

TEST_F(LogPanelTest, FindsForwardsAndBackwardsRoundTheEnd) {
  Exchange(2);
  Console("02510352");
  Exchange(1);
  ASSERT_TRUE(HasRows(7));
  auto* find = Find<QLineEdit>("TxtLogFind");
  QTest::keyClicks(find, "FIRST TRACK");
  QTest::keyClick(find, Qt::Key_Return);
  EXPECT_EQ(Table()->currentIndex().row(), 0);
  EXPECT_FALSE(Find<QCheckBox>("ChkFollow")->isChecked());
  Click("CmdFindNext");
  EXPECT_EQ(Table()->currentIndex().row(), 2);
  Click("CmdFindNext");
  EXPECT_EQ(Table()->currentIndex().row(), 5);
  Click("CmdFindNext");
  EXPECT_EQ(Table()->currentIndex().row(), 0);
  Click("CmdFindBack");
  EXPECT_EQ(Table()->currentIndex().row(), 5);
  QTest::keyClick(&panel_, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Table()->currentIndex().row(), 2);
  QTest::keyClick(&panel_, Qt::Key_F3);
  EXPECT_EQ(Table()->currentIndex().row(), 5);
}

TEST_F(LogPanelTest, SaysThatATextIsNotFoundAndStays) {
  Exchange(1);
  ASSERT_TRUE(HasRows(2));
  QTest::keySequence(&panel_, QKeySequence::Find);
  EXPECT_EQ(panel_.focusWidget(), Find<QLineEdit>("TxtLogFind"));
  QTest::keyClicks(panel_.focusWidget(), "nowhere\r");
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "\"nowhere\" was not found.");
  EXPECT_FALSE(Table()->currentIndex().isValid());
}

TEST_F(LogPanelTest, PausesAndCatchesUp) {
  Exchange(1);
  ASSERT_TRUE(HasRows(2));
  Click("ChkPause");
  Exchange(3);
  // As long as it would take to be shown.
  ASSERT_TRUE(support::WaitFor(
      [&] { return Find<QLabel>("LblLog")->text() == "2 lines, paused: 6 more"; }));
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "acknowledge");
  ASSERT_TRUE(HasRows(1));
  Find<QLineEdit>("TxtLogFilter")->clear();
  ASSERT_TRUE(HasRows(2));
  Click("ChkPause");
  EXPECT_TRUE(HasRows(8));
}

TEST_F(LogPanelTest, ShowsTheTimeSinceTheRowBefore) {
  using namespace std::chrono_literals;
  const WallTime start{1700000000s};
  const auto printer = protocol::Direction::kFromPrinter;
  recorder_.Record(printer, QByteArray::fromHex("06"), start);
  recorder_.Record(printer, QByteArray::fromHex("10"), start + 12345us);
  recorder_.Record(printer, QByteArray::fromHex("06"), start + 2s);
  ASSERT_TRUE(HasRows(3));
  EXPECT_EQ(Cell(0, LogModel::kSince), "");
  EXPECT_EQ(Cell(1, LogModel::kSince), "+0.012 s");
  EXPECT_EQ(Cell(2, LogModel::kSince), "+1.988 s");
  // It stands beside the time, and counts from the row that is shown before.
  EXPECT_EQ(Table()->horizontalHeader()->visualIndex(LogModel::kSince), 1);
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "acknowledge");
  ASSERT_TRUE(HasRows(2));
  EXPECT_EQ(Cell(1, LogModel::kSince), "+2.000 s");
}

TEST_F(LogPanelTest, ShowsAndFindsAComment) {
  Console("02210322");
  recorder_.Comment("fault: status 38");
  ASSERT_TRUE(HasRows(1));
  EXPECT_EQ(Cell(0, LogModel::kMeaning), "21h first track read \u00B7 fault: status 38");
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "Status 38");
  EXPECT_TRUE(HasRows(1));
}

TEST_F(LogPanelTest, SaysWhyItShowsNothing) {
  const auto* words = Find<QLabel>("LblLogEmpty");
  panel_.SetEmptyText("A console opens /dev/pts/3.");
  EXPECT_TRUE(words->isVisible());
  EXPECT_EQ(words->text(), "A console opens /dev/pts/3.");
  Exchange(1);
  ASSERT_TRUE(HasRows(2));
  EXPECT_FALSE(words->isVisible());
  QTest::keyClicks(Find<QLineEdit>("TxtLogFilter"), "nowhere");
  ASSERT_TRUE(support::WaitFor([&] { return words->isVisible(); }));
  EXPECT_EQ(words->text(), "No line matches the filter.");
}

TEST_F(LogPanelTest, FiltersManyLinesInPortions) {
  Exchange(20000);
  ASSERT_TRUE(HasRows(40000));
  int events = 0;
  QTimer beat;
  QObject::connect(&beat, &QTimer::timeout, &beat, [&] { ++events; });
  beat.start(0);
  Find<QLineEdit>("TxtLogFilter")->setText("acknowledge");
  EXPECT_LT(Rows(), 20000);
  ASSERT_TRUE(HasRows(20000));
  // Events ran in between.
  EXPECT_GT(events, 1);
}

TEST_F(LogPanelTest, IsEmptied) {
  Exchange(2);
  ASSERT_TRUE(HasRows(4));
  Click("CmdClearLog");
  EXPECT_EQ(Rows(), 0);
  EXPECT_EQ(Find<QLabel>("LblLog")->text(), "0 lines");
  Exchange(1);
  EXPECT_TRUE(HasRows(2));
}

TEST_F(LogPanelTest, MeasuresNoRow) {
  // Otherwise every new line would look at all lines for their height.
  EXPECT_EQ(Table()->verticalHeader()->sectionResizeMode(0), QHeaderView::Fixed);
}

TEST(LogModel, DropsWhatTheLogHasDropped) {
  LineRecorder recorder(nullptr, {.entries = 80});
  LogModel all(recorder);
  LogModel sent(recorder);
  sent.SetDirection(protocol::Direction::kFromPrinter);
  recorder.Record(protocol::Direction::kFromPrinter, QByteArray(80, 0x06));
  all.CatchUp();
  sent.CatchUp();
  recorder.Record(protocol::Direction::kFromPrinter, QByteArray(1, 0x15));
  // A row that is gone shows nothing until the model has caught up.
  EXPECT_EQ(all.EntryOf(0), nullptr);
  all.CatchUp();
  sent.CatchUp();
  // An eighth of 81, and one more.
  EXPECT_EQ(all.rowCount(), 70);
  EXPECT_EQ(sent.rowCount(), 70);
  EXPECT_EQ(sent.EntryOf(69)->bytes, "\x15");
}

}  // namespace
}  // namespace vantrel::log
