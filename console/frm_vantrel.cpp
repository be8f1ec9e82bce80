#include "console/frm_vantrel.h"

#include "console/button_grid.h"
#include "console/command_button.h"
#include "console/command_table.h"
#include "console/display_box.h"
#include "dialogs/named_widgets.h"
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

namespace vantrel::console {
namespace {

constexpr int kProgressInterval = 200;  // milliseconds
// An exchange that is over by then lets no button flicker; milliseconds.
constexpr int kQuickExchange = 100;

// Takes the width it is given and the height that its text needs then. Other sizes are not worked
// out: that would lay the text out several times more at each change.
class HintsLabel : public QLabel {
 public:
  using QLabel::QLabel;
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
  layout->setContentsMargins(8, 8, 8, 4);
  layout->setSpacing(8);
  layout->addWidget(BuildExchange(), 1);
  layout->addWidget(BuildButtons(), 3);
  setCentralWidget(content);
  status_bar_ = new dialogs::PanelBar("StatusBarFrmMain", this);
  setStatusBar(status_bar_);
  setMinimumSize(1024, 640);
  resize(1120, 720);

  progress_timer_.setInterval(kProgressInterval);
  connect(&progress_timer_, &QTimer::timeout, this, Guarded([this] { ShowProgress(); }));
  look_timer_.setInterval(kQuickExchange);
  look_timer_.setSingleShot(true);
  connect(&look_timer_, &QTimer::timeout, this, Guarded([this] { LookEnabled(false); }));
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
  connect(exit, &QPushButton::clicked, this, Guarded([this] { CmdExit_Click(); }));

  auto* exchange = new QWidget;
  auto* grid = new QGridLayout(exchange);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(8);
  grid->setVerticalSpacing(6);
  grid->addWidget(dialogs::MakeLabel("lblCommand", "Command :"), 0, 0);
  grid->addWidget(txt_command_, 0, 1);
  grid->addWidget(progress_, 0, 2);
  grid->addWidget(exit, 0, 3);
  grid->addWidget(dialogs::MakeLabel("LblSyntax", "Syntax :"), 1, 0, Qt::AlignTop);
  grid->addWidget(txt_syntax_, 1, 1, 1, 3);
  grid->addWidget(dialogs::MakeLabel("LblResponse", "Response :"), 2, 0, Qt::AlignTop);
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
  auto* grid = new QGridLayout(area);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  const auto commands = Commands();
  const ButtonGrid places(static_cast<int>(commands.size()));
  for (int i = 0; i < static_cast<int>(commands.size()); ++i) {
    const ConsoleCommand& command = commands[static_cast<std::size_t>(i)];
    auto* button = new CommandButton(command);
    connect(button, &QPushButton::clicked, this,
            Guarded([this, &command] { (handlers_.*command.click)(command); }));
    if (command.tag == "1") ordinary_buttons_.push_back(button);
    // A line stands between two columns.
    const Cell cell = places.CellOf(i);
    grid->addWidget(button, cell.row, cell.column * 2);
  }
  for (int column = 0; column < ButtonGrid::kColumns; ++column)
    grid->setColumnStretch(column * 2, 1);
  for (int row = 0; row < places.Rows(); ++row) grid->setRowStretch(row, 1);
  for (int number = 1; number < ButtonGrid::kColumns; ++number) {
    auto* line = new QFrame;
    line->setObjectName(QString("Line%1").arg(number));
    line->setFrameStyle(QFrame::VLine | QFrame::Sunken);
    grid->addWidget(line, 0, number * 2 - 1, places.Rows(), 1);
  }
  return area;
}

void FrmVantrel::Form_Load() {
  try {
    port_.Open();
    port_.DiscardInput();
    port_.DiscardOutput();
  } catch (const link::PortError& error) {
    load_failure_ = error.what();
  }
}

void FrmVantrel::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  if (load_failure_.empty()) return;
  // Reported on the next turn, when the window is up.
  QMetaObject::invokeMethod(this, Guarded([failure = std::exchange(load_failure_, {})] {
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
      break;
    case link::Field::LblHints:
      lbl_hints_->setText(qtext);
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
  guard_.Run([&loss] { throw loss; });
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
void FrmVantrel::ShowFrmPrintBuffer() {
  printdata::FrmPrintBuffer(common_, dialogs_, guard_).exec();
}

void FrmVantrel::ShowFrm4E(const std::string& caption) {
  printdata::Frm4E form(common_, guard_);
  form.setWindowTitle(QString::fromStdString(caption));
  form.exec();
}

void FrmVantrel::ShowFrmExternalImage() {
  editors::FrmExternalImage(common_, dialogs_, guard_).exec();
}

void FrmVantrel::ShowFrmExternalFont(const std::string& caption) {
  editors::FrmExternalFont form(common_, dialogs_, guard_);
  form.setWindowTitle(QString::fromStdString(caption));
  form.exec();
}

void FrmVantrel::ShowFrm5A() { editors::Frm5A(common_, dialogs_, guard_, this).exec(); }

}  // namespace vantrel::console
