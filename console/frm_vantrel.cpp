// SPDX-License-Identifier: MIT

#include "console/frm_vantrel.h"

#include "console/button_area.h"
#include "console/command_button.h"
#include "console/command_table.h"
#include "console/display_box.h"
#include "console/port_label.h"
#include "dialogs/focus_ring.h"
#include "dialogs/named_widgets.h"
#include "dialogs/panel_bar.h"
#include "dialogs/placement.h"
#include "editors/frm_5a.h"
#include "editors/frm_external_font.h"
#include "editors/frm_external_image.h"
#include "printdata/frm_4e.h"
#include "printdata/frm_print_buffer.h"

#include <QAccessible>
#include <QActionGroup>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <utility>

namespace vantrel::console {
namespace {

constexpr int kProgressInterval = 200;  // milliseconds
// An exchange that is over by then lets no button flicker; milliseconds.
constexpr int kQuickExchange = 100;

// A window that is narrower than so many fixed-pitch characters has the help below the boxes.
constexpr int kNarrowWindow = 112;
constexpr int kHintLines = 4;
constexpr QSize kStartSize(1120, 720);
// Pixels between what stands in the window and its edges. The right one belongs to what has it, so
// that the buttons keep it when their scroll bar stands at the edge.
constexpr int kSideMargin = 8;
// What a window manager may put around a window that has not been shown yet.
constexpr QSize kUsualFrame(8, 32);

// Takes the width it is given and the height that its text needs then. Other sizes are not worked
// out: that would lay the text out several times more at each change.
class HintsLabel : public dialogs::Ringed<QLabel> {
 public:
  using Ringed::Ringed;
  QSize sizeHint() const override { return {0, 0}; }
  QSize minimumSizeHint() const override { return {0, 0}; }
};

}  // namespace

FrmVantrel::FrmVantrel(link::Port& port, dialogs::Dialogs& dialogs, dialogs::Guard& guard,
                       SystemTime system_time, link::CodePage page, EndProgram end_program)
    : port_(port),
      dialogs_(dialogs),
      guard_(guard),
      end_program_(std::move(end_program)),
      transaction_(port, *this, clock_, page),
      handlers_(transaction_, *this, dialogs, *this, common_, std::move(system_time), page) {
  setObjectName("FrmVantrel");
  setWindowTitle("Orvel Rewrite Card Command");
  BuildMenus();
  auto* content = new QWidget;
  auto* layout = new QVBoxLayout(content);
  layout->setContentsMargins(kSideMargin, 4, 0, 4);
  layout->setSpacing(6);
  layout->addWidget(BuildExchange(), 1);
  layout->addWidget(BuildButtons(), 3);
  setCentralWidget(content);
  status_bar_ = new dialogs::PanelBar("StatusBarFrmMain", this);
  setStatusBar(status_bar_);
  SizeAtStart();

  progress_timer_.setInterval(kProgressInterval);
  connect(&progress_timer_, &QTimer::timeout, this, Guarded([this] { ShowProgress(); }));
  look_timer_.setInterval(kQuickExchange);
  look_timer_.setSingleShot(true);
  connect(&look_timer_, &QTimer::timeout, this, Guarded([this] { LookEnabled(false); }));
  // The frame goes out before the window shows what was pressed.
  painting_hold_.Watch(this);
  painting_hold_.Watch(hints_area_->viewport());
  painting_hold_.Watch(status_bar_);
  ordinary_buttons_.front()->setFocus();
  Form_Load();
}

FrmVantrel::~FrmVantrel() { port_.Close(); }

void FrmVantrel::BuildMenus() {
  const auto name_menu = [](QMenu* menu, const QString& name) {
    menu->setObjectName(name);
    menu->menuAction()->setObjectName(name);
  };
  QMenu* setting = menuBar()->addMenu("Setting");
  name_menu(setting, "Mnu_Setting");
  QMenu* port = setting->addMenu("Port");
  name_menu(port, "Mnu_Port");
  auto* ports = new QActionGroup(this);
  for (const int number : {1, 2}) {
    const QString digit = QString::number(number);
    QAction* entry = AddEntry(port, ports, "Mnu_COM" + digit, "COM " + digit);
    entry->setChecked(number == 1);
    connect(entry, &QAction::triggered, this, Guarded([this, number] { Mnu_COM_Click(number); }));
  }
  QMenu* speed = setting->addMenu("Baud Rate");
  name_menu(speed, "Mnu_BaudRate");
  auto* speeds = new QActionGroup(this);
  // The port runs at 9600 from the start, but no entry is checked until one is chosen; that is
  // meant.
  for (const QString rate : {"2400", "4800", "9600", "19200", "38400"}) {
    QAction* entry = AddEntry(speed, speeds, "Mnu_" + rate + "bps", rate + "bps");
    connect(entry, &QAction::triggered, this,
            Guarded([this, rate] { Mnu_bps_Click((rate + ",N,8,1").toStdString()); }));
  }
  QAction* about = menuBar()->addAction("About");
  about->setObjectName("Mnu_About");
  connect(about, &QAction::triggered, this, Guarded([this] { Mnu_About_Click(); }));
  lbl_port_ = new PortLabel;
  menuBar()->setCornerWidget(lbl_port_, Qt::TopRightCorner);
}

QAction* FrmVantrel::AddEntry(QMenu* menu, QActionGroup* group, const QString& name,
                              const QString& caption) {
  QAction* entry = menu->addAction(caption);
  entry->setObjectName(name);
  entry->setCheckable(true);
  group->addAction(entry);
  return entry;
}

QWidget* FrmVantrel::BuildExchange() {
  txt_command_ = new dialogs::Ringed<QLineEdit>;
  txt_command_->setObjectName("TxtCommand");
  txt_command_->setAccessibleName("Command");
  txt_command_->setReadOnly(true);
  txt_syntax_ = new DisplayBox("TxtSyntax", "Syntax", 2);
  txt_response_ = new DisplayBox("TxtResponse", "Response", 2);
  txt_response_->SetStandsOut();
  txt_command_->setFont(txt_syntax_->font());
  txt_command_->setFixedWidth(8 * txt_command_->fontMetrics().averageCharWidth());

  progress_ = new QProgressBar;
  progress_->setObjectName("ProgressTimeLimit");
  progress_->setAccessibleName("Time limit used");
  progress_->setTextVisible(false);
  progress_->setFixedHeight(6);
  progress_->setValue(0);

  auto* exit = new dialogs::Ringed<QPushButton>("Exit");
  exit->setAutoDefault(true);  // Enter presses it
  exit->setObjectName("CmdExit");
  exit->setProperty("Tag", "20");
  connect(exit, &QPushButton::clicked, this, Guarded([this] { CmdExit_Click(); }));

  auto* exchange = new QWidget;
  exchange_ = new QGridLayout(exchange);
  exchange_->setContentsMargins(0, 0, kSideMargin, 0);
  exchange_->setHorizontalSpacing(8);
  exchange_->setVerticalSpacing(4);
  exchange_->addWidget(dialogs::MakeLabel("lblCommand", "Command :"), 0, 0);
  exchange_->addWidget(txt_command_, 0, 1);
  exchange_->addWidget(progress_, 0, 2);
  exchange_->addWidget(exit, 0, 3);
  exchange_->addWidget(dialogs::MakeLabel("LblSyntax", "Syntax :"), 1, 0, Qt::AlignTop);
  exchange_->addWidget(txt_syntax_, 1, 1, 1, 3);
  exchange_->addWidget(dialogs::MakeLabel("LblResponse", "Response :"), 2, 0, Qt::AlignTop);
  exchange_->addWidget(txt_response_, 2, 1, 1, 3);
  exchange_->setRowStretch(1, 1);
  exchange_->setRowStretch(2, 1);
  exchange_->setColumnStretch(2, 5);
  exchange_->setColumnStretch(4, 6);
  exchange_->addWidget(BuildHints(), 0, 4, 3, 1);
  return exchange;
}

QWidget* FrmVantrel::BuildHints() {
  lbl_hints_ = new HintsLabel;
  lbl_hints_->setObjectName("LblHints");
  lbl_hints_->setAccessibleName("Help");
  lbl_hints_->setTextFormat(Qt::PlainText);
  lbl_hints_->setWordWrap(true);
  lbl_hints_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lbl_hints_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The two lines of a command's help line up by their blanks.
  lbl_hints_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  lbl_hints_->setFocusPolicy(Qt::StrongFocus);
  lbl_hints_->setMargin(6);
  lbl_hints_->setBackgroundRole(QPalette::Base);
  lbl_hints_->setAutoFillBackground(true);
  hints_area_ = new QScrollArea;
  hints_area_->setWidget(lbl_hints_);
  hints_area_->setWidgetResizable(true);
  hints_area_->setFocusPolicy(Qt::NoFocus);
  hints_area_->setMinimumHeight(kHintLines * lbl_hints_->fontMetrics().lineSpacing() + 16);
  return hints_area_;
}

QWidget* FrmVantrel::BuildButtons() {
  const auto commands = Commands();
  buttons_ = new ButtonArea(commands);
  buttons_->layout()->setContentsMargins(0, 0, kSideMargin, 0);
  for (std::size_t i = 0; i < commands.size(); ++i) {
    const ConsoleCommand& command = commands[i];
    CommandButton* button = buttons_->Buttons()[i];
    connect(button, &QPushButton::clicked, this,
            Guarded([this, &command] { (handlers_.*command.click)(command); }));
    if (command.tag == "1") ordinary_buttons_.push_back(button);
  }
  // Scrolls where the screen is too small for the font.
  buttons_area_ = new QScrollArea;
  buttons_area_->setFrameShape(QFrame::NoFrame);
  buttons_area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  buttons_area_->setFocusPolicy(Qt::NoFocus);
  buttons_area_->setWidgetResizable(true);
  buttons_area_->setWidget(buttons_);
  return buttons_area_;
}

QSize FrmVantrel::AvailableSize() const {
  const QSize frame = isVisible() ? frameGeometry().size() - size() : kUsualFrame;
  return screen()->availableSize() - (frame.isNull() ? kUsualFrame : frame);
}

void FrmVantrel::SizeAtStart() {
  const QSize available = AvailableSize();
  resize(kStartSize.boundedTo(available));
  Fit();
  resize(width(), std::min(std::max(kStartSize.height(), NeededHeight()), available.height()));
}

int FrmVantrel::NeededHeight() const {
  const QMargins margins = centralWidget()->layout()->contentsMargins();
  const int inside = width() - margins.left() - margins.right();
  return menuBar()->heightForWidth(width()) + margins.top() +
         exchange_->parentWidget()->minimumSizeHint().height() +
         centralWidget()->layout()->spacing() + buttons_->heightForWidth(inside) +
         margins.bottom() + status_bar_->minimumSizeHint().height();
}

void FrmVantrel::Fit() {
  const bool narrow = width() < kNarrowWindow * lbl_hints_->fontMetrics().averageCharWidth();
  int row = 0, column = 0, rows = 0, columns = 0;
  exchange_->getItemPosition(exchange_->indexOf(hints_area_), &row, &column, &rows, &columns);
  if (narrow != (row == 3)) {
    exchange_->removeWidget(hints_area_);
    if (narrow)
      exchange_->addWidget(hints_area_, 3, 0, 1, 4);
    else
      exchange_->addWidget(hints_area_, 0, 4, 3, 1);
    exchange_->setColumnStretch(4, narrow ? 0 : 6);
    exchange_->setRowStretch(3, narrow ? 1 : 0);
    exchange_->activate();
  }
  const QMargins margins = centralWidget()->layout()->contentsMargins();
  // The buttons' scroll bar may come.
  setMinimumWidth(std::max(buttons_->minimumSizeHint().width() +
                               style()->pixelMetric(QStyle::PM_ScrollBarExtent),
                           exchange_->parentWidget()->minimumSizeHint().width()) +
                  margins.left() + margins.right());
  const int height = std::min(NeededHeight(), AvailableSize().height());
  const int buttons = buttons_->heightForWidth(width() - margins.left() - margins.right());
  // Or the boxes above, which can do with less, would grow at the buttons' cost.
  buttons_area_->setMinimumHeight(
      std::max(0, std::min(buttons, height - (NeededHeight() - buttons))));
  setMinimumHeight(height);
}

void FrmVantrel::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  if (event->size().width() != event->oldSize().width()) Fit();
  // A scroll bar that is there takes width, and so gives itself a reason to stay.
  buttons_area_->setVerticalScrollBarPolicy(NeededHeight() <= height() ? Qt::ScrollBarAlwaysOff
                                                                       : Qt::ScrollBarAsNeeded);
}

