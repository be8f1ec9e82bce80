// SPDX-License-Identifier: MIT
#pragma once

#include "log/line_recorder.h"
#include "log/pass_through.h"

#include <QObject>
#include <QString>

#include <memory>
#include <string>

namespace vantrel::log {

// A pass-through whose bytes a recorder keeps, told on the thread of the event loop.
class ThroughServer : public QObject {
  Q_OBJECT

 public:
  // `console` is the end of the line that the console is to use, not null; `recorder` must outlive
  // the server. Throws std::runtime_error, in words, where `device` is no device that can be used.
  ThroughServer(const std::string& device, std::unique_ptr<protocol::LineEnd> console,
                LineRecorder& recorder, QObject* parent = nullptr);

  // The device for the console to open.
  const std::string& DevicePath() const { return pass_.DevicePath(); }

 signals:
  // The printer's device is gone, in words. Nothing is passed on any more.
  void Ended(const QString& reason);

 private:
  PassThrough::Listener ListenerFor(LineRecorder& recorder);

  PassThrough pass_;
};

}  // namespace vantrel::log
