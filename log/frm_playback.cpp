// SPDX-License-Identifier: MIT

#include "log/frm_playback.h"

#include "dialogs/guard.h"
#include "log/log_panel.h"
#include "log/playback_server.h"

#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>

namespace vantrel::log {

FrmPlayback::FrmPlayback(const QString& path, const PlaybackServer& server, LineRecorder& recorder,
                         dialogs::Helpers helpers, QWidget* parent)
    : QWidget(parent),
      server_(server),
      LblDevice(MakeLabel("LblDevice")),
      LblPlayed(MakeLabel("LblPlayed")),
      LblUnexpected(MakeLabel("LblUnexpected")) {
  setObjectName("FrmPlayback");
  setWindowTitle(tr("Playing back %1").arg(QFileInfo(path).fileName()));
  const QString device = QString::fromStdString(server.DevicePath());
  LblDevice->setText(tr("The console opens %1.").arg(device));
  QFont bold = LblDevice->font();
  bold.setBold(true);
  LblDevice->setFont(bold);
  LblUnexpected->hide();
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(12, 12, 12, 12);
  layout->setSpacing(8);
  layout->addWidget(LblDevice);
  layout->addWidget(LblPlayed);
  layout->addWidget(LblUnexpected);
  auto* log = new LogPanel(recorder, helpers, this);
  log->SetEmptyText(tr("Nothing on the line yet. A console opens %1.").arg(device));
  layout->addWidget(log, 1);
  resize(940, 500);
  connect(&server, &PlaybackServer::Advanced, this,
          dialogs::GuardedSlot(helpers.guard, [this] { ShowState(); }));
  connect(&server, &PlaybackServer::Unexpected, this,
          dialogs::GuardedSlot(helpers.guard, [this](const QString& words) {
            LblUnexpected->setText(tr("Last unexpected frame: %1").arg(words));
            LblUnexpected->show();
          }));
  ShowState();
}

QLabel* FrmPlayback::MakeLabel(const char* name) {
  auto* label = new QLabel(this);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // Long data in words must not make the window as wide.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  return label;
}

void FrmPlayback::ShowState() {
  const Playback& playback = server_.Played();
  LblPlayed->setText(tr("Played %1 of %2 frames, %3 unexpected")
                         .arg(playback.Played())
                         .arg(playback.Frames())
                         .arg(playback.Unexpected()));
}

}  // namespace vantrel::log