void FrmVantrel::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  // The children hear of a new font or style before this call ends.
  if ((event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) &&
      status_bar_ != nullptr)
    QMetaObject::invokeMethod(
        this, [this] { Fit(); }, Qt::QueuedConnection);
}

void FrmVantrel::keyPressEvent(QKeyEvent* event) {
  const bool is_shortcut =
      (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const QString text = event->text();
  if (event->key() == Qt::Key_F10 && !is_shortcut) {
    menuBar()->setFocus(Qt::MenuBarFocusReason);
    menuBar()->setActiveAction(menuBar()->actions().front());
    return;
  }
  if (is_shortcut || text.size() != 1 || !std::isxdigit(text[0].toLatin1())) {
    code_entry_.Clear();
    return QMainWindow::keyPressEvent(event);
  }
  const auto now = std::chrono::milliseconds(event->timestamp());
  const auto code = code_entry_.Type(text[0].toLatin1(), now);
  if (code && !FocusCommand(*code)) code_entry_.Reject();
}

bool FrmVantrel::FocusCommand(const std::string& code) {
  const auto commands = Commands();
  const auto found = std::find_if(commands.begin(), commands.end(),
                                  [&](const auto& command) { return command.code == code; });
  if (found == commands.end()) return false;
  CommandButton* button = buttons_->Buttons()[static_cast<std::size_t>(found - commands.begin())];
  button->setFocus(Qt::ShortcutFocusReason);
  buttons_area_->ensureWidgetVisible(button);
  return true;
}

std::function<void()> FrmVantrel::Guarded(std::function<void()> work) {
  return dialogs::Guarded(guard_, [this, work = std::move(work)] {
    try {
      work();
    } catch (const link::PortError& error) {
      port_problem_ = error.Brief();
      ShowPort();
      throw;
    }
    ShowPort();
  });
}

void FrmVantrel::ShowPort() {
  if (port_.IsOpen()) port_problem_.clear();
  const std::string state = port_.IsOpen()          ? "open"
                            : port_problem_.empty() ? "closed"
                                                    : port_problem_;
  lbl_port_->Show(port_number_, QString::fromStdString(port_.Device()),
                  QString::fromStdString(port_speed_), QString::fromStdString(state));
}

void FrmVantrel::ReopenPort() {
  Guarded([this] { port_.Open(); })();
}

void FrmVantrel::Form_Load() {
  try {
    port_.Open();
    port_.DiscardInput();
    port_.DiscardOutput();
  } catch (const link::PortError& error) {
    load_failure_ = error;
    port_problem_ = error.Brief();
  }
  ShowPort();
}

void FrmVantrel::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (!load_failure_) return;
  // Reported on the next turn, when the window is up.
  QMetaObject::invokeMethod(this, Guarded([failure = *std::exchange(load_failure_, {})] {
                              throw link::PortError(failure);
                            }),
                            Qt::QueuedConnection);
}

