#include "printer/window/state_bar.h"

#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"
#include "printer/window/form_text.h"
#include "printer/window/indicator_sign.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <string>

namespace vantrel::printer {

StateBar::StateBar(const PrinterModel& model, const PrinterServer& server, QWidget* parent)
    : QFrame(parent), model_(model), server_(server), layout_(new QHBoxLayout(this)) {
  setFrameShape(QFrame::StyledPanel);
  layout_->setContentsMargins(12, 6, 12, 6);
  layout_->setSpacing(22);
  LblActivity = MakeValue("LblActivity");
  QFont large = LblActivity->font();
  large.setPointSizeF(large.pointSizeF() * 1.1);
  LblActivity->setFont(large);
  // Room for two lines, so that nothing moves when a wait is told.
  LblActivity->setWordWrap(true);
  LblActivity->setMinimumSize(190, 2 * QFontMetrics(large).lineSpacing());
  Add(tr("Printer"), LblActivity);
  layout_->setStretch(0, 1);
  LblDevice = MakeValue("LblDevice", "/dev/pts/100");
  Add(tr("Device"), LblDevice);
  LblPlace = MakeValue("LblPlace", "waiting to be pulled out");
  Add(tr("Card"), LblPlace);
  LblLED = MakeValue("LblLED", "3 cycles, orange");
  led_ = new IndicatorSign(IndicatorSign::Shape::kLamp, this);
  led_->setObjectName("SignLED");
  Add(tr("LED"), LblLED, led_);
  MakeBuzzer();
  LblTransportCount = MakeValue("LblTransportCount");
  Add(tr("Transports"), LblTransportCount);
  LblPrintCount = MakeValue("LblPrintCount");
  Add(tr("Prints"), LblPrintCount);
  connect(&server_, &PrinterServer::DeviceChanged, this, &StateBar::RefreshDevice);
  Refresh();
  RefreshDevice();
}

void StateBar::MakeBuzzer() {
  LblBuzzer = MakeValue("LblBuzzer", "3 cycles");
  buzzer_ = new IndicatorSign(IndicatorSign::Shape::kBell, this);
  buzzer_->setObjectName("SignBuzzer");
  ChkMute = new QCheckBox(tr("&Mute"), this);
  ChkMute->setObjectName("ChkMute");
  ChkMute->setToolTip(tr("Shows the buzzer and keeps it silent."));
  connect(buzzer_, &IndicatorSign::TurnedOn, this, [this] {
    if (!ChkMute->isChecked()) QApplication::beep();
  });
  Add(tr("Buzzer"), LblBuzzer, buzzer_, ChkMute);
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

void StateBar::Add(const QString& caption, QLabel* value, QWidget* sign, QWidget* more) {
  auto* title = new QLabel(caption, this);
  QFont small = title->font();
  small.setPointSizeF(small.pointSizeF() * 0.85);
  title->setFont(small);
  title->setForegroundRole(QPalette::PlaceholderText);
  title->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  auto* row = new QHBoxLayout;
  row->setSpacing(6);
  if (sign != nullptr) row->addWidget(sign, 0, Qt::AlignVCenter);
  row->addWidget(value, 1);
  if (more != nullptr) row->addWidget(more, 0, Qt::AlignVCenter);
  auto* column = new QVBoxLayout;
  column->setSpacing(1);
  column->addWidget(title);
  column->addLayout(row, 1);
  layout_->addLayout(column);
}

void StateBar::Refresh() {
  const PrinterState& state = model_.State();
  const Indicators& indicators = state.indicators;
  SetText(LblActivity, ToQt(model_.ActivityInWords()));
  SetText(LblPlace, ToQt(PlaceInWords(state.place)));
  SetText(LblTransportCount, QString::number(state.transports));
  SetText(LblPrintCount, QString::number(state.prints));
  SetText(LblLED, ToQt(LedInWords(indicators)));
  SetText(LblBuzzer, ToQt(BuzzerInWords(indicators)));
  // The model tells of every flash, so what is so now is so until it tells again.
  const protocol::Moment now = server_.Now();
  led_->Show(indicators.LedIsLit(now), LedColour(indicators.led_colour));
  buzzer_->Show(indicators.BuzzerSounds(now), QColor(0xff, 0xb3, 0x00));
}

void StateBar::RefreshDevice() {
  const std::string path = server_.DevicePath();
  SetText(LblDevice, path.empty() ? tr("unplugged") : ToQt(path));
}

}  // namespace vantrel::printer
