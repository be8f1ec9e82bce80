// SPDX-License-Identifier: MIT

#include "printer/window/state_bar.h"

#include "dialogs/guard.h"
#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/form_text.h"
#include "printer/window/indicator_sign.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QStringList>
#include <QToolButton>
#include <QVBoxLayout>

#include <string>

namespace vantrel::printer {
namespace {

// A value's property that holds its caption.
constexpr const char* kCaption = "caption";
// A badge draws the eye on a light ground and on a dark one.
constexpr const char* kBadgeStyle =
    "QToolButton { background: #ffb300; color: black; border: 2px solid #b45f00;"
    " border-radius: 4px; font-weight: bold; padding: 0px 6px; }"
    "QToolButton:focus { border-color: palette(highlight); }";

}  // namespace

using dialogs::GuardedSlot;

StateBar::StateBar(PrinterModel& model, const PrinterServer& server, dialogs::Helpers helpers,
                   QWidget* parent)
    : QFrame(parent),
      model_(model),
      server_(server),
      helpers_(helpers),
      layout_(new QHBoxLayout(this)) {
  setObjectName("StateBar");
  setFrameShape(QFrame::StyledPanel);
  layout_->setContentsMargins(12, 6, 12, 6);
  layout_->setSpacing(16);
  LblActivity = MakeValue("LblActivity");
  QFont large = LblActivity->font();
  large.setPointSizeF(large.pointSizeF() * 1.1);
  LblActivity->setFont(large);
  // Room for two lines, so that nothing moves when a wait is told.
  LblActivity->setWordWrap(true);
  LblActivity->setMinimumSize(150, 2 * QFontMetrics(large).lineSpacing());
  Add(tr("Printer"), LblActivity);
  layout_->setStretch(0, 1);
  LblDevice = MakeValue("LblDevice", "/dev/pts/100");
  Add(tr("Device"), LblDevice);
  // The longest takes two lines.
  LblPlace = MakeValue("LblPlace", "inserted at the front");
  LblPlace->setWordWrap(true);
  Add(tr("Card"), LblPlace);
  LblLED = MakeValue("LblLED", "3 cycles, orange");
  led_ = new IndicatorSign(IndicatorSign::Shape::kLamp, this);
  led_->setObjectName("SignLED");
  led_->setAccessibleName(tr("LED"));
  Add(tr("LED"), LblLED, led_);
  MakeBuzzer();
  LblTransportCount = MakeValue("LblTransportCount");
  Add(tr("Transports"), LblTransportCount);
  LblPrintCount = MakeValue("LblPrintCount");
  Add(tr("Prints"), LblPrintCount);
  MakeFaults();
  connect(&server_, &PrinterServer::DeviceChanged, this,
          GuardedSlot(helpers_.guard, [this] { RefreshDevice(); }));
  Refresh();
  RefreshDevice();
}

void StateBar::MakeBuzzer() {
  LblBuzzer = MakeValue("LblBuzzer", "3 cycles");
  buzzer_ = new IndicatorSign(IndicatorSign::Shape::kBell, this);
  buzzer_->setObjectName("SignBuzzer");
  buzzer_->setAccessibleName(tr("Buzzer"));
  ChkMute = new QCheckBox(tr("&Mute"), this);
  ChkMute->setObjectName("ChkMute");
  ChkMute->setToolTip(tr("Shows the buzzer and keeps it silent."));
  connect(buzzer_, &IndicatorSign::TurnedOn, this, GuardedSlot(helpers_.guard, [this] {
            if (!ChkMute->isChecked()) emit Beeped();
          }));
  connect(this, &StateBar::Beeped, &QApplication::beep);
  Add(tr("Buzzer"), LblBuzzer, buzzer_, ChkMute);
}

void StateBar::MakeFaults() {
  CmdFaults = new QToolButton(this);
  CmdFaults->setObjectName("CmdFaults");
  CmdFaults->setFixedHeight(fontMetrics().height() + 8);
  connect(CmdFaults, &QToolButton::clicked, this,
          GuardedSlot(helpers_.guard, [this] { model_.ClearFaults(); }));
  // So that nothing moves when a fault is set.
  Add(tr("Faults"), CmdFaults)->setMinimumWidth(fontMetrics().horizontalAdvance("1000 set") + 24);
}

QLabel* StateBar::MakeValue(const char* name, const QString& widest) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  // So that nothing moves when the words change.
  if (!widest.isEmpty())
    label->setMinimumWidth(QFontMetrics(label->font()).horizontalAdvance(widest) + 4);
  return label;
}

