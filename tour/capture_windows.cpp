// SPDX-License-Identifier: MIT

#include "tour/capture_windows.h"

#include "log/capture_writer.h"
#include "log/frm_playback.h"
#include "log/frm_through.h"
#include "log/frm_view.h"
#include "log/playback.h"
#include "log/playback_server.h"
#include "printer/line/pseudo_terminal.h"

#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QTableView>
#include <QTemporaryDir>

#include <stdexcept>
#include <string>
#include <vector>

namespace vantrel::tour {
namespace {

constexpr int kPatience = 10000;  // milliseconds

std::vector<log::LogEntry> RowsOf(const log::LineLog& log) {
  std::vector<log::LogEntry> rows;
  for (std::size_t i = log.First(); i < log.End(); ++i) rows.push_back(log.At(i));
  return rows;
}

void Write(const QString& path, const std::vector<log::LogEntry>& rows) {
  std::string bytes = log::CaptureStart({});
  for (const log::LogEntry& row : rows) log::AppendPacket(bytes, row);
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly) ||
      file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0)
    throw std::runtime_error(path.toStdString() + " cannot be written.");
}

void WaitUntil(const std::function<bool()>& holds, const char* what) {
  const QDeadlineTimer limit(kPatience);
  while (!holds()) {
    if (limit.hasExpired()) throw std::runtime_error(std::string(what) + " did not come.");
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  }
}

// As another day's capture: the first reply has another status, and the third exchange is missing.
std::vector<log::LogEntry> Changed(std::vector<log::LogEntry> rows) {
  constexpr std::size_t kReply = 2;
  constexpr int kExchange = 3;  // command, 06h, reply
  if (rows.size() < 3 * kExchange) throw std::runtime_error("The log is too short.");
  std::string& reply = rows[kReply].bytes;
  // 20h and 22h differ in one bit, and so does the block check then.
  for (const std::size_t place : {std::size_t{2}, reply.size() - 1})
    reply.at(place) = static_cast<char>(static_cast<unsigned char>(reply.at(place)) ^ 0x02U);
  rows.erase(rows.begin() + 2 * kExchange, rows.begin() + 3 * kExchange);
  return rows;
}

void ShowCaptures(const QStringList& paths, int rows, const QString& name,
                  const Photographer& photograph) {
  log::FrmView form(paths);
  form.show();
  const auto* table = form.findChild<QTableView*>("TxtView");
  WaitUntil([&] { return table->model()->rowCount() >= rows; }, "The capture's rows");
  const auto* state = form.findChild<QLabel*>("LblView");
  if (paths.size() > 1)
    WaitUntil([&] { return state->text().contains("4 lines differ"); }, "The differences");
  photograph(form, name);
}

}  // namespace

void PhotographCaptureWindows(log::LineRecorder& recorder, dialogs::Helpers helpers,
                              const Photographer& photograph) {
  const std::vector<log::LogEntry> rows = RowsOf(recorder.Log());
  const QTemporaryDir folder;
  const QString first = folder.filePath("first.pcapng");
  const QString second = folder.filePath("second.pcapng");
  Write(first, rows);
  Write(second, Changed(rows));
  const int count = static_cast<int>(rows.size());
  ShowCaptures({first}, count, "capture", photograph);
  ShowCaptures({first, second}, count, "captures-compared", photograph);

  log::Playback playback(rows, {});
  log::LineRecorder played;
  log::PlaybackServer server(playback, printer::MakePseudoTerminal(), played);
  log::FrmPlayback playback_form("first.pcapng", server, played, helpers);
  playback_form.show();
  photograph(playback_form, "playback");

  log::FrmThrough through_form("/dev/pts/3", "/dev/ttyUSB0", recorder, helpers);
  through_form.show();
  photograph(through_form, "through");
  through_form.TellEnd("/dev/ttyUSB0 has gone.");
  photograph(through_form, "through-ended");
}

}  // namespace vantrel::tour
