// SPDX-License-Identifier: MIT

// What becomes of the demonstration when its printer ends, with the real programs.

#include "app/demonstration.h"

#include "console/frm_vantrel.h"
#include "console/guarded_application.h"
#include "console/system_time.h"
#include "link/serial_port.h"
#include "tests/support/current_dialogs.h"
#include "tests/support/wait_for.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <signal.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace vantrel::app {
namespace {

// The processes that a process has started and that still run.
QList<pid_t> ChildrenOf(qint64 process) {
  QList<pid_t> children;
  const QDir tasks(QString("/proc/%1/task").arg(process));
  for (const QString& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    QFile list(tasks.filePath(task + "/children"));
    if (!list.open(QIODevice::ReadOnly)) continue;
    for (const QByteArray& child : list.readAll().simplified().split(' '))
      if (!child.isEmpty()) children += child.toInt();
  }
  return children;
}

QList<QByteArray> ArgumentsOf(pid_t process) {
  QFile line(QString("/proc/%1/cmdline").arg(process));
  if (!line.open(QIODevice::ReadOnly)) return {};
  QList<QByteArray> arguments = line.readAll().split('\0');
  if (!arguments.isEmpty()) arguments.removeLast();
  return arguments;
}

bool HasATerminalOpen(qint64 process) {
  const QDir descriptors(QString("/proc/%1/fd").arg(process));
  for (const QString& descriptor : descriptors.entryList(QDir::System | QDir::Files))
    if (QFile::symLinkTarget(descriptors.filePath(descriptor)).startsWith("/dev/pts/")) return true;
  return false;
}

// The demonstration's console with its printer, both off-screen.
class DemonstrationTest : public testing::Test {
 protected:
  DemonstrationTest() : port_([this](int) { return demonstration_.DevicePath(); }) {
    support::CurrentDialogs::Instance().Set(&demonstration_);
    demonstration_.Start({"--no-pacing"});
    console_ = std::make_unique<console::FrmVantrel>(
        port_, demonstration_, dynamic_cast<console::GuardedApplication&>(*qApp),
        console::SystemTimeOf(QLocale::c()), link::CodePage::kWestern, [](int) {});
    demonstration_.Serve(*console_);
    console_->show();
  }
  ~DemonstrationTest() override {
    console_.reset();
    support::CurrentDialogs::Instance().Set(nullptr);
  }

  // As when a person closes the printer's window: its program ends.
  static void EndThePrinter() {
    const QList<pid_t> children = ChildrenOf(QCoreApplication::applicationPid());
    ASSERT_EQ(children.size(), 1);
    ASSERT_EQ(kill(children.front(), SIGTERM), 0);
  }
  // Answers the box that comes next with `button`, and returns what it says, or an empty text when
  // none comes.
  QString Answer(QMessageBox::StandardButton button) {
    QString said;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr || !said.isEmpty()) return;
      EXPECT_EQ(box->parentWidget(), console_.get());
      said = box->text();
      QAbstractButton* pressed = box->button(button);
      EXPECT_NE(pressed, nullptr) << "not among the buttons of: " << said.toStdString();
      if (pressed == nullptr) pressed = box->buttons().constFirst();
      pressed->click();
    });
    look.start(1);
    EXPECT_TRUE(support::WaitFor([&] { return !said.isEmpty(); }));
    return said;
  }
  void Choose(const char* entry) {
    QMetaObject::invokeMethod(console_->findChild<QAction*>(entry), &QAction::trigger,
                              Qt::QueuedConnection);
  }
  std::string PortLine() { return console_->findChild<QLabel*>("LblPort")->text().toStdString(); }
  std::string Response() {
    return console_->findChild<QWidget*>("TxtResponse")->property("text").toString().toStdString();
  }
  // "COM 1 · DEVICE · 9600 · STATE".
  bool IsTold(const std::string& speed, const std::string& state) {
    const std::string line =
        "COM 1 · " + demonstration_.DevicePath() + " · " + speed + " · " + state;
    return support::WaitFor([&] { return PortLine() == line; });
  }

  Demonstration demonstration_;
  link::SerialPort port_;
  std::unique_ptr<console::FrmVantrel> console_;
};

TEST_F(DemonstrationTest, OffersToStartAPrinterAgainThatWasClosed) {
  EXPECT_TRUE(IsTold("9600", "open"));
  EndThePrinter();
  EXPECT_EQ(Answer(QMessageBox::Yes),
            "The software printer has ended. The console goes on without it.\r\n\r\n"
            "Start it again now? To be asked again later, choose a speed in \"Setting\" - "
            "\"Baud Rate\".");
  EXPECT_TRUE(IsTold("9600", "open"));
  console_->findChild<QPushButton*>("Cmd95")->click();
  EXPECT_EQ(Response(), "02 95 20 30 03 86 ");
}

