// SPDX-License-Identifier: MIT

#include "printer/window/fault_page.h"

#include "dialogs/guard.h"
#include "link/frame.h"
#include "printer/model/fault.h"
#include "printer/model/printer_model.h"
#include "printer/window/form_text.h"
#include "protocol/status.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStandardItemModel>
#include <QStringList>
#include <QVBoxLayout>

#include <stdexcept>
#include <string>

namespace vantrel::printer {
namespace {

// Between a fault's text and its meaning.
const QString kDash = QStringLiteral(" \u2013 ");

void AddHeading(QStandardItemModel& list, const QString& text) {
  auto* item = new QStandardItem(text);
  QFont bold = item->font();
  bold.setBold(true);
  item->setFont(bold);
  item->setFlags(Qt::NoItemFlags);
  list.appendRow(item);
}

void AddFault(QStandardItemModel& list, const QString& text, std::string_view meaning) {
  QString words = ToQt(meaning);
  words[0] = words[0].toUpper();
  auto* item = new QStandardItem(text + kDash + words);
  item->setToolTip(words);
  list.appendRow(item);
}

// Every kind of fault with a value to begin with, then every status but the normal one, and one
// that has no meaning.
void FillList(QStandardItemModel& list) {
  AddHeading(list, FaultPage::tr("What the printer does"));
  QString unknown_status;
  for (const FaultRow& row : FaultRows()) {
    if (row.kind == Fault::Kind::kStatus) {
      unknown_status = ToQt(row.example);
      continue;
    }
    QString text = ToQt(row.word);
    if (!row.example.empty()) text += ' ' + ToQt(row.example);
    AddFault(list, text, row.in_words);
  }
  AddHeading(list, FaultPage::tr("What status it answers with"));
  for (const protocol::StatusEntry& entry : protocol::AllStatuses()) {
    if (entry.status != protocol::status::kNormal)
      AddFault(list, ToQt(link::HexOf(entry.status)), entry.meaning);
  }
  AddFault(list, unknown_status, "a status without a meaning");
}

}  // namespace

using dialogs::GuardedSlot;

QString FaultTextOf(const QString& shown) {
  const QString text = shown.section(kDash, 0, 0).trimmed();
  static const QRegularExpression kStatusAlone("^[0-9A-Fa-f]{2}(\\s|$)");
  return kStatusAlone.match(text).hasMatch() ? "status " + text : text;
}

FaultPage::FaultPage(PrinterModel& model, dialogs::Helpers helpers, QWidget* parent)
    : QWidget(parent), model_(model), helpers_(helpers), CmbFault(MakeList()) {
  setObjectName("FaultPage");
  CmbFaultCount = new QComboBox(this);
  CmbFaultCount->setObjectName("CmbFaultCount");
  CmbFaultCount->setAccessibleName(tr("For"));
  // Its text stands in for the name on some systems.
  CmbFaultCount->setAccessibleDescription(CmbFaultCount->accessibleName());
  CmbFaultCount->addItems({tr("the next command"), tr("several commands"), tr("until taken away")});
  connect(CmbFaultCount, &QComboBox::currentIndexChanged, this,
          GuardedSlot(helpers_.guard, [this](int index) { CmbFaultCount_Click(index); }));
  TxtFaultCount = new QSpinBox(this);
  TxtFaultCount->setObjectName("TxtFaultCount");
  TxtFaultCount->setAccessibleName(tr("Number of commands"));
  TxtFaultCount->setRange(1, 9999);
  TxtFaultCount->setValue(3);
  TxtFaultCount->setEnabled(false);
  auto* count = new QHBoxLayout;
  count->addWidget(CmbFaultCount, 1);
  count->addWidget(TxtFaultCount);

  CmdSetFault = new QPushButton(tr("Set fau&lt"), this);
  CmdSetFault->setObjectName("CmdSetFault");
  connect(CmdSetFault, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this] { CmdSetFault_Click(); }));
  CmdClearFault = new QPushButton(tr("Ta&ke away"), this);
  CmdClearFault->setObjectName("CmdClearFault");
  connect(CmdClearFault, &QPushButton::clicked, this,
          GuardedSlot(helpers_.guard, [this] { CmdClearFault_Click(); }));
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(CmdSetFault);
  buttons->addWidget(CmdClearFault);
  buttons->addStretch();
  LblFault = new QLabel(this);
  LblFault->setObjectName("LblFault");
  LblFault->setTextFormat(Qt::PlainText);
  LblFault->setWordWrap(true);
  LblFaultRefusal = new QLabel(this);
  LblFaultRefusal->setObjectName("LblFaultRefusal");
  LblFaultRefusal->setTextFormat(Qt::PlainText);
  LblFaultRefusal->setWordWrap(true);

  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows->addRow(tr("Fault"), CmbFault);
  rows->addRow(tr("For"), count);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(rows);
  layout->addLayout(buttons);
  layout->addWidget(LblFault);
  layout->addWidget(LblFaultRefusal);
  layout->addStretch();
  Refresh();
}

QComboBox* FaultPage::MakeList() {
  auto* faults = new QComboBox(this);
  faults->setObjectName("CmbFault");
  faults->setAccessibleName(tr("Fault"));
  faults->setEditable(true);
  faults->setInsertPolicy(QComboBox::NoInsert);
  faults->setToolTip(
      tr("The numbers can be changed. \"on 21\", \"after 3\" and \"every 2\" aim the fault."));
  faults->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  faults->setMinimumContentsLength(24);
  faults->setMaxVisibleItems(20);
  auto* list = new QStandardItemModel(faults);
  FillList(*list);
  faults->setModel(list);
  // The first is a heading.
  faults->setCurrentIndex(1);
  const auto show_start = [faults] { faults->lineEdit()->setCursorPosition(0); };
  connect(faults, &QComboBox::currentIndexChanged, this, GuardedSlot(helpers_.guard, show_start));
  show_start();
  return faults;
}

void FaultPage::CmbFaultCount_Click(int index) { TxtFaultCount->setEnabled(index == 1); }

void FaultPage::CmdSetFault_Click() {
  QString text = FaultTextOf(CmbFault->currentText());
  if (CmbFaultCount->currentIndex() == 0)
    text += " next";
  else if (CmbFaultCount->currentIndex() == 1)
    text += QString(" for %1").arg(TxtFaultCount->value());
  else
    text += " until cleared";
  LblFaultRefusal->clear();
  try {
    model_.ReplaceFaults(ParseFault(text.toStdString()));
  } catch (const std::invalid_argument& refusal) {
    LblFaultRefusal->setText(QString::fromStdString(refusal.what()));
  }
  Refresh();
}

void FaultPage::CmdClearFault_Click() {
  LblFaultRefusal->clear();
  model_.ClearFaults();
  Refresh();
}

void FaultPage::Refresh() {
  QStringList texts;
  for (FaultPlan::Entry& entry : model_.Faults().List()) {
    entry.fault.strikes = entry.left;
    texts << QString::fromStdString(TextOf(entry.fault));
  }
  LblFault->setText(texts.isEmpty() ? tr("No fault is set.")
                                    : tr("Still to go wrong: %1").arg(texts.join("; ")));
  CmdClearFault->setEnabled(!texts.isEmpty());
}

}  // namespace vantrel::printer
