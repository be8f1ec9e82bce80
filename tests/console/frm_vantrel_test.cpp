// SPDX-License-Identifier: MIT

// What the console form shows, its menus, its boxes.

#include "console/command_table.h"
#include "tests/support/console_fixture.h"
#include "tests/support/wait_for.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QTest>

namespace vantrel::console {
namespace {

class FrmVantrelTest : public support::ConsoleTest {};

TEST_F(FrmVantrelTest, ShowsItsCaptionsAndEmptyBoxes) {
  Load();
  EXPECT_EQ(form_->windowTitle().toStdString(), "Orvel Rewrite Card Command");
  EXPECT_EQ(Text("lblCommand"), "Command :");
  EXPECT_EQ(Text("LblSyntax"), "Syntax :");
  EXPECT_EQ(Text("LblResponse"), "Response :");
  EXPECT_EQ(Text("CmdExit"), "Exit");
  for (const char* name : {"TxtCommand", "TxtSyntax", "TxtResponse", "LblHints",
                           "StatusBarFrmMain_1", "StatusBarFrmMain_2"})
    EXPECT_EQ(Text(name), "") << name;
  for (const char* name : {"Line1", "Line2", "Line3", "Line4", "Line5"})
    EXPECT_NE(form_->findChild<QFrame*>(name), nullptr) << name;
}

TEST_F(FrmVantrelTest, TagsTellWhichButtonsStayEnabled) {
  Load();
  EXPECT_EQ(Button("Cmd21")->property("Tag").toString(), "1");
  EXPECT_EQ(Button("cmd52")->property("Tag").toString(), "1");
  EXPECT_EQ(Button("Cmd54")->property("Tag").toString(), "10");
  EXPECT_EQ(Button("Cmd55")->property("Tag").toString(), "10");
  EXPECT_EQ(Button("Cmd5F")->property("Tag").toString(), "20");
  EXPECT_EQ(Button("CmdExit")->property("Tag").toString(), "20");
}

TEST_F(FrmVantrelTest, EveryCaptionIsReadableAtEveryWindowSize) {
  Load();
  for (const QSize size : {QSize(1024, 640), QSize(1120, 720), QSize(1920, 1080)}) {
    // The least height follows from the width: first the one, then the other.
    form_->resize(size.width(), form_->height());
    ASSERT_TRUE(support::WaitFor([&] { return form_->width() == size.width(); }));
    form_->resize(size);
    ASSERT_TRUE(support::WaitFor([&] { return form_->size() == size; }))
        << form_->minimumHeight() << " pixels high at " << size.width();
    QCoreApplication::processEvents();
    std::size_t count = 0;
    for (auto* button : form_->findChildren<QPushButton*>(QRegularExpression("^[Cc]md[0-9]"))) {
      EXPECT_LE(button->heightForWidth(button->width()), button->height())
          << button->text().toStdString() << " at " << size.width();
      ++count;
    }
    EXPECT_EQ(count, Commands().size());
  }
}

TEST_F(FrmVantrelTest, DisplayBoxesAreReadOnly) {
  Load();
  for (const char* name : {"TxtCommand", "TxtSyntax", "TxtResponse"}) {
    auto* box = form_->findChild<QWidget*>(name);
    QTest::keyClicks(box, "1");
    EXPECT_EQ(Text(name), "") << name;
  }
}

TEST_F(FrmVantrelTest, DataAreShownAsPlainText) {
  Load();
  for (const char* name : {"LblHints", "StatusBarFrmMain_1", "StatusBarFrmMain_2"})
    EXPECT_EQ(form_->findChild<QLabel*>(name)->textFormat(), Qt::PlainText) << name;
}

TEST_F(FrmVantrelTest, MenusHoldPortsAndSpeeds) {
  Load();
  struct Entry {
    const char* name;
    const char* caption;
    bool checked;
  };
  // No speed is checked at the start although the port runs at 9600; that is meant.
  for (const Entry& entry : {Entry{"Mnu_Setting", "Setting", false},
                             {"Mnu_Port", "Port", false},
                             {"Mnu_COM1", "COM 1", true},
                             {"Mnu_COM2", "COM 2", false},
                             {"Mnu_BaudRate", "Baud Rate", false},
                             {"Mnu_2400bps", "2400bps", false},
                             {"Mnu_4800bps", "4800bps", false},
                             {"Mnu_9600bps", "9600bps", false},
                             {"Mnu_19200bps", "19200bps", false},
                             {"Mnu_38400bps", "38400bps", false},
                             {"Mnu_About", "About", false}}) {
    auto* action = form_->findChild<QAction*>(entry.name);
    ASSERT_NE(action, nullptr) << entry.name;
    EXPECT_EQ(action->text().toStdString(), entry.caption);
    EXPECT_EQ(action->isChecked(), entry.checked) << entry.name;
  }
}

TEST_F(FrmVantrelTest, AboutNamesTheVersionAndTheContact) {
  Load();
  dialogs_.Answers(dialogs::Answer::kOk);
  Choose("Mnu_About");
  EXPECT_EQ(dialogs_.Last().title, "Orvel QL-7/QL-8 series Command Demonstration - Version 1.01");
  EXPECT_TRUE(dialogs_.Last().prompt.starts_with(
      "If you need further information or source code, please contact us at \r\n"));
  EXPECT_EQ(dialogs_.Last().buttons, dialogs::Buttons::kOk);
}

TEST_F(FrmVantrelTest, LoadingOpensPort1) {
  Load();
  EXPECT_TRUE(port_.IsOpen());
}

TEST_F(FrmVantrelTest, ChoosingCom2ThenASpeedOpensPort2) {
  support::PtyPeer second;
  second_device_ = second.Device();
  Load();
  Choose("Mnu_COM2");
  EXPECT_FALSE(IsChecked("Mnu_COM1"));
  EXPECT_TRUE(IsChecked("Mnu_COM2"));
  Choose("Mnu_9600bps");
  EXPECT_TRUE(port_.IsOpen());
  second.OnFrame([&](const std::string&) { second.Send(support::PtyPeer::Reply("58")); });
  Press("Cmd58");
  EXPECT_EQ(second.Frames(), std::vector<std::string>{"0258035B"});
  EXPECT_TRUE(Frames().empty());
}

TEST_F(FrmVantrelTest, ChoosingCom2AloneLeavesThePortClosed) {
  Load();
  Choose("Mnu_COM2");
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(FrmVantrelTest, ChoosingASpeedWhileThePortIsOpenDoesNotCloseIt) {
  Load();
  const int closings = port_.closings;
  Choose("Mnu_2400bps");
  EXPECT_TRUE(IsChecked("Mnu_2400bps"));
  Choose("Mnu_38400bps");
  EXPECT_EQ(port_.closings, closings);
  EXPECT_TRUE(port_.IsOpen());
  EXPECT_FALSE(IsChecked("Mnu_2400bps"));
  EXPECT_TRUE(IsChecked("Mnu_38400bps"));
  AnswerAll();
  Press("Cmd58");
  EXPECT_EQ(Frames(), std::vector<std::string>{"0258035B"});
}

TEST_F(FrmVantrelTest, ExitEndsTheProgramWithStatus0AndReleasesThePort) {
  Load();
  Press("CmdExit");
  EXPECT_EQ(end_status_, 0);
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(FrmVantrelTest, ClosingTheWindowClosesThePortAndSaysSo) {
  Load();
  bool closed = false;
  QObject::connect(form_.get(), &FrmVantrel::Closed, form_.get(), [&] { closed = true; });
  form_->close();
  EXPECT_TRUE(closed);
  EXPECT_FALSE(port_.IsOpen());
}

TEST_F(FrmVantrelTest, KeyboardFocusDoesNotSlipToAButtonThatStaysEnabled) {
  Load();
  form_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  Button("Cmd58")->setFocus();
  QWidget* focused_meanwhile = nullptr;
  peer_.OnFrame([&](const std::string&) {
    focused_meanwhile = form_->focusWidget();
    peer_.Send(support::PtyPeer::Reply("58"));
  });
  QTest::keyClick(Button("Cmd58"), Qt::Key_Space);
  EXPECT_EQ(qobject_cast<QPushButton*>(focused_meanwhile), nullptr);
  EXPECT_EQ(form_->focusWidget(), Button("Cmd58"));
}

TEST_F(FrmVantrelTest, AFocusThatTheUserMovedDuringAWaitStays) {
  Load();
  form_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  Button("Cmd58")->setFocus();
  auto* hints = form_->findChild<QWidget*>("LblHints");
  peer_.OnFrame([&](const std::string&) {
    hints->setFocus(Qt::MouseFocusReason);
    peer_.Send(support::PtyPeer::Reply("58"));
  });
  QTest::keyClick(Button("Cmd58"), Qt::Key_Space);
  EXPECT_EQ(form_->focusWidget(), hints);
}

TEST_F(FrmVantrelTest, IsBackInItsPlaceThoughItWasMovedWhileHidden) {
  Load();
  AnswerAll();
  form_->move(40, 30);
  QCoreApplication::processEvents();
  const QPoint place = form_->frameGeometry().topLeft();
  OnForm([this](QDialog& form) {
    EXPECT_FALSE(form_->isVisible());
    form_->move(200, 150);
    form.close();
  });
  Press("Cmd41");
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(form_->frameGeometry().topLeft(), place);
}

TEST_F(FrmVantrelTest, AScreenReaderHearsWhatEachBoxIs) {
  Load();
  const std::pair<const char*, const char*> names[] = {{"TxtCommand", "Command"},
                                                       {"TxtSyntax", "Syntax"},
                                                       {"TxtResponse", "Response"},
                                                       {"LblHints", "Help"},
                                                       {"ProgressTimeLimit", "Time limit used"}};
  for (const auto& [control, name] : names)
    EXPECT_EQ(form_->findChild<QWidget*>(control)->accessibleName().toStdString(), name);
}

}  // namespace
}  // namespace vantrel::console
