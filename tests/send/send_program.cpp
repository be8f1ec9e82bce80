// SPDX-License-Identifier: MIT

#include "tests/send/send_program.h"

#include "tests/support/patience.h"

#include <QJsonDocument>

namespace vantrel::send {

void SendProgram::Begin(const QStringList& options) {
  device_ = QString::fromStdString(Serve(QStringList{"--script"} + options));
  ASSERT_TRUE(device_.startsWith("/dev/"));
}

void SendProgram::BeginOnTcp(const QStringList& options) {
  device_ = "tcp:" + QString::fromStdString(Serve(QStringList{"--script", "--tcp", "0"} + options));
  ASSERT_GT(device_.size(), 10);
}

std::string SendProgram::Ask(const std::string& line) {
  program_.write((line + '\n').c_str());
  return ReadLine();
}

Ended SendProgram::Send(const QStringList& words, const QByteArray& input) {
  return SendTo(QStringList{"--port", device_} + words, input);
}

Ended SendProgram::SendTo(const QStringList& words, const QByteArray& input) {
  QProcess process;
  process.start(VANTREL_SEND_PROGRAM, words);
  process.write(input);
  process.closeWriteChannel();
  return EndOf(process);
}

std::unique_ptr<QProcess> SendProgram::StartSending(const QStringList& words) {
  auto process = std::make_unique<QProcess>();
  process->start(VANTREL_SEND_PROGRAM, QStringList{"--port", device_} + words);
  process->waitForStarted();
  return process;
}

Ended SendProgram::EndOf(QProcess& process) {
  const bool ended =
      process.state() == QProcess::NotRunning || process.waitForFinished(support::kPatience);
  const bool normal = ended && process.exitStatus() == QProcess::NormalExit;
  if (!ended) process.kill();
  return {normal ? process.exitCode() : -1, process.readAllStandardOutput(),
          process.readAllStandardError()};
}

std::vector<QJsonObject> SendProgram::Objects(const QByteArray& out) {
  std::vector<QJsonObject> objects;
  for (const QByteArray& line : out.split('\n')) {
    if (line.isEmpty()) continue;
    const QJsonDocument document = QJsonDocument::fromJson(line);
    EXPECT_TRUE(document.isObject()) << line.toStdString();
    objects.push_back(document.object());
  }
  return objects;
}

}  // namespace vantrel::send
