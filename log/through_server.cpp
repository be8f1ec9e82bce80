// SPDX-License-Identifier: MIT

#include "log/through_server.h"

#include <utility>

namespace vantrel::log {

ThroughServer::ThroughServer(const std::string& device, std::unique_ptr<protocol::LineEnd> console,
                             LineRecorder& recorder, QObject* parent)
    : QObject(parent), pass_(device, std::move(console), ListenerFor(recorder)) {}

PassThrough::Listener ThroughServer::ListenerFor(LineRecorder& recorder) {
  return {[&recorder](protocol::Direction direction, const link::Bytes& bytes, WallTime when) {
            const QByteArray copy(reinterpret_cast<const char*>(bytes.data()),
                                  static_cast<qsizetype>(bytes.size()));
            QMetaObject::invokeMethod(
                &recorder,
                [&recorder, direction, copy, when]() noexcept {
                  recorder.Record(direction, copy, when);
                },
                Qt::QueuedConnection);
          },
          [this](const std::string& reason) {
            QMetaObject::invokeMethod(
                this,
                [this, reason]() noexcept { emit Ended(QString::fromLocal8Bit(reason.c_str())); },
                Qt::QueuedConnection);
          }};
}

}  // namespace vantrel::log