void FrmVantrel::closeEvent(QCloseEvent* event) {
  port_.Close();
  transaction_.Abandon();
  QMainWindow::closeEvent(event);
  emit Closed();
}

void FrmVantrel::Mnu_COM_Click(int number) {
  // The port is left closed on purpose; choosing a speed opens it again.
  port_.Close();
  port_.SetCommPort(number);
  port_number_ = number;
  port_problem_.clear();
}

void FrmVantrel::Mnu_bps_Click(const std::string& settings) {
  port_speed_ = settings.substr(0, settings.find(','));
  port_.SetSettings(settings);
  if (!port_.IsOpen()) port_.Open();
}

void FrmVantrel::Mnu_About_Click() {
  dialogs_.MsgBox(
      "If you need further information or source code, please contact us at \r\n"
      "Orvel-Nor Technology Ltd.\r\n"
      "Tel 5550 0100",
      dialogs::Buttons::kOk,
      "Orvel QL-7/QL-8 series Command Demonstration - Version " VANTREL_VERSION);
}

void FrmVantrel::CmdExit_Click() {
  port_.Close();
  end_program_(0);
}

void FrmVantrel::ShowProgress() {
  if (!transaction_.IsWaiting()) {
    progress_timer_.stop();
    progress_->setValue(0);
    return;
  }
  const int limit = clock_.Interval(link::Timer::TimeOut);
  progress_->setMaximum(limit);
  progress_->setValue(limit - clock_.Remaining(link::Timer::TimeOut));
}

