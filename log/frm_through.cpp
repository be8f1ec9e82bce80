// SPDX-License-Identifier: MIT

#include "log/frm_through.h"

#include "log/log_panel.h"

#include <QLabel>
#include <QVBoxLayout>

namespace vantrel::log {

FrmThrough::FrmThrough(const QString& console_device, const QString& printer_device,
                       LineRecorder& recorder, dialogs::Helpers helpers, QWidget* parent)
    : QWidget(parent), LblThrough(new QLabel(this)) {
  setObjectName("FrmThrough");
  setWindowTitle(tr("Line to %1").arg(printer_device));
  LblThrough->setObjectName("LblThrough");
  LblThrough->setTextFormat(Qt::PlainText);
  LblThrough->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  LblThrough->setText(
      tr("The console opens %1; the printer is at %2.").arg(console_device, printer_device));
  QFont bold = LblThrough->font();
  bold.setBold(true);
  LblThrough->setFont(bold);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addWidget(LblThrough);
  auto* log = new LogPanel(recorder, helpers, this);
  log->SetEmptyText(tr("Nothing on the line yet. A console opens %1.").arg(console_device));
  layout->addWidget(log, 1);
  resize(940, 500);
}

void FrmThrough::TellEnd(const QString& reason) { LblThrough->setText(reason); }

}  // namespace vantrel::log
