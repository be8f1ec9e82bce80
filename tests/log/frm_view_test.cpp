// SPDX-License-Identifier: MIT

// The window of captures, on files that the test writes and lets grow.

#include "log/frm_view.h"

#include "log/capture_writer.h"
#include "tests/log/log_rows.h"
#include "tests/log/table_text.h"
#include "tests/support/wait_for.h"
#include "tests/support/window_checks.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QColor>
#include <QDropEvent>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPalette>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace vantrel::log {
namespace {

using namespace std::chrono_literals;
using protocol::Direction;

const std::string k21 = "\x02\x21\x03\x22";
const std::string k22 = "\x02\x22\x03\x21";
const std::string kReply21 = "\x02\x21\x20\x41\x03\x43";
const std::string kReply21WithB = "\x02\x21\x20\x42\x03\x40";

std::vector<LogEntry> Read21(const std::string& reply) {
  return {Row(0ms, Direction::kFromConsole, k21), Row(2ms, Direction::kFromPrinter, "\x06"),
          Row(2500ms, Direction::kFromPrinter, reply)};
}

class FrmViewTest : public testing::Test {
 protected:
  QString PathOf(const char* name) const { return folder_.filePath(name); }

  // Writes a capture of these rows, or adds them to the one that is there.
  void Write(const char* name, const std::vector<LogEntry>& rows, bool adds = false) const {
    std::string bytes = adds ? "" : CaptureStart({});
    for (const LogEntry& row : rows) AppendPacket(bytes, row);
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(adds ? QIODevice::Append : QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
  }

  void Show(const QStringList& names, std::chrono::milliseconds patience = 1h) {
    QStringList paths;
    for (const QString& name : names) paths += folder_.filePath(name);
    form_ = std::make_unique<FrmView>(paths, nullptr, patience);
    form_->show();
  }

  QTableView* Table() const { return form_->findChild<QTableView*>("TxtView"); }
  bool HasRows(int count) const {
    return support::WaitFor([&] { return Table()->model()->rowCount() == count; });
  }
  QString Cell(int row, int column) const {
    return Table()->model()->index(row, column).data().toString();
  }
  bool IsBold(int row, int column) const {
    return Table()->model()->index(row, column).data(Qt::FontRole).value<QFont>().bold();
  }
  QColor Ground(int row) const {
    return Table()->model()->index(row, 0).data(Qt::BackgroundRole).value<QColor>();
  }
  QString Text(const char* name) const { return form_->findChild<QLabel*>(name)->text(); }
  void Drop(const QStringList& paths, const QPointF& where) const {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths) urls += QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter(where.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form_.get(), &enter);
    QDropEvent drop(where, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(form_.get(), &drop);
  }

  QTemporaryDir folder_;
  std::unique_ptr<FrmView> form_;
};

// Columns of one side.
constexpr int kTook = 2;
constexpr int kHex = 3;
constexpr int kMeaning = 5;
constexpr int kDifference = 6;
constexpr int kRight = 7;

TEST_F(FrmViewTest, NamesEveryWidgetAndHasNoMnemonicTwice) {
  Write("a.pcapng", Read21(kReply21));
  Write("b.pcapng", Read21(kReply21WithB));
  for (const QStringList& names : {QStringList("a.pcapng"), QStringList{"a.pcapng", "b.pcapng"}}) {
    Show(names);
    // While the files are read, too.
    form_->findChild<QProgressBar*>("PrgView")->show();
    EXPECT_EQ(support::UnnamedIn(*form_), QStringList());
    EXPECT_EQ(support::MnemonicsTwiceIn(*form_), QStringList());
    ASSERT_TRUE(HasRows(3));
    EXPECT_EQ(support::UnnamedIn(*form_), QStringList());
    form_->resize(1, 1);
    for (const char* name : {"TxtViewFilter", "TxtViewFind"}) {
      const auto* edit = form_->findChild<QLineEdit*>(name);
      EXPECT_GT(edit->width(), edit->fontMetrics().horizontalAdvance("first track")) << name;
    }
    EXPECT_EQ(support::MnemonicsTwiceIn(*form_), QStringList());
  }
}

TEST_F(FrmViewTest, ShowsRowsWithTheTimeThatTheyTook) {
  Write("a.pcapng", Read21(kReply21));
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  EXPECT_EQ(form_->windowTitle(), "a.pcapng");
  EXPECT_EQ(Cell(0, kMeaning), "21h first track read");
  EXPECT_EQ(Cell(0, kTook), "2.500 s slow");
  EXPECT_TRUE(IsBold(0, kTook));
  EXPECT_EQ(Cell(1, kTook), "+0.002 s");
  EXPECT_FALSE(IsBold(1, kTook));
  EXPECT_EQ(Cell(2, kTook), "+2.498 s wait");
  EXPECT_EQ(Cell(2, kHex), "02 21 20 41 03 43");
  EXPECT_TRUE(support::WaitFor([this] { return Text("LblView") == "3 lines"; }));
}

TEST_F(FrmViewTest, TheTimeThatWasTakenKeepsAwayFromTheNextColumn) {
  Write("a.pcapng", Read21(kReply21));
  const QFontMetrics fixed(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  for (const QStringList& names : {QStringList("a.pcapng"), QStringList{"a.pcapng", "a.pcapng"}}) {
    Show(names);
    form_->resize(1600, 400);
    QTableView& table = *Table();
    for (int side = 0; side < names.size(); ++side) {
      const int took = side * kRight + kTook, hex = side * kRight + kHex;
      const int em = QFontInfo(table.font()).pixelSize();
      ASSERT_TRUE(support::WaitFor([&] { return !Cell(2, took).isEmpty(); }));
      // The first is in bold.
      for (int row = 0; row < 3; ++row) {
        const TextPlace time = PlaceInCell(table, row, took);
        ASSERT_LT(time.right, table.columnWidth(took)) << row;
        EXPECT_GE(time.right, em / 2 + 2) << row;
        EXPECT_GE(table.columnWidth(took), fixed.horizontalAdvance("+10.000 s wait") + time.right);
        EXPECT_GE(time.right + PlaceInCell(table, row, hex).left, em) << row;
        EXPECT_NEAR(PlaceInHeader(table, took).right, time.right, 2) << row;
      }
    }
  }
}

TEST_F(FrmViewTest, FollowsAFileThatGrowsAndOneThatIsReplaced) {
  Write("a.pcapng", Read21(kReply21));
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  Write("a.pcapng", {Row(3000ms, Direction::kFromConsole, k22)}, true);
  ASSERT_TRUE(HasRows(4));
  EXPECT_EQ(Cell(3, kMeaning), "22h second track read");
  Write("a.pcapng", {Row(0ms, Direction::kFromConsole, k22)});
  ASSERT_TRUE(HasRows(1));
  EXPECT_EQ(Cell(0, kMeaning), "22h second track read");
}

TEST_F(FrmViewTest, FiltersFindsAndCopies) {
  Write("a.pcapng", Read21(kReply21));
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  auto* find = form_->findChild<QLineEdit*>("TxtViewFind");
  find->setText("REPLY");
  QTest::keyClick(form_.get(), Qt::Key_F3);
  EXPECT_EQ(Table()->currentIndex().row(), 2);
  find->setText("21h");
  QTest::keyClick(form_.get(), Qt::Key_F3);  // on from the beginning
  EXPECT_EQ(Table()->currentIndex().row(), 0);
  find->setText("is not there");
  QTest::keyClick(form_.get(), Qt::Key_F3);
  EXPECT_EQ(Text("LblView"), "\"is not there\" was not found.");
  form_->findChild<QLineEdit*>("TxtViewFilter")->setText("acknowledge");
  ASSERT_TRUE(HasRows(1));
  Table()->selectRow(0);
  QTest::keyClick(Table(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().endsWith("  sent      06  06h acknowledge\n"));
  form_->findChild<QLineEdit*>("TxtViewFilter")->clear();
  EXPECT_TRUE(HasRows(3));
}

TEST_F(FrmViewTest, SetsTwoCapturesSideBySide) {
  std::vector<LogEntry> left = Read21(kReply21);
  left.push_back(Row(3000ms, Direction::kFromConsole, k22));
  Write("a.pcapng", left);
  Write("b.pcapng", Read21(kReply21WithB));
  Show({"a.pcapng", "b.pcapng"});
  ASSERT_TRUE(
      support::WaitFor([this] { return Text("LblView") == "4 lines \u00B7 2 lines differ"; }));
  EXPECT_EQ(Cell(0, kMeaning), Cell(0, kRight + kMeaning));
  EXPECT_EQ(Cell(0, kDifference), "");
  EXPECT_EQ(Cell(2, kDifference), "\u2260 differs");
  EXPECT_EQ(Cell(2, kMeaning), "reply 21h: 20h normal status, \"A\"");
  EXPECT_EQ(Cell(2, kRight + kMeaning), "reply 21h: 20h normal status, \"B\"");
  EXPECT_EQ(Cell(3, kDifference), "\u25C0 only left");
  EXPECT_EQ(Cell(3, kRight + kMeaning), "");
  // Lines that differ have a ground between the table's and a selection's.
  const QColor base = QGuiApplication::palette().color(QPalette::Base);
  EXPECT_FALSE(Ground(0).isValid());
  ASSERT_TRUE(Ground(2).isValid());
  EXPECT_NE(Ground(2), base);
  EXPECT_EQ(Ground(3), Ground(2));
}

TEST_F(FrmViewTest, GoesFromDifferenceToDifference) {
  std::vector<LogEntry> left = Read21(kReply21);
  left.push_back(Row(3000ms, Direction::kFromConsole, k22));
  Write("a.pcapng", left);
  Write("b.pcapng", Read21(kReply21WithB));
  Show({"a.pcapng", "b.pcapng"});
  ASSERT_TRUE(
      support::WaitFor([this] { return Text("LblView") == "4 lines \u00B7 2 lines differ"; }));
  const auto row = [this] { return Table()->currentIndex().row(); };
  Table()->selectRow(0);
  QTest::keyClick(form_.get(), Qt::Key_F8);
  EXPECT_EQ(row(), 2);
  QTest::keyClick(form_.get(), Qt::Key_F8);
  EXPECT_EQ(row(), 3);
  QTest::keyClick(form_.get(), Qt::Key_F8);
  EXPECT_EQ(row(), 3);
  EXPECT_EQ(Text("LblView"), "There is no further difference.");
  QTest::keyClick(form_.get(), Qt::Key_F8, Qt::ShiftModifier);
  EXPECT_EQ(row(), 2);
}

TEST_F(FrmViewTest, OpensADroppedFile) {
  Write("a.pcapng", Read21(kReply21));
  Write("b.pcapng", {Row(0ms, Direction::kFromConsole, k22)});
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  Drop({PathOf("b.pcapng")}, {1, 1});
  ASSERT_TRUE(HasRows(1));
  EXPECT_EQ(form_->windowTitle(), "b.pcapng");
  Show({"a.pcapng", "a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  Drop({PathOf("b.pcapng")}, {form_->width() - 1.0, 1});
  EXPECT_TRUE(support::WaitFor([this] { return Text("LblView").endsWith("4 lines differ"); }));
  EXPECT_TRUE(form_->windowTitle().endsWith("b.pcapng"));
}

TEST_F(FrmViewTest, OpensTwoDroppedFilesSideBySide) {
  Write("a.pcapng", Read21(kReply21));
  Write("b.pcapng", Read21(kReply21WithB));
  Write("c.pcapng", {Row(0ms, Direction::kFromConsole, k22)});
  Show({"c.pcapng", "c.pcapng"});
  ASSERT_TRUE(HasRows(1));
  Drop({PathOf("a.pcapng"), PathOf("b.pcapng")}, {1, 1});
  EXPECT_TRUE(
      support::WaitFor([this] { return Text("LblView") == "3 lines \u00B7 1 line differs"; }));
  EXPECT_EQ(Cell(2, kMeaning), "reply 21h: 20h normal status, \"A\"");
  EXPECT_EQ(Cell(2, kRight + kMeaning), "reply 21h: 20h normal status, \"B\"");
}

TEST_F(FrmViewTest, CopiesAllLinesWhereNoneIsSelected) {
  std::vector<LogEntry> right = Read21(kReply21WithB);
  right.push_back(Row(3000ms, Direction::kFromConsole, k22));
  Write("a.pcapng", Read21(kReply21));
  Write("b.pcapng", right);
  Show({"a.pcapng", "b.pcapng"});
  ASSERT_TRUE(
      support::WaitFor([this] { return Text("LblView") == "4 lines \u00B7 2 lines differ"; }));
  EXPECT_EQ(Cell(3, kDifference), "\u25B6 only right");
  QTest::mouseClick(form_->findChild<QPushButton*>("CmdCopyView"), Qt::LeftButton);
  // Without the times.
  QStringList lines;
  for (const QString& line : QApplication::clipboard()->text().split('\n', Qt::SkipEmptyParts))
    lines += line.left(2) + line.mid(line.indexOf('.') + 6);
  EXPECT_EQ(lines,
            QStringList({"  received  02 21 03 22  21h first track read",
                         "  sent      06  06h acknowledge",
                         "< sent      02 21 20 41 03 43  reply 21h: 20h normal status, \"A\"",
                         "> sent      02 21 20 42 03 40  reply 21h: 20h normal status, \"B\"",
                         "> received  02 22 03 21  22h second track read"}));
}

TEST_F(FrmViewTest, SetsNoiseBesideNoiseAndCallsItNoDifference) {
  const std::string noise = "\x41";
  std::vector<LogEntry> few = Read21(kReply21);
  few.insert(few.begin() + 2, Row(3ms, Direction::kFromPrinter, noise));
  std::vector<LogEntry> more = few;
  more.push_back(Row(2600ms, Direction::kFromPrinter, noise));
  more.push_back(Row(3000ms, Direction::kFromConsole, k22));
  Write("few.pcapng", few);
  Write("more.pcapng", more);
  for (const bool left_has_more : {false, true}) {
    Show(left_has_more ? QStringList{"more.pcapng", "few.pcapng"}
                       : QStringList{"few.pcapng", "more.pcapng"});
    // The last command alone.
    ASSERT_TRUE(
        support::WaitFor([this] { return Text("LblView") == "6 lines \u00B7 1 line differs"; }));
    EXPECT_EQ(Cell(2, kHex), "41");
    EXPECT_EQ(Cell(2, kRight + kHex), "41");
    EXPECT_EQ(Cell(4, kHex), left_has_more ? "41" : "");
    EXPECT_EQ(Cell(4, kRight + kHex), left_has_more ? "" : "41");
    for (int row = 0; row < 5; ++row) EXPECT_EQ(Cell(row, kDifference), "") << row;
    EXPECT_EQ(Cell(5, kDifference), left_has_more ? "\u25C0 only left" : "\u25B6 only right");
  }
}

TEST_F(FrmViewTest, FiltersWhileItAlignsAnew) {
  Write("a.pcapng", Read21(kReply21));
  Write("b.pcapng", Read21(kReply21));
  Show({"a.pcapng", "b.pcapng"});
  ASSERT_TRUE(HasRows(3));
  form_->findChild<QLineEdit*>("TxtViewFilter")->setText("track");
  ASSERT_TRUE(HasRows(1));
  Write("b.pcapng", {Row(3000ms, Direction::kFromConsole, k22)}, true);
  EXPECT_TRUE(support::WaitFor([this] { return Cell(1, kDifference) == "\u25B6 only right"; }));
  EXPECT_EQ(Cell(1, kRight + kMeaning), "22h second track read");
  // Fewer lines than before.
  Write("b.pcapng", Read21(kReply21));
  EXPECT_TRUE(HasRows(1));
  form_->findChild<QLineEdit*>("TxtViewFilter")->clear();
  EXPECT_TRUE(HasRows(3));
}

TEST_F(FrmViewTest, GoesToItsEndWhereItFollowsAgain) {
  const std::vector<LogEntry> rows(500, Row(0ms, Direction::kFromConsole, k21));
  Write("a.pcapng", rows);
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(500));
  auto* follows = form_->findChild<QCheckBox*>("ChkFollowView");
  follows->setChecked(false);
  Table()->scrollToTop();
  follows->setChecked(true);
  EXPECT_EQ(Table()->verticalScrollBar()->value(), Table()->verticalScrollBar()->maximum());
}

TEST_F(FrmViewTest, HasTheTextToFindAtHand) {
  Write("a.pcapng", Read21(kReply21));
  Show({"a.pcapng"});
  ASSERT_TRUE(HasRows(3));
  form_->activateWindow();
  Table()->setFocus();
  auto* find = form_->findChild<QLineEdit*>("TxtViewFind");
  find->setText("reply");
  QTest::keyClick(form_.get(), Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(form_->focusWidget(), find);
  EXPECT_EQ(find->selectedText(), "reply");
}

TEST_F(FrmViewTest, OpensADroppedFileWhileItAligns) {
  std::vector<LogEntry> rows(20000, Row(0ms, Direction::kFromConsole, k21));
  Write("a.pcapng", rows);
  for (LogEntry& row : rows) row.bytes = k22;
  Write("b.pcapng", rows);
  Write("c.pcapng", {Row(0ms, Direction::kFromConsole, k21)});
  Show({"a.pcapng", "b.pcapng"});
  ASSERT_TRUE(HasRows(20000));
  Drop({PathOf("c.pcapng")}, {form_->width() - 1.0, 1});
  EXPECT_TRUE(support::WaitFor(
      [this] { return Text("LblView") == "20,000 lines \u00B7 19,999 lines differ"; }));
  EXPECT_EQ(Cell(0, kRight + kMeaning), "21h first track read");
}

TEST_F(FrmViewTest, TellsWhatCannotBeRead) {
  Write("a.pcapng", Read21(kReply21));
  QFile file(PathOf("a.pcapng"));
  ASSERT_TRUE(file.resize(file.size() - 3));
  Show({"a.pcapng"});
  EXPECT_TRUE(HasRows(2));
  EXPECT_TRUE(support::WaitFor([this] { return Text("LblView").contains("ends within"); }));
  Show({"is-not-there.pcapng"});
  EXPECT_TRUE(support::WaitFor([this] { return Text("LblView").contains("cannot be read"); }));
}

// Counts how often a widget is shown.
class ShowCount : public QObject {
 public:
  explicit ShowCount(QWidget* widget) { widget->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Show) ++count;
    return QObject::eventFilter(watched, event);
  }

  int count = 0;
};

TEST_F(FrmViewTest, ShowsHowFarItIsWhereReadingTakesLong) {
  // More than one portion.
  const std::vector<LogEntry> rows(50000, Row(0ms, Direction::kFromConsole, k21));
  Write("a.pcapng", rows);
  for (const auto patience : {0ms, std::chrono::milliseconds(1h)}) {
    Show({"a.pcapng"}, patience);
    auto* bar = form_->findChild<QProgressBar*>("PrgView");
    const ShowCount shown(bar);
    ASSERT_TRUE(HasRows(50000));
    EXPECT_TRUE(support::WaitFor([bar] { return bar->isHidden(); }));
    EXPECT_EQ(shown.count, patience == 0ms ? 1 : 0);
  }
}

TEST_F(FrmViewTest, ShowsRowsWhileTheRestIsRead) {
  const std::vector<LogEntry> rows(50000, Row(0ms, Direction::kFromConsole, k21));
  Write("a.pcapng", rows);
  Show({"a.pcapng"});
  std::vector<int> counts;
  QObject::connect(Table()->model(), &QAbstractItemModel::rowsInserted,
                   [&] { counts.push_back(Table()->model()->rowCount()); });
  ASSERT_TRUE(HasRows(50000));
  EXPECT_GE(counts.size(), 3U);
}

TEST_F(FrmViewTest, SaysWhereItGoesOnExchangeByExchange) {
  // No two commands are the same in both.
  const std::vector<LogEntry> left(4000, Row(0ms, Direction::kFromConsole, k21));
  const std::vector<LogEntry> right(4000, Row(0ms, Direction::kFromConsole, k22));
  Write("a.pcapng", left);
  Write("b.pcapng", right);
  Show({"a.pcapng", "b.pcapng"});
  EXPECT_TRUE(support::WaitFor(
      [this] { return Text("LblView").contains("differ so much that part of them stands"); }));
}

}  // namespace
}  // namespace vantrel::log
