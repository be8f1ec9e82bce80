#include "printer/line_recorder.h"

#include "printer/printer_server.h"

#include <chrono>
#include <span>

namespace vantrel {
namespace {

WallTime WallNow() {
  return std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
}

}  // namespace

LineRecorder::LineRecorder(QObject* parent) : QObject(parent) {
  silence_.setSingleShot(true);
  silence_.setInterval(kGroupSilence);
  connect(&silence_, &QTimer::timeout, this, [this] {
    log_.Settle(WallNow());
    if (log_.Settled() < log_.End()) silence_.start();
    emit Recorded();
  });
}

void LineRecorder::RecordLineOf(PrinterServer& server) {
  connect(&server, &PrinterServer::Received, this,
          [this](const QByteArray& bytes) { Record(Direction::kFromConsole, bytes); });
  connect(&server, &PrinterServer::Sent, this,
          [this](const QByteArray& bytes) { Record(Direction::kFromPrinter, bytes); });
}

void LineRecorder::Record(Direction direction, const QByteArray& bytes) {
  Record(direction, bytes, WallNow());
}

void LineRecorder::Record(Direction direction, const QByteArray& bytes, WallTime when) {
  if (bytes.isEmpty()) return;
  log_.Append(direction,
              {reinterpret_cast<const std::uint8_t*>(bytes.constData()),
               static_cast<std::size_t>(bytes.size())},
              when);
  if (log_.Settled() < log_.End()) silence_.start();
  emit Recorded();
}

void LineRecorder::Clear() {
  log_.Clear();
  emit Recorded();
}

}  // namespace vantrel
