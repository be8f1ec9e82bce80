#include "printer/window/fault_page.h"

#include "link/frame.h"
#include "link/status_text.h"
#include "printer/model/fault.h"
#include "printer/model/printer_model.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStringList>
#include <QVBoxLayout>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::printer {
namespace {

// A text and what it means, for a list.
struct Choice {
  std::string text;
  std::string meaning;
};

// Each status that has words, then every kind of fault with a value to begin with.
std::vector<Choice> Choices() {
  constexpr unsigned kNormal = 0x20;
  std::vector<Choice> choices;
  for (unsigned status = 0; status <= 0xFF; ++status) {
    const std::string code = link::HexOf(static_cast<std::uint8_t>(status));
    const std::string_view words = link::StatusText(status);
    if (status != kNormal && words.starts_with(code))
      choices.push_back({"status " + code, std::string(words)});
  }
  for (const FaultRow& row : FaultRows()) {
    std::string text(row.word);
    if (!row.example.empty()) text.append(" ").append(row.example);
    choices.push_back({text, std::string(row.in_words)});
  }
  return choices;
}

}  // namespace

FaultPage::FaultPage(PrinterModel& model, QWidget* parent) : QWidget(parent), model_(model) {
  setObjectName("FaultPage");
  CmbFault = new QComboBox(this);
  CmbFault->setObjectName("CmbFault");
  CmbFault->setEditable(true);
  CmbFault->setInsertPolicy(QComboBox::NoInsert);
  CmbFault->setToolTip(tr("The numbers can be changed."));
  for (const auto& [text, meaning] : Choices()) {
    CmbFault->addItem(QString::fromStdString(text), QString::fromStdString(meaning));
    CmbFault->setItemData(CmbFault->count() - 1, QString::fromStdString(meaning), Qt::ToolTipRole);
  }

  auto* meaning = new QLabel(this);
  meaning->setObjectName("LblFaultMeaning");
  meaning->setTextFormat(Qt::PlainText);
  meaning->setForegroundRole(QPalette::PlaceholderText);
  const auto tell = [this, meaning] {
    const int known = CmbFault->findText(CmbFault->currentText());
    meaning->setText(known < 0 ? QString() : CmbFault->itemData(known, Qt::UserRole).toString());
  };
  connect(CmbFault, &QComboBox::currentTextChanged, this, tell);
  tell();

  CmbFaultCount = new QComboBox(this);
  CmbFaultCount->setObjectName("CmbFaultCount");
  CmbFaultCount->addItems({tr("the next command"), tr("several commands"), tr("until taken away")});
  connect(CmbFaultCount, &QComboBox::currentIndexChanged, this, &FaultPage::CmbFaultCount_Click);
  TxtFaultCount = new QSpinBox(this);
  TxtFaultCount->setObjectName("TxtFaultCount");
  TxtFaultCount->setRange(1, 9999);
  TxtFaultCount->setValue(3);
  TxtFaultCount->setEnabled(false);
  auto* count = new QHBoxLayout;
  count->addWidget(CmbFaultCount, 1);
  count->addWidget(TxtFaultCount);

  CmdSetFault = new QPushButton(tr("Set &fault"), this);
  CmdSetFault->setObjectName("CmdSetFault");
  connect(CmdSetFault, &QPushButton::clicked, this, &FaultPage::CmdSetFault_Click);
  CmdClearFault = new QPushButton(tr("Take a&way"), this);
  CmdClearFault->setObjectName("CmdClearFault");
  connect(CmdClearFault, &QPushButton::clicked, this, &FaultPage::CmdClearFault_Click);
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
  rows->addRow(QString(), meaning);
  rows->addRow(tr("For"), count);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(rows);
  layout->addLayout(buttons);
  layout->addWidget(LblFault);
  layout->addWidget(LblFaultRefusal);
  layout->addStretch();
  Refresh();
}

void FaultPage::CmbFaultCount_Click(int index) { TxtFaultCount->setEnabled(index == 1); }

void FaultPage::CmdSetFault_Click() {
  QString text = CmbFault->currentText().trimmed();
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
