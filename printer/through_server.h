#pragma once

#include "printer/line_recorder.h"
#include "printer/pass_through.h"

#include <QObject>
#include <QString>

#include <string>

namespace vantrel {

// A pass-through whose bytes a recorder keeps, told on the thread of the event loop.
class ThroughServer : public QObject {
  Q_OBJECT

 public:
  // `recorder` must outlive the server. Throws std::runtime_error, in words, where `device` is no
  // device that can be used, and std::system_error when the system gives no pseudo-terminal.
  ThroughServer(const std::string& device, LineRecorder& recorder, QObject* parent = nullptr);

  // The device for the console to open.
  const std::string& DevicePath() const { return pass_.DevicePath(); }

 signals:
  // The printer's device is gone, in words. Nothing is passed on any more.
  void Ended(const QString& reason);

 private:
  PassThrough::Listener ListenerFor(LineRecorder& recorder);

  PassThrough pass_;
};

}  // namespace vantrel