void FrmVantrel::SetText(link::Field field, const std::string& text) {
  const QString qtext = QString::fromStdString(text);
  switch (field) {
    case link::Field::TxtCommand:
      txt_command_->setText(qtext);
      break;
    case link::Field::TxtSyntax:
      txt_syntax_->SetText(qtext);
      break;
    case link::Field::TxtResponse:
      txt_response_->SetText(qtext);
      if (!qtext.isEmpty()) AnnounceReply();
      break;
    case link::Field::LblHints:
      lbl_hints_->setText(qtext);
      lbl_hints_->setAccessibleName(qtext.isEmpty() ? "Help" : "Help: " + qtext);
      break;
    case link::Field::Panel1:
      status_bar_->SetText(1, text);
      break;
    case link::Field::Panel2:
      status_bar_->SetText(2, text);
      break;
  }
}

std::string FrmVantrel::Text(link::Field field) const {
  switch (field) {
    case link::Field::TxtCommand:
      return txt_command_->text().toStdString();
    case link::Field::TxtSyntax:
      return txt_syntax_->toPlainText().toStdString();
    case link::Field::TxtResponse:
      return txt_response_->toPlainText().toStdString();
    case link::Field::LblHints:
      return lbl_hints_->text().toStdString();
    case link::Field::Panel1:
      return status_bar_->Text(1);
    case link::Field::Panel2:
      return status_bar_->Text(2);
  }
  return {};
}