TEST_F(DemonstrationTest, GoesOnWithoutAPrinterAndOffersItWhereItSaid) {
  EndThePrinter();
  EXPECT_NE(Answer(QMessageBox::No), "");
  EXPECT_TRUE(console_->isVisible());
  EXPECT_TRUE(IsTold("9600", "gone"));
  EXPECT_EQ(ChildrenOf(QCoreApplication::applicationPid()), QList<pid_t>());
  Choose("Mnu_19200bps");
  EXPECT_TRUE(Answer(QMessageBox::Yes).startsWith("The software printer has ended."));
  EXPECT_TRUE(IsTold("19200", "open"));
}

TEST_F(DemonstrationTest, IsNotAskedForWhileThePrinterRuns) {
  QTimer::singleShot(0, console_.get(), [this] {
    demonstration_.MsgBox("The port is in use.", dialogs::Buttons::kOk, console::kPortErrorTitle,
                          dialogs::Icon::kCritical);
  });
  EXPECT_EQ(Answer(QMessageBox::Ok), "The port is in use.");
}

TEST(Demonstration, SaysThatAPrinterDidNotStart) {
  Demonstration demonstration;
  try {
    demonstration.Start({"--no-such-option"});
    FAIL();
  } catch (const std::runtime_error& error) {
    EXPECT_NE(std::string(error.what()).find("vantrel-printer did not start"), std::string::npos)
        << error.what();
  }
}

// The program itself, to whose printer nothing but its command line tells anything.
class DemoProgramTest : public testing::Test {
 protected:
  ~DemoProgramTest() override {
    if (printer_ != 0 && !ArgumentsOf(printer_).isEmpty()) kill(printer_, SIGKILL);
  }

  // Starts it with these options and waits for its printer.
  void Start(const QStringList& options) {
    demo_.start(VANTREL_PROGRAMS "/vantrel-demo", options);
    ASSERT_TRUE(demo_.waitForStarted());
    ASSERT_TRUE(support::WaitFor([&] {
      const QList<pid_t> children = ChildrenOf(demo_.processId());
      if (children.isEmpty()) return false;
      // Between fork and exec it has the demonstration's arguments.
      const QList<QByteArray> arguments = ArgumentsOf(children.front());
      if (arguments.isEmpty() || !arguments.front().endsWith("/vantrel-printer")) return false;
      printer_ = children.front();
      return true;
    }));
  }

  QProcess demo_;
  pid_t printer_ = 0;
};

TEST_F(DemoProgramTest, HandsThePrinterItsOptionsAndItsPlace) {
  Start({"--card", "--series", "ql8", "--speed=19200", "--instant"});
  const QList<QByteArray> arguments = ArgumentsOf(printer_);
  ASSERT_GT(arguments.size(), 2);
  // The off-screen platform's screen is 800 by 800. The console is 690 wide, 4 from the left, and
  // hides 570 of the printer, which begins at 4 + 690 + 4 - 570 and has 800 - 28 - 4 of height.
  EXPECT_EQ(arguments[1], "--geometry=1000x768+128+28") << arguments[1].toStdString();
  EXPECT_EQ(arguments.mid(2),
            QList<QByteArray>({"--card", "--series", "ql8", "--speed=19200", "--instant"}));
  demo_.terminate();
  EXPECT_TRUE(demo_.waitForFinished());
}

TEST_F(DemoProgramTest, OpensItsPrinterAsCom1) {
  Start({});
  EXPECT_TRUE(support::WaitFor([&] { return HasATerminalOpen(demo_.processId()); }));
  demo_.terminate();
  EXPECT_TRUE(demo_.waitForFinished());
}

TEST_F(DemoProgramTest, ItsPrinterEndsWithAConsoleThatIsKilled) {
  Start({});
  // From then on nothing but its parent's end ends the printer.
  ASSERT_TRUE(support::WaitFor([&] { return HasATerminalOpen(demo_.processId()); }));
  demo_.kill();
  EXPECT_TRUE(demo_.waitForFinished());
  // One that has ended and was not yet asked for its status has no arguments any more.
  EXPECT_TRUE(support::WaitFor([&] { return ArgumentsOf(printer_).isEmpty(); }));
}

}  // namespace
}  // namespace vantrel::app