QLabel* StateBar::Add(const QString& caption, QWidget* value, QWidget* sign, QWidget* more) {
  auto* title = new QLabel(caption, this);
  QFont small = title->font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  title->setFont(small);
  title->setForegroundRole(QPalette::PlaceholderText);
  title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  title->setBuddy(value);
  value->setProperty(kCaption, caption);
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  if (sign != nullptr) row->addWidget(sign, 0, Qt::AlignVCenter);
  // A value of a fixed height leaves its caption where the others are.
  if (value->maximumHeight() < QWIDGETSIZE_MAX)
    row->addWidget(value, 1, Qt::AlignLeft | Qt::AlignVCenter);
  else
    row->addWidget(value, 1);
  if (more != nullptr) row->addWidget(more, 0, Qt::AlignVCenter);
  auto* column = new QVBoxLayout;
  column->setSpacing(1);
  column->addWidget(title);
  column->addLayout(row, 1);
  layout_->addLayout(column);
  return title;
}

void StateBar::Tell(QLabel* value, const QString& text) {
  SetText(value, text);
  value->setAccessibleName(tr("%1: %2").arg(value->property(kCaption).toString(), text));
}

void StateBar::Refresh() {
  const PrinterState& state = model_.State();
  const Indicators& indicators = state.indicators;
  Tell(LblActivity, ToQt(model_.ActivityInWords()));
  Tell(LblPlace, ToQt(PlaceInWords(state.place)));
  Tell(LblTransportCount, QString::number(state.transports));
  Tell(LblPrintCount, QString::number(state.prints));
  Tell(LblLED, ToQt(LedInWords(indicators)));
  Tell(LblBuzzer, ToQt(BuzzerInWords(indicators)));
  // The model tells of every flash, so what is so now is so until it tells again.
  const protocol::Moment now = server_.Now();
  led_->Show(indicators.LedIsLit(now), LedColour(indicators.led_colour));
  led_->setAccessibleDescription(LblLED->text());
  buzzer_->Show(indicators.BuzzerSounds(now), QColor(0xff, 0xb3, 0x00));
  buzzer_->setAccessibleDescription(LblBuzzer->text());
  RefreshFaults();
}

void StateBar::RefreshFaults() {
  QStringList faults;
  for (FaultPlan::Entry& entry : model_.Faults().List()) {
    entry.fault.strikes = entry.left;
    faults += ToQt(TextOf(entry.fault));
  }
  const QString text = faults.isEmpty() ? tr("none") : tr("%1 set").arg(faults.size());
  if (CmdFaults->text() == text && CmdFaults->property("faults").toStringList() == faults) return;
  CmdFaults->setProperty("faults", faults);
  CmdFaults->setText(text);
  CmdFaults->setAccessibleName(tr("Faults: %1").arg(text));
  const QString told = faults.isEmpty()
                           ? tr("No fault is set.")
                           : tr("%1\nA click takes away what is set.").arg(faults.join('\n'));
  CmdFaults->setToolTip(told);
  CmdFaults->setAccessibleDescription(told);
  // It is never disabled, so that its focus falls nowhere.
  CmdFaults->setAutoRaise(faults.isEmpty());
  CmdFaults->setStyleSheet(faults.isEmpty() ? QString() : QString::fromLatin1(kBadgeStyle));
}

void StateBar::RefreshDevice() {
  const std::string path = server_.DevicePath();
  Tell(LblDevice, path.empty() ? tr("unplugged") : ToQt(path));
}

}  // namespace vantrel::printer
