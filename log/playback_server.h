// SPDX-License-Identifier: MIT
#pragma once

#include "link/frame.h"
#include "log/line_recorder.h"
#include "log/playback.h"
#include "protocol/line_end.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSocketNotifier>
#include <QString>
#include <QTimer>

#include <memory>
#include <string>

namespace vantrel::log {

// Plays a capture back on a line, from the event loop of its thread, from construction to
// destruction.
class PlaybackServer : public QObject {
  Q_OBJECT

 public:
  // `line` is not null. Playback, whose sink and listener the server makes itself, and recorder,
  // which keeps what goes over the line, must outlive it.
  PlaybackServer(Playback& playback, std::unique_ptr<protocol::LineEnd> line,
                 LineRecorder& recorder, QObject* parent = nullptr);
  ~PlaybackServer() override;

  // The device for the console to open.
  const std::string& DevicePath() const { return line_->Address(); }
  const Playback& Played() const { return playback_; }

  // Takes what has come over the line by now, and nothing that comes later.
  void HearNoMore();
  // Whether the console has taken all that was sent, as far as can be told.
  bool IsTaken() const { return line_->IsTaken(); }

 signals:
  // A frame came that was not expected, in words.
  void Unexpected(const QString& words);
  // The counts of the playback may have changed.
  void Advanced();

 private:
  protocol::Moment Now() const { return protocol::Moment{clock_.elapsed()}; }
  // Whether there was anything to read.
  bool ReadLine();
  void Write(const link::Bytes& chunk);
  // Has the timer go off when there is something to send, and tells of what has been done.
  void Schedule();

  Playback& playback_;
  std::unique_ptr<protocol::LineEnd> line_;
  LineRecorder& recorder_;
  QElapsedTimer clock_;
  QTimer due_;
  QTimer exclusive_use_;
  QSocketNotifier readable_;
};

}  // namespace vantrel::log
