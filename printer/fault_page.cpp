#include "printer/fault_page.h"

#include "link/status_text.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <array>
#include <utility>

namespace vantrel {
namespace {

constexpr std::array<unsigned, 15> kStatuses{0x22, 0x23, 0x31, 0x32, 0x33, 0x34, 0x37, 0x38,
                                             0x40, 0x41, 0x42, 0x43, 0x45, 0x4C, 0x51};

struct Fault {
  const char* text;
  const char* meaning;
};

constexpr std::array<Fault, 13> kFaults{{
    {"silence", "no answer at all"},
    {"delay 2000", "the reply 2000 ms later"},
    {"bad-bcc", "a bad block check"},
    {"wrong-echo", "the reply to another command"},
    {"truncate", "a reply cut short"},
    {"resend 2", "15h twice"},
    {"reject", "10h"},
    {"unknown-control 55", "an unknown control character"},
    {"noise FF00", "noise before the reply"},
    {"split 5", "the reply byte by byte, 5 ms apart"},
    {"join", "the reply joined with the next"},
    {"vanish", "the device vanishes"},
    {"status 7F", "a status that is in no table"},
}};

}  // namespace

FaultPage::FaultPage(FaultSetter setter, QWidget* parent)
    : QWidget(parent), set_(std::move(setter)) {
  setObjectName("FaultPage");
  CmbFault = new QComboBox(this);
  CmbFault->setObjectName("CmbFault");
  CmbFault->setEditable(true);
  CmbFault->setInsertPolicy(QComboBox::NoInsert);
  CmbFault->setToolTip(tr("The numbers can be changed."));
  const auto add = [this](const QString& text, const QString& meaning) {
    CmbFault->addItem(text);
    CmbFault->setItemData(CmbFault->count() - 1, meaning, Qt::ToolTipRole);
    CmbFault->setItemData(CmbFault->count() - 1, meaning, Qt::UserRole);
  };
  for (const unsigned status : kStatuses) {
    const QString words = QString::fromLatin1(StatusText(status).data());
    add("status " + words.left(2), words);
  }
  for (const Fault& fault : kFaults) add(fault.text, tr(fault.meaning));

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
  LblFault = new QLabel(tr("No fault is set."), this);
  LblFault->setObjectName("LblFault");
  LblFault->setTextFormat(Qt::PlainText);
  LblFault->setWordWrap(true);

  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows->addRow(tr("Fault"), CmbFault);
  rows->addRow(QString(), meaning);
  rows->addRow(tr("For"), count);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(rows);
  layout->addLayout(buttons);
  layout->addWidget(LblFault);
  layout->addStretch();
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
  Set(text, tr("Set: %1").arg(text));
}

void FaultPage::CmdClearFault_Click() { Set("clear", tr("No fault is set.")); }

void FaultPage::Set(const QString& text, const QString& done) {
  std::string error;
  const bool taken = set_ && set_(text.toStdString(), error);
  LblFault->setText(taken ? done : QString::fromStdString(error));
}

}  // namespace vantrel