void FrmVantrel::AnnounceReply() {
  emit ReplyArrived(txt_response_->toPlainText());
  if (!QAccessible::isActive()) return;
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
  QAccessibleAnnouncementEvent event(txt_response_, txt_response_->toPlainText());
#else
  QAccessibleEvent event(txt_response_, QAccessible::Alert);
#endif
  QAccessible::updateAccessibility(&event);
}

void FrmVantrel::EnableCommandButtons(bool enabled) {
  if (enabled)
    painting_hold_.End();
  else
    painting_hold_.Begin();
  // Disabling a focused button would hand the focus, and the next press of the space bar, to a
  // button that stays enabled. The focus waits in the response box instead.
  if (!enabled) {
    auto* focused = qobject_cast<CommandButton*>(focusWidget());
    if (std::count(ordinary_buttons_.begin(), ordinary_buttons_.end(), focused) > 0) {
      focus_to_return_ = focused;
      txt_response_->setFocus();
    }
    progress_timer_.start();
  }
  for (CommandButton* button : ordinary_buttons_) button->setEnabled(enabled);
  if (enabled) {
    look_timer_.stop();
    LookEnabled(true);
  } else if (!look_timer_.isActive()) {
    look_timer_.start();
  }
  if (enabled && focus_to_return_ != nullptr) {
    if (focusWidget() == txt_response_) focus_to_return_->setFocus();
    focus_to_return_ = nullptr;
  }
}

void FrmVantrel::LookEnabled(bool enabled) {
  for (CommandButton* button : ordinary_buttons_) button->LookEnabled(enabled);
}

void FrmVantrel::ShowLoss(const link::PortError& loss) {
  Guarded([&loss] { throw loss; })();
}

void FrmVantrel::HideConsole() {
  // The widget's own may lack a frame that has come without moving the window.
  frame_ = windowHandle() != nullptr ? windowHandle()->frameGeometry() : frameGeometry();
  hide();
}

void FrmVantrel::ShowConsole() {
  // A window manager would place the window anew.
  if (!isMaximized() && !isFullScreen()) move(frame_.topLeft());
  show();
}

void FrmVantrel::ShowOver(QDialog& form) {
  dialogs::PlaceOver(form, *this, frame_);
  form.exec();
}

void FrmVantrel::ShowFrmPrintBuffer() {
  printdata::FrmPrintBuffer form(common_, dialogs_, guard_);
  ShowOver(form);
}

void FrmVantrel::ShowFrm4E(const std::string& caption) {
  printdata::Frm4E form(common_, guard_);
  form.setWindowTitle(QString::fromStdString(caption));
  ShowOver(form);
}

void FrmVantrel::ShowFrmExternalImage() {
  editors::FrmExternalImage form(common_, dialogs_, guard_);
  ShowOver(form);
}

void FrmVantrel::ShowFrmExternalFont(const std::string& caption) {
  editors::FrmExternalFont form(common_, dialogs_, guard_);
  form.setWindowTitle(QString::fromStdString(caption));
  ShowOver(form);
}

void FrmVantrel::ShowFrm5A() { editors::Frm5A(common_, dialogs_, guard_, this).exec(); }

}  // namespace vantrel::console
