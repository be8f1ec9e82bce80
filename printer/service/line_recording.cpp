// SPDX-License-Identifier: MIT

#include "printer/service/line_recording.h"

#include "log/line_recorder.h"
#include "printer/service/printer_server.h"

namespace vantrel::printer {

void RecordLineOf(PrinterServer& server, log::LineRecorder& recorder) {
  using protocol::Direction;
  QObject::connect(&server, &PrinterServer::Received, &recorder,
                   [&server, &recorder](const QByteArray& bytes, protocol::Moment when) {
                     recorder.Record(Direction::kFromConsole, bytes,
                                     log::WallNow() - (server.Now() - when));
                   });
  QObject::connect(&server, &PrinterServer::Sent, &recorder, [&recorder](const QByteArray& bytes) {
    recorder.Record(Direction::kFromPrinter, bytes);
  });
  QObject::connect(&server, &PrinterServer::Struck, &recorder, [&recorder](const QString& fault) {
    recorder.Comment("fault: " + fault.toStdString());
  });
  QObject::connect(&server, &PrinterServer::Remarked, &recorder,
                   [&recorder](const QString& remark) { recorder.Remark(remark.toStdString()); });
}

}  // namespace vantrel::printer
