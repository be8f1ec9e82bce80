// SPDX-License-Identifier: MIT
#pragma once

#include "link/port.h"

#include <QObject>
#include <QSerialPort>
#include <QTimer>

#include <functional>
#include <string>

namespace vantrel::link {

// A serial port of the system, or a pseudo-terminal. Port 1 at "9600,N,8,1" and closed when made.
class SerialPort : public QObject, public Port {
  Q_OBJECT

 public:
  // Tells the path of a port number's device; asked at every Open.
  using DeviceOf = std::function<std::string(int port_number)>;

  // While the port is open the device is asked every `watch_interval` milliseconds whether it is
  // still there.
  explicit SerialPort(DeviceOf device_of = SystemDevice, int watch_interval = 400);
  ~SerialPort() override;

  void SetListener(PortListener* listener) override { listener_ = listener; }
  void SetCommPort(int number) override;
  void SetSettings(const std::string& settings) override;
  bool IsOpen() const override { return port_.isOpen(); }
  std::string Device() const override { return device_.empty() ? device_of_(number_) : device_; }
  void Open() override;
  void Close() override;
  Bytes Input() override;
  void DiscardInput() override;
  void DiscardOutput() override;
  void Output(const Bytes& bytes) override;

 private:
  // Asks the device itself whether it is still there; some versions of the library do not tell.
  bool IsGone() const;
  void CheckDevice();
  // Closes the port of a device that is gone and returns the error to report.
  PortError CloseGone();
  std::string Name() const;

  QSerialPort port_;
  QTimer watch_;
  DeviceOf device_of_;
  PortListener* listener_ = nullptr;
  int number_ = 1;
  int speed_ = 9600;
  bool check_pending_ = false;
  std::string device_;  // the device that was opened last
};

}  // namespace vantrel::link
