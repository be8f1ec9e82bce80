#include "console/frm_vantrel.h"

#include "console/command_button.h"
#include "console/command_table.h"
#include "console/display_box.h"
#include "console/guarded_application.h"
#include "dialogs/panel_bar.h"
#include "editors/frm_5a.h"
#include "editors/frm_external_font.h"
#include "editors/frm_external_image.h"
#include "printdata/frm_4e.h"
#include "printdata/frm_print_buffer.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vantrel {
namespace {

constexpr int kColumns = 6;
constexpr int kProgressInterval = 200;  // milliseconds

// Takes the width it is given and the height that its text needs then. Other sizes are not worked
// out: that would lay the text out several times more at each change.
class HintsLabel : public QLabel {
 public:
  using QLabel::QLabel;
  QSize sizeHint() const override { return {0, 0}; }
  QSize minimumSizeHint() const override { return {0, 0}; }
};

QLabel* NewLabel(const QString& name, const QString& caption) {
  auto* label = new QLabel(caption);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

FrmVantrel::FrmVantrel(Port& port, Dialogs& dialogs, SystemTime system_time, CodePage page,
                       EndProgram end_program)
    : port_(port),
      dialogs_(dialogs),
      end_program_(std::move(end_program)),
      transaction_(port, *this, clock_, page),
      handlers_(transaction_, *this, dialogs, *this, common_, std::move(system_time), page) {
  setObjectName("FrmVantrel");
  setWindowTitle("Orvel Rewrite Card Command");
  BuildMenus();
  auto* content = new QWidget;
  auto* layout = new QVBoxLayout(content);
  layout->setContentsMargins(8, 8, 8, 4);
  layout->setSpacing(8);
  layout->addWidget(BuildExchange(), 1);
  layout->addWidget(BuildButtons(), 3);
  setCentralWidget(content);
  status_bar_ = new PanelBar("StatusBarFrmMain", this);
  setStatusBar(status_bar_);
  setMinimumSize(1024, 640);
  resize(1120, 720);

  progress_timer_.setInterval(kProgressInterval);
  connect(&progress_timer_, &QTimer::timeout, this, &FrmVantrel::ShowProgress);
  clock_.OnSleep([this] { button_area_->setUpdatesEnabled(true); });
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
    connect(entry, &QAction::triggered, this,
            [this, number] { GuardedApplication::Run([&] { Mnu_COM_Click(number); }); });
  }
  QMenu* speed = setting->addMenu("Baud Rate");
  name_menu(speed, "Mnu_BaudRate");
  auto* speeds = new QActionGroup(this);
  // The port runs at 9600 from the start, but no entry is checked until one is chosen; that is
  // meant.
  for (const QString rate : {"2400", "4800", "9600", "19200", "38400"}) {
    QAction* entry = AddEntry(speed, speeds, "Mnu_" + rate + "bps", rate + "bps");
    connect(entry, &QAction::triggered, this, [this, rate] {
      GuardedApplication::Run([&] { Mnu_bps_Click((rate + ",N,8,1").toStdString()); });
    });
  }
  QAction* about = menuBar()->addAction("About");
  about->setObjectName("Mnu_About");
  connect(about, &QAction::triggered, this, &FrmVantrel::Mnu_About_Click);
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
  txt_command_ = new QLineEdit;
  txt_command_->setObjectName("TxtCommand");
  txt_command_->setAccessibleName("Command");
  txt_command_->setReadOnly(true);
  txt_command_->setFixedWidth(64);
  txt_syntax_ = new DisplayBox("TxtSyntax", "Syntax", 2);
  txt_response_ = new DisplayBox("TxtResponse", "Response", 2);
  txt_command_->setFont(txt_syntax_->font());

  progress_ = new QProgressBar;
  progress_->setObjectName("ProgressTimeLimit");
  progress_->setAccessibleName("Time limit used");
  progress_->setTextVisible(false);
  progress_->setFixedHeight(6);
  progress_->setValue(0);

  lbl_hints_ = new HintsLabel;
  lbl_hints_->setObjectName("LblHints");
  lbl_hints_->setTextFormat(Qt::PlainText);
  lbl_hints_->setWordWrap(true);
  lbl_hints_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  lbl_hints_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  lbl_hints_->setMargin(6);
  lbl_hints_->setBackgroundRole(QPalette::Base);
  lbl_hints_->setAutoFillBackground(true);
  auto* hints_area = new QScrollArea;
  hints_area->setWidget(lbl_hints_);
  hints_area->setWidgetResizable(true);
  hints_area->setFocusPolicy(Qt::NoFocus);

  auto* exit = new QPushButton("Exit");
  exit->setObjectName("CmdExit");
  exit->setProperty("Tag", "20");
  connect(exit, &QPushButton::clicked, this, &FrmVantrel::CmdExit_Click);

  auto* exchange = new QWidget;
  auto* grid = new QGridLayout(exchange);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  grid->addWidget(NewLabel("lblCommand", "Command :"), 0, 0);
  grid->addWidget(txt_command_, 0, 1);
  grid->addWidget(progress_, 0, 2);
  grid->addWidget(exit, 0, 3);
  grid->addWidget(NewLabel("LblSyntax", "Syntax :"), 1, 0, Qt::AlignTop);
  grid->addWidget(txt_syntax_, 1, 1, 1, 3);
  grid->addWidget(NewLabel("LblResponse", "Response :"), 2, 0, Qt::AlignTop);
  grid->addWidget(txt_response_, 2, 1, 1, 3);
  grid->setRowStretch(1, 1);
  grid->setRowStretch(2, 1);
  grid->addWidget(hints_area, 0, 4, 3, 1);
  grid->setColumnStretch(2, 5);
  grid->setColumnStretch(4, 6);
  return exchange;
}

QWidget* FrmVantrel::BuildButtons() {
  auto* area = new QWidget;
  button_area_ = area;
  auto* grid = new QGridLayout(area);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  const auto commands = Commands();
  const int rows = static_cast<int>(commands.size()) / kColumns;
  for (int i = 0; i < static_cast<int>(commands.size()); ++i) {
    const ConsoleCommand& command = commands[static_cast<std::size_t>(i)];
    auto* button = new CommandButton(command);
    connect(button, &QPushButton::clicked, this,
            [this, &command] { GuardedApplication::Run([&] { (handlers_.*command.click)(); }); });
    if (command.tag == "1") ordinary_buttons_.push_back(button);
    // Down each column in table order; a line stands between two columns.
    grid->addWidget(button, i % rows, i / rows * 2);
  }
  for (int column = 0; column < kColumns; ++column) grid->setColumnStretch(column * 2, 1);
  for (int row = 0; row < rows; ++row) grid->setRowStretch(row, 1);
  for (int number = 1; number < kColumns; ++number) {
    auto* line = new QFrame;
    line->setObjectName(QString("Line%1").arg(number));
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    grid->addWidget(line, 0, number * 2 - 1, rows, 1);
  }
  return area;
}

void FrmVantrel::Form_Load() {
  try {
    port_.Open();
    port_.DiscardInput();
    port_.DiscardOutput();
  } catch (const PortError& error) {
    load_failure_ = error.what();
  }
}

void FrmVantrel::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (load_failure_.empty()) return;
  // Reported on the next turn, when the window is up.
  QMetaObject::invokeMethod(
      this,
      [failure = std::exchange(load_failure_, {})] {
        GuardedApplication::Run([&] { throw PortError(failure); });
      },
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
}

void FrmVantrel::Mnu_bps_Click(const std::string& settings) {
  port_.SetSettings(settings);
  if (!port_.IsOpen()) port_.Open();
}

void FrmVantrel::Mnu_About_Click() {
  dialogs_.MsgBox(
      "If you need further information or source code, please contact us at \r\n"
      "Orvel-Nor Technology Ltd.\r\n"
      "Tel 5550 0100",
      Buttons::kOk, "Orvel QL-7/QL-8 series Command Demonstration - Version 1.01");
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
  const int limit = clock_.Interval(Timer::TimeOut);
  progress_->setMaximum(limit);
  progress_->setValue(limit - clock_.Remaining(Timer::TimeOut));
}

void FrmVantrel::SetText(Field field, const std::string& text) {
  const QString qtext = QString::fromStdString(text);
  switch (field) {
    case Field::TxtCommand:
      txt_command_->setText(qtext);
      break;
    case Field::TxtSyntax:
      txt_syntax_->SetText(qtext);
      break;
    case Field::TxtResponse:
      txt_response_->SetText(qtext);
      break;
    case Field::LblHints:
      lbl_hints_->setText(qtext);
      break;
    case Field::Panel1:
      status_bar_->SetText(1, text);
      break;
    case Field::Panel2:
      status_bar_->SetText(2, text);
      break;
  }
}

std::string FrmVantrel::Text(Field field) const {
  switch (field) {
    case Field::TxtCommand:
      return txt_command_->text().toStdString();
    case Field::TxtSyntax:
      return txt_syntax_->toPlainText().toStdString();
    case Field::TxtResponse:
      return txt_response_->toPlainText().toStdString();
    case Field::LblHints:
      return lbl_hints_->text().toStdString();
    case Field::Panel1:
      return status_bar_->Text(1);
    case Field::Panel2:
      return status_bar_->Text(2);
  }
  return {};
}

void FrmVantrel::EnableCommandButtons(bool enabled) {
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
  // One repaint of the area costs less than one of each button; and the disabled buttons are
  // painted only when the wait begins, so that they do not keep the frame from the line.
  button_area_->setUpdatesEnabled(false);
  for (CommandButton* button : ordinary_buttons_) button->setEnabled(enabled);
  if (enabled) button_area_->setUpdatesEnabled(true);
  if (enabled && focus_to_return_ != nullptr) {
    if (focusWidget() == txt_response_) focus_to_return_->setFocus();
    focus_to_return_ = nullptr;
  }
}

void FrmVantrel::HideConsole() {
  position_ = pos();
  hide();
}

void FrmVantrel::ShowConsole() {
  // A window manager would place the window anew.
  move(position_);
  show();
}
void FrmVantrel::ShowFrmPrintBuffer() { FrmPrintBuffer(common_, dialogs_).exec(); }

void FrmVantrel::ShowFrm4E(const std::string& caption) {
  Frm4E form(common_);
  form.setWindowTitle(QString::fromStdString(caption));
  form.exec();
}

void FrmVantrel::ShowFrmExternalImage() { FrmExternalImage(common_, dialogs_).exec(); }

void FrmVantrel::ShowFrmExternalFont(const std::string& caption) {
  FrmExternalFont form(common_, dialogs_);
  form.setWindowTitle(QString::fromStdString(caption));
  form.exec();
}

void FrmVantrel::ShowFrm5A() { Frm5A(common_, dialogs_, this).exec(); }

}  // namespace vantrel
