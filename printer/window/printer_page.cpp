// SPDX-License-Identifier: MIT

#include "printer/window/printer_page.h"

#include "dialogs/guard.h"
#include "printer/model/printer_model.h"
#include "printer/service/printer_server.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSizePolicy>
#include <QVBoxLayout>

#include <stdexcept>

namespace vantrel::printer {
namespace {

// The speeds at which a console can be set to talk, in bits a second.
constexpr std::array<int, 5> kSpeeds{2400, 4800, 9600, 19200, 38400};
constexpr std::array<Series, 2> kSeries{Series::kQl7, Series::kQl8};

}  // namespace

using dialogs::GuardedSlot;

PrinterPage::PrinterPage(PrinterModel& model, PrinterServer& server, dialogs::Helpers helpers,
                         QWidget* parent)
    : QWidget(parent), model_(model), server_(server), helpers_(helpers) {
  setObjectName("PrinterPage");
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(8);
  layout->addWidget(MakePrinterGroup());
  layout->addWidget(MakeLineGroup());
  layout->addStretch();
  // As wide as their words, so that a click beside them does nothing.
  for (QCheckBox* box : {ChkPower, ChkCaseParts, ChkPacing})
    box->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(&server_, &PrinterServer::DeviceChanged, this,
          GuardedSlot(helpers_.guard, [this] { Refresh(); }));
  Refresh();
}

QWidget* PrinterPage::MakePrinterGroup() {
  auto* group = new QGroupBox(tr("Printer"), this);
  ChkPower = new QCheckBox(tr("P&ower"), group);
  ChkPower->setObjectName("ChkPower");
  ChkPower->setToolTip(
      tr("Switched off, the printer ends every command and hears nothing; the card stays."));
  connect(ChkPower, &QCheckBox::clicked, this,
          GuardedSlot(helpers_.guard, [this](bool on) { server_.SetPower(on); }));
  OptSeries = {new QRadioButton(tr("QL-&7"), group), new QRadioButton(tr("QL-&8"), group)};
  OptSeries[0]->setToolTip(tr("Writes all three tracks."));
  OptSeries[1]->setToolTip(tr("Writes the third track alone."));
  auto* series = new QHBoxLayout;
  for (std::size_t i = 0; i < OptSeries.size(); ++i) {
    OptSeries[i]->setObjectName(QString("OptSeries_%1").arg(i));
    connect(OptSeries[i], &QRadioButton::clicked, this,
            GuardedSlot(helpers_.guard, [this, i] { model_.SetSeries(kSeries[i]); }));
    series->addWidget(OptSeries[i]);
  }
  series->addStretch();
  ChkCaseParts = new QCheckBox(tr("Case accessory parts f&itted"), group);
  ChkCaseParts->setObjectName("ChkCaseParts");
  ChkCaseParts->setToolTip(tr("They close the back: no card can leave by the rear."));
  connect(ChkCaseParts, &QCheckBox::clicked, this,
          GuardedSlot(helpers_.guard, [this](bool fitted) { model_.SetCaseParts(fitted); }));
  auto* rows = new QFormLayout(group);
  rows->addRow(ChkPower);
  rows->addRow(tr("Series"), series);
  rows->addRow(ChkCaseParts);
  return group;
}

QWidget* PrinterPage::MakeLineGroup() {
  auto* group = new QGroupBox(tr("Line"), this);
  CmbSpeed = new QComboBox(group);
  CmbSpeed->setObjectName("CmbSpeed");
  for (const int speed : kSpeeds) CmbSpeed->addItem(tr("%1 bits/s").arg(speed), speed);
  connect(CmbSpeed, &QComboBox::activated, this,
          GuardedSlot(helpers_.guard, [this](int index) { CmbSpeed_Click(index); }));
  ChkPacing = new QCheckBox(tr("Pacin&g: the line takes its time"), group);
  ChkPacing->setObjectName("ChkPacing");
  ChkPacing->setToolTip(
      tr("Without it answers come at once, and a console is heard at whatever speed it talks."));
  connect(ChkPacing, &QCheckBox::clicked, this,
          GuardedSlot(helpers_.guard, [this](bool pacing) { model_.SetPacing(pacing); }));
  CmdUnplug = new QPushButton(tr("U&nplug"), group);
  CmdUnplug->setObjectName("CmdUnplug");
  CmdUnplug->setToolTip(tr("Makes the device vanish, as an adapter does that is pulled out."));
  connect(CmdUnplug, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this] { CmdUnplug_Click(); }));
  CmdPlugIn = new QPushButton(tr("P&lug in"), group);
  CmdPlugIn->setObjectName("CmdPlugIn");
  CmdPlugIn->setToolTip(tr("Makes a device again, most often under another name."));
  connect(CmdPlugIn, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this] { CmdPlugIn_Click(); }));
  auto* plug = new QHBoxLayout;
  plug->addWidget(CmdUnplug);
  plug->addWidget(CmdPlugIn);
  plug->addStretch();
  LblPlug = new QLabel(group);
  LblPlug->setObjectName("LblPlug");
  LblPlug->setTextFormat(Qt::PlainText);
  LblPlug->setWordWrap(true);
  auto* rows = new QFormLayout(group);
  auto* caption = new QLabel(tr("Spee&d"), group);
  caption->setBuddy(CmbSpeed);
  rows->addRow(caption, CmbSpeed);
  rows->addRow(ChkPacing);
  rows->addRow(tr("Plug"), plug);
  rows->addRow(LblPlug);
  return group;
}

void PrinterPage::CmbSpeed_Click(int index) { model_.SetSpeed(CmbSpeed->itemData(index).toInt()); }

void PrinterPage::CmdUnplug_Click() { server_.Unplug(); }

void PrinterPage::CmdPlugIn_Click() {
  try {
    server_.PlugIn();
  } catch (const std::runtime_error& error) {
    LblPlug->setText(tr("No device could be made: %1.").arg(error.what()));
  }
}

void PrinterPage::Refresh() {
  const PrinterState& state = model_.State();
  ChkPower->setChecked(state.power);
  for (std::size_t i = 0; i < OptSeries.size(); ++i)
    OptSeries[i]->setChecked(state.series == kSeries[i]);
  ChkCaseParts->setChecked(state.case_parts);
  // The printer may have been started with a speed that is none of the five.
  const int speed = model_.Speed();
  if (CmbSpeed->findData(speed) < 0) CmbSpeed->addItem(tr("%1 bits/s").arg(speed), speed);
  CmbSpeed->setCurrentIndex(CmbSpeed->findData(speed));
  ChkPacing->setChecked(model_.Pacing());
  const bool plugged_in = !server_.DevicePath().empty();
  if (plugged_in) LblPlug->clear();
  CmdUnplug->setEnabled(plugged_in);
  CmdPlugIn->setEnabled(!plugged_in);
}

}  // namespace vantrel::printer
