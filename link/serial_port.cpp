// SPDX-License-Identifier: MIT

#include "link/serial_port.h"

#include <QFileInfo>

#include <grp.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

namespace vantrel::link {
namespace {

// The group whose members may use the device; empty when the group has no access either.
std::string GroupOf(const std::string& device) {
  struct stat status = {};
  if (stat(device.c_str(), &status) != 0 || (status.st_mode & 0060) != 0060) return {};
  const group* entry = getgrgid(status.st_gid);
  return entry != nullptr ? entry->gr_name : std::to_string(status.st_gid);
}

OpenFailure FailureOf(const std::string& device, QSerialPort::SerialPortError error) {
  if (error == QSerialPort::DeviceNotFoundError) return OpenFailure::kNotFound;
  if (error != QSerialPort::PermissionError) return OpenFailure::kOther;
  // The library reports a lock that another program holds as a permission error, too.
  const bool forbidden = access(device.c_str(), R_OK | W_OK) != 0 && errno == EACCES;
  return forbidden ? OpenFailure::kNoPermission : OpenFailure::kInUse;
}

}  // namespace

SerialPort::SerialPort(DeviceOf device_of, int watch_interval) : device_of_(std::move(device_of)) {
  watch_.setInterval(watch_interval);
  connect(&watch_, &QTimer::timeout, this, &SerialPort::CheckDevice);
  connect(&port_, &QSerialPort::readyRead, this, [this] {
    if (listener_ != nullptr) listener_->OnComm(PortListener::kReceive);
  });
  // An error alone does not mean that the device is gone: a blocked line gives one, too. The port
  // must not be closed inside its own report either, so the check comes on the next turn.
  connect(&port_, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError error) {
    if (error == QSerialPort::NoError || check_pending_ || !port_.isOpen()) return;
    check_pending_ = true;
    QMetaObject::invokeMethod(this, &SerialPort::CheckDevice, Qt::QueuedConnection);
  });
}

SerialPort::~SerialPort() { SerialPort::Close(); }

std::string SerialPort::Name() const {
  return "COM " + std::to_string(number_) + " (" + Device() + ")";
}

void SerialPort::SetCommPort(int number) {
  number_ = number;
  device_.clear();
}

void SerialPort::SetSettings(const std::string& settings) {
  // The speed stands before the first comma; the line's format is 8 data bits, no parity, 1 stop
  // bit for every entry, and is set before the port is opened.
  speed_ = QString::fromStdString(settings).section(',', 0, 0).toInt();
  if (IsOpen() && !port_.setBaudRate(speed_))
    throw SettingsRefused(Name(), settings, port_.errorString().toStdString());
}

void SerialPort::Open() {
  Close();
  const QFileInfo chosen(QString::fromStdString(device_of_(number_)));
  // The lock is the one that other programs see only when it goes by the name of the device itself.
  const QString target = chosen.canonicalFilePath();
  const QString path = target.isEmpty() ? chosen.filePath() : target;
  device_ = path.toStdString();
  port_.setPortName(path);
  port_.setBaudRate(speed_);
  port_.setParity(QSerialPort::NoParity);
  port_.setDataBits(QSerialPort::Data8);
  port_.setStopBits(QSerialPort::OneStop);
  port_.setFlowControl(QSerialPort::NoFlowControl);
  if (!port_.open(QIODevice::ReadWrite)) {
    const OpenFailure failure = FailureOf(device_, port_.error());
    throw CannotOpen(Name(), failure, port_.errorString().toStdString(), GroupOf(device_));
  }
  port_.clear();
  watch_.start();
}

void SerialPort::Close() {
  watch_.stop();
  if (port_.isOpen()) port_.close();
}

Bytes SerialPort::Input() {
  const QByteArray bytes = port_.isOpen() ? port_.readAll() : QByteArray();
  return {bytes.begin(), bytes.end()};
}

void SerialPort::DiscardInput() {
  if (port_.isOpen()) port_.clear(QSerialPort::Input);
}

void SerialPort::DiscardOutput() {
  if (port_.isOpen()) port_.clear(QSerialPort::Output);
}

void SerialPort::Output(const Bytes& bytes) {
  if (!IsOpen()) throw NotOpen(Name());
  const auto size = static_cast<qint64>(bytes.size());
  const bool taken = port_.write(reinterpret_cast<const char*>(bytes.data()), size) == size;
  // Writing only queues. What is still queued at the next notification would be discarded then.
  port_.flush();
  if (IsGone()) throw CloseGone();
  if (!taken) throw WriteFailed(Name(), port_.errorString().toStdString());
}

bool SerialPort::IsGone() const {
  pollfd descriptor = {port_.handle(), 0, 0};
  return poll(&descriptor, 1, 0) > 0 && (descriptor.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

void SerialPort::CheckDevice() {
  check_pending_ = false;
  if (!IsOpen() || !IsGone()) return;
  const PortError error = CloseGone();
  if (listener_ != nullptr) listener_->OnLost(error);
}

PortError SerialPort::CloseGone() {
  // At a hang-up the library's own words may stem from an earlier call, so they are not used.
  Close();
  return DeviceGone(Name(), std::strerror(EIO));
}

}  // namespace vantrel::link
