// SPDX-License-Identifier: MIT

#include "app/printer_process.h"

#include <QCoreApplication>

#include <signal.h>
#include <sys/prctl.h>

#include <stdexcept>

namespace vantrel::app {
namespace {

constexpr int kStartLimit = 10000;  // milliseconds
constexpr int kEndLimit = 3000;
constexpr int kEndingLimit = 500;

}  // namespace

PrinterProcess::PrinterProcess(const QStringList& options) {
  const QString program = QCoreApplication::applicationDirPath() + "/vantrel-printer";
  process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  // The console may end without a word; the printer must not outlive it.
  process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGTERM); });
  process_.start(program, options);
  while (!process_.canReadLine() && process_.waitForReadyRead(kStartLimit)) {
  }
  device_path_ = process_.readLine().trimmed().toStdString();
  if (device_path_.empty())
    throw std::runtime_error(program.toStdString() +
                             " did not start: " + process_.errorString().toStdString());
}

PrinterProcess::~PrinterProcess() {
  if (process_.state() == QProcess::NotRunning) return;
  process_.terminate();
  if (!process_.waitForFinished(kEndLimit)) process_.kill();
}

bool PrinterProcess::HasEnded() {
  return process_.state() == QProcess::NotRunning || process_.waitForFinished(kEndingLimit);
}

}  // namespace vantrel::app
