#include "printer/through_server.h"

namespace vantrel {

ThroughServer::ThroughServer(const std::string& device, LineRecorder& recorder, QObject* parent)
    : QObject(parent), pass_(device, ListenerFor(recorder)) {}

PassThrough::Listener ThroughServer::ListenerFor(LineRecorder& recorder) {
  return {[&recorder](Direction direction, const Bytes& bytes, WallTime when) {
            const QByteArray copy(reinterpret_cast<const char*>(bytes.data()),
                                  static_cast<qsizetype>(bytes.size()));
            QMetaObject::invokeMethod(
                &recorder,
                [&recorder, direction, copy, when] { recorder.Record(direction, copy, when); },
                Qt::QueuedConnection);
          },
          [this](const std::string& reason) {
            QMetaObject::invokeMethod(
                this, [this, reason] { emit Ended(QString::fromLocal8Bit(reason.c_str())); },
                Qt::QueuedConnection);
          }};
}

}  // namespace vantrel
