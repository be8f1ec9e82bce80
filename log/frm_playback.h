// SPDX-License-Identifier: MIT
#pragma once

#include "dialogs/helpers.h"

#include <QWidget>

class QLabel;

namespace vantrel::log {

class PlaybackServer;
class LineRecorder;

// The window of a capture that is played back: how far it is, and what goes over the line.
class FrmPlayback : public QWidget {
  Q_OBJECT

 public:
  // `path` names the capture. Server, recorder and helpers must outlive the form.
  FrmPlayback(const QString& path, const PlaybackServer& server, LineRecorder& recorder,
              dialogs::Helpers helpers, QWidget* parent = nullptr);

 private:
  QLabel* MakeLabel(const char* name);
  void ShowState();

  const PlaybackServer& server_;
  QLabel* LblDevice = nullptr;
  QLabel* LblPlayed = nullptr;
  QLabel* LblUnexpected = nullptr;
};

}  // namespace vantrel::log
