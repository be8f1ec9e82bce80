// SPDX-License-Identifier: MIT
#pragma once

#include "console/code_entry.h"
#include "console/command_handlers.h"
#include "console/painting_hold.h"
#include "console/sub_forms.h"
#include "dialogs/dialogs.h"
#include "dialogs/guard.h"
#include "link/common.h"
#include "link/display.h"
#include "link/event_loop_clock.h"
#include "link/port.h"
#include "link/transaction.h"

#include <QMainWindow>
#include <QRect>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QActionGroup;
class QDialog;
class QGridLayout;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QScrollArea;

namespace vantrel::dialogs {
class PanelBar;
}

namespace vantrel::console {

class ButtonArea;
class CommandButton;
class DisplayBox;
class PortLabel;

// The console: one button a command, the last exchange, help, guidance, and the menu for the serial
// port. Loading it opens the port; closing it closes the port.
class FrmVantrel : public QMainWindow, private link::Display, private SubForms {
  Q_OBJECT

 public:
  // Ends the program at once, with a status.
  using EndProgram = std::function<void(int status)>;

  // `port`, `dialogs` and `guard` must outlive the form. A port that cannot be opened is reported
  // when the window is up. What the form's controls start, and every failure of the port, ends
  // inside the guard.
  FrmVantrel(link::Port& port, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
             SystemTime system_time, link::CodePage page, EndProgram end_program);
  ~FrmVantrel() override;

  // Whether a command is waiting for its reply.
  bool IsWaiting() const { return transaction_.IsWaiting(); }
  // Opens the chosen port again, whose device has changed. A failure is told inside the guard.
  void ReopenPort();

 signals:
  // A reply has come and is shown; assistive programs are told of it, too.
  void ReplyArrived(const QString& reply);
  // The window was closed; the port is closed and every wait is about to end.
  void Closed();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void SetText(link::Field field, const std::string& text) override;
  std::string Text(link::Field field) const override;
  void EnableCommandButtons(bool enabled) override;
  void ShowLoss(const link::PortError& loss) override;

  void HideConsole() override;
  void ShowConsole() override;
  void ShowFrmPrintBuffer() override;
  void ShowFrm4E(const std::string& caption) override;
  void ShowFrmExternalImage() override;
  void ShowFrmExternalFont(const std::string& caption) override;
  void ShowFrm5A() override;
  // Shows a form, until it is closed, over the place of the hidden console.
  void ShowOver(QDialog& form);

  // `work` to be connected to a signal. What the port has become by it is shown.
  std::function<void()> Guarded(std::function<void()> work);
  void BuildMenus();
  QWidget* BuildExchange();
  QWidget* BuildHints();
  QWidget* BuildButtons();
  // Puts the help beside the boxes or, in a narrow window, below them, and gives the window the
  // least height at which every caption is whole, as far as the screen has it.
  void Fit();
  // The height that everything needs at the window's width.
  int NeededHeight() const;
  QSize AvailableSize() const;
  void SizeAtStart();
  QAction* AddEntry(QMenu* menu, QActionGroup* group, const QString& name, const QString& caption);

  void Form_Load();
  void Mnu_COM_Click(int number);
  void Mnu_bps_Click(const std::string& settings);
  void Mnu_About_Click();
  void CmdExit_Click();
  void ShowProgress();
  void ShowPort();
  // Brings the focus to the button of a code that has been typed; false when there is none.
  bool FocusCommand(const std::string& code);
  void AnnounceReply();
  // Makes the ordinary buttons look enabled or disabled.
  void LookEnabled(bool enabled);

  link::Port& port_;
  dialogs::Dialogs& dialogs_;
  dialogs::Guard& guard_;
  const EndProgram end_program_;
  link::CommonVariables common_;
  link::EventLoopClock clock_;
  link::Transaction transaction_;
  CommandHandlers handlers_;

  ButtonArea* buttons_ = nullptr;
  QScrollArea* buttons_area_ = nullptr;
  QScrollArea* hints_area_ = nullptr;
  QGridLayout* exchange_ = nullptr;
  PortLabel* lbl_port_ = nullptr;
  int port_number_ = 1;
  std::string port_speed_ = "9600";
  std::string port_problem_;  // why the port is not open, in a few words
  CodeEntry code_entry_;
  std::vector<CommandButton*> ordinary_buttons_;  // disabled while a command waits
  CommandButton* focus_to_return_ = nullptr;
  QLineEdit* txt_command_ = nullptr;
  DisplayBox* txt_syntax_ = nullptr;
  DisplayBox* txt_response_ = nullptr;
  QLabel* lbl_hints_ = nullptr;
  QProgressBar* progress_ = nullptr;
  QTimer progress_timer_;
  QTimer look_timer_;                                          // until the disabled buttons look so
  PaintingHold painting_hold_{std::chrono::milliseconds(16)};  // less than a screen shows
  dialogs::PanelBar* status_bar_ = nullptr;
  QRect frame_;                                  // of the hidden console
  std::optional<link::PortError> load_failure_;  // of a port that would not open at load
};

}  // namespace vantrel::console
